// SPDX-License-Identifier: MIT
#include "pharmacydoubles.h"

#include <QRegularExpression>

namespace
{

class MedicineSelection : public PharmacyTest
{
protected:
    MedicineSelection()
    {
        prescription->setInn("Парацетамол");
        prescription->setTradeName("Панадол");
        prescription->setDoseQuantity(30);
    }

    QSharedPointer<ElectronicPrescription> prescription{prescriptionWithId("a")};
};

TEST_F(MedicineSelection, goodsSelection_isFilteredAndNamesTheMedicine)
{
    onAction = [](control::Action& action) {
        action.insert("result", 17);
        return EContext::GoOn;
    };
    QVariant selected;

    EXPECT_TRUE(service.selectMedicineForElectronicPrescription(prescription, selected));

    EXPECT_EQ(selected, QVariant(17));
    ASSERT_EQ(actions.size(), 1);
    EXPECT_EQ(actions[0].getType(), 219);
    ASSERT_EQ(actions[0].getArguments().size(), 2);
    EXPECT_EQ(actions[0].getArguments()[0], std::pair(QString("filterByInn"), QVariant("Парацетамол")));
    EXPECT_EQ(actions[0].getArguments()[1], std::pair(QString("medicineInfo"), QVariant("Парацетамол / Панадол / 30")));
    EXPECT_EQ(actions[0].getAllowContexts(), QSet<EContext::Code>{EContext::Code(6)});
}

TEST_F(MedicineSelection, doneWithoutResult_selectsNothing)
{
    QVariant selected = "former";

    EXPECT_TRUE(service.selectMedicineForElectronicPrescription(prescription, selected));

    EXPECT_FALSE(selected.isValid());
}

TEST_F(MedicineSelection, notDone_isFalse)
{
    for (const int result : {0, 1, 3}) {
        onAction = [result](control::Action& action) {
            action.insert("result", 17);
            return EContext::Result(result);
        };
        QVariant selected = "former";
        EXPECT_FALSE(service.selectMedicineForElectronicPrescription(prescription, selected));
        EXPECT_EQ(selected, QVariant("former"));
    }
}

TEST_F(MedicineSelection, doseQuantity_isWrittenShortest)
{
    const auto info = [this](double doses) {
        prescription->setDoseQuantity(doses);
        QVariant selected;
        service.selectMedicineForElectronicPrescription(prescription, selected);
        return actions.last().value("medicineInfo").toString();
    };
    EXPECT_EQ(info(30.0), "Парацетамол / Панадол / 30");
    EXPECT_EQ(info(2.5), "Парацетамол / Панадол / 2.5");
    EXPECT_EQ(info(0.1), "Парацетамол / Панадол / 0.1");
    EXPECT_EQ(info(1.0 / 3), "Парацетамол / Панадол / 0.3333333333333333");
    EXPECT_EQ(info(0), "Парацетамол / Панадол / 0");
}

TEST_F(MedicineSelection, placeholdersInNames_stayAsTheyAre)
{
    prescription->setInn("%3%2");
    prescription->setTradeName("%1 %99");
    QVariant selected;

    service.selectMedicineForElectronicPrescription(prescription, selected);

    EXPECT_EQ(actions[0].value("medicineInfo"), "%3%2 / %1 %99 / 30");
}

TEST_F(MedicineSelection, goodsAdded_givesTheirNumber)
{
    onAction = [](control::Action& action) {
        action.insert("positionNumber", 4);
        return EContext::GoOn;
    };

    EXPECT_EQ(service.addSelectedMedicine("goods"), 4);

    ASSERT_EQ(actions.size(), 1);
    EXPECT_EQ(actions[0].getType(), 220);
    ASSERT_EQ(actions[0].getArguments().size(), 1);
    EXPECT_EQ(actions[0].getArguments()[0], std::pair(QString("result"), QVariant("goods")));
    EXPECT_EQ(actions[0].getAllowContexts(), QSet<EContext::Code>{EContext::Code(6)});
}

TEST_F(MedicineSelection, goodsNotAdded_givesMinusOne)
{
    for (const int result : {0, 1, 3}) {
        onAction = [result](control::Action& action) {
            action.insert("positionNumber", 4);
            return EContext::Result(result);
        };
        EXPECT_EQ(service.addSelectedMedicine("goods"), -1);
    }
}

TEST_F(MedicineSelection, goodsAddedWithoutANumber_giveZero)
{
    EXPECT_EQ(service.addSelectedMedicine("goods"), 0);
}

TEST_F(MedicineSelection, nothingSelected_isHandedOnAsNothing)
{
    EXPECT_EQ(service.addSelectedMedicine(QVariant()), 0);

    ASSERT_EQ(actions.size(), 1);
    EXPECT_EQ(actions[0].getArguments(), (QList<std::pair<QString, QVariant>>{{"result", QVariant()}}));
}

class DoseInput : public MedicineSelection
{
protected:
    const QString stopped = "message 1/1/0 electronicPrescriptionInputDispensedDoseQuantityError";
    double doses = 7;

