// SPDX-License-Identifier: MIT
// The doctor, the first answer of a server, and its clock.
#include "doctortest.h"

#include "clockdouble.h"
#include "scriptedserver.h"

using namespace doctor;

namespace
{

constexpr std::chrono::milliseconds shortWait{300};
constexpr int secondsOfDay = 86'400;

/// A server that does the same with every request.
class AnswerTest : public DoctorTest
{
protected:
    void serve(const Reaction& reaction)
    {
        server.reactBy([reaction](const ReceivedRequest&) { return reaction; });
        useServer(server.url());
    }

    /// Only a GET came, which shows nothing to the one that answers.
    void expectNothingGivenAway() const
    {
        for (const ReceivedRequest& request : server.requests()) {
            EXPECT_EQ(request.method, QByteArray("GET"));
            EXPECT_EQ(request.target, QByteArray("/connect/token"));
            EXPECT_TRUE(request.header("Authorization").isNull());
            EXPECT_TRUE(request.body.isEmpty());
        }
        EXPECT_EQ(server.requests().size(), 1);
    }

    /// A registry whose clock is so many seconds ahead.
    void startRegistryAhead(int seconds)
    {
        emulator::EmulatorSettings settings;
        settings.clock = [seconds] { return QDateTime::currentDateTime().addSecs(seconds); };
        startRegistry({}, settings);
    }

    ScriptedServer server;
};

Reaction page(const QByteArray& status)
{
    return Reaction::raw("HTTP/1.1 " + status +
                             "\r\nContent-Type: text/html; charset=utf-8\r\nContent-Length: 13\r\n\r\n<html></html>",
                         Reaction::End::KeepOpen);
}

} // namespace

TEST_F(AnswerTest, aProxysPage_theNetworkAdministratorIsAskedAndNoSecretIsSent)
{
    serve(page("200 OK"));
    examine(testCard);
    expectWrong(u"answer"_s, FindingCode::AnswerPage, Adviser::NetworkAdministrator, 4);
    expectNotReached(u"token"_s, u"answer"_s);
    expectNothingGivenAway();
}

TEST_F(AnswerTest, aCaptivePortal_itsHostIsNamedAndNoSecretIsSent)
{
    serve(Reaction::redirect(302, "http://portal.test/login?to=registry"));
    examine(testCard);
    expectWrong(u"answer"_s, FindingCode::AnswerElsewhere, Adviser::NetworkAdministrator, 4);
    EXPECT_TRUE(shown().contains(u"leads to portal.test:"_s)) << shown().toStdString();
    expectNotReached(u"token"_s, u"answer"_s);
    expectNothingGivenAway();
}

TEST_F(AnswerTest, aRedirectToHttps_theIntegratorIsAskedToWriteIt)
{
    serve(Reaction::redirect(301, "https://127.0.0.1/connect/token"));
    examine();
    expectWrong(u"answer"_s, FindingCode::AnswerLeadsToHttps, Adviser::Integrator, 5);
    expectNothingGivenAway();
}

TEST_F(AnswerTest, aRedirectWithinTheServer_isAnAnswer)
{
    serve(Reaction::redirect(302, "/elsewhere"));
    examine();
    expectFinding(u"answer"_s, FindingCode::AnswerGood);
    expectWrong(u"token"_s, FindingCode::RequestElsewhere, Adviser::NetworkAdministrator, 4);
}

TEST_F(AnswerTest, aPageThatSaysNotFound_isAnAnswer)
{
    serve(page("404 Not Found"));
    examine();
    expectFinding(u"answer"_s, FindingCode::AnswerGood);
    expectWrong(u"token"_s, FindingCode::TokenPathUnknown, Adviser::Operator, 8);
}

TEST_F(AnswerTest, registryIsNotAvailable_theOperatorIsAsked)
{
    startRegistry();
    registry->ask([](auto& emulated) {
        emulated.faults().answerStatus(emulator::Endpoint::Any, 503, emulator::Occasion::always());
    });
    examine(testCard);
    expectWrong(u"answer"_s, FindingCode::AnswerUnavailable, Adviser::Operator, 8);
    EXPECT_TRUE(shown().contains(u"answers with status 503"_s)) << shown().toStdString();
    expectNotReached(u"token"_s, u"answer"_s);
}

TEST_F(AnswerTest, serverIsSilent_theOperatorIsAsked)
{
    serve(Reaction::neverAnswer());
    limits.step = shortWait;
    examine();
    expectWrong(u"answer"_s, FindingCode::AnswerSilent, Adviser::Operator, 4);
}

TEST_F(AnswerTest, serverClosesAtOnce_theOperatorIsAsked)
{
    server.greetWith(Reaction::closeBeforeAnswer());
    useServer(server.url());
    examine();
    expectWrong(u"answer"_s, FindingCode::AnswerClosed, Adviser::Operator, 4);
}

TEST_F(AnswerTest, serverSpeaksSomethingElse_theIntegratorIsAsked)
{
    server.greetWith(Reaction::raw("220 mail.test ESMTP\r\n\r\n", Reaction::End::Close));
    useServer(server.url());
    examine();
    expectWrong(u"answer"_s, FindingCode::AnswerNotHttp, Adviser::Integrator, 4);
}

TEST_F(AnswerTest, headWithoutEnd_isNoHttp)
{
    server.greetWith(Reaction::raw(QByteArray(100'000, 'x'), Reaction::End::KeepOpen));
    useServer(server.url());
    examine();
    expectWrong(u"answer"_s, FindingCode::AnswerNotHttp, Adviser::Integrator, 4);
}

TEST_F(AnswerTest, tillIsADayBehind_theTillsAdministratorIsAskedAndTheTokenIsCheckedAllTheSame)
{
    startRegistryAhead(secondsOfDay + 90);
    examine();
    expectWrong(u"clock"_s, FindingCode::ClockBehind, Adviser::TillAdministrator, 6);
    EXPECT_TRUE(shown().contains(u"1 d 0 h 1 min behind"_s)) << shown().toStdString();
    expectFinding(u"token"_s, FindingCode::TokenGood);
}

TEST_F(AnswerTest, tillIsADayAhead_theTillsAdministratorIsAsked)
{
    startRegistryAhead(-secondsOfDay - 90);
    examine();
    expectWrong(u"clock"_s, FindingCode::ClockAhead, Adviser::TillAdministrator, 6);
    EXPECT_TRUE(shown().contains(u"1 d 0 h 1 min ahead"_s)) << shown().toStdString();
}

TEST_F(AnswerTest, clockIsTwoMinutesOff_isAWarning)
{
    startRegistryAhead(150);
    examine();
    expectFinding(u"clock"_s, FindingCode::ClockDrifts);
    EXPECT_EQ(exitStatus(results), 0);
}

TEST_F(AnswerTest, clockWithinAMinute_isGood)
{
    startRegistryAhead(20);
    examine();
    expectFinding(u"clock"_s, FindingCode::ClockGood);
}

TEST_F(AnswerTest, serverSaysNoDateOrNonsense_theClockIsNotChecked)
{
    for (const QByteArray& date : {QByteArray("X: y"), QByteArray("Date: yesterday")}) {
        serve(Reaction::json(405, "{}", {date}));
        examine();
        expectFinding(u"clock"_s, FindingCode::ClockUnknown);
    }
}
