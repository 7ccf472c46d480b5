// SPDX-License-Identifier: MIT
#include "emulatortest.h"

#include <QElapsedTimer>
#include <QJsonDocument>

using namespace Qt::StringLiterals;

using emulator::Endpoint;
using emulator::Occasion;
using std::chrono::milliseconds;

namespace
{
/// Faults of the registration, where it matters most whether a request is carried out.
class FaultTest : public EmulatorTest
{
protected:
    FaultTest()
        : m_headers(admitted())
    {
    }

    /// Sends a registration on a connection of its own, and returns the connection.
    std::unique_ptr<RawConnection> sendRegistration()
    {
        auto connection = std::make_unique<RawConnection>(m_emulator->url());
        connection->request("POST", "/MedicationDispense/$register", m_headers,
                            QJsonDocument(fullPriceDispense()).toJson());
        return connection;
    }

    /// Sends a registration, and returns how the connection ends.
    End endAfterRegistration()
    {
        return endAfter(m_emulator->url(),
                        RawConnection::requestBytes("POST", "/MedicationDispense/$register", m_headers,
                                                    QJsonDocument(fullPriceDispense()).toJson()));
    }

    qsizetype booked() { return m_emulator->store().dispensesOf(u"rx-full"_s).size(); }
    const emulator::JournalEntry& lastEntry() { return m_emulator->journal().entries().last(); }
    bool waitForRegistration()
    {
        return waitUntil([this] { return m_emulator->journal().count(Endpoint::DispenseRegistration) > 0; });
    }

    emulator::HttpHeaders m_headers;
};
} // namespace

TEST_F(FaultTest, delayedAnswer_comesWholeAndNotBefore)
{
    m_emulator->faults().delay(Endpoint::DispenseRegistration, milliseconds(120));
    QElapsedTimer timer;
    timer.start();
    const auto connection = sendRegistration();
    ASSERT_TRUE(waitForRegistration());
    EXPECT_EQ(booked(), 1);
    EXPECT_FALSE(lastEntry().answeredWhole);
    const auto answer = connection->answer();
    EXPECT_GE(timer.elapsed(), 120);
    EXPECT_EQ(answer.value_or(RawAnswer()).status, 200);
    EXPECT_TRUE(lastEntry().answeredWhole);
    EXPECT_EQ(lastEntry().fault, u"delay"_s);
}

TEST_F(FaultTest, clientThatLeavesDuringDelay_hasNoWholeAnswer)
{
    m_emulator->faults().delay(Endpoint::DispenseRegistration, std::chrono::hours(1));
    const auto connection = sendRegistration();
    ASSERT_TRUE(waitForRegistration());
    connection->leave();
    EXPECT_EQ(ask("GET", "/x").status, 404);
    EXPECT_FALSE(m_emulator->journal().entriesOf(Endpoint::DispenseRegistration).first().answeredWhole);
}

TEST_F(FaultTest, neverAnswered_isNotCarriedOutAndConnectionStaysOpen)
{
    m_emulator->faults().neverAnswer(Endpoint::DispenseRegistration);
    const auto connection = sendRegistration();
    ASSERT_TRUE(waitForRegistration());
    EXPECT_EQ(ask("GET", "/x").status, 404);
    EXPECT_TRUE(connection->isOpen());
    EXPECT_EQ(connection->unread(), QByteArray());
    EXPECT_EQ(booked(), 0);
    EXPECT_EQ(m_emulator->journal().entriesOf(Endpoint::DispenseRegistration).first().status, 0);
}

TEST_F(FaultTest, closedBeforeAnswer_isNotCarriedOut)
{
    m_emulator->faults().closeBeforeAnswer(Endpoint::DispenseRegistration);
    EXPECT_EQ(endAfterRegistration(), End::Orderly);
    EXPECT_EQ(booked(), 0);
    EXPECT_EQ(lastEntry().status, 0);
    EXPECT_FALSE(lastEntry().answeredWhole);
}

TEST_F(FaultTest, resetBeforeAnswer_isNotCarriedOut)
{
    m_emulator->faults().resetBeforeAnswer(Endpoint::DispenseRegistration);
    EXPECT_EQ(endAfterRegistration(), End::Reset);
    EXPECT_EQ(booked(), 0);
    EXPECT_EQ(lastEntry().status, 0);
}

