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
    EXPECT_EQ(mark.value("mark").toString(), "ЭР");
    EXPECT_EQ(mark.value("description").toString(), "Электронный рецепт");
}

TEST(PositionMarks, everyStateOfAPosition_hasItsWordsInAReadableColour)
{
    const auto states = prescriptionMark().value("states").toArray();
    QList<QJsonValue> values;
    for (const auto& each : states) {
        const auto state = each.toObject();
        EXPECT_EQ(state.value("option").toString(), positionformat::status);
        EXPECT_FALSE(state.value("text").toString().isEmpty());
        EXPECT_GE(RegisterColours::contrast(QColor(state.value("colour").toString()), Qt::white), 4.5);
        values.append(state.value("value"));
    }
    EXPECT_EQ(values, (QList<QJsonValue>{QJsonValue::Null, QJsonValue(positionformat::dispensed),
                                         QJsonValue(positionformat::canceled)}));
}

TEST(PositionMarks, receiptLines_areDiscountOrganizationAndSerialNumber)
{
    const auto lines = prescriptionMark().value("receiptLines").toArray();
    ASSERT_EQ(lines.size(), 3);
    EXPECT_EQ(
        lines.at(0).toObject(),
        (QJsonObject{{"option", positionformat::sumFactor}, {"label", "Скидка по рецепту"}, {"form", "discount"}}));
    EXPECT_EQ(lines.at(1).toObject(),
              (QJsonObject{{"option", positionformat::organization}, {"label", "Организация"}}));
    EXPECT_EQ(lines.at(2).toObject(), (QJsonObject{{"option", positionformat::serialNumber}, {"label", "Рецепт"}}));
}