    bool input() { return service.inputDispensedDoseQuantity(prescription, doses); }
};

TEST_F(DoseInput, form_hasItsTextsMaskAndName)
{
    prescription->setDoseQuantity(30);
    prescription->addDispensedDoseQuantity(2.555);
    cashier.texts << entered("2");

    EXPECT_TRUE(input());

    ASSERT_EQ(textInputs.size(), 1);
    const TextInputParams& shown = textInputs[0];
    EXPECT_EQ(shown.title,
              tr::Tr("electronicPrescriptionInputDispensedDoseQuantityFormTitle", "Ввод количества отпущенных доз"));
    EXPECT_EQ(shown.message.key(), "electronicPrescriptionInputDispensedDoseQuantityFormMessage");
    EXPECT_EQ(shown.message.text(), "Введите количество отпущенных доз по рецепту на\n'%1 / %2'\n"
                                    "(выписано %3/отпущено ранее %4)");
    EXPECT_EQ(shown.message.ui(), "Введите количество отпущенных доз по рецепту на\n'Парацетамол / Панадол'\n"
                                  "(выписано 30.00/отпущено ранее " +
                                      QString::number(2.555, 'f', 2) + ")");
    EXPECT_EQ(shown.scanError,
              tr::Tr("inputTextFormScanError", "Ошибка разбора введенных данных, повторите сканирование"));
    EXPECT_EQ(shown.okText, tr::Tr("inputTextFormOkBtn", QString::fromUtf8("\u041E\u041A")));
    EXPECT_EQ(shown.cancelText, tr::Tr("inputTextFormCancelBtn", "Отмена"));
    EXPECT_EQ(shown.inputName, "inputQuantity");
    EXPECT_EQ(shown.initialText, "");
    EXPECT_EQ(shown.mask, R"(\d{1,9}(\.)\d{0,2}|\d{1,9})");
    EXPECT_TRUE(shown.numeric);
    EXPECT_TRUE(shown.manualOnly);
    EXPECT_EQ(shown.lines, 1);
    EXPECT_EQ(shown.columns, 10);
    EXPECT_EQ(shown.hint.ui(), QString::fromUtf8("Число больше 0, не больше двух знаков после запятой или точки"));
}

TEST_F(DoseInput, placeholdersInNames_stayAsTheyAre)
{
    prescription->setInn("%2");
    prescription->setTradeName("%3");
    cashier.texts << entered("2");

    input();

    EXPECT_TRUE(textInputs[0].message.ui().contains("'%2 / %3'\n(выписано 30.00/"));
}

struct MaskRow {
    const char* text;
    bool fits;
};

TEST_F(DoseInput, mask_takesNineDigitsAndTwoDecimals)
{
    cashier.texts << entered("2");
    input();
    const QRegularExpression mask(QRegularExpression::anchoredPattern(textInputs[0].mask));

    for (const MaskRow& row : {MaskRow{"1", true},
                               {"123456789", true},
                               {"1234567890", false},
                               {"1.", true},
                               {"1.25", true},
                               {"123456789.99", true},
                               {"1.255", false},
                               {".5", false},
                               {"", false},
                               {"-1", false},
                               {"1,5", false},
                               {"1e5", false},
                               {"inf", false}}) {
        EXPECT_EQ(mask.match(row.text).hasMatch(), row.fits) << row.text;
    }
}

TEST_F(DoseInput, cancelled_leavesTheDoses)
{
    cashier.texts << core::BasicDialog::Result({}, true);

    EXPECT_FALSE(input());

    EXPECT_EQ(doses, 7);
    EXPECT_EQ(journal, QStringList{"ask inputQuantity"});
}

TEST_F(DoseInput, number_isTaken)
{
    for (const auto& [text, expected] :
         {std::pair("2", 2.0), {"0.01", 0.01}, {"0.001", 0.001}, {"1.", 1.0}, {"123456789.99", 123456789.99}}) {
        cashier.texts << entered(text);
        EXPECT_TRUE(input()) << text;
        EXPECT_EQ(doses, expected);
    }
    EXPECT_TRUE(messages.isEmpty());
}

TEST_F(DoseInput, moreThanPrescribed_isTaken)
{
    prescription->setDoseQuantity(1);
    cashier.texts << entered("1000");

    EXPECT_TRUE(input());

    EXPECT_EQ(doses, 1000);
}

TEST_F(DoseInput, noQuantity_isRefusedAndAskedAgain)
{
    for (const char* text : {"0", "0.0", "0.00", "0.0009", "-1", "", "two", "1,5"}) {
        SCOPED_TRACE(text);
        journal.clear();
        messages.clear();
        cashier.texts << entered(text) << entered("2");

        EXPECT_TRUE(input());

        EXPECT_EQ(doses, 2);
        EXPECT_EQ(journal, (QStringList{"ask inputQuantity", stopped, "ask inputQuantity"}));
        EXPECT_EQ(messages, QList<tr::Tr>{tr::Tr("electronicPrescriptionInputDispensedDoseQuantityError",
                                                 "Введено некорректное количество доз\nПовторите ввод")});
    }
}

TEST_F(DoseInput, refusedThenCancelled_isFalse)
{
    cashier.texts << entered("0") << core::BasicDialog::Result({}, true);

    EXPECT_FALSE(input());

    EXPECT_EQ(journal, (QStringList{"ask inputQuantity", stopped, "ask inputQuantity"}));
}

} // namespace
