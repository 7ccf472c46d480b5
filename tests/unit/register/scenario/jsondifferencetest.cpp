// SPDX-License-Identifier: MIT
#include "jsondifference.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

std::optional<QString> difference(const QByteArray& expected, const QByteArray& actual)
{
    return jsonDifference(QJsonDocument::fromJson(expected).object(), QJsonDocument::fromJson(actual).object());
}

} // namespace

TEST(JsonDifference, expectedMembersEqual_othersAreIgnored)
{
    EXPECT_EQ(difference(R"({"a": 1, "b": {"c": [true, null, "x"]}})",
                         R"({"a": 1, "b": {"c": [true, null, "x"], "d": 2}, "e": 3})"),
              std::nullopt);
}

TEST(JsonDifference, difference_isReportedWithItsPath)
{
    EXPECT_EQ(difference(R"({"a": [{"b": 1}]})", R"({"a": [{"b": 2}]})"), u"a[0].b is 2 instead of 1"_s);
    EXPECT_EQ(difference(R"({"a": 1})", "{}"), u"a is nothing instead of 1"_s);
    EXPECT_EQ(difference(R"({"a": null})", "{}"), u"a is nothing instead of null"_s);
    EXPECT_EQ(difference(R"({"a": "1"})", R"({"a": 1})"), u"a is 1 instead of \"1\""_s);
    EXPECT_EQ(difference(R"({"a": []})", R"({"a": [1]})"), u"a has 1 entries instead of 0"_s);
    EXPECT_EQ(difference(R"({"a": [1]})", R"({"a": {}})"), u"a is {} instead of [1]"_s);
}

TEST(JsonDifference, objectExpectedAndTextFound_theTextIsReadAsJson)
{
    EXPECT_EQ(difference(R"({"o": {"id": "x"}})", R"({"o": "{\"id\":\"x\",\"y\":1}"})"), std::nullopt);
    EXPECT_EQ(difference(R"({"o": {"id": "x"}})", R"({"o": "{\"id\":\"z\"}"})"), u"o.id is \"z\" instead of \"x\""_s);
    EXPECT_TRUE(difference(R"({"o": {"id": "x"}})", R"({"o": "no json"})"));
}
