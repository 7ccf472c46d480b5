// SPDX-License-Identifier: MIT
#include "documentsettling.h"

#include "centrounding.h"
#include "dialog.h"
#include "dispensequestion.h"
#include "electronicprescriptionexception.h"
#include "electronicprescriptioninterface.h"
#include "longworkscope.h"
#include "outcomemark.h"
#include "positionoptions.h"
#include "recoverytexts.h"
#include "requestjournal.h"
#include "savetofilelogic.h"

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

using Kind = DispenseRequest::Kind;
using Known = PositionHistory::Known;
using Likeness = RegistryDispense::Likeness;

namespace
{

/// The prescription plug-in keeps the card's number in the document.
QString cardNumberOf(const AbstractDocument& document)
{
    return document.getPluginValue(u"ElectronicPrescriptionService"_s, u"cardNumber"_s, {}).toString();
}

QString prescriptionOf(const GoodsItem& position)
{
    return PositionOptions(position).id();
}

void settleRequestsOf(const PositionHistory& history)
{
    for (const qint64 request : history.requests()) {
        Singleton<RequestJournal>::get()->settle(request);
    }
}

/// The prescription positions of all these documents.
///
/// @param leftOut one that does not count; null: all count
DocumentSettling::Positions allPrescriptionPositions(const TillDocuments::Documents& documents,
                                                     const GoodsItem* leftOut)
{
    DocumentSettling::Positions all;
    for (const auto& document : documents) {
        all.append(prescriptionPositionsOf(*document));
    }
    all.removeIf([leftOut](const auto& position) { return position.get() == leftOut; });
    return all;
}

bool isRegisteredWithoutId(const GoodsItem& position)
{
    const PositionOptions options(position);
    return options.isRegistered() && options.medicationDispenseId().isEmpty();
}

/// The ids that registrations of the journal got, also those that no document has.
QSet<QString> idsInJournal()
{
    QSet<QString> ids;
    const QList<DispenseRequest> requests = dispenseRequests();
    for (const DispenseRequest& request : requests) {
        if (request.kind == Kind::Registration && !request.dispense.isEmpty()) {
            ids.insert(request.dispense);
        }
    }
    return ids;
}

QSet<QString> idsOf(const DocumentSettling::Positions& positions)
{
    QSet<QString> ids;
    for (const auto& position : positions) {
        ids.insert(PositionOptions(*position).medicationDispenseId());
    }
    return ids;
}

/// How many dispenses like the request's these positions have whose ids the registry has not shown.
qsizetype withoutIdLike(const DispenseRequest& request, const DocumentSettling::Positions& positions)
{
    return std::count_if(positions.cbegin(), positions.cend(), [&request](const auto& position) {
        const PositionOptions options(*position);
        return isRegisteredWithoutId(*position) && options.id() == request.prescription &&
               roundToCents(options.doseQuantity()) == request.facts.doses;
    });
}

/// True when something was dispensed, and the registry does not show what.
bool hidesDispenses(const ShownPrescription& shown)
{
    return shown.isCompleted && shown.dispenses.isEmpty();
}

/// What is to be found out of a registered position where no request says it.
DispenseRequest doubtAbout(const GoodsItem& position)
{
    const PositionOptions options(position);
    DispenseRequest doubt;
    doubt.kind = options.isRegistered() ? Kind::Cancellation : Kind::Registration;
    doubt.prescription = options.id();
    doubt.dispense = options.isRegistered() ? options.medicationDispenseId() : QString();
    doubt.facts.doses = roundToCents(options.doseQuantity());
    return doubt;
}

} // namespace

DocumentSettling::Positions prescriptionPositionsOf(const AbstractDocument& document)
{
    DocumentSettling::Positions positions = document.getPositions();
    positions.removeIf([](const auto& position) { return !isPrescriptionPosition(*position); });
    return positions;
}

bool isHeldInVain(const AbstractDocument& document, const GoodsItem& position)
{
    return document.isUndone() && document.getType() == AbstractDocument::Sale &&
           PositionOptions(position).isRegistered();
}

DocumentSettling::DocumentSettling(const ElectronicPrescriptionInterface& registry, TillDocuments& documents,
                                   const QSharedPointer<AbstractDocument>& document, const QStringList& statuses)
    : m_registry(registry)
    , m_documents(documents)
    , m_document(document)
    , m_inquiry(registry, cardNumberOf(*document), statuses)
{
}

