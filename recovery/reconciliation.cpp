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

enum class Comparison {
    Compared,
    Undecided,
    CannotAsk,
};

Comparison reconcileDocument(DocumentSettling& settling, const DocumentSettling::Positions& positions, const QDate& day,
                             QStringList& lines)
{
    Comparison comparison = Comparison::Compared;
    if (!settling.decide(positions)) {
        comparison = settling.couldAsk() ? Comparison::Undecided : Comparison::CannotAsk;
    } else {
        settling.forgetAnswers();
        try {
            const LongWork work(recoverytexts::asking());
            settling.findUnclaimed(day);
        } catch (const ElectronicPrescriptionException& exception) {
            lines.append(exception.tr().ui());
            comparison = Comparison::CannotAsk;
        }
    }
    lines.append(settling.findings());
    lines.append(settling.missing());
    lines.append(settling.putOff());
    return comparison;
}

} // namespace

Reconciliation Reconciliation::of(const QDate& day, const ElectronicPrescriptionInterface& registry,
                                  const QStringList& statuses)
{
    Reconciliation result;
    QMap<Comparison, int> documentsOf;
    const auto documents = Singleton<DocumentArchive>::get()->documentsOf(day);
    for (const auto& document : documents) {
        const auto positions = prescriptionPositionsOf(*document);
        if (positions.isEmpty()) {
            continue;
        }
        DocumentSettling settling(registry, document, statuses);
        QStringList lines;
        const Comparison comparison = reconcileDocument(settling, positions, day, lines);
        ++documentsOf[comparison];
        for (const QString& line : std::as_const(lines)) {
            result.lines.append(recoverytexts::ofDocument(document->identifier(), line).ui());
        }
        if (comparison == Comparison::CannotAsk) {
            break; // the next one would ask the same registry
        }
    }
    const int compared = documentsOf.value(Comparison::Compared);
    const int undecided = documentsOf.value(Comparison::Undecided);
    const bool isBrokenOff = documentsOf.contains(Comparison::CannotAsk);
    result.isWhole = !isBrokenOff && undecided == 0;
    result.lines.append(
        (isBrokenOff ? recoverytexts::brokenOff(compared) : recoverytexts::summary(compared, undecided)).ui());
    return result;
}
