// SPDX-License-Identifier: MIT
#pragma once

#include "busyscreen.h"
#include "formhost.h"
#include "graphicaluserinterface.h"
#include "helpparams.h"
#include "lockscreen.h"
#include "longwork.h"
#include "salesscreen.h"
#include "statusline.h"

#include <QList>
#include <QPointer>
#include <QWidget>

class FormLayer;
class QShortcut;

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
    void waitUntilSeen(QEventLoop& loop) override;
    void enter(BasicForm& form) override;
    void leave(BasicForm& form) override;

    bool eventFilter(QObject* watched, QEvent* event) override;

public slots:
    /// Covers the window until the cashier comes back. Open forms stay open below, and nothing of them is seen. A form
    /// that is shown meanwhile waits until then.
    void lock();
    /// Shows the keys that work on the screen in front, and what comes next there; closes the help when it is open.
    void showHelp();
    /// Closes the window although it is locked: for the end of the program.
    void shutDown();

protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void arrangeGround();
    void offerCommands();
    void showWork(const LongWork& longWork);
    void showDocuments(const Till& till);
    void showConflicts(const QList<FunctionKey>& keys);
    void unwind();
    void goOnUnwinding();
    bool isAtWork() const;
    bool goesOn(const QEvent& event) const;
    static bool isHelpOnTop();
    HelpParams helpOfGround() const;
    void arrangeLayers();
    void cover();
    void uncover();
    void keepFocusInLock(QWidget* focused);
    void showStop(const control::Action& action, EContext::Result result);

    QWidget* m_stage; ///< all but the lock
    SalesScreen* m_sales;
    StatusLine* m_statusLine;
    QWidget* m_ground;
    BusyScreen* m_busy;
    LockScreen* m_lock;
    QShortcut* m_help;
    bool m_isHelpKeyTaken; ///< on the sales screen, by a function key
    QList<FormLayer*> m_layers;
    QPointer<QWidget> m_focusBelowLock;
    bool m_isUnwinding = false;
    bool m_isShuttingDown = false;
};
