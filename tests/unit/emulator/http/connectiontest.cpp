// SPDX-License-Identifier: MIT
#include "emulatortest.h"
#include "requestparser.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

using emulator::RefusalCode;
using emulator::RequestParser;

namespace
{
class ConnectionTest : public EmulatorTest
{
protected:
    static QByteArray unknownPath(const QByteArray& name) { return "GET /" + name + " HTTP/1.1\r\nHost: x\r\n\r\n"; }

    /// Begins again with an emulator that soon gives up a request that is not whole.
    void giveUpSoon()
    {
        emulator::EmulatorSettings settings;
        settings.readTimeout = std::chrono::milliseconds(50);
        m_emulator = std::make_unique<emulator::RegistryEmulator>(settings);
        m_emulator->start();
    }

    /// Expects that the bytes are answered by that refusal, and that the connection ends then.
    void expectUnreadable(const QByteArray& bytes, RefusalCode code)
    {
        RawConnection connection(m_emulator->url());
        connection.send(bytes);
        const auto answer = connection.answer();
        ASSERT_TRUE(answer.has_value());
        expectRefusal(*answer, code);
        EXPECT_EQ(answer->header("Connection"), "close");
        EXPECT_TRUE(connection.waitForEnd());
        EXPECT_EQ(m_emulator->journal().entries().last().status, answer->status);
        EXPECT_TRUE(m_emulator->journal().entries().last().method.isEmpty());
    }
};
} // namespace

TEST_F(ConnectionTest, severalRequests_shareOneConnection)
{
    RawConnection connection(m_emulator->url());
    for (int number = 1; number <= 3; ++number) {
        connection.send(unknownPath("a"));
        const auto answer = connection.answer();
        ASSERT_TRUE(answer.has_value());
        EXPECT_EQ(answer->status, 404);
        EXPECT_EQ(answer->header("Connection"), "keep-alive");
    }
    EXPECT_TRUE(connection.isOpen());
    EXPECT_EQ(m_emulator->connectionCount(), 1);
}

TEST_F(ConnectionTest, pipelinedRequests_areAnsweredInOrderEvenIfTheFirstIsSlow)
{
    m_emulator->faults().delay(emulator::Endpoint::Any, std::chrono::milliseconds(50));
    m_emulator->faults().answerStatus(emulator::Endpoint::Any, 418, emulator::Occasion::nth(2));
    RawConnection connection(m_emulator->url());
    connection.send(unknownPath("1") + unknownPath("2") + unknownPath("3"));
    EXPECT_EQ(connection.answer().value_or(RawAnswer()).status, 404);
    EXPECT_EQ(connection.answer().value_or(RawAnswer()).status, 418);
    EXPECT_EQ(connection.answer().value_or(RawAnswer()).status, 404);
    QList<QByteArray> targets;
    for (const auto& entry : m_emulator->journal().entries()) {
        targets.append(entry.target);
    }
    EXPECT_EQ(targets, (QList<QByteArray>{"/1", "/2", "/3"}));
}

TEST_F(ConnectionTest, requestInPieces_isReadWhole)
{
    RawConnection connection(m_emulator->url());
    const QByteArray bytes = "POST /x HTTP/1.1\r\nHost: x\r\nContent-Length: 3\r\n\r\nabc";
    for (const char byte : bytes) {
        connection.send(QByteArray(1, byte));
        QCoreApplication::processEvents();
    }
    EXPECT_EQ(connection.answer().value_or(RawAnswer()).status, 404);
    EXPECT_EQ(m_emulator->journal().entries().last().body, "abc");
}

TEST_F(ConnectionTest, chunkedBody_isReadWithoutItsTransferCoding)
{
    RawConnection connection(m_emulator->url());
    connection.send(
        "POST /x HTTP/1.1\r\nHost: x\r\nTransfer-Encoding: chunked\r\n\r\n3\r\nabc\r\n2;x=y\r\nde\r\n0\r\n\r\n");
    EXPECT_EQ(connection.answer().value_or(RawAnswer()).status, 404);
    EXPECT_EQ(m_emulator->journal().entries().last().body, "abcde");
}

