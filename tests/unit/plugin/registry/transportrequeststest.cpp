// SPDX-License-Identifier: MIT
#include "registrydoubles.h"

namespace
{

using Headers = ElectronicPrescriptionInterface::Headers;
using RequestTest = RegistryTest;

TEST_F(RequestTest, get_sendsUrlWithQueryHeadersTimeoutAndNoDocument)
{
    configurePharmacy();
    answer(R"({"a": 1})");
    const ElectronicPrescriptionInterface interface;
    QUrl url("http://r.example/path?former=1");
    QJsonDocument result;
    interface.sendGetRequest(url, {{"Accept", "x"}}, {{"b", "2"}, {"a", "1"}}, result);

    ASSERT_EQ(requests.size(), 1);
    EXPECT_EQ(requests[0].method, "GET");
    EXPECT_EQ(requests[0].url.toEncoded(), "http://r.example/path?b=2&a=1");
    EXPECT_EQ(requests[0].headers, Headers({{"Accept", "x"}}));
    EXPECT_TRUE(requests[0].document.isNull());
    EXPECT_EQ(requests[0].timeout, 17);
    EXPECT_EQ(url, requests[0].url) << "the caller's URL gets the query";
    EXPECT_EQ(result, json(R"({"a": 1})"));
}

TEST_F(RequestTest, post_sendsUrlBodyHeadersAndTimeout)
{
    configurePharmacy();
    answer(R"([1])");
    const ElectronicPrescriptionInterface interface;
    const QUrl url("http://r.example/path?kept=1");
    QJsonDocument result;
    interface.sendPostRequest(url, {{"Content-Type", "y"}}, "тело", result);

    ASSERT_EQ(requests.size(), 1);
    EXPECT_EQ(requests[0].method, "POST");
    EXPECT_EQ(requests[0].url, url);
    EXPECT_EQ(requests[0].headers, Headers({{"Content-Type", "y"}}));
    EXPECT_EQ(requests[0].body, "тело");
    EXPECT_EQ(requests[0].timeout, 17);
    EXPECT_EQ(result, json("[1]"));
}

TEST_F(RequestTest, configuredTimeout_isHandedOverUnchanged)
{
    for (const char* timeout : {"0", "-5", "100000"}) {
        config.set("ElectronicPrescription:timeout", timeout);
        const ElectronicPrescriptionInterface interface;
        QUrl url("http://r.example");
        QJsonDocument result;
        interface.sendGetRequest(url, {}, {}, result);
        interface.sendPostRequest(url, {}, {}, result);
        ASSERT_GE(requests.size(), 2);
        EXPECT_EQ(requests[requests.size() - 2].timeout, QByteArray(timeout).toInt());
        EXPECT_EQ(requests.last().timeout, QByteArray(timeout).toInt());
    }
}

TEST_F(RequestTest, everyRequest_hasAClientOfItsOwn)
{
    const ElectronicPrescriptionInterface interface;
    QUrl url("http://r.example");
    QJsonDocument result;
    interface.sendGetRequest(url, {}, {}, result);
    interface.sendPostRequest(url, {}, {}, result);
    interface.sendGetRequest(url, {}, {}, result);

    EXPECT_EQ(clients, 3);
    ASSERT_EQ(requests.size(), 3);
    EXPECT_EQ(requests[0].client, 1);
    EXPECT_EQ(requests[1].client, 2);
    EXPECT_EQ(requests[2].client, 3);
}

TEST_F(RequestTest, failedRequests_throwAndAreSentOnce)
{
    const ElectronicPrescriptionInterface interface;
    QUrl url("http://r.example");
    QJsonDocument result;
    fail(503, R"({"a": 1})");
    EXPECT_EQ(thrownBy([&] { interface.sendGetRequest(url, {}, {}, result); }),
              (Thrown{Thrown::Error, transportError}));
    EXPECT_EQ(result, json(R"({"a": 1})")) << "the answer is there all the same";
    fail(503, R"({"b": 1})");
    EXPECT_EQ(thrownBy([&] { interface.sendPostRequest(url, {}, {}, result); }),
              (Thrown{Thrown::Error, transportError}));
    EXPECT_EQ(result, json(R"({"b": 1})"));
    EXPECT_EQ(requests.size(), 2);
}

TEST_F(RequestTest, headersWithOais_areTokenOaisAndAccept)
{
    configurePharmacy();
    grantToken();
    const ElectronicPrescriptionInterface interface;
    Headers headers{{"Accept", "text/html"}, {"Authorization", "Basic x"}, {"Kept", "1"}};
    interface.formHeaders(headers);
    EXPECT_EQ(headers, Headers({{"Authorization", "Bearer token-1"},
                                {"OAIS", "Bearer oais-token"},
                                {"Accept", "application/json"},
                                {"Kept", "1"}}));
}

TEST_F(RequestTest, headersWithoutOais_haveNoOaisAtAll)
{
    grantToken();
    const ElectronicPrescriptionInterface interface;
    Headers headers;
    interface.formHeaders(headers);
    EXPECT_EQ(headers, Headers({{"Authorization", "Bearer token-1"}, {"Accept", "application/json"}}));
}

TEST_F(RequestTest, oaisToken_goesUnderTheNameGivenAndReplacesWhatIsThere)
{
    configurePharmacy();
    const ElectronicPrescriptionInterface interface;
    Headers headers{{"X", "former"}};
    interface.addOaisTokenToHeaders("X", headers);
    EXPECT_EQ(headers, Headers({{"X", "Bearer oais-token"}}));
}

TEST_F(RequestTest, tokenWithPlaceholder_isTakenAsItIs)
{
    config.set("ElectronicPrescription:oais", "o%1");
    answer(R"({"access_token": "t%1%2"})");
    const ElectronicPrescriptionInterface interface;
    Headers headers;
    interface.formHeaders(headers);
    EXPECT_EQ(headers["Authorization"], "Bearer t%1%2");
    EXPECT_EQ(headers["OAIS"], "Bearer o%1");
}

} // namespace
