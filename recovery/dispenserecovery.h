// SPDX-License-Identifier: MIT
#pragma once

#include "action.h"
#include "baseactivitylistener.h"
#include "basicplugin.h"
#include "documentsettling.h"
#include "documentwatcher.h"
#include "econtext.h"
#include "event.h"

#include <QStringList>

#include <memory>

class ElectronicPrescriptionInterface;

/// After a lost answer or a power cut it finds out what the registry holds of a document's prescriptions, before
/// anything else is sent for them: docs/reliability.md.
///
/// Its hooks run before those of the prescription plug-in. It asks the registry, and changes nothing there.
class DispenseRecovery : public BaseActivityListener, public BasicPlugin, private DocumentWatcher
{
public:
    /// The command that goes through all documents of the day; an entry of the menu is configured with this number.
    static constexpr auto reconcileCommand = control::EActionType(2001);

    DispenseRecovery();
    ~DispenseRecovery() override;
    Q_DISABLE_COPY_MOVE(DispenseRecovery)

    /// @return false, with nothing registered, when the prescription plug-in is switched off
    ///
    /// Throws BasicException when the journal of requests leaves out those about dispenses ("RestClient:journal").
    bool init() override;
    void deinit() override;

    void handleEvent(const Event& event) override;

    // The hooks

    /// Before a subtotal: everything of the document that is open.
    EContext::Result beforeSubtotal();
    /// Before a document is cancelled.
    EContext::Result beforeCancelling();
    /// Before a position of a sale is removed: the position's.
    EContext::Result beforeRemoving(const control::Action& action);
    /// Before a stored document is voided.
    EContext::Result beforeVoiding(const control::Action& action);

    /// Goes through the open, the suspended and today's closed documents and through all requests of the journal,
    /// prints what it found, and shows it.
    EContext::Result reconcile();

private:
    /// What the prescription plug-in is going to send for the positions.
    enum class Sending {
        Nothing,
        Registrations,
        Cancellations, ///< each needs the dispense's id
    };

    void applyAnswers(const QSharedPointer<AbstractDocument>& document) const;
    EContext::Result decide(const QSharedPointer<AbstractDocument>& document,
                            const DocumentSettling::Positions& positions, Sending sending) const;
    EContext::Result decide(const QSharedPointer<AbstractDocument>& document, Sending sending) const;
    void takeUp(const QSharedPointer<AbstractDocument>& document) const;
    /// Says in the status line what only the reconciliation decides.
    void warnOfUndecided(TillDocuments& documents) const;

    std::unique_ptr<ElectronicPrescriptionInterface> m_registry; ///< null before init()
    QStringList m_statuses;
    bool m_isJournalDoubtful = false; ///< requests of former runs may be missing in it, and nothing was compared since
};
