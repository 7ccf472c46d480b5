// SPDX-License-Identifier: MIT
#pragma once

#include "export.h"
#include "singleton.h"

#include <QObject>
#include <QTimer>

/// Notifies the host when the register has not been used for a while.
///
/// Every key, click and touch counts as use. The time, in seconds, is "GUI:inactivityLockSeconds" of the configuration,
/// read by start(). 0, the default, means never.
class REGISTERPLATFORM_EXPORT InactivityLocker : public QObject
{
    Q_OBJECT

public:
    explicit InactivityLocker(QObject* parent = nullptr);

    /// Starts to watch the application.
    void start();

    bool eventFilter(QObject* watched, QEvent* event) override;

public slots:
    /// Starts the time again.
    void resetTimer();

signals:
    /// The time is over. The host locks the screen; open forms stay open below.
    void lock();

private:
    QTimer m_timer;
};

extern template struct REGISTERPLATFORM_EXPORT Singleton<InactivityLocker>;
