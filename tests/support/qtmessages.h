// SPDX-License-Identifier: MIT
#pragma once

#include <QMutex>
#include <QMutexLocker>
#include <QStringList>

/// Collects what Qt would write to stderr while it lives, from every thread. One at a time.
class QtMessages
{
public:
    QtMessages()
    {
        collected().clear();
        m_former = qInstallMessageHandler(&QtMessages::collect);
    }
    ~QtMessages() { qInstallMessageHandler(m_former); }
    Q_DISABLE_COPY_MOVE(QtMessages)

    /// Those that contain `part`.
    QStringList with(const QString& part) const
    {
        const QMutexLocker lock(&mutex());
        return collected().filter(part);
    }

private:
    static QMutex& mutex()
    {
        static QMutex theMutex;
        return theMutex;
    }
    static QStringList& collected()
    {
        static QStringList all;
        return all;
    }
    static void collect(QtMsgType, const QMessageLogContext&, const QString& message)
    {
        const QMutexLocker lock(&mutex());
        collected().append(message);
    }

    QtMessageHandler m_former = nullptr;
};
