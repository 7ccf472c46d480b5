// SPDX-License-Identifier: MIT
// The demo terminal of the examples: each of its answers, and what it says about an operation later.
#include "democardterminal.h"
#include "configured.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace
{

using Outcome = CardAnswer::Outcome;

struct Case {
    const char* word;
    int kopecks;
    Outcome answer;
    Outcome found;
};

class DemoCardTerminalTest : public ::testing::TestWithParam<Case>
{
protected:
    void expectAnswers(qint64 kopecks)
    {
        const CardRequest request{.amount = Kopecks{kopecks}, .reference = u"7-abcd"_s, .documentNumber = 7};
        for (const auto operation : {&CardTerminal::pay, &CardTerminal::refund}) {
            EXPECT_EQ((m_terminal.*operation)(request).outcome, GetParam().answer);
        }
        EXPECT_EQ(DemoCardTerminal(m_journal).find(request.reference).outcome, GetParam().found)
            << "also after a restart";
        EXPECT_NE(m_terminal.find(u"7-other"_s).outcome, Outcome::Approved);
    }

    QTemporaryDir m_folder;
    const QString m_journal = m_folder.filePath(u"journal.jsonl"_s);
    Configured m_config{{{u"DemoCardTerminal:seconds"_s, u"0"_s}}};
    DemoCardTerminal m_terminal{m_journal};
};

TEST_P(DemoCardTerminalTest, answersAsTheKopecksSay)
{
    expectAnswers(1200 + GetParam().kopecks);
}

TEST_P(DemoCardTerminalTest, answersAsConfiguredWhateverTheAmount)
{
    m_config.set(u"DemoCardTerminal:outcome"_s, QString::fromLatin1(GetParam().word));
    expectAnswers(1240);
}

INSTANTIATE_TEST_SUITE_P(, DemoCardTerminalTest,
                         ::testing::Values(Case{"approve", 40, Outcome::Approved, Outcome::Approved},
                                           Case{"decline", 1, Outcome::Declined, Outcome::Declined},
                                           Case{"busy", 2, Outcome::Busy, Outcome::Declined},
                                           Case{"loseTaken", 3, Outcome::Unknown, Outcome::Approved},
                                           Case{"loseRefused", 4, Outcome::Unknown, Outcome::Declined},
                                           Case{"loseForGood", 5, Outcome::Unknown, Outcome::Unknown}),
                         [](const auto& instance) { return std::string(instance.param.word); });

TEST_F(DemoCardTerminalTest, timeLimit_isASecondMoreThanAnOperationTakes)
{
    const DemoCardTerminal terminal(m_journal);
    EXPECT_EQ(terminal.timeLimit(), std::chrono::seconds(1)) << "none of the cases waits";
    m_config.set(u"DemoCardTerminal:seconds"_s, u"30"_s);
    EXPECT_EQ(terminal.timeLimit(), std::chrono::seconds(31));
}

TEST_F(DemoCardTerminalTest, sixKopecks_breaksDownAfterTheMoneyMoved)
{
    EXPECT_THROW(m_terminal.pay({.amount = Kopecks{1206}, .reference = u"7-1"_s}), std::runtime_error);
    EXPECT_EQ(m_terminal.find(u"7-1"_s).outcome, Outcome::Approved);
}

} // namespace
