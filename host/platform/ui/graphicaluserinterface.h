// SPDX-License-Identifier: MIT
#pragma once

#include "action.h"
#include "basicdialog.h"
#include "basicform.h"
#include "basicformcreator.h"
#include "event.h"
#include "export.h"
#include "singleton.h"

#include <QList>
#include <QSharedPointer>

#include <memory>

class ScanGuard;

/// Where forms appear: the register's window. Without one every form is a window of its own.
///
/// A BasicDialogForm's root becomes a child of the window outside any layout: its show() places it in the middle, above
/// a shade. Any other form's root fills the window.
class REGISTERPLATFORM_EXPORT FormStage
{
public:
    virtual ~FormStage();
    /// Puts the form's root widget on the screen, above what is there.
    virtual void enter(BasicForm& form) = 0;
    /// Takes it away and shows what was below.
    virtual void leave(BasicForm& form) = 0;
};

/// The forms on the screen: who makes them, which is on top, what they answer. Main thread.
class REGISTERPLATFORM_EXPORT GraphicalUserInterface
{
public:
    GraphicalUserInterface();
    virtual ~GraphicalUserInterface();
    Q_DISABLE_COPY_MOVE(GraphicalUserInterface)

    /// Adds a creator behind those that are there; null is passed over.
    virtual void addFormCreator(const QSharedPointer<BasicFormCreator>& creator);
    /// For the host: how many creators there are.
    int formCreators() const;
    /// For the host: drops the creators but the `kept` oldest ones: those of a plug-in that could not begin, and all
    /// before the plug-ins are unloaded.
    void removeFormCreators(int kept = 0);

    /// The form of the first creator that knows the event (the platform's own message and text-input forms come
    /// last); null when nobody does.
    virtual QSharedPointer<BasicForm> createForm(const Event& event) const;

    /// Shows a form and waits in an event loop for its answer, which is returned. Input blockers are paused meanwhile;
    /// afterwards the focus goes back to where it was. A form that ends without an answer of its own (dismissed, or
    /// the application ends) answers -1 under "data" and "status", and is canceled().
    virtual core::BasicDialog::Result run(const QSharedPointer<BasicForm>& form);

    /// Gives the form on top its answer: ends its run(). Without a form, or when it has its answer, nothing happens.
    virtual void answer(const control::Action& action);
    /// The same with the answer's values under their names.
    void answer(const QVariantMap& values);

    /// The topmost form that has no answer yet; null when there is none.
    QSharedPointer<BasicForm> topForm() const;

    /// Cancels the forms on the screen, the top one first, as closing them does: for the inactivity lock and for
    /// shutdown. A form that does not answer then is dismissed. Each run() returns once control is back in it.
    void cancelForms();

    /// For the host: where forms appear. Null: every form is a window of its own. Not owned.
    void setStage(FormStage* stage);

private:
    struct Shown;

    void cancel(Shown& shown);

    QList<QSharedPointer<BasicFormCreator>> m_creators;
    QList<Shown*> m_shown;
    Shown* m_cancelling = nullptr; ///< takes the next answer, wherever it stands
    FormStage* m_stage = nullptr;
    std::unique_ptr<ScanGuard> m_scanGuard; ///< from the first form on
};

extern template struct REGISTERPLATFORM_EXPORT Singleton<GraphicalUserInterface>;
