// SPDX-License-Identifier: MIT
#pragma once

#include "baseactivitylistener.h"

#include <QString>
#include <QStringList>

/// Long work of the plug-ins. Event 72 begins it and 73 ends it; pairs of them may nest.
class LongWork : public BaseActivityListener
{
    Q_OBJECT

public:
    using BaseActivityListener::BaseActivityListener;

    bool isRunning() const { return !m_messages.isEmpty(); }

public slots:
    void handleEvent(const Event& event) override;

signals:
    /// Work began, or the inner one of two ended. `message` describes the work that is going on now.
    void running(const QString& message);
    /// All work has ended. Keys and clicks during the work are thrown away.
    void ended();

private:
    QStringList m_messages;
};
