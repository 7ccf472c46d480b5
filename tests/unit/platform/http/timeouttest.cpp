// SPDX-License-Identifier: MIT
#include "clientandserver.h"

#include "namelookup.h"

using namespace Qt::StringLiterals;

namespace
{

constexpr int codeTimedOut = 8;

} // namespace

class TimeoutOver : public testing::TestWithParam<Scheme>
{
};

TEST_P(TimeoutOver, serverNeverAnswers_isTimedOut)
{
    ClientAndServer both(GetParam());
    both.server.react({Reaction::neverAnswer()});
    both.client.setTimeout(1);
    both.get();
    EXPECT_THAT(both.client, FailedWith(codeTimedOut, "restClientTimedOut"));
    EXPECT_EQ(both.server.requests().size(), 1);
}

TEST_P(TimeoutOver, drippingAnswer_doesNotExtendTheTime)
{
    // Whole after some six seconds, and never silent for longer than a twentieth of one.
    constexpr int pauseMs = 50;
    ClientAndServer both(GetParam());
    both.server.react({Reaction::json(200, R"({"slow": "answer, byte by byte"})").dripping(pauseMs)});
    both.client.setTimeout(1);
    both.get();
    EXPECT_THAT(both.client, FailedWith(codeTimedOut, "restClientTimedOut"));
    EXPECT_TRUE(both.client.answer().isNull());
}

TEST_P(TimeoutOver, slowRedirects_shareTheTimeOfTheWholeRequest)
{
    // Each answer takes about a quarter of a second, so that only all of them together are too slow.
    constexpr int pauseMs = 3;
    ClientAndServer both(GetParam());
    both.server.react(QList<Reaction>(5, Reaction::redirect(302, "/").dripping(pauseMs)));
    both.client.setTimeout(1);
    both.get();
    EXPECT_GT(both.client.errorCode(), 0);
    EXPECT_EQ(both.client.errorText().key(), u"restClientTimedOut"_s);
    EXPECT_GT(both.server.requests().size(), 1);
}

TEST_P(TimeoutOver, zeroOrLess_countsAsSixtySeconds)
{
    constexpr int pauseMs = 1;
    for (const int seconds : {0, -1, std::numeric_limits<int>::min()}) {
        ClientAndServer both(GetParam());
        both.server.react({Reaction::json(200, "{}").dripping(pauseMs)});
        both.client.setTimeout(seconds);
        both.get();
        EXPECT_THAT(both.client, Succeeded()) << seconds;
    }
}

TEST_P(TimeoutOver, longestTimeout_isTaken)
{
    ClientAndServer both(GetParam());
    both.client.setTimeout(std::numeric_limits<int>::max());
    both.get();
    EXPECT_THAT(both.client, Succeeded());
}

INSTANTIATE_TEST_SUITE_P(Scheme, TimeoutOver, testing::Values(Scheme::Http, Scheme::Https),
                         [](const testing::TestParamInfo<Scheme>& instance) { return nameOf(instance.param); });

TEST(RestClientTimeout, nameLookupHangs_callReturnsWithoutIt)
{
    const Configured configuration;
    RestClient client;
    client.setTimeout(1);
    client.post(QUrl(u"http://"_s + QString::fromLatin1(namelookup::hangingHost)), "{}", {});
    EXPECT_TRUE(namelookup::isHanging());
    EXPECT_THAT(client, FailedWith(codeTimedOut, "restClientTimedOut"));
    namelookup::letGo();
}

TEST(RestClientTimeout, handshakeHangs_postCannotHaveBeenCarriedOut)
{
    ClientAndServer both(Scheme::Https);
    ScriptedServer silent;
    QUrl url = silent.url();
    url.setScheme(u"https"_s);
    both.client.setTimeout(1);
    both.client.post(url, "{}", {});
    EXPECT_THAT(both.client, FailedWith(codeTimedOut, "restClientTimedOut"));
}
