// SPDX-License-Identifier: MIT
// Both plug-ins' positionmarks.json on one position: whatever is loaded first, an open outcome is what the cashier
// sees.
#include "positionmarks.h"
#include "position.h"
#include "registerstyle.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

const QString recovery = QString::fromUtf8(RECOVERY_MARKS);
const QString prescription = QString::fromUtf8(PRESCRIPTION_MARKS);

class RecoveryMarks : public ::testing::TestWithParam<bool>
{
protected:
    RecoveryMarks()
    {
        for (const QString& file :
             GetParam() ? QStringList{recovery, prescription} : QStringList{prescription, recovery}) {
            marks.load(file);
        }
        position.setTag(u"prescription"_s);
    }

    PositionMarks::Look look(const QString& options)
    {
        position.setExtendedOptions(options);
        return marks.look(position);
    }

    PositionMarks marks;
    Position position{{}, {}};
};

} // namespace

TEST_P(RecoveryMarks, outcomeUnknown_winsOverEveryStateOfThePrescription)
{
    for (const auto& status : {u""_s, u", \"status\": \"dispensed\""_s, u", \"status\": \"canceled\""_s}) {
        const auto shown = look(u"{\"recovery\": \"unknown\"%1}"_s.arg(status));
        EXPECT_EQ(shown.state, u"состояние неизвестно"_s) << qPrintable(status);
        EXPECT_EQ(shown.stateColour, QColor(0x8a, 0x5a, 0x00)) << qPrintable(status);
        EXPECT_EQ(shown.undoing, u"Если отпуск записан в реестре, он будет отменён."_s) << qPrintable(status);
        EXPECT_GE(RegisterColours::contrast(shown.stateColour, Qt::white), 4.5);
    }
}

TEST_P(RecoveryMarks, outcomeKnown_stateIsThePrescriptions)
{
    EXPECT_EQ(look({}).state, u"не зарегистрирован"_s);
    EXPECT_EQ(look(u"{\"recovery\": \"settled\"}"_s).state, u"не зарегистрирован"_s);
    EXPECT_EQ(look(u"{\"status\": \"dispensed\"}"_s).state, u"зарегистрирован"_s);
    EXPECT_EQ(look(u"{\"status\": \"canceled\"}"_s).state, u"отпуск отменён"_s);
}

TEST_P(RecoveryMarks, outcomeUnknown_restIsThePrescriptions)
{
    const auto shown = look(uR"({"recovery": "unknown", "doseQuantity": 2.5, "serialNumber": "4500-1"})"_s);
    EXPECT_EQ(shown.mark, u"ЭР"_s);
    EXPECT_EQ(shown.description, u"Электронный рецепт"_s);
    EXPECT_EQ(shown.receiptLines, (QStringList{u"Отпущено доз: 2,5"_s, u"Рецепт: 4500-1"_s}));
    EXPECT_EQ(marks.origin(position), u"по рецепту"_s);
}

INSTANTIATE_TEST_SUITE_P(, RecoveryMarks, ::testing::Bool(),
                         [](const auto& instance) { return instance.param ? "recoveryFirst" : "recoveryLast"; });
