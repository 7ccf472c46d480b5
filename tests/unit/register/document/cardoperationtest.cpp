// SPDX-License-Identifier: MIT
#include "cardoperation.h"

#include "basicexception.h"
#include "document.h"

#include <QJsonArray>

#include <gtest/gtest.h>

#include <utility>

using namespace Qt::StringLiterals;

namespace
{

using Kind = CardOperation::Kind;
using State = CardOperation::State;

CardOperation operation(Kind kind, State state, Kopecks amount, const QString& reference, const QString& payment = {})
{
    return {.kind = kind,
            .state = state,
            .amount = amount,
            .reference = reference,
            .payment = payment,
            .terminal = u"bank"_s};
}

} // namespace

TEST(CardOperation, everyKindAndState_comesBackAsItWasSaved)
{
    for (const Kind kind : {Kind::Payment, Kind::Refund, Kind::CashRefund}) {
        for (const State state : {State::Asked, State::Approved, State::Declined}) {
            CardOperation saved = operation(kind, state, Kopecks{1999}, u"7-1"_s, u"5-1"_s);
            EXPECT_EQ(CardOperation::fromJson(saved.toJson()), saved);
            saved.card = u"**** 1234"_s;
            saved.authorizationCode = u"A17"_s;
            EXPECT_EQ(CardOperation::fromJson(saved.toJson()), saved);
        }
    }
}

TEST(CardOperation, damagedMember_isRefusedByName)
{
    const QJsonObject sound = operation(Kind::Payment, State::Asked, Kopecks{100}, u"7-1"_s).toJson();
    const std::pair<const char*, QJsonValue> damages[] = {
        {"kind", u"gift"_s}, {"kind", {}},         {"state", u"perhaps"_s}, {"amount", 0},    {"amount", -1},
        {"amount", u"1"_s},  {"reference", u""_s}, {"reference", 5},        {"terminal", {}},
    };
    for (const auto& [member, value] : damages) {
        QJsonObject damaged = sound;
        damaged.insert(QLatin1StringView(member), value);
        try {
            CardOperation::fromJson(damaged);
            ADD_FAILURE() << member;
        } catch (const BasicException& refusal) {
            EXPECT_TRUE(refusal.tr().ui().contains(QLatin1StringView(member))) << member;
        }
    }
}

TEST(CardOperations, charged_isWhatApprovedRefundsOfBothKindsLeave)
{
    const QList<CardOperation> operations{
        operation(Kind::Payment, State::Approved, Kopecks{1000}, u"a"_s),
        operation(Kind::Payment, State::Approved, Kopecks{500}, u"b"_s),
        operation(Kind::Payment, State::Declined, Kopecks{700}, u"c"_s),
        operation(Kind::Payment, State::Asked, Kopecks{900}, u"d"_s),
        operation(Kind::Refund, State::Approved, Kopecks{300}, u"e"_s, u"a"_s),
        operation(Kind::Refund, State::Asked, Kopecks{300}, u"f"_s, u"a"_s),
        operation(Kind::CashRefund, State::Approved, Kopecks{100}, u"g"_s, u"a"_s),
        operation(Kind::Refund, State::Approved, Kopecks{500}, u"h"_s, u"b"_s),
    };
    const QList<CardOperation> left = cardoperations::charged(operations);
    ASSERT_EQ(left.size(), 1);
    EXPECT_EQ(left.first().reference, u"a"_s);
    EXPECT_EQ(left.first().amount, Kopecks{600});
}

TEST(CardOperations, wholeNumberOfACard_keepsItsLastFourDigits)
{
    const std::pair<const char*, const char*> cards[] = {
        {"4111111111111111", "************1111"},
        {"2200 0000 0000 0004", "**** **** **** 0004"},
        {"**** 1234", "**** 1234"},
        {"411111******1111", "411111******1111"},
        {"", ""},
        {"MIR 1234", "MIR 1234"},
        {" MIR\n1234\t", "MIR 1234"},
    };
    for (const auto& [card, kept] : cards) {
        EXPECT_EQ(cardoperations::masked(QLatin1StringView(card)), QLatin1StringView(kept)) << card;
    }
    EXPECT_EQ(cardoperations::masked(QString(500, u'x')).size(), 100);
}

TEST(CardOperations, documentWithOperationsAndReturns_comesBackAsItWasSaved)
{
    Document document(7, QDateTime({2026, 3, 2}, {9, 5}));
    document.setCardOperation(operation(Kind::Payment, State::Asked, Kopecks{1000}, u"a"_s));
    document.setCardOperation(operation(Kind::Payment, State::Approved, Kopecks{1000}, u"a"_s));
    document.setCardOperation(operation(Kind::Refund, State::Asked, Kopecks{1000}, u"b"_s, u"a"_s));
    for (const int number : {8, 9, 12}) {
        document.addReturn(number);
    }
    const auto again = Document::fromJson(document.toJson());
    EXPECT_EQ(again->cardOperations(), document.cardOperations());
    EXPECT_EQ(again->cardOperations().size(), 2) << "one for each reference";
    EXPECT_EQ(again->returns(), (QList<int>{8, 9, 12}));
    EXPECT_EQ(again->getReturnedBy(), 12);
    EXPECT_EQ(again->toJson(), document.toJson());
    ASSERT_TRUE(again->unsettledCardOperation());
    EXPECT_EQ(again->unsettledCardOperation()->reference, u"b"_s);
}

TEST(CardOperations, saleSavedByAnOlderRegister_knowsItsReturn)
{
    Document document(7, QDateTime({2026, 3, 2}, {9, 5}));
    QJsonObject saved = document.toJson();
    saved.insert(u"takenBackBy"_s, 9);
    EXPECT_EQ(Document::fromJson(saved)->returns(), QList<int>{9});
}

TEST(CardOperations, twoOperationsOfOneReference_areRefused)
{
    Document document(7, QDateTime({2026, 3, 2}, {9, 5}));
    document.setCardOperation(operation(Kind::Payment, State::Approved, Kopecks{1000}, u"a"_s));
    QJsonObject saved = document.toJson();
    QJsonArray operations = saved.value("cardOperations"_L1).toArray();
    operations.append(operations.first());
    saved.insert(u"cardOperations"_s, operations);
    EXPECT_THROW(Document::fromJson(saved), BasicException);
}
