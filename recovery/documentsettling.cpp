// SPDX-License-Identifier: MIT
#include "documentsettling.h"

#include "centrounding.h"
#include "dialog.h"
#include "dispensechoicedialog.h"
#include "documentarchive.h"
#include "electronicprescriptionexception.h"
#include "electronicprescriptioninterface.h"
#include "longwork.h"
#include "outcomemark.h"
#include "positionoptions.h"
#include "recoverytexts.h"
#include "requestjournal.h"
#include "savetofilelogic.h"

#include <QLocale>

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

QString dosesText(double doses)
{
    return doses > 0 ? QLocale(QLocale::Russian).toString(doses, 'f', QLocale::FloatingPointShortest) : QString();
}

/// The day, with the time where the registry shows it; what is neither as it is.
QString timeText(const RegistryDispense& dispense)
{
    if (dispense.handedOver.contains(u'T')) {
        const QDateTime time = QDateTime::fromString(dispense.handedOver, Qt::ISODate);
        return time.isValid() ? time.toLocalTime().toString(u"dd.MM.yyyy HH:mm"_s) : dispense.handedOver;
    }
    const QDate day = QDate::fromString(dispense.facts.day, Qt::ISODate);
    return day.isValid() ? day.toString(u"dd.MM.yyyy"_s) : dispense.handedOver;
}

DispenseChoiceRow rowOf(const RegistryDispense& dispense)
{
    QStringList pharmacy{dispense.facts.pharmacy, dispense.facts.address};
    pharmacy.removeAll(QString());
    return {timeText(dispense), dosesText(dispense.facts.doses), pharmacy.join(u", "_s), dispense.id};
}

void collectIds(const AbstractDocument& document, const GoodsItem* leftOut, QSet<QString>& ids)
{
    const auto positions = document.getPositions();
    for (const auto& position : positions) {
        if (position.get() != leftOut && isPrescriptionPosition(*position)) {
            ids.insert(PositionOptions(*position).medicationDispenseId());
        }
    }
}

} // namespace

DocumentSettling::Positions prescriptionPositionsOf(const AbstractDocument& document)
{
    DocumentSettling::Positions positions = document.getPositions();
    positions.removeIf([](const auto& position) { return !isPrescriptionPosition(*position); });
    return positions;
}

DocumentSettling::DocumentSettling(const ElectronicPrescriptionInterface& registry,
                                   const QSharedPointer<AbstractDocument>& document, const QStringList& statuses)
    : m_registry(registry)
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
        if (!history.open() && (isApplied || history.hasLostAnswer())) {
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
    PositionOptions options(position);
    switch (history.known()) {
    case Known::Registered:
        if (options.isRegistered() && options.medicationDispenseId() == history.dispense()) {
            return false;
        }
        options.setMedicationDispenseId(history.dispense());
        options.setRegistered();
        m_findings.append(recoverytexts::registered(position, history.dispense()).ui());
        break;
    case Known::Cancelled:
        if (!options.isRegistered()) {
            return false;
        }
        options.setCancelled();
        m_findings.append(recoverytexts::cancelled(position).ui());
        break;
    case Known::Nothing:
        return false;
    }
    options.writeTo(position);
    return true;
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
    return undecided.isEmpty() ||
           (askRegistry(undecided) && std::all_of(undecided.cbegin(), undecided.cend(), [this](const Undecided& one) {
                return carryOut(decisionOf(one), one);
            }));
}

/// Asks for all positions before the first decision. When that fails the cashier reads what stays open.
bool DocumentSettling::askRegistry(const QList<Undecided>& undecided)
{
    try {
        const LongWork work(recoverytexts::asking());
        for (const Undecided& one : undecided) {
            m_inquiry.prescription(prescriptionOf(*one.position));
        }
        return true;
    } catch (const ElectronicPrescriptionException& exception) {
        m_couldAsk = false;
        QStringList names;
        for (const Undecided& one : undecided) {
            names.append(recoverytexts::nameOf(*one.position));
        }
        Dialog::create()->showMessage(recoverytexts::cannotAsk(exception.tr(), names, *m_document), Dialog::Error, 1,
                                      0);
        return false;
    }
}

/// A position that is marked and has no request at all has lost the journal.
std::optional<DispenseRequest> DocumentSettling::openRequestOf(const GoodsItem& position,
                                                               const PositionHistory& history)
{
    if (history.open() || !history.requests().isEmpty() || !outcomemark::isOn(position)) {
        return history.open();
    }
    const PositionOptions options(position);
    DispenseRequest lost;
    lost.kind = options.isRegistered() ? Kind::Cancellation : Kind::Registration;
    lost.prescription = options.id();
    lost.dispense = options.isRegistered() ? options.medicationDispenseId() : QString();
    lost.facts.doses = roundToCents(options.doseQuantity());
    return lost;
}

DocumentSettling::Decision DocumentSettling::decisionOf(const Undecided& undecided)
{
    const std::optional<ShownPrescription> shown = m_inquiry.prescription(prescriptionOf(*undecided.position));
    if (!shown) {
        Decision decision = askCashier(undecided, {}); // the registry does not show the prescription
        decision.dispense = undecided.open.dispense;
        return decision;
    }
    return undecided.open.kind == Kind::Registration ? decisionOfRegistration(undecided, *shown)
                                                     : decisionOfCancellation(undecided, shown->dispenses);
}

