// SPDX-License-Identifier: MIT
#include "formquery.h"
#include "registrydoubles.h"

namespace
{

struct Value {
    const char* name;
    const char* value;
    const char* wire;
};

/// Values as a card or a setting may hold them, and what has to go over the wire so that they arrive unchanged.
const Value values[] = {
    {"plain", "0123456789-._~Az", "0123456789-._~Az"},
    {"empty", "", ""},
    {"blank", "a b", "a%20b"},
    {"plus", "a+b", "a%2Bb"},
    {"percentFollowedByDigits", "%41", "%2541"},
    {"percentAlone", "100%", "100%25"},
    {"placeholder", "%1", "%251"},
    {"semicolon", ";a=1;", "%3Ba%3D1%3B"},
    {"ampersandAndEquals", "a&b=c", "a%26b%3Dc"},
    {"questionMarkHashSlash", "?#/", "%3F%23%2F"},
    {"cyrillic", "Ж", "%D0%96"},
    {"outsideTheBasicPlane", "😀", "%F0%9F%98%80"},
    {"quotesAndBrackets", "\"'<>[]{}", "%22%27%3C%3E%5B%5D%7B%7D"},
    {"lineBreak", "a\r\nb", "a%0D%0Ab"},
};

class QueryValue : public RegistryTest, public ::testing::WithParamInterface<Value>
{
};

TEST_P(QueryValue, inTheQueryOfAGet_goesOverTheWireEncoded)
{
    const ElectronicPrescriptionInterface interface;
    QUrl url("http://r.example/path");
    QJsonDocument result;
    interface.sendGetRequest(url, {}, {{"first", QString::fromUtf8(GetParam().value)}, {"second", "x"}}, result);

    ASSERT_EQ(requests.size(), 1);
    EXPECT_EQ(requests[0].target(), QByteArray("/path?first=") + GetParam().wire + "&second=x");
}

TEST_P(QueryValue, inTheFormOfATokenRequest_goesOverTheWireEncoded)
{
    config.set("ElectronicPrescription:clientSecret", QString::fromUtf8(GetParam().value));
    grantToken();
    const ElectronicPrescriptionInterface interface;
    QString token;
    interface.getAuthorizationToken(token);

    ASSERT_EQ(requests.size(), 1);
    EXPECT_EQ(requests[0].body, QByteArray("grant_type=client_credentials&client_id=&client_secret=") +
                                    GetParam().wire + "&scope=&organization_identifier=");
}

INSTANTIATE_TEST_SUITE_P(Values, QueryValue, ::testing::ValuesIn(values),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(Query, withoutItems_isEmpty)
{
    EXPECT_TRUE(formQuery({}).isEmpty());
}

TEST(Query, sameNameTwice_keepsBothInTheirOrder)
{
    EXPECT_EQ(formQuery({{"b", "2"}, {"a", "1"}, {"b", "1"}}).toString(QUrl::FullyEncoded), "b=2&a=1&b=1");
}

TEST(Query, nullValue_isSentAsAnEmptyOne)
{
    EXPECT_EQ(formQuery({{"a", QString()}, {"b", QString()}}).toString(QUrl::FullyEncoded), "a=&b=");
}

} // namespace
