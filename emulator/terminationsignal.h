// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QSocketNotifier>

namespace emulator
{
/// Turns SIGTERM, SIGINT and SIGHUP into a Qt signal in the main thread. A program has one at most.
class TerminationSignal : public QObject
{
    Q_OBJECT

public:
    /// Throws EmulatorError when the signals cannot be caught.
    explicit TerminationSignal(QObject* parent = nullptr);
    ~TerminationSignal() override;

signals:
    void received();

private:
    std::unique_ptr<QSocketNotifier> m_notifier;
};
} // namespace emulator
