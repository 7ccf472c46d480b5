// SPDX-License-Identifier: MIT
#include "reconciliation.h"

#include "dispensequestion.h"
#include "documentsettling.h"
#include "electronicprescriptionexception.h"
#include "longworkscope.h"
#include "recoverytexts.h"
#include "requestjournal.h"

#include <QSet>

using namespace Qt::StringLiterals;

namespace
{

using Outcome = DispenseRequest::Outcome;

/// The dispenses that were registered and cancelled again, as the registry has confirmed.
QSet<QString> cancelledAgain(const QList<DispenseRequest>& requests)
{
    QSet<QString> registered;
    QSet<QString> cancelled;
    for (const DispenseRequest& request : requests) {
        if (request.outcome == Outcome::Done) {
            (request.kind == DispenseRequest::Kind::Registration ? registered : cancelled).insert(request.dispense);
        }
    }
    return registered & cancelled;
}

/// Goes from document to document and adds up what it finds.
class Comparison
{
public:
    Comparison(const ElectronicPrescriptionInterface& registry, const QStringList& statuses)
        : m_registry(registry)
        , m_statuses(statuses)
    {
    }

    void compareDocumentsOf(const QDate& day);
    void compareOthersOfTheJournal();
    Reconciliation result() const;

private:
    enum class Search {
        OwnRequests,
        Unclaimed, ///< also for dispenses that no document has
    };

    void compare(const QSharedPointer<AbstractDocument>& document, const QDate& day, Search search);
    void settle(DocumentSettling& settling, const DocumentSettling::Positions& positions, const QDate& day,
                Search search);
    /// One card may be refused; when the next document fails, too, it is the registry.
    bool isBrokenOff() const { return m_failures > 1; }
    void decideWithoutDocument(const QString& identifier);
    bool decideWithoutDocument(const DispenseRequest& request);

    const ElectronicPrescriptionInterface& m_registry;
    const QStringList& m_statuses;
    TillDocuments m_documents;
    QSet<QString> m_identifiers; ///< of the documents so far
    QStringList m_lines;
    QList<qint64> m_told;
    int m_compared = 0;
    int m_undecided = 0;
    int m_failures = 0; ///< in a row: so many documents could not be compared
};

void Comparison::compareDocumentsOf(const QDate& day)
{
    const auto documents = m_documents.ofDay(day);
    for (const auto& document : documents) {
        if (!prescriptionPositionsOf(*document).isEmpty() && !isBrokenOff()) {
            compare(document, day, Search::Unclaimed);
        }
    }
}

void Comparison::compareOthersOfTheJournal()
{
    const QList<DispenseRequest> requests = dispenseRequests();
    for (const DispenseRequest& request : requests) {
        if (m_identifiers.contains(request.document)) {
            continue;
        }
        if (const auto document = m_documents.find(request.document); !document) {
            m_identifiers.insert(request.document);
            decideWithoutDocument(request.document);
        } else if (!isBrokenOff()) {
            compare(document, {}, Search::OwnRequests);
        }
    }
}

void Comparison::compare(const QSharedPointer<AbstractDocument>& document, const QDate& day, Search search)
{
    m_identifiers.insert(document->identifier());
    DocumentSettling settling(m_registry, m_documents, document, m_statuses);
    settle(settling, prescriptionPositionsOf(*document), day, search);
    const QStringList found = settling.findings() + settling.missing() + settling.putOff();
    for (const QString& line : found) {
        m_lines.append(recoverytexts::ofDocument(document->identifier(), line).ui());
    }
}

void Comparison::settle(DocumentSettling& settling, const DocumentSettling::Positions& positions, const QDate& day,
                        Search search)
{
    const bool isDecided = settling.decide(positions);
    if (!settling.couldAsk()) {
        ++m_failures;
        ++m_undecided;
        return;
    }
    if (isDecided) {
        settling.forgetAnswers();
    }
    try {
        const bool isWhole = settling.decideRemoved() && isDecided;
        if (isDecided && search == Search::Unclaimed) {
            const LongWorkScope work(recoverytexts::asking());
            settling.findUnclaimed(day);
        }
        ++(isWhole ? m_compared : m_undecided);
        m_failures = 0;
    } catch (const ElectronicPrescriptionException& exception) {
        m_lines.append(exception.tr().ui());
        ++m_failures;
        ++m_undecided;
    }
}

/// No card is known of these, so that only the registry's operator can say what became of them.
void Comparison::decideWithoutDocument(const QString& identifier)
{
    bool isWhole = true;
    const QList<DispenseRequest> requests = dispenseRequests();
    const QSet<QString> gone = cancelledAgain(requests);
    for (const DispenseRequest& request : requests) {
        if (request.document != identifier) {
            continue;
        }
        if (request.outcome == Outcome::Done && gone.contains(request.dispense)) {
            Singleton<RequestJournal>::get()->settle(request.id);
        } else if (!decideWithoutDocument(request)) {
            isWhole = false;
        }
    }
    if (!isWhole) {
        ++m_undecided;
    }
}

/// @return false when the cashier has something to do
bool Comparison::decideWithoutDocument(const DispenseRequest& request)
{
    const tr::Tr reason = recoverytexts::withoutDocument(request);
    const auto add = [this, &reason](const tr::Tr& line) { m_lines.append(reason.ui() + u' ' + line.ui()); };
    bool isDone = request.outcome == Outcome::Done;
    if (request.outcome == Outcome::Open) {
        const DispenseChoice choice = dispensequestion::ask(reason, request);
        if (choice.kind == DispenseChoice::Later) {
            add(recoverytexts::undecided(request));
            return false;
        }
        const bool isHeld = choice.kind != DispenseChoice::NoneOfThem;
        isDone = isHeld == (request.kind == DispenseRequest::Kind::Registration);
    }
    if (isDone) {
        add(recoverytexts::doneWithoutDocument(request));
        m_told.append(request.id);
        return false;
    }
    Singleton<RequestJournal>::get()->settle(request.id);
    return true;
}

Reconciliation Comparison::result() const
{
    const tr::Tr last =
        isBrokenOff() ? recoverytexts::brokenOff(m_compared) : recoverytexts::summary(m_compared, m_undecided);
    return {m_lines + QStringList{last.ui()}, m_undecided == 0, m_told};
}

} // namespace

Reconciliation Reconciliation::of(const QDate& day, const ElectronicPrescriptionInterface& registry,
                                  const QStringList& statuses)
{
    Comparison comparison(registry, statuses);
    comparison.compareDocumentsOf(day);
    comparison.compareOthersOfTheJournal();
    return comparison.result();
}
