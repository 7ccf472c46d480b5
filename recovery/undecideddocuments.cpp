// SPDX-License-Identifier: MIT
#include "undecideddocuments.h"

#include "documentsettling.h"

#include <algorithm>

namespace
{

using Outcome = DispenseRequest::Outcome;
using Requests = QList<DispenseRequest>;

/// What the registry has refused, or never got, leaves nothing to decide.
bool mayHaveBeenCarriedOut(const DispenseRequest& request)
{
    return request.outcome == Outcome::Done || request.outcome == Outcome::Open;
}

bool isUndecided(const AbstractDocument& document, const Requests& all)
{
    QSet<qint64> ofPositions;
    const auto positions = prescriptionPositionsOf(document);
    for (const auto& position : positions) {
        const PositionHistory history(*position, document.identifier(), all);
        if (history.open() || !history.isOnDocument() || isHeldInVain(document, *position)) {
            return true;
        }
        ofPositions.unite({history.requests().cbegin(), history.requests().cend()});
    }
    return std::any_of(all.cbegin(), all.cend(), [&](const DispenseRequest& request) {
        return request.document == document.identifier() && request.outcome == Outcome::Open &&
               !ofPositions.contains(request.id);
    });
}

bool isUndecided(const QString& identifier, const Requests& all, TillDocuments& documents)
{
    if (const auto document = documents.find(identifier)) {
        return document->isClosed() && isUndecided(*document, all);
    }
    return std::any_of(all.cbegin(), all.cend(), [&identifier](const DispenseRequest& request) {
        return request.document == identifier && mayHaveBeenCarriedOut(request);
    });
}

} // namespace

QStringList undecidedDocuments(TillDocuments& documents)
{
    const Requests all = dispenseRequests();
    QStringList identifiers;
    for (const DispenseRequest& request : all) {
        identifiers.append(request.document);
    }
    identifiers.removeDuplicates();
    identifiers.removeIf([&](const QString& identifier) { return !isUndecided(identifier, all, documents); });
    return identifiers;
}
