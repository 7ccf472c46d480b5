// SPDX-License-Identifier: MIT
#pragma once

#include "amount.h"

#include <QJsonObject>
#include <QList>
#include <QString>

/// What a card terminal was asked for a document, and what came of it. A value type.
struct CardOperation {
    enum class Kind {
        Payment,
        Refund,
        CashRefund, ///< the terminal could not give a payment back: the cashier pays it out in cash. No terminal is
                    ///< asked
    };
    enum class State {
        Asked,    ///< the money may have moved: nobody knows yet
        Approved, ///< the money has moved
        Declined, ///< the money has not moved, and never will by this operation
    };

    Kind kind = Kind::Payment;
    State state = State::Asked;
    Kopecks amount{};
    QString reference = {}; ///< names the operation for the terminal; no other one has it
    QString payment = {};   ///< of both refunds: the reference of the payment that it gives back; empty otherwise
    QString terminal = {};  ///< the plug-in whose terminal was asked; empty for CashRefund
    QString card = {};      ///< masked; empty unless approved
    QString authorizationCode = {}; ///< empty unless approved

    bool operator==(const CardOperation&) const = default;

    QJsonObject toJson() const;
    /// Reads what toJson() wrote. Throws BasicException when a member is missing or of the wrong type.
    static CardOperation fromJson(const QJsonObject& saved);
};

/// What the operations of documents come to.
namespace cardoperations
{

/// The approved payments, each with the amount that no approved refund of either kind has given back; those without
/// such an amount are left out.
QList<CardOperation> charged(const QList<CardOperation>& operations);

/// The approved operations of that kind.
QList<CardOperation> approved(const QList<CardOperation>& operations, CardOperation::Kind kind);

/// True when a refund of either kind was approved.
bool havePaidBack(const QList<CardOperation>& operations);
/// The same; true also when nobody knows whether one was.
bool mayHavePaidBack(const QList<CardOperation>& operations);

Kopecks totalOf(const QList<CardOperation>& operations);

/// A terminal's text as it is kept and printed: in one line, cut off after 100 letters.
QString oneLine(const QString& text);

/// The number of a card as it may be kept: in oneLine(), and of more digits than ten only the last four stay.
QString masked(const QString& card);

} // namespace cardoperations
