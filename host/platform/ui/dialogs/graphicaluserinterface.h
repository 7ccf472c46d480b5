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

    /// Cancels the forms on the screen, the top one first, as closing them does: for the end of the program.
    /// A form that does not answer then is dismissed. Each run() returns once control is back in it.
    void cancelForms();

    /// The host's side; a plug-in has no use for it.
    FormHost& host() { return *m_host; }

private:
    struct Shown;

    void enter(BasicForm& form);
    void cancel(Shown& shown);

    std::unique_ptr<FormHost> m_host;
    QList<Shown*> m_shown;
    Shown* m_cancelling = nullptr;          ///< takes the next answer, wherever it stands
    std::unique_ptr<ScanGuard> m_scanGuard; ///< from the first form on
};

extern template struct REGISTERPLATFORM_EXPORT Singleton<GraphicalUserInterface>;
