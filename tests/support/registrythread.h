// SPDX-License-Identifier: MIT
#pragma once

#include "registryemulator.h"

#include <QObject>
#include <QString>
#include <QThread>
#include <QUrl>

#include <memory>
#include <type_traits>

/// A registry emulator in a thread of its own: it answers at once even while the test's thread is busy.
class RegistryThread
{
public:
    /// Starts the emulator and waits until it is ready.
    RegistryThread(const emulator::EmulatorSettings& settings, const QString& seedFile)
    {
        m_context.moveToThread(&m_thread);
        m_thread.start();
        within([&] {
            m_registry = std::make_unique<emulator::RegistryEmulator>(settings);
            m_registry->seedFromFile(seedFile);
            m_registry->start();
            m_url = m_registry->url();
        });
    }
    ~RegistryThread()
    {
        within([this] { m_registry.reset(); });
        m_thread.quit();
        m_thread.wait();
    }
    Q_DISABLE_COPY_MOVE(RegistryThread)

    QUrl url() const { return m_url; }

    /// Calls the function with the emulator in the emulator's thread, waits, and returns its result.
    template <typename Function>
    auto ask(Function function) const
    {
        if constexpr (std::is_void_v<std::invoke_result_t<Function, emulator::RegistryEmulator&>>) {
            within([&] { function(*m_registry); });
        } else {
            std::invoke_result_t<Function, emulator::RegistryEmulator&> result{};
            within([&] { result = function(*m_registry); });
            return result;
        }
    }

private:
    template <typename Function>
    void within(const Function& function) const
    {
        QMetaObject::invokeMethod(const_cast<QObject*>(&m_context), function, Qt::BlockingQueuedConnection);
    }

    QThread m_thread;
    QObject m_context; ///< lives in the thread
    std::unique_ptr<emulator::RegistryEmulator> m_registry;
    QUrl m_url;
};
