// SPDX-License-Identifier: MIT
#include "emulatortest.h"

using namespace Qt::StringLiterals;

using emulator::Endpoint;
using emulator::Journal;
using emulator::JournalEntry;

class JournalOfEmulator : public EmulatorTest
{
};

TEST_F(JournalOfEmulator, request_isKeptAsItWasOnTheWire)
{
    const RawAnswer answer =
        ask("POST", "/connect/token?a=%2B+b", {{"X-Odd", "a  b"}, {"x-odd", "second"}}, "gr%61nt=1");
    ASSERT_EQ(m_emulator->journal().entries().size(), 1);
    const JournalEntry entry = m_emulator->journal().entries().first();
    EXPECT_EQ(entry.number, 1);
    EXPECT_EQ(entry.connection, 1);
    EXPECT_EQ(entry.received, m_now);
    EXPECT_EQ(entry.endpoint, Endpoint::Token);
    EXPECT_EQ(entry.method, "POST");
    EXPECT_EQ(entry.target, "/connect/token?a=%2B+b");
    EXPECT_EQ(entry.path(), "/connect/token");
    EXPECT_EQ(entry.headers,
              (emulator::HttpHeaders{
                  {"Host", "localhost"}, {"X-Odd", "a  b"}, {"x-odd", "second"}, {"Content-Length", "9"}}));
    EXPECT_EQ(entry.header("x-ODD"), "a  b");
    EXPECT_EQ(entry.body, "gr%61nt=1");
    EXPECT_EQ(entry.status, answer.status);
    EXPECT_TRUE(entry.answeredWhole);
    EXPECT_EQ(entry.fault, QString());
}

TEST_F(JournalOfEmulator, requestsOfOneConnection_haveItsNumber)
{
    RawConnection first(m_emulator->url());
    first.request("GET", "/a");
    ASSERT_TRUE(first.answer().has_value());
    ask("GET", "/b");
    first.request("GET", "/c");
    ASSERT_TRUE(first.answer().has_value());
    QList<quint64> connections;
    for (const JournalEntry& entry : m_emulator->journal().entries()) {
        connections.append(entry.connection);
    }
    EXPECT_EQ(connections, (QList<quint64>{1, 2, 1}));
}

TEST_F(JournalOfEmulator, largeAnswer_countsAsWholeWhenItsLastByteIsSent)
{
    m_emulator->fillCard(u"1100777"_s, 3000);
    const auto headers = admitted();
    RawConnection connection(m_emulator->url());
    connection.request("GET", "/MedicationPrescription/$by-card?patientIdentifier=1100777", headers);
    const auto answer = connection.answer();
    ASSERT_TRUE(answer.has_value());
    EXPECT_GT(answer->body.size(), 1'000'000);
    EXPECT_TRUE(waitUntil([this] { return m_emulator->journal().entries().last().answeredWhole; }));
}

TEST(Journal, numbers_goOnAfterClearing)
{
    Journal journal;
    EXPECT_EQ(journal.add({}), 1);
    EXPECT_EQ(journal.add({}), 2);
    journal.clear();
    EXPECT_TRUE(journal.entries().isEmpty());
    journal.answered(2, true);
    EXPECT_EQ(journal.add({}), 3);
    journal.answered(2, true);
    EXPECT_FALSE(journal.entries().first().answeredWhole);
    journal.answered(3, true);
    EXPECT_TRUE(journal.entries().first().answeredWhole);
}

TEST(Journal, endpoints_areCountedSeparately)
{
    Journal journal;
    JournalEntry entry;
    entry.endpoint = Endpoint::Token;
    journal.add(entry);
    entry.endpoint = Endpoint::DispenseRegistration;
    journal.add(entry);
    journal.add(entry);
    EXPECT_EQ(journal.count(Endpoint::Token), 1);
    EXPECT_EQ(journal.count(Endpoint::DispenseRegistration), 2);
    EXPECT_EQ(journal.count(Endpoint::DispenseCancellation), 0);
    EXPECT_EQ(journal.count(Endpoint::Any), 3);
}

TEST(Journal, fullJournal_forgetsOldest)
{
    Journal journal;
    for (qsizetype request = 0; request < Journal::capacity + 5; ++request) {
        journal.add({});
    }
    EXPECT_EQ(journal.entries().size(), Journal::capacity);
    EXPECT_EQ(journal.entries().first().number, 6);
    journal.answered(6, true);
    EXPECT_TRUE(journal.entries().first().answeredWhole);
}
