// SPDX-License-Identifier: MIT
#include "reconciliation.h"

#include "documentarchive.h"
#include "documentsettling.h"
#include "electronicprescriptionexception.h"
#include "longwork.h"
#include "recoverytexts.h"

#include <QMap>

namespace
{

enum class Outcome {
    Compared,
    Undecided,
    CannotAsk,
};

Outcome reconcileDocument(DocumentSettling& settling, const DocumentSettling::Positions& positions, const QDate& day,
                          QStringList& lines)
{
    Outcome outcome = Outcome::Compared;
    if (!settling.decide(positions)) {
        outcome = settling.couldAsk() ? Outcome::Undecided : Outcome::CannotAsk;
    } else {
        settling.forgetAnswers();
        try {
            const LongWork work(recoverytexts::asking());
            settling.findUnclaimed(day);
        } catch (const ElectronicPrescriptionException& exception) {
            lines.append(exception.tr().ui());
            outcome = Outcome::CannotAsk;
        }
    }
    lines.append(settling.findings());
    lines.append(settling.missing());
    lines.append(settling.putOff());
    return outcome;
}

} // namespace

Reconciliation Reconciliation::of(const QDate& day, const ElectronicPrescriptionInterface& registry,
                                  const QStringList& statuses)
{
    Reconciliation result;
    QMap<Outcome, int> documentsOf;
    const auto documents = Singleton<DocumentArchive>::get()->documentsOf(day);
    for (const auto& document : documents) {
        const auto positions = prescriptionPositionsOf(*document);
        if (positions.isEmpty()) {
            continue;
        }
        DocumentSettling settling(registry, document, statuses);
        QStringList lines;
        const Outcome outcome = reconcileDocument(settling, positions, day, lines);
        ++documentsOf[outcome];
        for (const QString& line : std::as_const(lines)) {
            result.lines.append(recoverytexts::ofDocument(document->identifier(), line).ui());
        }
        if (outcome == Outcome::CannotAsk) {
            break; // the next one would ask the same registry
        }
    }
    const int compared = documentsOf.value(Outcome::Compared);
    const int undecided = documentsOf.value(Outcome::Undecided);
    const bool isBrokenOff = documentsOf.contains(Outcome::CannotAsk);
    result.isWhole = !isBrokenOff && undecided == 0;
    result.lines.append(
        (isBrokenOff ? recoverytexts::brokenOff(compared) : recoverytexts::summary(compared, undecided)).ui());
    return result;
}
