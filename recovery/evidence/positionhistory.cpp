// SPDX-License-Identifier: MIT
#include "positionhistory.h"

#include "centrounding.h"
#include "positionoptions.h"

#include <algorithm>
#include <iterator>

namespace
{

using Kind = DispenseRequest::Kind;
using Outcome = DispenseRequest::Outcome;

/// A dispense that was cancelled before is refused as unknown, in conflict, gone or unprocessable (RFC 9110, 15.5).
bool mayBeCancelledBefore(const DispenseRequest& request)
{
    constexpr int statuses[] = {404, 409, 410, 422};
    return request.outcome == Outcome::Refused &&
           std::find(std::begin(statuses), std::end(statuses), request.status) != std::end(statuses);
}

} // namespace

PositionHistory::PositionHistory(const GoodsItem& position, const QString& document,
                                 const QList<DispenseRequest>& requests)
    : m_position([&] {
        const PositionOptions options(position);
        return OfDocument{document, options.id(), options.medicationDispenseId(), roundToCents(options.doseQuantity()),
                          options.isRegistered()};
    }())
    , m_known(m_position.isRegistered ? Known::Registered : Known::Nothing)
    , m_dispense(m_position.dispense)
{
    for (const DispenseRequest& request : requests) {
        if (isAbout(request)) {
            take(request);
        }
    }
}

bool PositionHistory::isOnDocument() const
{
    switch (m_known) {
    case Known::Registered:
        return m_position.isRegistered && m_position.dispense == m_dispense;
    case Known::Cancelled:
        return !m_position.isRegistered;
    case Known::Nothing:
        break;
    }
    return true;
}

/// A cancellation may be of another document: a return cancels what its sale has registered.
bool PositionHistory::isAbout(const DispenseRequest& request) const
{
    if (request.kind == Kind::Cancellation) {
        return !m_dispense.isEmpty() && request.dispense == m_dispense;
    }
    // The doses too: the position may have been removed, and the prescription put on the document again.
    return request.document == m_position.document && !request.prescription.isEmpty() &&
           request.prescription == m_position.prescription && request.facts.doses == m_position.doses;
}

void PositionHistory::take(const DispenseRequest& request)
{
    m_requests.append(request.id);
    m_hasLostAnswer = m_hasLostAnswer || request.outcome == Outcome::Open;
    if (request.kind == Kind::Registration) {
        takeRegistration(request);
    } else {
        takeCancellation(request);
    }
}

void PositionHistory::takeRegistration(const DispenseRequest& request)
{
    if (request.outcome == Outcome::Done) {
        const bool isOnDocument = !request.dispense.isEmpty() && request.dispense == m_position.dispense;
        m_known = isOnDocument && !m_position.isRegistered ? Known::Cancelled : Known::Registered;
        m_dispense = request.dispense;
        m_open.reset();
    } else if (request.outcome == Outcome::Open && m_known != Known::Registered) {
        m_open = request;
    }
}

void PositionHistory::takeCancellation(const DispenseRequest& request)
{
    if (request.outcome == Outcome::Done) {
        m_known = Known::Cancelled;
        m_open.reset();
    } else if (m_known == Known::Registered && (request.outcome == Outcome::Open || mayBeCancelledBefore(request))) {
        m_open = request;
    }
}