TEST_F(FaultTest, carriedOutThenNotAnswered_isBooked)
{
    m_emulator->faults().carryOutThenNeverAnswer(Endpoint::DispenseRegistration);
    const auto connection = sendRegistration();
    ASSERT_TRUE(waitForRegistration());
    EXPECT_EQ(ask("GET", "/x").status, 404);
    EXPECT_EQ(connection->unread(), QByteArray());
    EXPECT_TRUE(connection->isOpen());
    EXPECT_EQ(booked(), 1);
}

TEST_F(FaultTest, carriedOutThenClosed_isBooked)
{
    m_emulator->faults().carryOutThenClose(Endpoint::DispenseRegistration);
    EXPECT_EQ(endAfterRegistration(), End::Orderly);
    EXPECT_EQ(booked(), 1);
}

TEST_F(FaultTest, carriedOutThenReset_isBooked)
{
    m_emulator->faults().carryOutThenReset(Endpoint::DispenseRegistration);
    EXPECT_EQ(endAfterRegistration(), End::Reset);
    EXPECT_EQ(booked(), 1);
}

TEST_F(FaultTest, lateRegistration_isBookedWhenTheNextOneComes)
{
    m_emulator->faults().carryOutLate(Endpoint::DispenseRegistration);
    EXPECT_EQ(endAfterRegistration(), End::Orderly);
    EXPECT_EQ(lastEntry().status, 0);
    EXPECT_EQ(byCard("?patientIdentifier=1100&status=active").status, 200);
    EXPECT_EQ(booked(), 0) << "a look-up shows the state before";

    const QString second = idOfDispense(registerDispense(fullPriceDispense()));
    const auto dispenses = m_emulator->store().dispensesOf(u"rx-full"_s);
    ASSERT_EQ(dispenses.size(), 2);
    EXPECT_EQ(dispenses.last().id, second) << "the late one was first";
}

TEST_F(FaultTest, lateCancellation_comesBeforeTheRepeatedOne)
{
    const QString id = idOfDispense(registerDispense(fullPriceDispense()));
    m_emulator->faults().carryOutLate(Endpoint::DispenseCancellation);
    const QByteArray path = "/MedicationDispense/" + id.toUtf8() + "/$set-as-error";
    EXPECT_EQ(endAfter(m_emulator->url(), RawConnection::requestBytes("POST", path, m_headers, "{}")), End::Orderly);
    EXPECT_FALSE(m_emulator->store().dispense(id).value().isCancelled);

    expectRefusal(cancelDispense(id.toUtf8()), emulator::RefusalCode::DispenseAlreadyCancelled, {id});
}

TEST_F(FaultTest, resetRegistry_forgetsLateRequests)
{
    m_emulator->faults().carryOutLate(Endpoint::DispenseRegistration);
    EXPECT_EQ(endAfterRegistration(), End::Orderly);
    m_emulator->reset();
    EXPECT_EQ(registerDispense(fullPriceDispense()).status, 200);
    EXPECT_EQ(booked(), 1);
}

TEST_F(FaultTest, cutOffAnswer_statesWholeLengthAndSendsHalf)
{
    m_emulator->faults().cutAnswerOff(Endpoint::DispenseRegistration);
    const auto connection = sendRegistration();
    EXPECT_FALSE(connection->answer().has_value());
    EXPECT_TRUE(connection->waitForEnd());
    const QByteArray received = connection->unread();
    const qsizetype headEnd = received.indexOf("\r\n\r\n") + 4;
    ASSERT_TRUE(received.startsWith("HTTP/1.1 200 OK\r\n"));
    const qsizetype length = received.mid(received.indexOf("Content-Length: ") + 16).split('\r').first().toLongLong();
    EXPECT_EQ(received.size() - headEnd, length / 2);
    EXPECT_GT(length, 100);
    EXPECT_EQ(booked(), 1);
    EXPECT_EQ(lastEntry().status, 200);
    EXPECT_FALSE(lastEntry().answeredWhole);
}