PositionHistory DocumentSettling::historyOf(const GoodsItem& position) const
{
    return {position, m_document->identifier(), dispenseRequests()};
}

/// The journal forgets nothing that the disk does not have.
bool DocumentSettling::save()
{
    m_isSaved = SaveToFileLogic::create()->save(m_document, {});
    return m_isSaved;
}

void DocumentSettling::applyAnswers()
{
    bool hasChanged = false;
    QList<PositionHistory> answered;
    const Positions positions = prescriptionPositionsOf(*m_document);
    for (const auto& position : positions) {
        const PositionHistory history = historyOf(*position);
        const bool isApplied = applyAnswer(*position, history);
        // A mark without a request stays: the journal was lost, and the position still does not know.
        const bool isUndecided = history.open() || (outcomemark::isOn(*position) && history.requests().isEmpty());
        const bool isMarked = outcomemark::set(*position, isUndecided);
        hasChanged = hasChanged || isApplied || isMarked;
        if (!history.open() && !isHeldInVain(*m_document, *position) && (isApplied || history.hasLostAnswer())) {
            answered.append(history);
        }
    }
    if ((hasChanged || !answered.isEmpty()) && save()) {
        std::for_each(answered.cbegin(), answered.cend(), settleRequestsOf);
    }
}

void DocumentSettling::forgetAnswers()
{
    if (dispenseRequests().isEmpty() || !save()) {
        return;
    }
    QSet<qint64> open;
    const Positions positions = prescriptionPositionsOf(*m_document);
    for (const auto& position : positions) {
        if (const PositionHistory history = historyOf(*position); history.open()) {
            open.unite({history.requests().cbegin(), history.requests().cend()});
        } else {
            settleRequestsOf(history);
        }
    }
    const QList<DispenseRequest> requests = dispenseRequests();
    for (const DispenseRequest& request : requests) {
        if (request.document == m_document->identifier() && request.outcome != DispenseRequest::Outcome::Open &&
            !open.contains(request.id)) {
            Singleton<RequestJournal>::get()->settle(request.id);
        }
    }
}

/// @return whether that changed the position
bool DocumentSettling::applyAnswer(GoodsItem& position, const PositionHistory& history)
{
    if (history.isOnDocument()) {
        return false;
    }
    PositionOptions options(position);
    if (history.known() == Known::Registered) {
        options.setMedicationDispenseId(history.dispense());
        options.setRegistered();
        options.writeTo(position);
        noteRegistered(position);
    } else {
        options.setCancelled();
        options.writeTo(position);
        noteCancelled(position);
    }
    return true;
}

void DocumentSettling::noteRegistered(const GoodsItem& position)
{
    if (!isHeldInVain(*m_document, position)) { // the registry is asked about that one
        m_findings.append(recoverytexts::registered(position, PositionOptions(position).medicationDispenseId()).ui());
    }
}

void DocumentSettling::noteCancelled(const GoodsItem& position)
{
    const bool isSold = m_document->isClosed() && !m_document->isUndone();
    m_findings.append((isSold && m_document->getType() == AbstractDocument::Sale
                           ? recoverytexts::cancelledButSold(position)
                           : recoverytexts::cancelled(position))
                          .ui());
}

bool DocumentSettling::decide(const Positions& positions)
{
    applyAnswers();
    if (!m_isSaved) {
        return false;
    }
    QList<Undecided> undecided;
    for (const auto& position : positions) {
        if (!isPrescriptionPosition(*position)) {
            continue;
        }
        const PositionHistory history = historyOf(*position);
        if (const auto open = openRequestOf(*position, history)) {
            undecided.append({position, history, *open});
        }
    }
    return undecided.isEmpty() || (askRegistry(undecided) && decide(undecided));
}

/// Ends with the first that the cashier puts off.
bool DocumentSettling::decide(const QList<Undecided>& undecided)
{
    bool isDecided = true;
    for (const Undecided& one : undecided) {
        if (carryOut(decisionOf(one), one)) {
            continue;
        }
        if (!isHeldInVain(*m_document, *one.position)) {
            return false;
        }
        isDecided = false;
    }
    return isDecided;
}

