// SPDX-License-Identifier: MIT
#include "scenario.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

ScenarioStep only(const QByteArray& step)
{
    const auto steps = parseScenario("{\"steps\": [" + step + "]}");
    if (!steps) {
        ADD_FAILURE() << steps.failure().detail.toStdString() << ": " << step.constData();
        return {};
    }
    EXPECT_EQ(steps->size(), 1) << step.constData();
    return steps->value(0);
}

} // namespace

TEST(Scenario, everyKindOfStep_isRead)
{
    using Kind = ScenarioStep::Kind;
    EXPECT_EQ(only(R"({"wait": "a"})").kind, Kind::Wait);
    EXPECT_EQ(only(R"({"wait": "a"})").target, u"a"_s);
    EXPECT_EQ(only(R"({"click": "a"})").kind, Kind::Click);
    EXPECT_EQ(only(R"({"key": "F5", "times": 10})").kind, Kind::Key);
    EXPECT_EQ(only(R"({"key": "F5", "times": 10})").times, 10);
    EXPECT_EQ(only(R"({"key": "F5"})").times, 1);
    EXPECT_EQ(only(R"({"type": "x", "into": "a"})").kind, Kind::Type);
    EXPECT_EQ(only(R"({"type": "x", "into": "a"})").target, u"a"_s);
    EXPECT_EQ(only(R"({"type": "x"})").target, QString());
    EXPECT_EQ(only(R"({"scan": "x"})").kind, Kind::Scan);
    EXPECT_EQ(only(R"({"row": 2, "in": "a"})").kind, Kind::Row);
    EXPECT_EQ(only(R"({"row": 2, "in": "a"})").times, 2);
    EXPECT_EQ(only(R"({"expect": "x", "in": "a"})").kind, Kind::Expect);
    EXPECT_EQ(only(R"({"contains": "x", "in": "a"})").kind, Kind::Contains);
    EXPECT_EQ(only(R"({"enabled": false, "in": "a"})").kind, Kind::Enabled);
    EXPECT_EQ(only(R"({"visible": true, "in": "a"})").kind, Kind::Visible);
    EXPECT_EQ(only(R"({"receipt": {"number": 1}})").kind, Kind::OpenDocument);
    EXPECT_EQ(only(R"({"document": {"number": 1}, "file": "a"})").kind, Kind::SavedFile);
    EXPECT_EQ(only(R"({"document": {"number": 1}, "file": "a"})").target, u"a"_s);
    EXPECT_EQ(only(R"({"printed": "x", "number": 7})").kind, Kind::Printed);
    EXPECT_EQ(only(R"({"printed": "x", "number": 7})").times, 7);
    EXPECT_EQ(only(R"({"screenshot": "x"})").kind, Kind::Screenshot);
    EXPECT_EQ(only(R"({"say": "x"})").kind, Kind::Say);
    EXPECT_EQ(only(R"({"print": "a"})").kind, Kind::Print);
    EXPECT_EQ(only(R"({"close": true})").kind, Kind::Close);
    EXPECT_EQ(only(R"({"wait": "a", "seconds": 30})").seconds, 30);
    EXPECT_EQ(only(R"({"wait": "a"})").seconds, 10);
}

TEST(Scenario, wrongStep_isReportedWithItsNumber)
{
    for (const QByteArray step :
         {R"({})", R"({"jump": 1})", R"({"wait": 5})", R"({"row": "2", "in": "a"})", R"({"row": 2})",
          R"({"expect": "x"})", R"({"wait": "a", "in": "b"})", R"("wait")", R"({"key": "Retrun"})", R"({"key": ""})",
          R"({"key": "F5", "times": "2"})", R"({"type": "x", "into": 5})", R"({"receipt": []})", R"({"document": {}})",
          R"({"printed": "x"})"}) {
        const auto steps = parseScenario(R"({"steps": [{"say": "x"}, )" + step + "]}");
        ASSERT_FALSE(steps) << step.constData();
        EXPECT_TRUE(steps.failure().detail.startsWith(u"step 2: "_s)) << qPrintable(steps.failure().detail);
    }
}

TEST(Scenario, fileWithoutSteps_isAFailureWithAReason)
{
    for (const char* json : {"", "[]", "{\"steps\": 1}"}) {
        const auto steps = parseScenario(json);
        ASSERT_FALSE(steps) << json;
        EXPECT_FALSE(steps.failure().detail.isEmpty()) << json;
    }
    const auto missing = readScenario(u"/no/such/file.json"_s);
    ASSERT_FALSE(missing);
    EXPECT_TRUE(missing.failure().detail.startsWith(u"/no/such"_s));
    EXPECT_TRUE(parseScenario("{\"steps\": []}"));
}
