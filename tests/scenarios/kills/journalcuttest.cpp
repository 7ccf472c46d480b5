// SPDX-License-Identifier: MIT
// The power fails around what is written of one request: its two lines in the journal, and the mark of the position
// when no answer came. The plug-in that settles lost answers finds out what happened.

#include "powercuttest.h"

#include <QFile>

#include <string>

using namespace Qt::StringLiterals;

namespace
{

using At = PowerFailure::At;

/// One request that the power fails at, and what the cashier reads at the next start.
struct Cut {
    PowerFailure failure;
    const char* found; ///< a part of the message; empty: there is none
    /// The registry carries the request out and closes the connection, so that the position is marked.
    bool isAnswerLost = false;

    friend std::ostream& operator<<(std::ostream& stream, const Cut& cut) { return stream << cut.failure.name; }
};

const QByteArray registers = cashier::findsTheDocument + ", " + cashier::subtotal;

class JournalCut : public PowerCutTest, public ::testing::WithParamInterface<Cut>
{
protected:
    void SetUp() override
    {
        PowerCutTest::SetUp();
        configure("RestClient:journal", "*/MedicationDispense/*");
        install(RECOVERY_PLUGIN);
    }

    void cutAt(const char* endpoint, const QByteArrayList& steps)
    {
        if (GetParam().isAnswerLost) {
            registry.orderFault({{"endpoint", endpoint}, {"nth", 2}, {"fault", "close"}, {"carriedOut", true}});
        }
        playUntil(GetParam().failure, steps);
        expectCut();
    }
    /// The disk has what was written before the power failed, and no more.
    void expectCut() const
    {
        const PowerFailure& failure = GetParam().failure;
        if (GetParam().isAnswerLost) {
            const QJsonObject options = optionsOf(savedPositions()[1].toObject());
            EXPECT_EQ(options["recovery"].toString(), failure.at == At::AfterSave ? "unknown" : "");
            return;
        }
        QFile file(dataFolder() + "/requests.journal");
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QByteArray journal = file.readAll();
        EXPECT_EQ(journal.count('\n'), failure.at == At::AfterJournalLine ? failure.nth : failure.nth - 1);
        EXPECT_EQ(journal.isEmpty() || journal.endsWith('\n'), failure.at != At::WithinJournalLine);
    }

    Outcome playAfterwards(const QByteArrayList& steps)
    {
        const QByteArrayList found =
            *GetParam().found == 0 ? QByteArrayList() : QByteArrayList{cashier::reads(GetParam().found)};
        return playSteps(found + steps, {"--plugins", pluginFolder()});
    }
};

std::string nameOfCut(const ::testing::TestParamInfo<Cut>& instance)
{
    return instance.param.failure.name;
}

// Each request has two lines: one before it goes out, one with its answer.

using ARegistration = JournalCut;

TEST_P(ARegistration, powerFails_saleIsClosedWithOneDispenseEach)
{
    cutAt("register", {cashier::findsTheDocument, R"({"key": "F6"})"});

    expectPlayed(playAfterwards({cashier::findsTheDocument, cashier::subtotal, cashier::pays}));
    expectRegisteredOnce(finished(1));
}

INSTANTIATE_TEST_SUITE_P(
    Lines, ARegistration,
    ::testing::Values(Cut{{"beforeItIsWritten", At::BeforeJournalLine, 3}, ""},
                      Cut{{"whileItIsWritten", At::WithinJournalLine, 3}, ""},
                      Cut{{"beforeItIsSent", At::AfterJournalLine, 3}, "Отпуска в реестре нет"},
                      Cut{{"beforeTheAnswerIsWritten", At::BeforeJournalLine, 4}, "Отпуск записан в реестре"},
                      Cut{{"whileTheAnswerIsWritten", At::WithinJournalLine, 4}, "Отпуск записан в реестре"},
                      Cut{{"beforeTheSave", At::AfterJournalLine, 4}, "Отпуск записан в реестре"},
                      Cut{{"beforeTheMarkIsSaved", At::BeforeSave, 2}, "Отпуск записан в реестре", true},
                      Cut{{"afterTheMarkIsSaved", At::AfterSave, 2}, "Отпуск записан в реестре", true}),
    nameOfCut);

using ACancellation = JournalCut;

TEST_P(ACancellation, powerFails_documentIsCancelledAndNothingIsLeft)
{
    QByteArrayList steps{registers, cashier::cancelsTheDocument};
    if (GetParam().isAnswerLost) { // the position is marked when the message about it is closed
        steps.append(cashier::reads("Запрос мог быть выполнен"));
    }
    cutAt("cancel", steps);

    expectPlayed(playAfterwards({cashier::findsTheDocument, cashier::cancelsTheDocument, cashier::isIdle}));
    EXPECT_EQ(finished(1)["state"].toString(), "cancelled");
    expectInStep(finished(1));
    expectNothingRegistered();
    EXPECT_EQ(registry.dispenses().size(), 3);
}

// The three registrations before it have six lines and three saves.
INSTANTIATE_TEST_SUITE_P(
    Lines, ACancellation,
    ::testing::Values(Cut{{"beforeItIsWritten", At::BeforeJournalLine, 9}, ""},
                      Cut{{"whileItIsWritten", At::WithinJournalLine, 9}, ""},
                      Cut{{"beforeItIsSent", At::AfterJournalLine, 9}, "Отпуск в реестре не отменён"},
                      Cut{{"beforeTheAnswerIsWritten", At::BeforeJournalLine, 10}, "Отпуск в реестре отменён"},
                      Cut{{"whileTheAnswerIsWritten", At::WithinJournalLine, 10}, "Отпуск в реестре отменён"},
                      Cut{{"beforeTheSave", At::AfterJournalLine, 10}, "Отпуск в реестре отменён"},
                      Cut{{"beforeTheMarkIsSaved", At::BeforeSave, 5}, "Отпуск в реестре отменён", true},
                      Cut{{"afterTheMarkIsSaved", At::AfterSave, 5}, "Отпуск в реестре отменён", true}),
    nameOfCut);

} // namespace
