// SPDX-License-Identifier: MIT
#include "electronicprescriptionchoicemodel.h"

#include <QAbstractItemModelTester>
#include <QIdentityProxyModel>

#include <gtest/gtest.h>

namespace
{

using Prescriptions = QList<QSharedPointer<ElectronicPrescription>>;

QSharedPointer<ElectronicPrescription> prescription(const QString& inn)
{
    const auto made = QSharedPointer<ElectronicPrescription>::create();
    made->setInn(inn);
    made->setInnCode("2100");
    made->setPrescriptionDate(QDate(2024, 3, 1));
    made->setDoseQuantity(12);
    made->addDispensedDoseQuantity(1.5);
    return made;
}

QString text(const QAbstractItemModel& model, int row, int column)
{
    return model.index(row, column).data().toString();
}

/// A model as a table view sees it: rows at the top, none below them.
class TopRows : public QIdentityProxyModel
{
public:
    int rowCount(const QModelIndex& parent) const override
    {
        return parent.isValid() ? 0 : QIdentityProxyModel::rowCount(parent);
    }
    bool hasChildren(const QModelIndex& parent) const override { return rowCount(parent) > 0; }
};

} // namespace

TEST(ChoiceModel, onePrescription_everyColumnShowsItsText)
{
    const ElectronicPrescriptionChoiceModel model({prescription("Метформин")}, {}, nullptr);
    EXPECT_EQ(text(model, 0, 0), "Метформин");
    EXPECT_EQ(text(model, 0, 1), "2100");
    EXPECT_EQ(text(model, 0, 2), "2024-03-01");
    EXPECT_EQ(text(model, 0, 3), "12.000");
    EXPECT_EQ(text(model, 0, 4), "1.500");
}

TEST(ChoiceModel, invalidPrescriptionDate_isAnEmptyText)
{
    const auto undated = QSharedPointer<ElectronicPrescription>::create();
    const ElectronicPrescriptionChoiceModel model({undated}, {}, nullptr);
    EXPECT_EQ(model.index(0, 2).data(), QVariant(QString()));
}

TEST(ChoiceModel, dosesOfUnusualSize_keepThreeDecimals)
{
    const auto large = QSharedPointer<ElectronicPrescription>::create();
    large->setDoseQuantity(1234567.0004);
    large->addDispensedDoseQuantity(-0.5);
    const ElectronicPrescriptionChoiceModel model({large}, {}, nullptr);
    EXPECT_EQ(text(model, 0, 3), "1234567.000");
    EXPECT_EQ(text(model, 0, 4), "-0.500");
}

TEST(ChoiceModel, horizontalHeader_showsTheFiveCaptions)
{
    const ElectronicPrescriptionChoiceModel model({}, {}, nullptr);
    const QStringList captions{"МНН", "Код", "Дата\nвыписки", "Выписано\nдоз", "Отпущено\nдоз"};
    ASSERT_EQ(model.columnCount(), captions.size());
    for (int section = 0; section < captions.size(); ++section) {
        EXPECT_EQ(model.headerData(section, Qt::Horizontal), captions.at(section));
    }
}

TEST(ChoiceModel, headerSectionOutOfRange_isEmpty)
{
    const ElectronicPrescriptionChoiceModel model({prescription("Метформин")}, {}, nullptr);
    EXPECT_FALSE(model.headerData(5, Qt::Horizontal).isValid());
    EXPECT_FALSE(model.headerData(-1, Qt::Horizontal).isValid());
}

TEST(ChoiceModel, verticalHeaderAndOtherRoles_areTheBaseClasss)
{
    const ElectronicPrescriptionChoiceModel model({prescription("Метформин")}, {}, nullptr);
    EXPECT_EQ(model.headerData(0, Qt::Vertical), QVariant(1)) << "QAbstractItemModel counts the rows";
    EXPECT_FALSE(model.headerData(0, Qt::Horizontal, Qt::ToolTipRole).isValid());
}

TEST(ChoiceModel, rowAndColumnCount_ignoreTheParent)
{
    const ElectronicPrescriptionChoiceModel model({prescription("Метформин"), prescription("Инсулин")}, {}, nullptr);
    EXPECT_EQ(model.rowCount(), 2);
    EXPECT_EQ(model.columnCount(), 5);
    EXPECT_EQ(model.rowCount(model.index(1, 0)), 2);
    EXPECT_EQ(model.columnCount(model.index(1, 0)), 5);
}

TEST(ChoiceModel, index_isMadeForAnyRowAndColumn)
{
    const ElectronicPrescriptionChoiceModel model({}, {}, nullptr);
    const auto index = model.index(70, 9);
    EXPECT_TRUE(index.isValid());
    EXPECT_EQ(index.row(), 70);
    EXPECT_EQ(index.column(), 9);
    EXPECT_EQ(index.internalId(), 0U);
    EXPECT_FALSE(model.parent(index).isValid());
}

TEST(ChoiceModel, dataOutOfRangeOrOfAnotherRole_isEmpty)
{
    const ElectronicPrescriptionChoiceModel model({prescription("Метформин"), {}}, {}, nullptr);
    EXPECT_FALSE(model.data(QModelIndex()).isValid());
    EXPECT_FALSE(model.data(model.index(2, 0)).isValid()) << "below the last row";
    EXPECT_FALSE(model.data(model.index(0, 5)).isValid()) << "right of the last column";
    EXPECT_FALSE(model.data(model.index(1, 0)).isValid()) << "a null prescription";
    for (const int role : {Qt::EditRole, Qt::ToolTipRole, Qt::DecorationRole, Qt::TextAlignmentRole, Qt::UserRole}) {
        EXPECT_FALSE(model.data(model.index(0, 0), role).isValid()) << "role " << role;
    }
}

TEST(ChoiceModel, prescriptionOfARow_isTheVeryObjectAndNullOutOfRange)
{
    const Prescriptions prescriptions{prescription("Метформин"), prescription("Инсулин")};
    const ElectronicPrescriptionChoiceModel model(prescriptions, {}, nullptr);
    EXPECT_EQ(model.getElectronicPrescription(0), prescriptions.at(0));
    EXPECT_EQ(model.getElectronicPrescription(1), prescriptions.at(1));
    EXPECT_TRUE(model.getElectronicPrescription(2).isNull());
    EXPECT_TRUE(model.getElectronicPrescription(-1).isNull());
}

TEST(ChoiceModel, patient_isTheOneGiven)
{
    const auto patient = QSharedPointer<Patient>::create("Рябинина Ольга Петровна", QDate(1961, 5, 4));
    EXPECT_EQ(ElectronicPrescriptionChoiceModel({}, patient, nullptr).getPatient(), patient);
    EXPECT_TRUE(ElectronicPrescriptionChoiceModel({}, {}, nullptr).getPatient().isNull());
}

TEST(ChoiceModel, topRows_passTheModelTester)
{
    for (const Prescriptions& prescriptions : {Prescriptions(), Prescriptions{prescription("Метформин")},
                                               Prescriptions{prescription("Метформин"), {}, prescription("Инсулин")}}) {
        ElectronicPrescriptionChoiceModel model(prescriptions, {}, nullptr);
        TopRows rows;
        const QAbstractItemModelTester tester(&rows, QAbstractItemModelTester::FailureReportingMode::Fatal);
        rows.setSourceModel(&model);
        EXPECT_EQ(rows.rowCount({}), prescriptions.size());
    }
}
