// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QList>
#include <QString>

/// What goes wrong with a request to the registry, and what comes of it.
namespace soak
{

enum class Endpoint { Token, ByCard, Registration, Cancellation };

/// The endpoint's name on the emulator's admin port.
QString nameOf(Endpoint endpoint);

struct Fault {
    /// What the register gets for an answer.
    enum class Answer { Usable, Broken, None, Refusal, Unusable };

    Endpoint endpoint = Endpoint::Token;
    const char* name = "";
    Answer answer = Answer::Usable;
    bool isCarriedOut = false;

    /// True when the cashier has to repeat the command. A look-up whose connection breaks is sent again by itself.
    bool isShown() const;
    /// True when the register sends the request a second time by itself.
    bool isSentAgain() const;
    /// A part of the message that the cashier reads.
    QByteArray message() const;
    /// The order for the emulator.
    ///
    /// @param nth the request to the endpoint that is hit, counted from 1
    QJsonObject order(int nth) const;
};

/// Every fault of these endpoints. A request that books something can be carried out although its answer is lost.
QList<Fault> faultsOf(const QList<Endpoint>& endpoints);

} // namespace soak
