// SPDX-License-Identifier: MIT
// What the cashier may stop, and what is known of a request that changes nothing.
#include "clientandserver.h"

#include "runningrequest.h"
#include "workstep.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QTest>
#include <QTimer>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace
{

using Outcome = RestClient::Outcome;

constexpr int codeStopped = 15;

const tr::Tr token{tr::undefined, u"Вход"_s};

/// A server that never answers, and a cashier who presses Esc as soon as it has the request.
class StoppingTest : public ::testing::Test
{
protected:
    StoppingTest()
    {
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        server.reactBy([this](const ReceivedRequest&) {
            QMetaObject::invokeMethod(
                &window, [this] { QTest::keyClick(window.windowHandle(), Qt::Key_Escape); }, Qt::QueuedConnection);
            return Reaction::neverAnswer();
        });
    }

    void stopAtEscape()
    {
        RunningRequest::setEscape(&window, [this](RunningRequest& request) {
            asked.append(request.changesSomething());
            request.stop();
        });
    }

    Configured configuration;
    ScriptedServer server;
    RestClient client;
    QWidget window;
    QList<bool> asked; ///< whether each request that Esc was pressed at changes something
};

} // namespace

TEST_F(StoppingTest, getStopped_endsWithTheCashiersStop)
{
    stopAtEscape();
    client.get(server.url(), QJsonDocument(), {});
    EXPECT_THAT(client, FailedWith(codeStopped, "restClientStopped"));
    EXPECT_EQ(client.outcome(), Outcome::Stopped);
    EXPECT_EQ(asked, QList<bool>{false});
    EXPECT_EQ(RunningRequest::current(), nullptr);
}

TEST_F(StoppingTest, postStopped_mayHaveBeenCarriedOut)
{
    stopAtEscape();
    client.post(server.url(), "{}", {});
    EXPECT_THAT(client, FailedWith(codeStopped, "restClientStoppedUncertain"));
    EXPECT_TRUE(client.errorText().ui().contains(u"Запрос мог быть выполнен"_s));
    EXPECT_EQ(client.outcome(), Outcome::Unknown);
    EXPECT_EQ(asked, QList<bool>{true});
    EXPECT_EQ(server.requests().size(), 1);
}

TEST_F(StoppingTest, postWithoutEffectStopped_isStoppedLikeAGet)
{
    stopAtEscape();
    const WorkStep step(token, WorkStep::Effect::None);
    client.post(server.url(), "a=b", {});
    EXPECT_THAT(client, FailedWith(codeStopped, "restClientStopped"));
    EXPECT_EQ(client.outcome(), Outcome::Stopped);
    EXPECT_EQ(asked, QList<bool>{false});
}

TEST_F(StoppingTest, postOfATimerDuringAStepWithoutEffect_mayHaveBeenCarriedOut)
{
    ScriptedServer other;
    other.react({Reaction::closeBeforeAnswer()});
    RestClient timers;
    QString stepOfTheTimer = u"none"_s;
    server.reactBy([&](const ReceivedRequest&) {
        QMetaObject::invokeMethod(
            &window,
            [&] {
                stepOfTheTimer = WorkStep::currentText();
                timers.post(other.url(), "{}", {});
            },
            Qt::BlockingQueuedConnection);
        return Reaction::closeBeforeAnswer();
    });
    const WorkStep step(token, WorkStep::Effect::None);
    client.post(server.url(), "a=b", {});
    EXPECT_GT(client.errorCode(), 0);
    EXPECT_EQ(client.outcome(), Outcome::Settled);
    EXPECT_GT(timers.errorCode(), 0);
    EXPECT_EQ(timers.outcome(), Outcome::Unknown);
    EXPECT_EQ(stepOfTheTimer, QString());
    EXPECT_EQ(WorkStep::currentText(), u"Вход"_s);
}

TEST_F(StoppingTest, stoppedRequest_leavesTheNextOneAlone)
{
    stopAtEscape();
    client.get(server.url(), QJsonDocument(), {});
    server.reactBy([](const ReceivedRequest&) { return Reaction::json(200, "{}"); });
    client.get(server.url(), QJsonDocument(), {});
    EXPECT_THAT(client, Succeeded());
    EXPECT_EQ(client.outcome(), Outcome::Settled);
}

TEST_F(StoppingTest, nobodyLooksAtEscape_theRequestGoesOn)
{
    server.reactBy([this](const ReceivedRequest&) {
        QMetaObject::invokeMethod(
            &window, [this] { QTest::keyClick(window.windowHandle(), Qt::Key_Escape); }, Qt::BlockingQueuedConnection);
        return Reaction::json(200, "{}");
    });
    client.get(server.url(), QJsonDocument(), {});
    EXPECT_THAT(client, Succeeded());
}

