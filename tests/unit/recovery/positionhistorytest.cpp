// SPDX-License-Identifier: MIT
#include "positionhistory.h"
#include "goodsitem.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using Kind = DispenseRequest::Kind;
using Known = PositionHistory::Known;
using Outcome = DispenseRequest::Outcome;

namespace
{

const QString document = u"00000012"_s;

/// A position of ten doses of the prescription rx-1.
void fill(GoodsItem& position, const QJsonObject& more = {})
{
    QJsonObject options{{"id"_L1, "rx-1"_L1}, {"doseQuantity"_L1, 10}};
    for (auto member = more.begin(); member != more.end(); ++member) {
        options[member.key()] = member.value();
    }
    position.setExtendedOptions(QString::fromUtf8(QJsonDocument(options).toJson()));
}

const QJsonObject registered{{"status"_L1, "dispensed"_L1}, {"medicationDispenseId"_L1, "d-1"_L1}};
const QJsonObject cancelled{{"status"_L1, "canceled"_L1}, {"medicationDispenseId"_L1, "d-1"_L1}};

DispenseRequest registration(Outcome outcome, const QString& dispense = {})
{
    DispenseRequest request;
    request.document = document;
    request.kind = Kind::Registration;
    request.outcome = outcome;
    request.prescription = u"rx-1"_s;
    request.dispense = dispense;
    request.facts.doses = 10;
    return request;
}

DispenseRequest cancellation(Outcome outcome, const QString& dispense)
{
    DispenseRequest request;
    request.kind = Kind::Cancellation;
    request.outcome = outcome;
    request.dispense = dispense;
    return request;
}

/// Of the position with these options, with the requests numbered from 1.
PositionHistory historyOf(const QJsonObject& options, QList<DispenseRequest> requests)
{
    for (qsizetype index = 0; index < requests.size(); ++index) {
        requests[index].id = index + 1;
    }
    GoodsItem position;
    fill(position, options);
    return {position, document, requests};
}

TEST(PositionHistoryTest, withoutRequests_isWhatThePositionSays)
{
    EXPECT_EQ(historyOf({}, {}).known(), Known::Nothing);
    EXPECT_EQ(historyOf(registered, {}).known(), Known::Registered);
    EXPECT_EQ(historyOf(registered, {}).dispense(), u"d-1"_s);
    EXPECT_EQ(historyOf(cancelled, {}).known(), Known::Nothing);
}

TEST(PositionHistoryTest, answerThatThePositionLacks_isKnown)
{
    const auto history = historyOf({}, {registration(Outcome::Done, u"d-1"_s)});
    EXPECT_EQ(history.known(), Known::Registered);
    EXPECT_EQ(history.dispense(), u"d-1"_s);
    EXPECT_FALSE(history.open());
    EXPECT_EQ(historyOf(registered, {cancellation(Outcome::Done, u"d-1"_s)}).known(), Known::Cancelled);
}

TEST(PositionHistoryTest, lostAnswer_isOpen)
{
    EXPECT_EQ(historyOf({}, {registration(Outcome::Open)}).open().value().id, 1);
    EXPECT_EQ(historyOf(registered, {cancellation(Outcome::Open, u"d-1"_s)}).open().value().id, 1);
}

TEST(PositionHistoryTest, refusedCancellation_isOpenAndRefusedRegistrationIsNot)
{
    for (const int status : {404, 409, 410, 422}) {
        DispenseRequest refused = cancellation(Outcome::Refused, u"d-1"_s);
        refused.status = status;
        EXPECT_TRUE(historyOf(registered, {refused}).open()) << status;
    }
    for (const int status : {400, 401, 403, 429}) {
        DispenseRequest refused = cancellation(Outcome::Refused, u"d-1"_s);
        refused.status = status;
        EXPECT_FALSE(historyOf(registered, {refused}).open()) << status;
    }
    EXPECT_FALSE(historyOf({}, {registration(Outcome::Refused)}).open());
    EXPECT_FALSE(historyOf({}, {registration(Outcome::NotSent)}).open());
    EXPECT_FALSE(historyOf(registered, {cancellation(Outcome::NotSent, u"d-1"_s)}).open());
}

TEST(PositionHistoryTest, refusalAfterALostAnswer_leavesItOpen)
{
    const auto history = historyOf({}, {registration(Outcome::Open), registration(Outcome::Refused)});
    EXPECT_EQ(history.open().value().id, 1);
    EXPECT_EQ(history.requests(), (QList<qint64>{1, 2}));
}

TEST(PositionHistoryTest, answerAfterALostOne_closesIt)
{
    EXPECT_FALSE(historyOf({}, {registration(Outcome::Open), registration(Outcome::Done, u"d-2"_s)}).open());
    EXPECT_FALSE(
        historyOf(registered, {cancellation(Outcome::Open, u"d-1"_s), cancellation(Outcome::Done, u"d-1"_s)}).open());
}

TEST(PositionHistoryTest, positionKnowsTheAnswer_registrationIsNotOpen)
{
    EXPECT_FALSE(historyOf(registered, {registration(Outcome::Open)}).open());
    EXPECT_FALSE(historyOf(cancelled, {cancellation(Outcome::Open, u"d-1"_s)}).open());
}

TEST(PositionHistoryTest, registrationThatThePositionHadBefore_staysCancelled)
{
    const auto history = historyOf(cancelled, {registration(Outcome::Done, u"d-1"_s)});
    EXPECT_EQ(history.known(), Known::Cancelled);
}

TEST(PositionHistoryTest, registeredCancelledAndLost_isOpen)
{
    const auto history = historyOf(registered, {registration(Outcome::Done, u"d-1"_s),
                                                cancellation(Outcome::Done, u"d-1"_s), registration(Outcome::Open)});
    EXPECT_EQ(history.known(), Known::Cancelled);
    EXPECT_EQ(history.open().value().id, 3);
}

TEST(PositionHistoryTest, requestThatCouldNotBeRead_isOfNoPosition)
{
    DispenseRequest damaged = registration(Outcome::Open);
    damaged.prescription.clear();
    damaged.facts = {};
    EXPECT_FALSE(historyOf({{"id"_L1, ""_L1}, {"doseQuantity"_L1, 0}}, {damaged}).open());
}

TEST(PositionHistoryTest, requestsOfOthers_areLeftOut)
{
    DispenseRequest ofAnotherDocument = registration(Outcome::Open);
    ofAnotherDocument.document = u"00000013"_s;
    DispenseRequest ofAnotherPrescription = registration(Outcome::Open);
    ofAnotherPrescription.prescription = u"rx-2"_s;
    DispenseRequest ofOtherDoses = registration(Outcome::Open);
    ofOtherDoses.facts.doses = 5;
    const auto history = historyOf({}, {ofAnotherDocument, ofAnotherPrescription, ofOtherDoses,
                                        cancellation(Outcome::Open, u"d-1"_s), cancellation(Outcome::Open, {})});
    EXPECT_FALSE(history.open());
    EXPECT_TRUE(history.requests().isEmpty());
}

} // namespace
