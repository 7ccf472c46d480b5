// SPDX-License-Identifier: MIT
#pragma once

#include "abstractdocument.h"
#include "positionhistory.h"
#include "registryinquiry.h"
#include "tilldocuments.h"

#include <QDate>
#include <QList>
#include <QSharedPointer>
#include <QStringList>

#include <optional>

class ElectronicPrescriptionInterface;

/// Brings the prescription positions of one document together with the registry.
///
/// What the journal knows is applied without the network. What it does not know is asked of the registry, and what the
/// registry does not show clearly is asked of the cashier. A decision is saved with the document before the journal
/// forgets the request. Nothing is sent that changes the registry.
class DocumentSettling
{
public:
    using Positions = QList<QSharedPointer<GoodsItem>>;

    /// @param registry is not owned and outlives this object
    /// @param documents of the command; not owned, outlives this object
    /// @param document not null
    /// @param statuses of prescriptions to ask the registry for, in this order
    DocumentSettling(const ElectronicPrescriptionInterface& registry, TillDocuments& documents,
                     const QSharedPointer<AbstractDocument>& document, const QStringList& statuses);

    /// Applies the answers that did not reach the document, and marks the positions whose outcome is open.
    void applyAnswers();

    /// Decides what is open of these positions.
    ///
    /// @return false when something stays undecided: the registry could not be asked, which the cashier has read; the
    ///         cashier put the decision off; the document could not be saved, which the cashier has read; or the
    ///         registry holds a dispense of a sale that was cancelled or voided
    bool decide(const Positions& positions);

    /// Decides what cannot be cancelled: dispenses of these positions whose ids the registry has not shown.
    ///
    /// The cashier reads that the till cannot cancel them, and who can, and may say that one has been cancelled.
    ///
    /// @return false when such a dispense is left, or as for decide()
    bool decideWithoutIds(const Positions& positions);

    /// Decides the requests of positions that the document does not have any more.
    ///
    /// @return false when something is left: it is among putOff()
    ///
    /// Throws ElectronicPrescriptionException when the registry cannot be asked.
    bool decideRemoved();

    /// False when decide() could not ask the registry.
    bool couldAsk() const { return m_couldAsk; }

    /// Lets the journal forget the requests whose outcome the saved document has.
    void forgetAnswers();

    /// Reports the dispenses of this pharmacy, of that day, that no document of the till has.
    ///
    /// Throws ElectronicPrescriptionException when the registry cannot be asked.
    void findUnclaimed(const QDate& day);

    /// What was found out so far, a sentence each.
    const QStringList& findings() const { return m_findings; }
    /// The dispenses that the registry does not hold, a sentence each: no news to a subtotal, which sends them.
    const QStringList& missing() const { return m_missing; }
    /// What is not decided, a sentence each.
    const QStringList& putOff() const { return m_putOff; }

private:
    /// A position whose outcome is open.
    struct Undecided {
        QSharedPointer<GoodsItem> position;
        PositionHistory history;
        DispenseRequest open;
    };
    enum class Verdict {
        Registered,
        NotRegistered, ///< never, or not any more
        Undecided,
    };
    struct Decision {
        Verdict verdict;
        QString dispense = {}; ///< the registered one's id; empty: the registry does not show it
    };

    PositionHistory historyOf(const GoodsItem& position) const;
    bool applyAnswer(GoodsItem& position, const PositionHistory& history);
    void noteRegistered(const GoodsItem& position);
    void noteCancelled(const GoodsItem& position);

    // Which dispenses of the registry a request may have made

    /// The dispenses that may be that of the request, without those that the till's documents have.
    QList<RegistryDispense> candidates(const ShownPrescription& shown, const DispenseRequest& request,
                                       const GoodsItem* position);
    /// The documents, with the one that is settled as it is in memory.
    TillDocuments::Documents withThisOne(TillDocuments::Documents documents) const;

    // Decisions

    /// The request that is to be decided; empty: there is none.
    std::optional<DispenseRequest> openRequestOf(const GoodsItem& position, const PositionHistory& history) const;
    bool askRegistry(const QList<Undecided>& undecided);
    bool decide(const QList<Undecided>& undecided);
    Decision decisionOf(const Undecided& undecided);
    Decision decisionOfRegistration(const Undecided& undecided, const ShownPrescription& shown);
    Decision decisionOfCancellation(const Undecided& undecided, const ShownPrescription& shown) const;
    void showWhatHasNoId(const QList<Undecided>& undecided);
    bool isShownAsGone(const Undecided& undecided);
    Decision decisionWithoutId(const Undecided& undecided);
    static Decision askCashier(const Undecided& undecided, const QList<RegistryDispense>& possible);
    bool carryOut(const Decision& decision, const Undecided& undecided);
    void note(const Decision& decision, const Undecided& undecided);
    QList<DispenseRequest> openRequestsOfRemoved() const;
    bool decideRemoved(const DispenseRequest& request);
    bool save();

    const ElectronicPrescriptionInterface& m_registry;
    TillDocuments& m_documents;
    const QSharedPointer<AbstractDocument> m_document;
    RegistryInquiry m_inquiry;
    QStringList m_findings;
    QStringList m_missing;
    QStringList m_putOff;
    bool m_couldAsk = true;
    bool m_isSaved = true; ///< false: the document has something that its file lacks
};

/// The positions of the document that come from prescriptions.
DocumentSettling::Positions prescriptionPositionsOf(const AbstractDocument& document);

/// True for a position with a dispense that the registry holds although nothing was handed out.
bool isHeldInVain(const AbstractDocument& document, const GoodsItem& position);
