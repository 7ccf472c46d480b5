// SPDX-License-Identifier: MIT
#pragma once

#include "tr.h"

#include <QApplication>
#include <QHash>

/// The application of the register: no exception leaves an event and ends the process.
///
/// An event that a plug-in's object receives, such as a timer's, is handled in a PluginScope of that plug-in. An
/// exception is caught where the event was delivered, logged with the plug-in's name, and
/// - ends the form that the receiver belongs to: whoever asked it gets the exception from
///   GraphicalUserInterface::run();
/// - is reported by failed() when the receiver belongs to no form.
class GuardedApplication : public QApplication
{
    Q_OBJECT

public:
    /// @param argc, argv outlive the application
    GuardedApplication(int& argc, char** argv);
    ~GuardedApplication() override;

    bool notify(QObject* receiver, QEvent* event) override;

signals:
    /// An exception left an event, and no form waits for it. It comes from the event loop, not during the event.
    /// @param plugin empty when it is not known
    /// @param text for the cashier
    void failed(const QString& plugin, const tr::Tr& text);

private:
    bool guard(QObject& receiver, QEvent& event, const QString& plugin);
    QString pluginOf(const QObject& object);

    QHash<const QMetaObject*, QString> m_plugins; ///< whose class it is; empty: no plug-in's
};