/// Asks for all positions before the first decision. When that fails the cashier reads what stays open.
bool DocumentSettling::askRegistry(const QList<Undecided>& undecided)
{
    try {
        const LongWorkScope work(recoverytexts::asking());
        for (const Undecided& one : undecided) {
            m_inquiry.prescription(prescriptionOf(*one.position));
        }
    } catch (const ElectronicPrescriptionException& exception) {
        m_couldAsk = false;
        QStringList names;
        for (const Undecided& one : undecided) {
            names.append(recoverytexts::nameOf(*one.position));
            m_putOff.append(recoverytexts::undecided(*one.position).ui());
        }
        Dialog::create()->showMessage(recoverytexts::cannotAsk(exception.tr(), names, *m_document), Dialog::Error, 1,
                                      0);
        return false;
    }
    if (m_inquiry.refusal()) {
        Dialog::create()->showMessage(recoverytexts::cardRefused(*m_inquiry.refusal()), Dialog::Notice, 0, 0);
    }
    return true;
}

std::optional<DispenseRequest> DocumentSettling::openRequestOf(const GoodsItem& position,
                                                               const PositionHistory& history) const
{
    if (history.open()) {
        return history.open();
    }
    const bool hasLostJournal = history.requests().isEmpty() && outcomemark::isOn(position);
    return hasLostJournal || isHeldInVain(*m_document, position) ? std::optional(doubtAbout(position)) : std::nullopt;
}

DocumentSettling::Decision DocumentSettling::decisionOf(const Undecided& undecided)
{
    if (undecided.open.kind == Kind::Cancellation && undecided.open.dispense.isEmpty()) {
        return decisionWithoutId(undecided);
    }
    const std::optional<ShownPrescription> shown = m_inquiry.prescription(prescriptionOf(*undecided.position));
    if (!shown) {
        Decision decision = askCashier(undecided, {}); // the registry does not show the prescription
        decision.dispense = undecided.open.dispense;
        return decision;
    }
    return undecided.open.kind == Kind::Registration ? decisionOfRegistration(undecided, *shown)
                                                     : decisionOfCancellation(undecided, *shown);
}

DocumentSettling::Decision DocumentSettling::decisionOfRegistration(const Undecided& undecided,
                                                                    const ShownPrescription& shown)
{
    const QList<RegistryDispense> possible = candidates(shown, undecided.open, undecided.position.get());
    if (possible.isEmpty() && !shown.isCompleted) { // who has completed it is not shown
        return {Verdict::NotRegistered};
    }
    if (possible.size() == 1 && possible.first().likeness(undecided.open.facts) == Likeness::Certain) {
        return {Verdict::Registered, possible.first().id};
    }
    return askCashier(undecided, possible);
}

QList<RegistryDispense> DocumentSettling::candidates(const ShownPrescription& shown, const DispenseRequest& request,
                                                     const GoodsItem* position)
{
    const QDate day = QDate::fromString(request.facts.day, Qt::ISODate);
    const QSet<QString> taken =
        idsOf(allPrescriptionPositions(withThisOne(m_documents.since(day)), position)) + idsInJournal();
    qsizetype ownLeft = withoutIdLike(request, allPrescriptionPositions(withThisOne(m_documents.ofDay(day)), position));
    QList<RegistryDispense> possible = shown.dispenses;
    possible.removeIf([&](const RegistryDispense& dispense) {
        if (dispense.likeness(request.facts) == Likeness::None) {
            return true;
        }
        return dispense.id.isEmpty() ? ownLeft-- > 0 : taken.contains(dispense.id);
    });
    return possible;
}

TillDocuments::Documents DocumentSettling::withThisOne(TillDocuments::Documents documents) const
{
    documents.removeIf([this](const auto& document) { return document->identifier() == m_document->identifier(); });
    documents.append(m_document);
    return documents;
}