DocumentSettling::Decision DocumentSettling::decisionOfRegistration(const Undecided& undecided,
                                                                    const ShownPrescription& shown) const
{
    const DispenseFacts& asked = undecided.open.facts;
    const QSet<QString> taken = idsOnTill(QDate::fromString(asked.day, Qt::ISODate), undecided.position.get());
    QList<RegistryDispense> possible = shown.dispenses;
    possible.removeIf([&](const RegistryDispense& dispense) {
        return dispense.likeness(asked) == Likeness::None || (!dispense.id.isEmpty() && taken.contains(dispense.id));
    });
    if (possible.isEmpty() && !shown.isCompleted) { // who has completed it is not shown
        return {Verdict::NotRegistered};
    }
    if (possible.size() == 1 && possible.first().likeness(asked) == Likeness::Certain) {
        return {Verdict::Registered, possible.first().id};
    }
    return askCashier(undecided, possible);
}

/// A cancelled dispense is no longer shown. Without ids, another one of the same doses could be the cancelled one.
DocumentSettling::Decision DocumentSettling::decisionOfCancellation(const Undecided& undecided,
                                                                    const QList<RegistryDispense>& shown) const
{
    const QString dispense = undecided.open.dispense;
    const bool isThere =
        std::any_of(shown.cbegin(), shown.cend(), [&](const RegistryDispense& one) { return one.id == dispense; });
    if (isThere) {
        return {Verdict::Registered, dispense};
    }
    const double doses = PositionOptions(*undecided.position).doseQuantity();
    QList<RegistryDispense> possible = shown;
    possible.removeIf([doses](const RegistryDispense& one) {
        return !one.id.isEmpty() || (one.facts.doses > 0 && qAbs(one.facts.doses - doses) >= 0.01);
    });
    if (possible.isEmpty()) {
        return {Verdict::NotRegistered};
    }
    Decision decision = askCashier(undecided, possible);
    decision.dispense = dispense; // the registry gave it before
    return decision;
}

DocumentSettling::Decision DocumentSettling::askCashier(const Undecided& undecided,
                                                        const QList<RegistryDispense>& possible) const
{
    const PositionOptions options(*undecided.position);
    DispenseChoiceParams params;
    params.goods = undecided.position->getName();
    params.prescription = options.serialNumber().isEmpty() ? options.id() : options.serialNumber();
    params.doses = dosesText(options.doseQuantity());
    params.sent = undecided.open.sent.toLocalTime().toString(u"dd.MM.yyyy HH:mm"_s);
    std::transform(possible.cbegin(), possible.cend(), std::back_inserter(params.dispenses), rowOf);

    const DispenseChoice choice = DispenseChoiceDialog::create()->ask(params);
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
    note(decision, undecided);
    if (decision.verdict == Verdict::Undecided) {
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
    if (!save()) {
        return false;
    }
    // A registration that the registry does not show may still arrive there. A refused repetition asks again.
    if (decision.verdict == Verdict::Registered || undecided.open.kind == Kind::Cancellation) {
        settleRequestsOf(undecided.history);
    }
    return true;
}

void DocumentSettling::note(const Decision& decision, const Undecided& undecided)
{
    const GoodsItem& position = *undecided.position;
    const bool isRegistration = undecided.open.kind == Kind::Registration;
    switch (decision.verdict) {
    case Verdict::Registered:
        m_findings.append((isRegistration ? recoverytexts::registered(position, decision.dispense)
                                          : recoverytexts::notCancelled(position))
                              .ui());
        break;
    case Verdict::NotRegistered:
        if (isRegistration) {
            m_missing.append(recoverytexts::notRegistered(position).ui());
        } else {
            m_findings.append(recoverytexts::cancelled(position).ui());
        }
        break;
    case Verdict::Undecided:
        m_putOff.append(recoverytexts::undecided(position).ui());
        break;
    }
}

void DocumentSettling::findUnclaimed(const QDate& day)
{
    const DispenseFacts here = DispenseFacts::of({{"contained"_L1, QJsonArray{m_registry.formLocationResource()}}});
    const QSet<QString> onTill = idsOnTill(day, nullptr);
    const Positions positions = prescriptionPositionsOf(*m_document);
    for (const auto& position : positions) {
        const auto shown = m_inquiry.prescription(prescriptionOf(*position));
        const QList<RegistryDispense> dispenses = shown.value_or(ShownPrescription()).dispenses;
        for (const RegistryDispense& dispense : dispenses) {
            const bool isOurs = dispense.facts.day == day.toString(Qt::ISODate) &&
                                dispense.facts.pharmacy == here.pharmacy && dispense.facts.address == here.address;
            if (isOurs && !dispense.id.isEmpty() && !onTill.contains(dispense.id)) {
                m_findings.append(recoverytexts::unclaimed(*position, dispense.id, dispense.facts.doses).ui());
            }
        }
    }
}

QSet<QString> DocumentSettling::idsOnTill(const QDate& day, const GoodsItem* leftOut) const
{
    QSet<QString> ids;
    collectIds(*m_document, leftOut, ids);
    const auto documents = Singleton<DocumentArchive>::get()->documentsOf(day);
    for (const auto& document : documents) {
        if (document->identifier() != m_document->identifier()) {
            collectIds(*document, nullptr, ids);
        }
    }
    return ids;
}