TEST_F(StoppingTest, escapeHeldDown_asksOnce)
{
    RunningRequest::setEscape(&window, [this](RunningRequest& request) { asked.append(request.changesSomething()); });
    server.reactBy([this](const ReceivedRequest&) {
        QMetaObject::invokeMethod(
            &window,
            [this] {
                for (const bool repeated : {false, true, true}) {
                    QKeyEvent key(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier, {}, repeated);
                    QCoreApplication::sendEvent(&window, &key);
                }
            },
            Qt::BlockingQueuedConnection);
        return Reaction::json(200, "{}");
    });
    client.get(server.url(), QJsonDocument(), {});
    EXPECT_THAT(client, Succeeded());
    EXPECT_EQ(asked.size(), 1);
}

TEST_F(StoppingTest, escapeThatKeepsWaiting_theAnswerCounts)
{
    RunningRequest::setEscape(&window, [this](RunningRequest& request) { asked.append(request.changesSomething()); });
    server.reactBy([this](const ReceivedRequest&) {
        QMetaObject::invokeMethod(
            &window, [this] { QTest::keyClick(window.windowHandle(), Qt::Key_Escape); }, Qt::BlockingQueuedConnection);
        return Reaction::json(201, "{}");
    });
    client.post(server.url(), "{}", {});
    EXPECT_THAT(client, Succeeded());
    EXPECT_EQ(asked, QList<bool>{true});
}

namespace
{

struct Lost {
    const char* name;
    Reaction reaction;
};

class PostWithoutEffect : public ::testing::TestWithParam<Lost>
{
};

} // namespace

TEST_P(PostWithoutEffect, answerLost_doesNotReadAsCarriedOut)
{
    ClientAndServer both;
    both.server.react({GetParam().reaction, GetParam().reaction});
    {
        const WorkStep step(token, WorkStep::Effect::None);
        both.post("grant_type=client_credentials");
        EXPECT_GT(both.client.errorCode(), 0);
        EXPECT_FALSE(both.client.errorText().ui().contains(u"мог быть выполнен"_s))
            << both.client.errorText().ui().toStdString();
        EXPECT_EQ(both.client.outcome(), Outcome::Settled);
    }
    both.post("{}");
    EXPECT_GT(both.client.errorCode(), 0);
    EXPECT_TRUE(both.client.errorText().ui().contains(u"мог быть выполнен"_s))
        << both.client.errorText().ui().toStdString();
    EXPECT_EQ(both.client.outcome(), Outcome::Unknown);
}

INSTANTIATE_TEST_SUITE_P(Answers, PostWithoutEffect,
                         ::testing::Values(Lost{"closed", Reaction::closeBeforeAnswer()},
                                           Lost{"reset", Reaction::resetBeforeAnswer()},
                                           Lost{"half", Reaction::halfAnswer(200, "{\"a\": 1}", Reaction::End::Close)},
                                           Lost{"serverError", Reaction::json(500, "{}")},
                                           Lost{"badGateway", Reaction::json(502, "{}")},
                                           Lost{"gatewayTimeout", Reaction::json(504, "{}")}),
                         [](const auto& instance) { return std::string(instance.param.name); });

TEST(RestClientOutcome, serverFailedWhileItServed_isUnknownForAPostOnly)
{
    ClientAndServer both;
    for (const int status : {500, 502, 504}) {
        both.server.react({Reaction::json(status, "{}"), Reaction::json(status, "{}")});
        both.post("{}");
        EXPECT_EQ(both.client.errorCode(), status);
        EXPECT_EQ(both.client.outcome(), Outcome::Unknown);
        both.get();
        EXPECT_EQ(both.client.errorCode(), status);
        EXPECT_EQ(both.client.outcome(), Outcome::Settled);
    }
}

TEST(RestClientOutcome, refusalAndUnreachableServer_areSettled)
{
    ClientAndServer both;
    for (const int status : {422, 501, 503, 505}) {
        both.server.react({Reaction::json(status, "{}")});
        both.post("{}");
        EXPECT_EQ(both.client.errorCode(), status);
        EXPECT_EQ(both.client.outcome(), Outcome::Settled);
    }
    both.client.post(QUrl(u"ftp://127.0.0.1/"_s), "{}", {});
    EXPECT_GT(both.client.errorCode(), 0);
    EXPECT_EQ(both.client.outcome(), Outcome::Settled);
}
