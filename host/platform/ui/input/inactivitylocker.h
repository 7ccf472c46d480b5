// SPDX-License-Identifier: MIT
#pragma once

#include "export.h"
#include "singleton.h"

#include <QObject>
#include <QTimer>

/// Tells the host when nobody has touched the register for a while.
///
/// Every key, click and touch counts as activity. The time is "GUI:inactivityLockSeconds" of the configuration, read
/// by start(); 0, the default: never.
class REGISTERPLATFORM_EXPORT InactivityLocker : public QObject
{
    Q_OBJECT

public:
    explicit InactivityLocker(QObject* parent = nullptr);

    /// Begins to watch the application.
    void start();

    bool eventFilter(QObject* watched, QEvent* event) override;

public slots:
    /// The time begins anew.
    void resetTimer();

signals:
    /// The time has run out. The host cancels what is open and locks the screen.
    void lock();

private:
    QTimer m_timer;
};

extern template struct REGISTERPLATFORM_EXPORT Singleton<InactivityLocker>;