/// A cancelled dispense is no longer shown. Without ids, another one of the same doses could be the cancelled one.
DocumentSettling::Decision DocumentSettling::decisionOfCancellation(const Undecided& undecided,
                                                                    const ShownPrescription& shown) const
{
    const QString dispense = undecided.open.dispense;
    const bool isThere = std::any_of(shown.dispenses.cbegin(), shown.dispenses.cend(),
                                     [&](const RegistryDispense& one) { return one.id == dispense; });
    if (isThere) {
        return {Verdict::Registered, dispense};
    }
    const double doses = PositionOptions(*undecided.position).doseQuantity();
    QList<RegistryDispense> possible = shown.dispenses;
    possible.removeIf([doses](const RegistryDispense& one) {
        return !one.id.isEmpty() || (one.facts.doses > 0 && qAbs(one.facts.doses - doses) >= 0.01);
    });
    if (possible.isEmpty() && !hidesDispenses(shown)) {
        return {Verdict::NotRegistered};
    }
    Decision decision = askCashier(undecided, possible);
    decision.dispense = dispense; // the registry gave it before
    return decision;
}

DocumentSettling::Decision DocumentSettling::askCashier(const Undecided& undecided,
                                                        const QList<RegistryDispense>& possible)
{
    const DispenseChoice choice = dispensequestion::ask(*undecided.position, undecided.open, possible);
    switch (choice.kind) {
    case DispenseChoice::Chosen:
        return {Verdict::Registered, possible.value(choice.row).id};
    case DispenseChoice::HeldUnseen:
        return {Verdict::Registered};
    case DispenseChoice::NoneOfThem:
        return {Verdict::NotRegistered};
    case DispenseChoice::Later:
        break;
    }
    return {Verdict::Undecided};
}

/// @return whether the position's state is known and saved now
bool DocumentSettling::carryOut(const Decision& decision, const Undecided& undecided)
{
    GoodsItem& position = *undecided.position;
    if (decision.verdict == Verdict::Undecided) {
        m_putOff.append(recoverytexts::undecided(position).ui());
        return false;
    }
    PositionOptions options(position);
    if (decision.verdict == Verdict::Registered) {
        options.setMedicationDispenseId(decision.dispense);
        options.setRegistered();
    } else if (options.isRegistered()) {
        options.setCancelled();
    }
    options.writeTo(position);
    outcomemark::set(position, false);
    note(decision, undecided);
    if (!save() || isHeldInVain(*m_document, position)) {
        return false;
    }
    // A registration that the registry does not show may still arrive there. A refused repetition asks again.
    if (decision.verdict == Verdict::Registered || undecided.open.kind == Kind::Cancellation ||
        m_document->isClosed()) {
        settleRequestsOf(undecided.history);
    }
    return true;
}

/// Of a position that says by now what was decided.
void DocumentSettling::note(const Decision& decision, const Undecided& undecided)
{
    const GoodsItem& position = *undecided.position;
    const bool isRegistration = undecided.open.kind == Kind::Registration;
    if (isHeldInVain(*m_document, position)) {
        m_putOff.append(recoverytexts::heldInVain(position, decision.dispense).ui());
    } else if (decision.verdict == Verdict::Registered) {
        m_findings.append((isRegistration ? recoverytexts::registered(position, decision.dispense)
                                          : recoverytexts::notCancelled(position))
                              .ui());
    } else if (isRegistration) {
        m_missing.append(recoverytexts::notRegistered(position).ui());
    } else {
        noteCancelled(position);
    }
}

bool DocumentSettling::decideWithoutIds(const Positions& positions)
{
    QList<Undecided> undecided;
    for (const auto& position : positions) {
        if (isPrescriptionPosition(*position) && isRegisteredWithoutId(*position)) {
            undecided.append({position, historyOf(*position), doubtAbout(*position)});
        }
    }
    if (undecided.isEmpty()) {
        return true;
    }
    if (!askRegistry(undecided)) {
        return false;
    }
    showWhatHasNoId(undecided);
    bool isDecided = true;
    for (const Undecided& one : std::as_const(undecided)) {
        const Decision decision = decisionWithoutId(one);
        const bool hasNoId = decision.verdict == Verdict::Registered && decision.dispense.isEmpty();
        isDecided = !hasNoId && carryOut(decision, one) && isDecided;
    }
    return isDecided;
}

void DocumentSettling::showWhatHasNoId(const QList<Undecided>& undecided)
{
    QStringList names;
    for (const Undecided& one : undecided) {
        if (!isShownAsGone(one)) {
            names.append(recoverytexts::nameOf(*one.position));
        }
    }
    if (!names.isEmpty()) {
        Dialog::create()->showMessage(recoverytexts::withoutIds(names, *m_document), Dialog::Error, 1, 0);
    }
}