TEST_F(ConnectionTest, expectContinue_isAnsweredBeforeTheBody)
{
    RawConnection connection(m_emulator->url());
    connection.send("POST /x HTTP/1.1\r\nHost: x\r\nExpect: 100-continue\r\nContent-Length: 3\r\n\r\n");
    EXPECT_EQ(connection.answer().value_or(RawAnswer()).status, 100);
    connection.send("abc");
    EXPECT_EQ(connection.answer().value_or(RawAnswer()).status, 404);
}

TEST_F(ConnectionTest, connectionClose_endsConnectionAfterAnswer)
{
    RawConnection connection(m_emulator->url());
    connection.send("GET /x HTTP/1.1\r\nHost: x\r\nConnection: close\r\n\r\n");
    const auto answer = connection.answer();
    ASSERT_TRUE(answer.has_value());
    EXPECT_EQ(answer->header("Connection"), "close");
    EXPECT_TRUE(connection.waitForEnd());
}

TEST_F(ConnectionTest, http10_endsConnectionAfterAnswer)
{
    RawConnection connection(m_emulator->url());
    connection.send("GET /x HTTP/1.0\r\n\r\n");
    EXPECT_EQ(connection.answer().value_or(RawAnswer()).status, 404);
    EXPECT_TRUE(connection.waitForEnd());
}

TEST_F(ConnectionTest, headRequest_isAnsweredWithoutBody)
{
    RawConnection connection(m_emulator->url());
    connection.send("HEAD /connect/token HTTP/1.1\r\nHost: x\r\n\r\n" + unknownPath("a"));
    const auto head = connection.answer(false);
    ASSERT_TRUE(head.has_value());
    EXPECT_EQ(head->status, 405);
    EXPECT_GT(head->header("Content-Length").toInt(), 0);
    EXPECT_EQ(connection.answer().value_or(RawAnswer()).status, 404);
}

TEST_F(ConnectionTest, wrongMethod_isRefusedWithTheRightOne)
{
    for (const auto& [method, target, right] :
         {std::tuple("GET", "/connect/token", "POST"), std::tuple("POST", "/MedicationPrescription/$by-card", "GET"),
          std::tuple("PUT", "/MedicationDispense/$register", "POST"),
          std::tuple("DELETE", "/MedicationDispense/d-1/$set-as-error", "POST")}) {
        const RawAnswer answer = ask(method, target, admitted());
        expectRefusal(answer, RefusalCode::MethodWrong, {QLatin1StringView(method)});
        EXPECT_EQ(answer.header("Allow"), right) << target;
    }
}

TEST_F(ConnectionTest, unknownPath_isNotFound)
{
    const RawAnswer answer = ask("GET", "/Patient/1");
    expectRefusal(answer, RefusalCode::PathUnknown);
}

TEST_F(ConnectionTest, absoluteTarget_isTheSamePath)
{
    EXPECT_EQ(ask("GET", "http://registry.example/connect/token?x").status, 405);
}

TEST_F(ConnectionTest, garbage_isRefused)
{
    expectUnreadable("\x16\x03\x01\x02\x00\x01\x00\x01\xfc\x03\x03 hello\r\n\r\n", RefusalCode::RequestUnreadable);
    expectUnreadable("GET /x HTTP/1.1\r\nNo colon\r\n\r\n", RefusalCode::RequestUnreadable);
    expectUnreadable("GET /x HTTP/1.1\r\nContent-Length: -1\r\n\r\n", RefusalCode::RequestUnreadable);
    expectUnreadable("POST /x HTTP/1.1\r\nTransfer-Encoding: chunked\r\n\r\nzz\r\n", RefusalCode::RequestUnreadable);
}

TEST_F(ConnectionTest, otherHttpVersion_isRefused)
{
    expectUnreadable("GET /x HTTP/3.7\r\n\r\n", RefusalCode::HttpVersionUnknown);
}

TEST_F(ConnectionTest, halfRequest_isRefusedInTimeAndTheConnectionEnds)
{
    giveUpSoon();
    for (const QByteArray bytes :
         {"G", "POST /x HTTP/1.1\r\nHost: x\r\n", "POST /x HTTP/1.1\r\nHost: x\r\nContent-Length: 10\r\n\r\nabc",
          "POST /x HTTP/1.1\r\nHost: x\r\nTransfer-Encoding: chunked\r\n\r\n3\r\nabc"}) {
        expectUnreadable(bytes, RefusalCode::RequestNotInTime);
    }
}

