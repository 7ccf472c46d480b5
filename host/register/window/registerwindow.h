// SPDX-License-Identifier: MIT
#pragma once

#include "busyscreen.h"
#include "formhost.h"
#include "graphicaluserinterface.h"
#include "lockscreen.h"
#include "longwork.h"
#include "salesscreen.h"
#include "statusline.h"

#include <QList>
#include <QPointer>
#include <QWidget>

class FormLayer;

/// The register's window: the sales screen, the forms above it, the busy screen and the lock screen.
class RegisterWindow : public QWidget, public FormStage
{
    Q_OBJECT

public:
    /// @param longWork not owned
    RegisterWindow(Till& till, const PositionMarks& marks, const QList<FunctionKey>& keys, const LongWork& longWork,
                   const QString& unlockCode);
    ~RegisterWindow() override;

    StatusLine& statusLine() { return *m_statusLine; }

    // FormStage
    void enter(BasicForm& form) override;
    void leave(BasicForm& form) override;

    bool eventFilter(QObject* watched, QEvent* event) override;

public slots:
    /// Cancels all open forms, then covers the window until the cashier comes back.
    void lock();

protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    /// Why the open forms are being cancelled.
    enum class Unwinding { No, ToClose, ToLock };

    void arrangeGround();
    void showWork(const LongWork& longWork);
    void showDocuments(const Till& till);
    void showConflicts(const QList<FunctionKey>& keys);
    void unwind(Unwinding purpose);
    void goOnUnwinding();
    bool isAtWork() const;
    void arrangeLayers();
    void coverWithLock();
    void uncover();
    void showStop(const control::Action& action, EContext::Result result);

    SalesScreen* m_sales;
    StatusLine* m_statusLine;
    QWidget* m_ground;
    BusyScreen* m_busy;
    LockScreen* m_lock;
    QList<FormLayer*> m_layers;
    QPointer<QWidget> m_focusBeforeLock;
    Unwinding m_unwinding = Unwinding::No;
};
