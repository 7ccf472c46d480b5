// SPDX-License-Identifier: MIT
#pragma once

#include "export.h"

#include <QList>
#include <QSharedPointer>
#include <QString>

#include <functional>

class BasicForm;
class BasicFormCreator;
class QEventLoop;

/// Where forms appear: the register's window. Without one every form is a window of its own.
///
/// A BasicDialogForm's root becomes a child of the window outside any layout: its show() places it in the middle, above
/// a shade. Any other form's root fills the window.
class REGISTERPLATFORM_EXPORT FormStage
{
public:
    virtual ~FormStage();
    /// Runs the event loop until forms can be seen. The loop quits, too, when the form was answered meanwhile, by
    /// GraphicalUserInterface::cancelForms(). Then it is not put on the screen.
    virtual void waitUntilSeen(QEventLoop&) {}
    /// Puts the form's root widget on the screen, above what is there.
    virtual void enter(BasicForm& form) = 0;
    /// Takes it away and shows what was below.
    virtual void leave(BasicForm& form) = 0;
};

/// The host's side of the forms: who makes them, and where they appear.
///
/// Found through GraphicalUserInterface::host(). Main thread.
struct FormHost {
    /// Asked in this order. The host drops those of a plug-in whose init() failed, and all before the plug-ins are
    /// unloaded.
    QList<QSharedPointer<BasicFormCreator>> creators;
    /// Null: every form is a window of its own. Not owned.
    FormStage* stage = nullptr;
    /// Called when somebody catches everything and asks again while forms are being cancelled: only the end of the
    /// process helps. Empty: the forms go on being cancelled.
    std::function<void()> giveUp;
    /// The last message that was shown, whole. The host empties it when it has no use for it any more.
    QString lastMessage = {};
};
