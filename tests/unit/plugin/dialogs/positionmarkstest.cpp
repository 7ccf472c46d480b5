// SPDX-License-Identifier: MIT
// positionmarks.json, which describes the looks of the plug-in's positions, against the options that it writes.
#include "positionformat.h"
#include "registerstyle.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

namespace
{

/// The default text of a word that has a key in the message catalogues.
QString textOf(const QJsonValue& word)
{
    EXPECT_FALSE(word["key"].toString().isEmpty());
    return word["text"].toString();
}

QJsonObject prescriptionMark()
{
    QFile file(QString(PLUGIN_SOURCES) + "/positionmarks.json");
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    const auto positions = QJsonDocument::fromJson(file.readAll()).object().value("positions").toArray();
    EXPECT_EQ(positions.size(), 1);
    return positions.first().toObject();
}

} // namespace

TEST(PositionMarks, prescriptionPosition_isMarkedByItsTag)
{
    const auto mark = prescriptionMark();
    EXPECT_EQ(mark.value("tag").toString(), positionformat::tag);
    EXPECT_EQ(textOf(mark.value("mark")), "ЭР");
    EXPECT_EQ(textOf(mark.value("description")), "Электронный рецепт");
}

TEST(PositionMarks, prescriptionPosition_isSoldByAPrescription)
{
    EXPECT_EQ(textOf(prescriptionMark().value("origin")), "по рецепту");
}

TEST(PositionMarks, registeredPositionAlone_hasADispenseToUndo)
{
    const auto states = prescriptionMark().value("states").toArray();
    ASSERT_EQ(states.size(), 3);
    EXPECT_TRUE(states.at(0)["undoing"].isUndefined());
    EXPECT_EQ(states.at(1)["value"], QJsonValue(positionformat::dispensed));
    EXPECT_EQ(textOf(states.at(1)["undoing"]), "Отпуск будет отменён.");
    EXPECT_TRUE(states.at(2)["undoing"].isUndefined());
}

TEST(PositionMarks, everyStateOfAPosition_hasItsWordsInAReadableColour)
{
    const auto states = prescriptionMark().value("states").toArray();
    QList<QJsonValue> values;
    for (const auto& each : states) {
        const auto state = each.toObject();
        EXPECT_EQ(state.value("option").toString(), positionformat::status);
        EXPECT_FALSE(textOf(state.value("text")).isEmpty());
        EXPECT_GE(RegisterColours::contrast(QColor(state.value("colour").toString()), Qt::white), 4.5);
        values.append(state.value("value"));
    }
    EXPECT_EQ(values, (QList<QJsonValue>{QJsonValue::Null, QJsonValue(positionformat::dispensed),
                                         QJsonValue(positionformat::canceled)}));
}

TEST(PositionMarks, receiptLines_areDiscountDosesOrganizationAndSerialNumber)
{
    const auto lines = prescriptionMark().value("receiptLines").toArray();
    ASSERT_EQ(lines.size(), 4);
    const auto expectLine = [&lines](int index, const QString& option, const QString& label, const QJsonValue& form) {
        EXPECT_EQ(lines.at(index)["option"].toString(), option);
        EXPECT_EQ(textOf(lines.at(index)["label"]), label);
        EXPECT_EQ(lines.at(index)["form"], form);
    };
    expectLine(0, positionformat::sumFactor, "Скидка по рецепту", "discount");
    expectLine(1, positionformat::doseQuantity, "Отпущено доз", "number");
    expectLine(2, positionformat::organization, "Организация", QJsonValue::Undefined);
    expectLine(3, positionformat::serialNumber, "Рецепт", QJsonValue::Undefined);
}
