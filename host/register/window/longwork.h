// SPDX-License-Identifier: MIT
#pragma once

#include "baseactivitylistener.h"

#include <QString>
#include <QStringList>

/// Long work of the plug-ins, told by events 72 and 73, which may nest.
class LongWork : public BaseActivityListener
{
    Q_OBJECT

public:
    using BaseActivityListener::BaseActivityListener;

    bool isRunning() const { return !m_messages.isEmpty(); }

public slots:
    void handleEvent(const Event& event) override;

signals:
    /// Work began, or the inner one of two ended: this is what is being done now.
    void running(const QString& message);
    /// No work is left. What was pressed meanwhile has been thrown away.
    void ended();

private:
    QStringList m_messages;
};
