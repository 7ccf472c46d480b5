// SPDX-License-Identifier: MIT
#include "reconciliation.h"

#include "documentarchive.h"
#include "documentsettling.h"
#include "electronicprescriptionexception.h"
#include "longwork.h"
#include "recoverytexts.h"

using namespace Qt::StringLiterals;

namespace
{

/// @return false when the registry could not be asked or the cashier put a decision off
bool reconcileDocument(DocumentSettling& settling, const DocumentSettling::Positions& positions, const QDate& day,
                       QStringList& lines)
{
    bool isWhole = settling.decide(positions);
    if (isWhole) {
        settling.forgetAnswers();
        try {
            const LongWork work(recoverytexts::asking());
            settling.findUnclaimed(day);
        } catch (const ElectronicPrescriptionException& exception) {
            lines.append(exception.tr().ui());
            isWhole = false;
        }
    }
    lines.append(settling.findings());
    return isWhole;
}

} // namespace

Reconciliation Reconciliation::of(const QDate& day, const ElectronicPrescriptionInterface& registry,
                                  const QStringList& statuses)
{
    Reconciliation result;
    int checked = 0;
    const auto documents = Singleton<DocumentArchive>::get()->documentsOf(day);
    for (const auto& document : documents) {
        const auto positions = prescriptionPositionsOf(*document);
        if (positions.isEmpty()) {
            continue;
        }
        DocumentSettling settling(registry, document, statuses);
        QStringList lines;
        result.isWhole = reconcileDocument(settling, positions, day, lines);
        for (const QString& line : std::as_const(lines)) {
            result.lines.append(recoverytexts::ofDocument(document->identifier(), line).ui());
        }
        if (!result.isWhole) {
            break; // the next one would ask the same registry
        }
        ++checked;
    }
    result.lines.append(recoverytexts::summary(checked, result.isWhole).ui());
    return result;
}
