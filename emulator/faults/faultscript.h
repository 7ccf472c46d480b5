// SPDX-License-Identifier: MIT
#pragma once

#include "faultorder.h"

#include <QList>

namespace emulator
{
/// The faults for coming requests. Each order counts the requests to its endpoint from the moment it was given. When
/// several are due, the oldest hits the request and the others wait for the next one.
class FaultScript
{
public:
    using Milliseconds = std::chrono::milliseconds;

    /// The request is carried out at once, and answered in full after that time.
    void delay(Endpoint endpoint, Milliseconds time, Occasion occasion = {});
    /// The body comes byte by byte, `pause` apart.
    void drip(Endpoint endpoint, Milliseconds pause, Occasion occasion = {});
    /// Content-Length is that of the whole body, half of the body follows, then the connection is closed. Carried out.
    void cutAnswerOff(Endpoint endpoint, Occasion occasion = {});

    /// No answer, and the request is not carried out.
    void neverAnswer(Endpoint endpoint, Occasion occasion = {});
    void closeBeforeAnswer(Endpoint endpoint, Occasion occasion = {});
    void resetBeforeAnswer(Endpoint endpoint, Occasion occasion = {});

    /// No answer, although the request is carried out.
    void carryOutThenNeverAnswer(Endpoint endpoint, Occasion occasion = {});
    void carryOutThenClose(Endpoint endpoint, Occasion occasion = {});
    void carryOutThenReset(Endpoint endpoint, Occasion occasion = {});
    /// No answer; the request is carried out when the next one comes that registers or cancels a dispense, before it.
    void carryOutLate(Endpoint endpoint, Occasion occasion = {});

    /// An answer of that status without a body; the request is not carried out.
    void answerStatus(Endpoint endpoint, int status, Occasion occasion = {});
    /// The same with an issue of severity "error".
    void answerIssue(Endpoint endpoint, int status, const QString& details, Occasion occasion = {});
    /// Status 200 and a page of HTML, as a gateway would send it; the request is not carried out.
    void answerHtml(Endpoint endpoint, Occasion occasion = {});
    /// Status 200 and an empty body; the request is not carried out.
    void answerNothing(Endpoint endpoint, Occasion occasion = {});
    /// The first half of the registry's body, as a complete HTTP answer. Carried out.
    void answerHalfOfJson(Endpoint endpoint, Occasion occasion = {});
    /// Status 200 and that body, sent as JSON; the request is not carried out.
    void answerBody(Endpoint endpoint, const QByteArray& body, Occasion occasion = {});

    void order(const FaultOrder& order);
    void clear();
    /// Orders that still wait for a request, oldest first.
    const QList<FaultOrder>& pending() const { return m_orders; }

    /// Counts a request, and returns the fault that hits it.
    std::optional<FaultOrder> takeFor(Endpoint endpoint);

private:
    QList<FaultOrder> m_orders;
};
} // namespace emulator
