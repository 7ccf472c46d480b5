// SPDX-License-Identifier: MIT
#include "faultscript.h"

#include "emulatorerror.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using emulator::Delivery;
using emulator::Endpoint;
using emulator::FaultOrder;
using emulator::FaultScript;
using emulator::JsonNode;
using emulator::Occasion;

namespace
{
QString faultHitting(FaultScript& script, Endpoint endpoint)
{
    const auto order = script.takeFor(endpoint);
    return order ? order->name : QString();
}

FaultOrder read(const char* json)
{
    return FaultOrder::fromJson(JsonNode::parse(json));
}

QString mistakeIn(const char* json)
{
    try {
        read(json);
    } catch (const emulator::EmulatorError& error) {
        return error.message();
    }
    return {};
}
} // namespace

TEST(FaultScript, withoutOrders_hitsNothing)
{
    FaultScript script;
    EXPECT_EQ(script.takeFor(Endpoint::Token), std::nullopt);
}

TEST(FaultScript, plainOrder_hitsNextRequestOnly)
{
    FaultScript script;
    script.closeBeforeAnswer(Endpoint::Token);
    EXPECT_EQ(faultHitting(script, Endpoint::PrescriptionsByCard), QString());
    EXPECT_EQ(faultHitting(script, Endpoint::Token), u"close"_s);
    EXPECT_EQ(faultHitting(script, Endpoint::Token), QString());
    EXPECT_TRUE(script.pending().isEmpty());
}

TEST(FaultScript, orderForAny_hitsWhateverComes)
{
    FaultScript script;
    script.closeBeforeAnswer(Endpoint::Any, Occasion::next(2));
    EXPECT_EQ(faultHitting(script, Endpoint::Unknown), u"close"_s);
    EXPECT_EQ(faultHitting(script, Endpoint::DispenseRegistration), u"close"_s);
    EXPECT_EQ(faultHitting(script, Endpoint::Token), QString());
}

TEST(FaultScript, nthOrder_countsRequestsOfItsEndpoint)
{
    FaultScript script;
    script.resetBeforeAnswer(Endpoint::Token, Occasion::nth(3));
    EXPECT_EQ(faultHitting(script, Endpoint::Token), QString());
    EXPECT_EQ(faultHitting(script, Endpoint::PrescriptionsByCard), QString());
    EXPECT_EQ(faultHitting(script, Endpoint::Token), QString());
    EXPECT_EQ(faultHitting(script, Endpoint::Token), u"reset"_s);
    EXPECT_EQ(faultHitting(script, Endpoint::Token), QString());
}

TEST(FaultScript, nthOrder_countsRequestsThatAnotherFaultHits)
{
    FaultScript script;
    script.closeBeforeAnswer(Endpoint::Token);
    script.resetBeforeAnswer(Endpoint::Token, Occasion::nth(2));
    EXPECT_EQ(faultHitting(script, Endpoint::Token), u"close"_s);
    EXPECT_EQ(faultHitting(script, Endpoint::Token), u"reset"_s);
}

TEST(FaultScript, severalDueOrders_hitOneRequestEachOldestFirst)
{
    FaultScript script;
    script.closeBeforeAnswer(Endpoint::Token);
    script.resetBeforeAnswer(Endpoint::Any);
    script.neverAnswer(Endpoint::Token);
    EXPECT_EQ(faultHitting(script, Endpoint::Token), u"close"_s);
    EXPECT_EQ(faultHitting(script, Endpoint::Token), u"reset"_s);
    EXPECT_EQ(faultHitting(script, Endpoint::Token), u"never"_s);
    EXPECT_EQ(faultHitting(script, Endpoint::Token), QString());
}

TEST(FaultScript, orderForEveryTime_lastsUntilCleared)
{
    FaultScript script;
    script.closeBeforeAnswer(Endpoint::Token, Occasion::always());
    for (int request = 0; request < 5; ++request) {
        EXPECT_EQ(faultHitting(script, Endpoint::Token), u"close"_s);
    }
    script.clear();
    EXPECT_EQ(faultHitting(script, Endpoint::Token), QString());
}