TEST_F(ConnectionTest, halfRequestAfterAWholeOne_isRefusedInTime)
{
    giveUpSoon();
    RawConnection connection(m_emulator->url());
    connection.send(unknownPath("a") + "GET");
    EXPECT_EQ(connection.answer().value_or(RawAnswer()).status, 404);
    EXPECT_EQ(connection.answer().value_or(RawAnswer()).status, 408);
    EXPECT_TRUE(connection.waitForEnd());
}

TEST_F(ConnectionTest, requestThatDripsForEver_isRefusedInTime)
{
    giveUpSoon();
    RawConnection connection(m_emulator->url());
    connection.send("GET /x HTTP/1.1\r\nX: ");
    EXPECT_TRUE(waitUntil([&connection] {
        connection.send("x");
        return connection.unread().startsWith("HTTP/1.1 408 ");
    }));
}

TEST_F(ConnectionTest, connectionWithoutARequest_mayWait)
{
    giveUpSoon();
    RawConnection fresh(m_emulator->url());
    RawConnection used(m_emulator->url());
    used.send(unknownPath("a"));
    EXPECT_EQ(used.answer().value_or(RawAnswer()).status, 404);
    expectUnreadable("GET", RefusalCode::RequestNotInTime);
    for (RawConnection* connection : {&fresh, &used}) {
        connection->send(unknownPath("b"));
        EXPECT_EQ(connection->answer().value_or(RawAnswer()).status, 404);
    }
}

TEST_F(ConnectionTest, tooLargeHeaders_areRefused)
{
    expectUnreadable("GET /x HTTP/1.1\r\nX: " + QByteArray(RequestParser::headerLimit, 'a') + "\r\n\r\n",
                     RefusalCode::HeadersTooLarge);
}

TEST_F(ConnectionTest, tooLargeBody_isRefusedWhileItsSenderIsStillSending)
{
    const QByteArray body(qsizetype(RequestParser::bodyLimit) + 1, 'a');
    expectUnreadable("POST /x HTTP/1.1\r\nContent-Length: " + QByteArray::number(body.size()) + "\r\n\r\n" + body,
                     RefusalCode::BodyTooLarge);
}

TEST_F(ConnectionTest, largestBody_isAccepted)
{
    EXPECT_EQ(ask("POST", "/x", {}, QByteArray(qsizetype(RequestParser::bodyLimit), 'a')).status, 404);
    EXPECT_EQ(m_emulator->journal().entries().last().body.size(), qsizetype(RequestParser::bodyLimit));
}

TEST_F(ConnectionTest, requestAbortedByClient_isNotInTheJournal)
{
    {
        RawConnection connection(m_emulator->url());
        connection.send("POST /x HTTP/1.1\r\nContent-Length: 10\r\n\r\nabc");
        EXPECT_TRUE(waitUntil([this] { return m_emulator->connectionCount() == 1; }));
    }
    EXPECT_EQ(ask("GET", "/y").status, 404);
    EXPECT_EQ(m_emulator->journal().entries().size(), 1);
}

TEST_F(ConnectionTest, thousandConnections_areServedAtOnce)
{
    std::vector<std::unique_ptr<RawConnection>> connections;
    for (int number = 0; number < 1000; ++number) {
        connections.push_back(std::make_unique<RawConnection>(m_emulator->url()));
    }
    for (const auto& connection : connections) {
        connection->send(unknownPath("a"));
    }
    for (const auto& connection : connections) {
        ASSERT_EQ(connection->answer().value_or(RawAnswer()).status, 404);
    }
    EXPECT_EQ(m_emulator->connectionCount(), 1000);
}

TEST_F(ConnectionTest, stoppedEmulator_endsConnectionsAndListensAgainOnTheSamePort)
{
    RawConnection connection(m_emulator->url());
    connection.send(unknownPath("a"));
    ASSERT_TRUE(connection.answer().has_value());
    const QUrl url = m_emulator->url();
    m_emulator->stop();
    EXPECT_TRUE(connection.waitForEnd());
    EXPECT_TRUE(m_emulator->url().isEmpty());
    m_emulator->start();
    EXPECT_EQ(m_emulator->url(), url);
    EXPECT_EQ(ask("GET", "/x").status, 404);
}
