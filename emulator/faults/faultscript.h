// SPDX-License-Identifier: MIT
#pragma once

#include "faultorder.h"

#include <QList>

namespace emulator
{
/// The faults that are to meet coming requests. Each order counts the requests to its endpoint from the moment in which
/// it was given; of several that are due, the oldest meets the request and the others wait for the next.
class FaultScript
{
public:
    using Milliseconds = std::chrono::milliseconds;

    /// The request is carried out at once, and answered in full after that time.
    void delay(Endpoint endpoint, Milliseconds time, Occasion occasion = {});
    /// The body comes byte by byte, `pause` apart.
    void drip(Endpoint endpoint, Milliseconds pause, Occasion occasion = {});
    /// The head tells the whole length, half of the body follows, then the connection is closed. Carried out.
    void cutAnswerOff(Endpoint endpoint, Occasion occasion = {});

    /// No answer, and the request is not carried out.
    void neverAnswer(Endpoint endpoint, Occasion occasion = {});
    void closeBeforeAnswer(Endpoint endpoint, Occasion occasion = {});
    void resetBeforeAnswer(Endpoint endpoint, Occasion occasion = {});

    /// No answer, although the request is carried out.
    void carryOutThenNeverAnswer(Endpoint endpoint, Occasion occasion = {});
    void carryOutThenClose(Endpoint endpoint, Occasion occasion = {});
    void carryOutThenReset(Endpoint endpoint, Occasion occasion = {});

    /// An answer of that status without a body; the request is not carried out.
    void answerStatus(Endpoint endpoint, int status, Occasion occasion = {});
    /// The same with an issue of severity "error".
    void answerIssue(Endpoint endpoint, int status, const QString& details, Occasion occasion = {});
    /// Status 200 and a page of HTML, as a gateway in between would send it; the request is not carried out.
    void answerHtml(Endpoint endpoint, Occasion occasion = {});
    /// Status 200 and an empty body; the request is not carried out.
    void answerNothing(Endpoint endpoint, Occasion occasion = {});
    /// The registry's answer up to its middle, as a complete HTTP answer. Carried out.
    void answerHalfOfJson(Endpoint endpoint, Occasion occasion = {});
    /// Status 200 and that body, sent as JSON; the request is not carried out.
    void answerBody(Endpoint endpoint, const QByteArray& body, Occasion occasion = {});

    void order(const FaultOrder& order);
    void clear();
    /// Orders that have not met all their requests yet, oldest first.
    const QList<FaultOrder>& pending() const { return m_orders; }

    /// Counts a request and gives the fault that meets it.
    std::optional<FaultOrder> takeFor(Endpoint endpoint);

private:
    QList<FaultOrder> m_orders;
};
} // namespace emulator