TEST(FaultOrder, everyName_isReadFromJson)
{
    for (const QString& name : FaultOrder::names()) {
        const QByteArray json = "{\"fault\": \"" + name.toLatin1() + "\"}";
        const FaultOrder order = read(json.constData());
        EXPECT_EQ(order.name, name);
        EXPECT_EQ(order.endpoint, Endpoint::Any);
        EXPECT_EQ(order.occasion.skip, 0);
        EXPECT_EQ(order.occasion.times, 1);
    }
}

TEST(FaultOrder, allMembers_areRead)
{
    const FaultOrder order = read(R"({"fault": "drip", "endpoint": "by-card", "skip": 2, "times": 0, "delay": 70,
                                      "pause": 5, "carriedOut": false})");
    EXPECT_EQ(order.endpoint, Endpoint::PrescriptionsByCard);
    EXPECT_EQ(order.occasion.skip, 2);
    EXPECT_EQ(order.occasion.times, Occasion::everyTime);
    EXPECT_EQ(order.manner, Delivery::Manner::Dripping);
    EXPECT_EQ(order.delay.count(), 70);
    EXPECT_EQ(order.pause.count(), 5);
    EXPECT_FALSE(order.isCarriedOut);
}

TEST(FaultOrder, nth_isOneRequest)
{
    const FaultOrder order = read(R"({"fault": "close", "endpoint": "register", "nth": 3, "carriedOut": true})");
    EXPECT_EQ(order.endpoint, Endpoint::DispenseRegistration);
    EXPECT_EQ(order.occasion.skip, 2);
    EXPECT_EQ(order.occasion.times, 1);
    EXPECT_TRUE(order.isCarriedOut);
}

TEST(FaultOrder, ownAnswer_isReadWithStatusBodyAndType)
{
    const auto issue = read(R"({"fault": "status", "status": 401, "issue": "Нет"})").answer;
    ASSERT_TRUE(issue.has_value());
    EXPECT_EQ(issue->status, 401);
    EXPECT_TRUE(issue->body.contains("\"details\":\"Нет\""));
    const auto body = read(R"({"fault": "body", "status": 203, "body": "{", "contentType": "text/plain"})").answer;
    ASSERT_TRUE(body.has_value());
    EXPECT_EQ(body->status, 203);
    EXPECT_EQ(body->body, "{");
    EXPECT_EQ(body->contentType, "text/plain");
}

TEST(FaultOrder, mistakes_areReportedWithTheirPlace)
{
    EXPECT_TRUE(mistakeIn("{}").startsWith(u"fault: "_s));
    EXPECT_TRUE(mistakeIn(R"({"fault": "explode"})").startsWith(u"fault: one of these is expected: delay"_s));
    EXPECT_TRUE(mistakeIn(R"({"fault": "close", "endpoint": "x"})").startsWith(u"endpoint: one of these"_s));
    EXPECT_TRUE(mistakeIn(R"({"fault": "close", "when": 1})").startsWith(u"when: no such member"_s));
    EXPECT_TRUE(mistakeIn(R"({"fault": "close", "nth": 0})").startsWith(u"nth: counted from 1"_s));
    EXPECT_TRUE(mistakeIn(R"({"fault": "close", "nth": 1, "skip": 1})").startsWith(u"nth: goes without"_s));
    EXPECT_TRUE(mistakeIn(R"({"fault": "close", "delay": -1})").startsWith(u"delay: a whole number"_s));
    EXPECT_TRUE(mistakeIn(R"({"fault": "close", "status": 500})").startsWith(u"status: not for this fault"_s));
    EXPECT_TRUE(mistakeIn(R"({"fault": "status", "status": 99})").startsWith(u"status: a status from"_s));
    EXPECT_TRUE(mistakeIn(R"({"fault": "body", "contentType": "a\r\nb"})").startsWith(u"contentType: "_s));
    EXPECT_TRUE(mistakeIn("[]").startsWith(u"an object is expected"_s));
    EXPECT_TRUE(mistakeIn("{\n  x").startsWith(u"no JSON, line 2, column "_s));
}