TEST_F(FaultTest, drippingAnswer_takesItsTimeAndComesWhole)
{
    m_emulator->faults().drip(Endpoint::PrescriptionsByCard, milliseconds(1));
    QElapsedTimer timer;
    timer.start();
    const RawAnswer answer = ask("GET", "/MedicationPrescription/$by-card?patientIdentifier=1101", m_headers);
    EXPECT_EQ(answer.status, 200);
    EXPECT_FALSE(answer.json().isEmpty());
    EXPECT_GE(timer.elapsed(), answer.body.size() - 1);
    EXPECT_TRUE(lastEntry().answeredWhole);
}

TEST_F(FaultTest, statusWithoutIssue_hasNoBodyAndIsNotCarriedOut)
{
    m_emulator->faults().answerStatus(Endpoint::DispenseRegistration, 429);
    const auto answer = sendRegistration()->answer();
    ASSERT_TRUE(answer.has_value());
    EXPECT_EQ(answer->status, 429);
    EXPECT_EQ(answer->body, QByteArray());
    EXPECT_EQ(booked(), 0);
    EXPECT_EQ(lastEntry().status, 429);
    EXPECT_TRUE(lastEntry().answeredWhole);
}

TEST_F(FaultTest, statusWithIssue_carriesItsText)
{
    m_emulator->faults().answerIssue(Endpoint::DispenseRegistration, 500, u"Идут работы"_s);
    const auto answer = sendRegistration()->answer();
    ASSERT_TRUE(answer.has_value());
    EXPECT_EQ(answer->status, 500);
    EXPECT_EQ(answer->issue(), u"Идут работы"_s);
    EXPECT_EQ(booked(), 0);
}

TEST_F(FaultTest, htmlFault_isHtmlWithStatus200)
{
    m_emulator->faults().answerHtml(Endpoint::DispenseRegistration);
    const auto answer = sendRegistration()->answer();
    ASSERT_TRUE(answer.has_value());
    EXPECT_EQ(answer->status, 200);
    EXPECT_EQ(answer->header("Content-Type"), "text/html; charset=utf-8");
    EXPECT_TRUE(answer->body.startsWith("<!DOCTYPE html>"));
    EXPECT_EQ(booked(), 0);
}

TEST_F(FaultTest, emptyAnswer_hasStatus200AndNoBody)
{
    m_emulator->faults().answerNothing(Endpoint::DispenseRegistration);
    const auto answer = sendRegistration()->answer();
    ASSERT_TRUE(answer.has_value());
    EXPECT_EQ(answer->status, 200);
    EXPECT_EQ(answer->header("Content-Length"), "0");
    EXPECT_EQ(booked(), 0);
}

TEST_F(FaultTest, halfOfJson_isCompleteAnswerThatIsNoJson)
{
    m_emulator->faults().answerHalfOfJson(Endpoint::DispenseRegistration);
    const auto answer = sendRegistration()->answer();
    ASSERT_TRUE(answer.has_value());
    EXPECT_EQ(answer->status, 200);
    EXPECT_TRUE(answer->body.startsWith("{\"entry\""));
    EXPECT_TRUE(answer->json().isEmpty());
    EXPECT_EQ(booked(), 1);
    EXPECT_TRUE(lastEntry().answeredWhole);
}

TEST_F(FaultTest, ownBody_isSentAsItIs)
{
    m_emulator->faults().answerBody(Endpoint::DispenseRegistration, "[null, 1]");
    const auto answer = sendRegistration()->answer();
    ASSERT_TRUE(answer.has_value());
    EXPECT_EQ(answer->status, 200);
    EXPECT_EQ(answer->body, "[null, 1]");
    EXPECT_EQ(booked(), 0);
}

TEST_F(FaultTest, faultOfOneEndpoint_sparesTheOthers)
{
    m_emulator->faults().answerStatus(Endpoint::DispenseCancellation, 503);
    EXPECT_EQ(sendRegistration()->answer().value_or(RawAnswer()).status, 200);
    EXPECT_EQ(cancelDispense("x").status, 503);
    EXPECT_EQ(cancelDispense("x").status, 404);
}

TEST_F(FaultTest, faultOfToken_hitsTokenRequests)
{
    m_emulator->faults().answerStatus(Endpoint::Token, 503, Occasion::next(2));
    EXPECT_EQ(askForToken(goodForm()).status, 503);
    EXPECT_EQ(askForToken(goodForm()).status, 503);
    EXPECT_EQ(askForToken(goodForm()).status, 200);
}
