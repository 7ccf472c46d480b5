// SPDX-License-Identifier: MIT
#include "jsondifference.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

namespace
{

QString difference(const QByteArray& expected, const QByteArray& actual)
{
    return jsonDifference(QJsonDocument::fromJson(expected).object(), QJsonDocument::fromJson(actual).object());
}

} // namespace

TEST(JsonDifference, namedMembersEqual_othersDoNotMatter)
{
    EXPECT_EQ(difference(R"({"a": 1, "b": {"c": [true, null, "x"]}})",
                         R"({"a": 1, "b": {"c": [true, null, "x"], "d": 2}, "e": 3})"),
              QString());
}

TEST(JsonDifference, difference_isNamedWithItsPath)
{
    EXPECT_EQ(difference(R"({"a": [{"b": 1}]})", R"({"a": [{"b": 2}]})"), QStringLiteral("a[0].b is 2 instead of 1"));
    EXPECT_EQ(difference(R"({"a": 1})", "{}"), QStringLiteral("a is nothing instead of 1"));
    EXPECT_EQ(difference(R"({"a": null})", "{}"), QStringLiteral("a is nothing instead of null"));
    EXPECT_EQ(difference(R"({"a": "1"})", R"({"a": 1})"), QStringLiteral("a is 1 instead of \"1\""));
    EXPECT_EQ(difference(R"({"a": []})", R"({"a": [1]})"), QStringLiteral("a has 1 entries instead of 0"));
    EXPECT_EQ(difference(R"({"a": [1]})", R"({"a": {}})"), QStringLiteral("a is {} instead of [1]"));
}

TEST(JsonDifference, objectExpectedInAText_theTextIsReadAsJson)
{
    EXPECT_EQ(difference(R"({"o": {"id": "x"}})", R"({"o": "{\"id\":\"x\",\"y\":1}"})"), QString());
    EXPECT_EQ(difference(R"({"o": {"id": "x"}})", R"({"o": "{\"id\":\"z\"}"})"),
              QStringLiteral("o.id is \"z\" instead of \"x\""));
    EXPECT_FALSE(difference(R"({"o": {"id": "x"}})", R"({"o": "no json"})").isEmpty());
}
