// SPDX-License-Identifier: MIT
#include "cardoperation.h"

#include "savedmember.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <numeric>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{

constexpr std::array<std::pair<CardOperation::Kind, QLatin1StringView>, 3> kinds{{
    {CardOperation::Kind::Payment, "payment"_L1},
    {CardOperation::Kind::Refund, "refund"_L1},
    {CardOperation::Kind::CashRefund, "cashRefund"_L1},
}};

constexpr std::array<std::pair<CardOperation::State, QLatin1StringView>, 3> states{{
    {CardOperation::State::Asked, "asked"_L1},
    {CardOperation::State::Approved, "approved"_L1},
    {CardOperation::State::Declined, "declined"_L1},
}};

QString word(const auto& words, auto value)
{
    return std::find_if(words.begin(), words.end(), [value](const auto& row) { return row.first == value; })->second;
}

auto readWord(const auto& words, const QJsonObject& saved, const QString& name)
{
    const QString wanted = savedmember::text(saved, name);
    const auto found = std::find_if(words.begin(), words.end(), [&](const auto& row) { return row.second == wanted; });
    if (found == words.end()) {
        savedmember::refuse(name);
    }
    return found->first;
}

Kopecks readAmount(const QJsonObject& saved)
{
    const Kopecks amount = savedmember::amount(saved, u"amount"_s);
    if (amount <= Kopecks{0}) {
        savedmember::refuse(u"amount"_s);
    }
    return amount;
}

QString readReference(const QJsonObject& saved)
{
    QString reference = savedmember::text(saved, u"reference"_s);
    if (reference.isEmpty()) {
        savedmember::refuse(u"reference"_s);
    }
    return reference;
}

void insertUnlessEmpty(QJsonObject& saved, const QString& name, const QString& text)
{
    if (!text.isEmpty()) {
        saved.insert(name, text);
    }
}

} // namespace

QJsonObject CardOperation::toJson() const
{
    QJsonObject saved{{u"kind"_s, word(kinds, kind)},
                      {u"state"_s, word(states, state)},
                      {u"amount"_s, amount.toRoubles()},
                      {u"reference"_s, reference},
                      {u"terminal"_s, terminal}};
    insertUnlessEmpty(saved, u"payment"_s, payment);
    insertUnlessEmpty(saved, u"card"_s, card);
    insertUnlessEmpty(saved, u"authorizationCode"_s, authorizationCode);
    return saved;
}

CardOperation CardOperation::fromJson(const QJsonObject& saved)
{
    return {.kind = readWord(kinds, saved, u"kind"_s),
            .state = readWord(states, saved, u"state"_s),
            .amount = readAmount(saved),
            .reference = readReference(saved),
            .payment = saved.value("payment"_L1).toString(),
            .terminal = savedmember::text(saved, u"terminal"_s),
            .card = saved.value("card"_L1).toString(),
            .authorizationCode = saved.value("authorizationCode"_L1).toString()};
}

namespace cardoperations
{

QList<CardOperation> approved(const QList<CardOperation>& operations, CardOperation::Kind kind)
{
    QList<CardOperation> found;
    std::copy_if(operations.cbegin(), operations.cend(), std::back_inserter(found),
                 [kind](const CardOperation& operation) {
                     return operation.kind == kind && operation.state == CardOperation::State::Approved;
                 });
    return found;
}

QList<CardOperation> charged(const QList<CardOperation>& operations)
{
    using enum CardOperation::Kind;
    const QList<CardOperation> refunds = approved(operations, Refund) + approved(operations, CashRefund);
    QList<CardOperation> left = approved(operations, Payment);
    for (CardOperation& payment : left) {
        for (const CardOperation& refund : refunds) {
            if (refund.payment == payment.reference) {
                payment.amount = payment.amount - refund.amount;
            }
        }
    }
    left.removeIf([](const CardOperation& payment) { return payment.amount <= Kopecks{0}; });
    return left;
}

bool havePaidBack(const QList<CardOperation>& operations)
{
    return std::any_of(operations.cbegin(), operations.cend(), [](const CardOperation& operation) {
        return operation.kind != CardOperation::Kind::Payment && operation.state == CardOperation::State::Approved;
    });
}

bool mayHavePaidBack(const QList<CardOperation>& operations)
{
    return std::any_of(operations.cbegin(), operations.cend(), [](const CardOperation& operation) {
        return operation.kind != CardOperation::Kind::Payment && operation.state != CardOperation::State::Declined;
    });
}

Kopecks totalOf(const QList<CardOperation>& operations)
{
    return std::accumulate(operations.cbegin(), operations.cend(), Kopecks{0},
                           [](Kopecks total, const CardOperation& operation) { return total + operation.amount; });
}

/// More than any terminal has to say of a card or a code, and no more than a receipt can show.
constexpr qsizetype longestText = 100;

QString oneLine(const QString& text)
{
    return text.simplified().left(longestText);
}

QString masked(const QString& card)
{
    constexpr qsizetype mostDigits = 10; // the first six and the last four
    constexpr qsizetype kept = 4;
    QString masked = oneLine(card);
    qsizetype digits = std::count_if(masked.cbegin(), masked.cend(), [](QChar letter) { return letter.isDigit(); });
    if (digits <= mostDigits) {
        return masked;
    }
    for (QChar& letter : masked) {
        if (letter.isDigit() && digits-- > kept) {
            letter = u'*';
        }
    }
    return masked;
}

} // namespace cardoperations