/// True when the registry shows the prescription, and nothing that may be the dispense.
bool DocumentSettling::isShownAsGone(const Undecided& undecided)
{
    const std::optional<ShownPrescription> shown = m_inquiry.prescription(prescriptionOf(*undecided.position));
    return shown && !hidesDispenses(*shown) && candidates(*shown, undecided.open, undecided.position.get()).isEmpty();
}

/// The operator may have cancelled it by now, or the registry may show its id.
DocumentSettling::Decision DocumentSettling::decisionWithoutId(const Undecided& undecided)
{
    if (isShownAsGone(undecided)) {
        return {Verdict::NotRegistered};
    }
    const auto shown = m_inquiry.prescription(prescriptionOf(*undecided.position)).value_or(ShownPrescription());
    return askCashier(undecided, candidates(shown, undecided.open, undecided.position.get()));
}

bool DocumentSettling::decideRemoved()
{
    const QList<DispenseRequest> removed = openRequestsOfRemoved();
    if (removed.isEmpty()) {
        return true;
    }
    {
        const LongWorkScope work(recoverytexts::asking());
        for (const DispenseRequest& request : removed) {
            m_inquiry.prescription(request.prescription);
        }
    }
    bool isDecided = true;
    for (const DispenseRequest& request : removed) {
        isDecided = decideRemoved(request) && isDecided;
    }
    return isDecided;
}

QList<DispenseRequest> DocumentSettling::openRequestsOfRemoved() const
{
    QSet<qint64> ofPositions;
    const Positions positions = prescriptionPositionsOf(*m_document);
    for (const auto& position : positions) {
        const QList<qint64> requests = historyOf(*position).requests();
        ofPositions.unite({requests.cbegin(), requests.cend()});
    }
    QList<DispenseRequest> removed = dispenseRequests();
    removed.removeIf([&](const DispenseRequest& request) {
        return request.document != m_document->identifier() || ofPositions.contains(request.id) ||
               request.outcome != DispenseRequest::Outcome::Open;
    });
    return removed;
}

bool DocumentSettling::decideRemoved(const DispenseRequest& request)
{
    const std::optional<ShownPrescription> shown = m_inquiry.prescription(request.prescription);
    const QList<RegistryDispense> possible = shown ? candidates(*shown, request, nullptr) : QList<RegistryDispense>();
    bool isHeld = false;
    for (const RegistryDispense& dispense : possible) {
        if (dispense.likeness(request.facts) == Likeness::Certain) {
            m_putOff.append(recoverytexts::heldInVain(request, dispense.id).ui());
            isHeld = true;
        }
    }
    if (isHeld) {
        return false;
    }
    const bool isShownAsGone = shown && !shown->isCompleted && possible.isEmpty();
    if (!isShownAsGone &&
        dispensequestion::ask(recoverytexts::withoutPosition(), request).kind != DispenseChoice::NoneOfThem) {
        m_putOff.append(recoverytexts::undecided(request).ui());
        return false;
    }
    m_missing.append(recoverytexts::notRegistered(request).ui());
    Singleton<RequestJournal>::get()->settle(request.id);
    return true;
}

void DocumentSettling::findUnclaimed(const QDate& day)
{
    const DispenseFacts here = DispenseFacts::of({{"contained"_L1, QJsonArray{m_registry.formLocationResource()}}});
    const QSet<QString> onTill = idsOf(allPrescriptionPositions(withThisOne(m_documents.ofDay(day)), nullptr));
    const Positions positions = prescriptionPositionsOf(*m_document);
    for (const auto& position : positions) {
        const auto shown = m_inquiry.prescription(prescriptionOf(*position));
        const QList<RegistryDispense> dispenses = shown.value_or(ShownPrescription()).dispenses;
        for (const RegistryDispense& dispense : dispenses) {
            const bool isOurs = dispense.facts.day == day.toString(Qt::ISODate) && dispense.facts.isOfPharmacy(here);
            if (isOurs && !dispense.id.isEmpty() && !onTill.contains(dispense.id)) {
                m_findings.append(recoverytexts::unclaimed(*position, dispense.id, dispense.facts.doses).ui());
            }
        }
    }
    if (m_inquiry.refusal()) {
        m_findings.append(recoverytexts::cardNotCompared(*m_inquiry.refusal()).ui());
    }
}
