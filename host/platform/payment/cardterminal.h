// SPDX-License-Identifier: MIT
#pragma once

#include "export.h"
#include "kopecks.h"
#include "tr.h"

#include <QString>

#include <chrono>
#include <optional>

/// What a card terminal is asked to do. A value type.
struct CardRequest {
    Kopecks amount = {};    ///< above 0
    QString reference = {}; ///< names the operation; the register never gives it to another one
    int documentNumber = 0; ///< of the sale or of the return

    // Of a refund: the payment that it gives back, or a part of it.
    QString payment = {};           ///< the reference of the payment
    QString authorizationCode = {}; ///< what it was approved with
};

/// What a card terminal answers. A value type.
struct CardAnswer {
    enum class Outcome {
        Approved, ///< the money has moved
        Declined, ///< the money has not moved, and this operation will never move it
        Busy,     ///< the terminal works on something else: the request was not begun
        Unknown,  ///< the answer was lost: the money may have moved
    };

    Outcome outcome = Outcome::Unknown;
    // Of an approved operation; the receipt shows them in one line each, and no more than 100 letters are kept.
    QString authorizationCode = {};
    QString maskedCard = {}; ///< "**** 1234"; never the whole number
    tr::Tr text = {};        ///< why it was declined, for the cashier; may be empty

    static CardAnswer approved(const QString& authorizationCode, const QString& maskedCard)
    {
        return {Outcome::Approved, authorizationCode, maskedCard, {}};
    }
    static CardAnswer declined(const tr::Tr& text = {}) { return {Outcome::Declined, {}, {}, text}; }
    static CardAnswer busy() { return {Outcome::Busy, {}, {}, {}}; }
    static CardAnswer unknown() { return {}; }
};

/// A device that moves money from and to the customer's card. A plug-in derives from it and gives it to CardTerminals.
///
/// Called on the main thread, between the events LongWorkBegins and LongWorkEnds, while keys and clicks are thrown
/// away. Each call returns when the outcome is known or lost; its own time-out bounds it. While it waits it lets events
/// run, so that the busy screen turns. An exception counts as CardAnswer::Outcome::Unknown.
class REGISTERPLATFORM_EXPORT CardTerminal
{
public:
    CardTerminal();
    virtual ~CardTerminal();
    Q_DISABLE_COPY_MOVE(CardTerminal)

    /// Takes the amount from the customer's card.
    virtual CardAnswer pay(const CardRequest& request) = 0;

    /// Gives the amount back to the card of an earlier payment.
    virtual CardAnswer refund(const CardRequest& request) = 0;

    /// What became of an operation, after an answer that was lost or a crash of the register. Moves no money.
    /// @param reference of a payment or a refund. Declined: the terminal refused it, or never got it and will not begin
    ///        it any more. Busy, Unknown: it cannot say now.
    virtual CardAnswer find(const QString& reference) = 0;

    /// How long one of these calls takes at most; the busy screen shows it. Nothing: it is not known.
    virtual std::optional<std::chrono::seconds> timeLimit() const;
};
