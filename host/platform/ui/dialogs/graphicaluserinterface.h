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

#include <exception>
#include <memory>

class ScanGuard;
struct FormHost;

/// The forms on the screen: who makes them, which is on top, what they answer. Main thread.
class REGISTERPLATFORM_EXPORT GraphicalUserInterface
{
public:
    GraphicalUserInterface();
    virtual ~GraphicalUserInterface();
    Q_DISABLE_COPY_MOVE(GraphicalUserInterface)

    /// Adds a creator behind those that are there; null is passed over.
    virtual void addFormCreator(const QSharedPointer<BasicFormCreator>& creator);

    /// The form of the first creator that knows the event (the platform's own message and text-input forms come
    /// last); null when nobody does. A creator that throws is passed over, and its exception goes on only when nobody
    /// else knows the event: a creator that fails at everything does not take the messages away.
    virtual QSharedPointer<BasicForm> createForm(const Event& event) const;

    /// Shows a form and waits in an event loop for its answer, which is returned. Input blockers are paused meanwhile;
    /// afterwards the focus goes back to where it was. A form that ends without an answer of its own (dismissed,
    /// without a root widget, or the application ends) answers -1 under "data" and "status", and is canceled().
    ///
    /// Throws what fail() was given for this form, and a BasicException when the caller keeps on asking while forms are
    /// being cancelled.
    virtual core::BasicDialog::Result run(const QSharedPointer<BasicForm>& form);

    /// Gives the form on top its answer: ends its run(). Without a form, or when it has its answer, nothing happens.
    virtual void answer(const control::Action& action);
    /// The same with the answer's values under their names.
    void answer(const QVariantMap& values);

    /// The topmost form that has no answer yet; null when there is none.
    QSharedPointer<BasicForm> topForm() const;

    /// Cancels the forms on the screen, the top one first, as closing them does: for the end of the program. A form
    /// that does not answer then is dismissed. Each run() returns once control is back in it.
    ///
    /// A caller may ask again, so that several calls are needed. After 50 forms that were cancelled like this, with
    /// none answered in between, run() throws instead; after another 50, FormHost::giveUp is called.
    void cancelForms();

    /// Ends the run() of the topmost form that `source` belongs to and that has no answer yet: run() throws that
    /// exception. For the host, which catches what leaves an event: an exception never unwinds the event loop of run().
    /// @param source the form, a child of it, or a widget of its tree
    /// @return false when there is no such form
    bool fail(const QObject& source, const std::exception_ptr& exception);

    /// The host's side; a plug-in has no use for it.
    FormHost& host() { return *m_host; }

private:
    struct Shown;

    void enter(BasicForm& form);
    void cancel(Shown& shown);
    void close(Shown& shown);

    std::unique_ptr<FormHost> m_host;
    QList<Shown*> m_shown;
    Shown* m_cancelling = nullptr;          ///< takes the next answer, wherever it stands
    std::unique_ptr<ScanGuard> m_scanGuard; ///< from the first form on
    int m_cancelledInARow = 0;              ///< how many forms were cancelled since one was answered
};

extern template struct REGISTERPLATFORM_EXPORT Singleton<GraphicalUserInterface>;
