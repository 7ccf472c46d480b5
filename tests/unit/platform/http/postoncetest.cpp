// SPDX-License-Identifier: MIT
#include "clientandserver.h"

#include <string>
#include <tuple>

using namespace Qt::StringLiterals;

namespace
{

struct Misdeed {
    std::string name;
    Reaction reaction;
    /// Key of the text that the cashier reads.
    const char* text;
};

Reaction atHeaders(Reaction reaction)
{
    reaction.atHeaders = true;
    return reaction;
}

const char* const lost = "restClientConnectionLostUncertain";
const char* const timedOut = "restClientTimedOutUncertain";

const std::vector<Misdeed>& misdeeds()
{
    using End = Reaction::End;
    static const std::vector<Misdeed> all = {
        {"ClosesBeforeAnswer", Reaction::closeBeforeAnswer(), lost},
        {"ClosesWithoutFarewell", Reaction::raw({}, End::Cut), lost},
        {"ResetsBeforeAnswer", Reaction::resetBeforeAnswer(), lost},
        {"ClosesAfterHeaders", atHeaders(Reaction::closeBeforeAnswer()), lost},
        {"ResetsAfterHeaders", atHeaders(Reaction::resetBeforeAnswer()), lost},
        {"NeverAnswers", Reaction::neverAnswer(), timedOut},
        {"AnswersHalfAndCloses", Reaction::halfAnswer(200, R"({"id": 1})", End::Close), lost},
        {"AnswersHalfAndResets", Reaction::halfAnswer(200, R"({"id": 1})", End::Reset), lost},
        {"AnswersHalfAndStays", Reaction::halfAnswer(200, R"({"id": 1})", End::KeepOpen), timedOut},
        {"AnswersHalfTheStatusLine", Reaction::raw("HTTP/1.1 2", End::Close), nullptr},
    };
    return all;
}

enum class Connection : int { Fresh, Reused };

struct Body {
    const char* name;
    QByteArray bytes;
};

const std::vector<Body>& bodies()
{
    static const std::vector<Body> all = {
        {"Empty", {}}, {"Small", R"({"a": 1})"}, {"Large", QByteArray(3'000'000, 'x')}};
    return all;
}

using PostCase = std::tuple<Scheme, Connection, Body, Misdeed>;

std::string nameOfCase(const testing::TestParamInfo<PostCase>& instance)
{
    const auto& [scheme, connection, body, misdeed] = instance.param;
    return nameOf(scheme) + (connection == Connection::Fresh ? "Fresh" : "Reused") + body.name + misdeed.name;
}

} // namespace

class MisdeedAtPost : public testing::TestWithParam<PostCase>
{
};

TEST_P(MisdeedAtPost, requestReachesServerOnceAndCashierReadsThatItMayBeCarriedOut)
{
    const auto& [scheme, connection, body, misdeed] = GetParam();
    ClientAndServer both(scheme);
    qsizetype before = 0;
    if (connection == Connection::Reused) {
        both.post("{}");
        ASSERT_THAT(both.client, Succeeded());
        before = 1;
    }
    both.server.react({misdeed.reaction});
    both.client.setTimeout(1);
    both.post(body.bytes);

    const int code = both.client.errorCode();
    EXPECT_GT(code, 0);
    EXPECT_LT(code, 100);
    EXPECT_TRUE(both.client.answer().isNull());
    EXPECT_TRUE(both.client.errorText().ui().contains(u"Запрос мог быть выполнен"_s))
        << both.client.errorText().ui().toStdString();
    if (misdeed.text) {
        EXPECT_EQ(both.client.errorText().key().toStdString(), misdeed.text);
    }
    ASSERT_TRUE(both.server.waitUntilAllConnectionsEnded());
    const QList<ReceivedRequest> requests = both.server.requests();
    ASSERT_EQ(requests.size(), before + 1);
    EXPECT_EQ(requests.last().connection, 0);

    both.client.setTimeout(60);
    both.post("{}");
    EXPECT_THAT(both.client, Succeeded());
    EXPECT_EQ(both.server.requests().size(), before + 2);
}

INSTANTIATE_TEST_SUITE_P(Post, MisdeedAtPost,
                         testing::Combine(testing::Values(Scheme::Http, Scheme::Https),
                                          testing::Values(Connection::Fresh, Connection::Reused),
                                          testing::ValuesIn(bodies()), testing::ValuesIn(misdeeds())),
                         nameOfCase);

class PostOver : public testing::TestWithParam<Scheme>
{
};

TEST_P(PostOver, redirect_isNotFollowed)
{
    for (const int status : {301, 302, 303, 307, 308}) {
        ClientAndServer both(GetParam());
        both.server.react({Reaction::redirect(status, "/elsewhere")});
        both.post("{}");
        EXPECT_THAT(both.client, FailedWith(status, "restClientStatusRedirect"));
        EXPECT_EQ(both.server.requests().size(), 1);
    }
}

TEST_P(PostOver, connectionClosedByServerWhileIdle_nextPostSucceedsOnFreshOne)
{
    ClientAndServer both(GetParam());
    both.post("{}");
    ASSERT_THAT(both.client, Succeeded());
    both.server.closeConnections();
    ASSERT_TRUE(both.server.waitUntilAllConnectionsEnded());
    both.post("{}");
    EXPECT_THAT(both.client, Succeeded());
    ASSERT_EQ(both.server.requests().size(), 2);
    EXPECT_EQ(both.server.requests().last().connection, 1);
}

TEST_P(PostOver, serverClosesAfterEachAnswer_everyPostSucceeds)
{
    ClientAndServer both(GetParam());
    for (int round = 0; round < 5; ++round) {
        both.server.react({Reaction::json(200, "{}").then(Reaction::End::Close)});
        both.post("{}");
        EXPECT_THAT(both.client, Succeeded());
        ASSERT_TRUE(both.server.waitUntilAllConnectionsEnded());
    }
    EXPECT_EQ(both.server.requests().size(), 5);
}

TEST_P(PostOver, largeBody_arrivesWholeWithoutExpect)
{
    ClientAndServer both(GetParam());
    QByteArray body(5'000'000, 'x');
    for (qsizetype at = 0; at < body.size(); at += 1000) {
        body[at] = char('a' + at / 1000 % 26);
    }
    both.post(body);
    EXPECT_THAT(both.client, Succeeded());
    ASSERT_EQ(both.server.requests().size(), 1);
    EXPECT_TRUE(both.server.requests().first().body == body);
    EXPECT_TRUE(both.server.requests().first().header("Expect").isNull());
}

INSTANTIATE_TEST_SUITE_P(Scheme, PostOver, testing::Values(Scheme::Http, Scheme::Https),
                         [](const testing::TestParamInfo<Scheme>& instance) { return nameOf(instance.param); });
