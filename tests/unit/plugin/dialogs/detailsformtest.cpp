// SPDX-License-Identifier: MIT
#include "electronicprescriptionform.h"

#include "clockdouble.h"
#include "dialogeventfilter.h"
#include "dialogforms.h"

#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>

#include <algorithm>

namespace
{

const QString layout = "electronicprescription.ui";
const QString highlight = "QLabel { background-color: #ff4646; color: #000000 }";

class DetailsForm : public DialogForms
{
protected:
    static ElectronicPrescriptionParams params(const QSharedPointer<ElectronicPrescription>& shown,
                                               const QString& status = "active")
    {
        return {shown, status, patient()};
    }

    /// A prescription whose texts all differ.
    static QSharedPointer<ElectronicPrescription> fullPrescription()
    {
        const auto full = prescription("Метформин");
        full->setInnCode("inn-1");
        full->setTradeName("Сиофор");
        full->setTradeNameCode("trade-2");
        full->setPrescribedByInn();
        full->setPrescriptionDate(QDate(2024, 3, 1));
        full->setExpirationDate(QDate(2024, 4, 30));
        full->setPractitionerName("Осокин Лев Андреевич");
        full->setDigitalSignature();
        full->setPayByPatientSumFactor(0.5);
        full->setDoseQuantity(30);
        full->addDispensedDoseQuantity(1.5);
        full->setInstructions("По одной таблетке утром");
        full->setPayingElectronicPrescriptionOrganization(
            QSharedPointer<PayingElectronicPrescriptionOrganization>::create("77", "Фонд здоровья"));
        full->setDictCode("dict-3");
        full->setDictName("Метформин, таблетки 500 мг");
        for (const int day : {20, 5, 5}) {
            full->addMedicationDispenseDate(QDate(2024, 3, day));
        }
        return full;
    }

    static QSharedPointer<ElectronicPrescription> payingShare(double share)
    {
        const auto discounted = prescription("Метформин");
        discounted->setPayByPatientSumFactor(share);
        return discounted;
    }

    /// True when a label is not hidden. The form itself need not be on the screen.
    static bool isShown(const BasicForm& form, const QString& label)
    {
        return !widget<QLabel>(form, label)->isHidden();
    }
};

using NamedText = std::pair<const char*, const char*>;
const auto widgetOfParameter = [](const auto& info) { return std::string(info.param.first); };

class DetailsFormTexts : public DetailsForm, public ::testing::WithParamInterface<NamedText>
{
};

class DetailsFormValues : public DetailsForm, public ::testing::WithParamInterface<NamedText>
{
};

class DetailsFormRequiredWidgets : public DetailsForm, public ::testing::WithParamInterface<NamedText>
{
};

} // namespace

TEST_P(DetailsFormTexts, built_widgetHasItsText)
{
    const auto& [name, expected] = GetParam();
    const ElectronicPrescriptionForm form(params(prescription("Метформин")), nullptr);
    EXPECT_EQ(text(form, name), expected);
}

INSTANTIATE_TEST_SUITE_P(
    , DetailsFormTexts,
    ::testing::Values(
        NamedText{"cancelButton", "Назад"}, NamedText{"chooseButton", "Подобрать"},
        NamedText{"titleLabel", "Электронный рецепт"}, NamedText{"innNameLabel", "МНН:"},
        NamedText{"innCodeLabel", "Код для МНН:"},
        NamedText{"medicineDictCodeLabel", "Код справочника\nАИС «ЭЛЕКТРОННЫЙ РЕЦЕПТ»:"},
        NamedText{"medicineDictNameLabel", "Наименование справочника\nАИС «ЭЛЕКТРОННЫЙ РЕЦЕПТ»:"},
        NamedText{"tradeNameLabel", "Торговое наименование:"},
        NamedText{"tradeNameCodeLabel", "Код для торгового наименования:"},
        NamedText{"prescribedByInnOrTradeNameLabel", "Рецепт выписан по:"},
        NamedText{"patientNameLabel", "ФИО пациента:"}, NamedText{"patientBirthdayLabel", "Дата рождения пациента:"},
        NamedText{"prescriptionDateLabel", "Дата выписки рецепта:"},
        NamedText{"expirationDateLabel", "Срок действия рецепта:"}, NamedText{"practitionerNameLabel", "ФИО врача:"},
        NamedText{"digitalSignatureLabel", "Рецепт подписан ЭЦП:"}, NamedText{"discountLabel", "Процент льготы:"},
        NamedText{"organizationLabel", "Организация:"}, NamedText{"doseQuantityLabel", "Количество выписанных доз:"},
        NamedText{"dispensedDoseQuantityLabel", "Количество отпущенных доз:"},
        NamedText{"instructionsLabel", "Инструкция по применению:"},
        NamedText{"medicationDispenseDatesLabel", "Даты отпуска препарата по рецепту:"}),
    widgetOfParameter);

TEST_P(DetailsFormValues, fullPrescription_labelHasItsText)
{
    const auto& [name, expected] = GetParam();
    const ElectronicPrescriptionForm form(params(fullPrescription()), nullptr);
    EXPECT_EQ(text(form, name), expected);
    EXPECT_TRUE(isShown(form, name));
}

INSTANTIATE_TEST_SUITE_P(
    , DetailsFormValues,
    ::testing::Values(
        NamedText{"innNameValueLabel", "Метформин"}, NamedText{"innCodeValueLabel", "inn-1"},
        NamedText{"tradeNameValueLabel", "Сиофор"}, NamedText{"tradeNameCodeValueLabel", "trade-2"},
        NamedText{"prescribedByInnOrTradeNameValueLabel", "МНН"},
        NamedText{"patientNameValueLabel", "Рябинина Ольга Петровна"},
        NamedText{"patientBirthdayValueLabel", "1961-05-04"}, NamedText{"prescriptionDateValueLabel", "2024-03-01"},
        NamedText{"expirationDateValueLabel", "2024-04-30"},
        NamedText{"practitionerNameValueLabel", "Осокин Лев Андреевич"}, NamedText{"digitalSignatureValueLabel", "Да"},
        NamedText{"discountValueLabel", "50.00%"}, NamedText{"doseQuantityValueLabel", "30.00"},
        NamedText{"dispensedDoseQuantityValueLabel", "1.50"},
        NamedText{"instructionsValueLabel", "По одной таблетке утром"},
        NamedText{"organizationValueLabel", "Фонд здоровья"}, NamedText{"medicineDictCodeValueLabel", "dict-3"},
        NamedText{"medicineDictNameValueLabel", "Метформин, таблетки 500 мг"},
        NamedText{"medicationDispenseDatesValueLabel", "2024-03-20\n2024-03-05\n2024-03-05"}),
    widgetOfParameter);

TEST_P(DetailsFormRequiredWidgets, missing_constructorThrowsAndNamesIt)
{
    expectNeeds(layout, GetParam().first, [] { ElectronicPrescriptionForm(params(fullPrescription()), nullptr); });
}

TEST_P(DetailsFormRequiredWidgets, ofAnotherClass_constructorThrowsAndNamesBothClasses)
{
    const auto& [name, className] = GetParam();
    expectNeedsClass(layout, name, className, [] { ElectronicPrescriptionForm(params(fullPrescription()), nullptr); });
}

TEST_P(DetailsFormRequiredWidgets, missingAndFaultsCollected_formAnswersAllTheSame)
{
    loseWidget(layout, GetParam().first);
    collectLayoutFaults();
    ElectronicPrescriptionForm form(params(fullPrescription()), nullptr);
    EXPECT_TRUE(layoutFaults.contains(QString("Не найден виджет ") + GetParam().first));
    open(form);
    form.onChoose();
    EXPECT_EQ(answer(), std::pair(QString("status"), QVariant(0)));
}

INSTANTIATE_TEST_SUITE_P(
    , DetailsFormRequiredWidgets,
    ::testing::Values(
        NamedText{"cancelButton", "QPushButton"}, NamedText{"chooseButton", "QPushButton"},
        NamedText{"titleLabel", "QLabel"}, NamedText{"innNameLabel", "QLabel"}, NamedText{"innCodeLabel", "QLabel"},
        NamedText{"medicineDictCodeLabel", "QLabel"}, NamedText{"medicineDictNameLabel", "QLabel"},
        NamedText{"tradeNameLabel", "QLabel"}, NamedText{"tradeNameCodeLabel", "QLabel"},
        NamedText{"prescribedByInnOrTradeNameLabel", "QLabel"}, NamedText{"patientNameLabel", "QLabel"},
        NamedText{"patientBirthdayLabel", "QLabel"}, NamedText{"prescriptionDateLabel", "QLabel"},
        NamedText{"expirationDateLabel", "QLabel"}, NamedText{"practitionerNameLabel", "QLabel"},
        NamedText{"digitalSignatureLabel", "QLabel"}, NamedText{"discountLabel", "QLabel"},
        NamedText{"organizationLabel", "QLabel"}, NamedText{"doseQuantityLabel", "QLabel"},
        NamedText{"dispensedDoseQuantityLabel", "QLabel"}, NamedText{"instructionsLabel", "QLabel"},
        NamedText{"medicationDispenseDatesLabel", "QLabel"}, NamedText{"innNameValueLabel", "QLabel"},
        NamedText{"innCodeValueLabel", "QLabel"}, NamedText{"tradeNameValueLabel", "QLabel"},
        NamedText{"tradeNameCodeValueLabel", "QLabel"}, NamedText{"prescribedByInnOrTradeNameValueLabel", "QLabel"},
        NamedText{"patientNameValueLabel", "QLabel"}, NamedText{"patientBirthdayValueLabel", "QLabel"},
        NamedText{"prescriptionDateValueLabel", "QLabel"}, NamedText{"expirationDateValueLabel", "QLabel"},
        NamedText{"practitionerNameValueLabel", "QLabel"}, NamedText{"digitalSignatureValueLabel", "QLabel"},
        NamedText{"discountValueLabel", "QLabel"}, NamedText{"doseQuantityValueLabel", "QLabel"},
        NamedText{"dispensedDoseQuantityValueLabel", "QLabel"}, NamedText{"instructionsValueLabel", "QLabel"},
        NamedText{"organizationValueLabel", "QLabel"}, NamedText{"medicineDictCodeValueLabel", "QLabel"},
        NamedText{"medicineDictNameValueLabel", "QLabel"}, NamedText{"medicationDispenseDatesValueLabel", "QLabel"}),
    widgetOfParameter);

TEST_F(DetailsForm, built_contextIsTheDialogs)
{
    EXPECT_EQ(ElectronicPrescriptionForm(params({}), nullptr).contextCode(), 15);
}

TEST_F(DetailsForm, statusActive_medicineCanBePicked)
{
    ElectronicPrescriptionForm form(params(fullPrescription(), "active"), nullptr);
    open(form);
    auto* choose = widget<QPushButton>(form, "chooseButton");
    EXPECT_TRUE(choose->isEnabled());
    EXPECT_EQ(form.rootWidget()->focusWidget(), choose);
    choose->click();
    EXPECT_EQ(answer(), std::pair(QString("status"), QVariant(0)));
}

TEST_F(DetailsForm, statusOtherThanActive_backIsTheOnlyWayOut)
{
    for (const char* status : {"Active", "completed", "", " active"}) {
        queue.queued.clear();
        ElectronicPrescriptionForm form(params(fullPrescription(), status), nullptr);
        open(form);
        auto* choose = widget<QPushButton>(form, "chooseButton");
        EXPECT_FALSE(choose->isEnabled()) << '"' << status << '"';
        EXPECT_TRUE(choose->isVisible());
        auto* back = widget<QPushButton>(form, "cancelButton");
        EXPECT_EQ(form.rootWidget()->focusWidget(), back);
        choose->click();
        EXPECT_TRUE(queue.queued.isEmpty());
        back->click();
        EXPECT_EQ(answer(), std::pair(QString("status"), QVariant(-1)));
    }
}

TEST_F(DetailsForm, help_speaksOfGoodsOnlyWhereTheyCanBePicked)
{
    for (const bool isActive : {true, false}) {
        const ElectronicPrescriptionForm form(params(fullPrescription(), isActive ? "active" : "completed"), nullptr);
        const QList<FormHelp::Key> keys = form.help().keys;
        const bool picksByEnter = std::any_of(keys.cbegin(), keys.cend(),
                                              [](const FormHelp::Key& key) { return key.key == FormHelp::enterKey(); });
        EXPECT_EQ(picksByEnter, isActive);
        EXPECT_EQ(form.help().next.ui().contains("подберите товар"), isActive);
        EXPECT_FALSE(form.help().next.ui().isEmpty());
    }
}

TEST_F(DetailsForm, nullPrescriptionWithActiveStatus_medicineCanBePicked)
{
    const ElectronicPrescriptionForm form(params({}, "active"), nullptr);
    EXPECT_TRUE(widget<QPushButton>(form, "chooseButton")->isEnabled());
}

TEST_F(DetailsForm, escape_answersMinusOne)
{
    ElectronicPrescriptionForm form(params(fullPrescription()), nullptr);
    open(form);
    QTest::keyClick(widget<QPushButton>(form, "chooseButton"), Qt::Key_Escape);
    EXPECT_EQ(answer(), std::pair(QString("status"), QVariant(-1)));
}

TEST_F(DetailsForm, windowClosed_answersMinusOne)
{
    ElectronicPrescriptionForm form(params(fullPrescription()), nullptr);
    open(form);
    form.rootWidget()->close();
    EXPECT_EQ(answer(), std::pair(QString("status"), QVariant(-1)));
}

TEST_F(DetailsForm, eventFiltersOk_isNotConnected)
{
    ElectronicPrescriptionForm form(params(fullPrescription()), nullptr);
    emit form.findChild<DialogEventFilter*>()->ok();
    EXPECT_TRUE(queue.queued.isEmpty());
}

TEST_F(DetailsForm, returnPressed_picksTheMedicine)
{
    ElectronicPrescriptionForm form(params(fullPrescription()), nullptr);
    open(form);
    QTest::keyClick(widget<QPushButton>(form, "chooseButton"), Qt::Key_Return);
    EXPECT_EQ(answer(), std::pair(QString("status"), QVariant(0)));
}

TEST_F(DetailsForm, nullPrescription_valueLabelsKeepTheLayoutsTexts)
{
    const ElectronicPrescriptionForm form(ElectronicPrescriptionParams(), nullptr);
    for (const auto* label : form.rootWidget()->findChildren<QLabel*>(QRegularExpression("ValueLabel$"))) {
        EXPECT_EQ(label->text(), "") << label->objectName().toStdString();
        EXPECT_FALSE(label->isHidden()) << label->objectName().toStdString();
    }
}

TEST_F(DetailsForm, recordWithoutPatient_patientLabelsKeepTheLayoutsTexts)
{
    const QString laidOut = "<property name=\"text\"><string>неизвестно</string></property>";
    changeLayout(layout, "(name=\"patient\\w+ValueLabel\">)", "\\1" + laidOut);
    const ElectronicPrescriptionForm form(ElectronicPrescriptionParams(fullPrescription(), "active", {}), nullptr);
    EXPECT_EQ(text(form, "patientNameValueLabel"), "неизвестно");
    EXPECT_EQ(text(form, "patientBirthdayValueLabel"), "неизвестно");
    EXPECT_EQ(text(form, "innNameValueLabel"), "Метформин");
}

TEST_F(DetailsForm, layoutWithoutAnyValueLabel_valuesAreReportedInTheirOrder)
{
    changeLayout(layout, "ValueLabel\"", "Lost\"");
    collectLayoutFaults();
    const ElectronicPrescriptionForm form(params(fullPrescription()), nullptr);
    const QStringList values{"innName",
                             "innCode",
                             "tradeName",
                             "tradeNameCode",
                             "prescribedByInnOrTradeName",
                             "patientName",
                             "patientBirthday",
                             "prescriptionDate",
                             "expirationDate",
                             "practitionerName",
                             "digitalSignature",
                             "discount",
                             "doseQuantity",
                             "dispensedDoseQuantity",
                             "instructions",
                             "organization",
                             "medicineDictCode",
                             "medicineDictName",
                             "medicationDispenseDates",
                             "discount", // once more for its highlight
                             "medicineDictCode",
                             "medicineDictName",
                             "medicationDispenseDates"}; // once more for the visibility of their rows
    QStringList faults;
    for (const QString& value : values) {
        faults.append("Не найден виджет " + value + "ValueLabel");
    }
    EXPECT_EQ(layoutFaults, faults);
}

TEST_F(DetailsForm, chooseButtonOfAnotherClass_isReportedOnce)
{
    makeSlider(layout, "chooseButton");
    collectLayoutFaults();
    const ElectronicPrescriptionForm form(params(fullPrescription()), nullptr);
    EXPECT_EQ(layoutFaults, QStringList("Ошибка загрузки виджета 'chooseButton'. "
                                        "Не удалось 'QSlider' привести к типу 'QPushButton'"));
}

TEST_F(DetailsForm, layoutAsksForRichText_registryTextsArePlain)
{
    askForRichText(layout);
    const auto odd = fullPrescription();
    odd->setInstructions("<img src='file:///nowhere.png'>");
    odd->setExpirationDate(QDate(2024, 4, 30));
    const ElectronicPrescriptionForm form(params(odd), nullptr);
    EXPECT_EQ(text(form, "instructionsValueLabel"), "<img src='file:///nowhere.png'>");
    expectPlainTexts(form);
}

TEST_F(DetailsForm, layoutWithoutItsScrollArea_isNoFault)
{
    loseWidget(layout, "detailsScrollArea");
    ElectronicPrescriptionForm form(params(fullPrescription()), nullptr);
    open(form);
    EXPECT_EQ(text(form, "innNameValueLabel"), "Метформин");
}

TEST_F(DetailsForm, oneDispenseWithoutAValidDate_dateLabelsAreShownEmpty)
{
    const auto undated = prescription("Метформин");
    undated->addMedicationDispenseDate(QDate());
    const ElectronicPrescriptionForm form(params(undated), nullptr);
    EXPECT_TRUE(isShown(form, "medicationDispenseDatesLabel"));
    EXPECT_TRUE(isShown(form, "medicationDispenseDatesValueLabel"));
    EXPECT_EQ(text(form, "medicationDispenseDatesValueLabel"), "");
}

TEST_F(DetailsForm, answerSent_isTheStatus)
{
    const ElectronicPrescriptionForm form(params(fullPrescription()), nullptr);
    form.sendAnswer(7);
    EXPECT_EQ(answer(), std::pair(QString("status"), QVariant(7)));
}

TEST_F(DetailsForm, prescribedByTradeNameUnsignedWithoutOrganizationOrDates_showsSo)
{
    const ElectronicPrescriptionForm form(params(prescription("Метформин")), nullptr);
    EXPECT_EQ(text(form, "prescribedByInnOrTradeNameValueLabel"), "Торговому наименованию");
    EXPECT_EQ(text(form, "digitalSignatureValueLabel"), "Нет");
    EXPECT_EQ(text(form, "organizationValueLabel"), "");
    EXPECT_EQ(text(form, "prescriptionDateValueLabel"), "");
    EXPECT_EQ(text(form, "expirationDateValueLabel"), "");
}

TEST_F(DetailsForm, noDictionaryEntry_bothPairsAreHidden)
{
    const ElectronicPrescriptionForm form(params(prescription("Метформин")), nullptr);
    for (const char* label : {"medicineDictCodeLabel", "medicineDictCodeValueLabel", "medicineDictNameLabel",
                              "medicineDictNameValueLabel"}) {
        EXPECT_FALSE(isShown(form, label)) << label;
    }
}

TEST_F(DetailsForm, onlyTheDictionaryCodeKnown_onlyItsPairIsShown)
{
    const auto coded = prescription("Метформин");
    coded->setDictCode("dict-3");
    const ElectronicPrescriptionForm form(params(coded), nullptr);
    EXPECT_TRUE(isShown(form, "medicineDictCodeLabel"));
    EXPECT_TRUE(isShown(form, "medicineDictCodeValueLabel"));
    EXPECT_FALSE(isShown(form, "medicineDictNameLabel"));
    EXPECT_FALSE(isShown(form, "medicineDictNameValueLabel"));
}

TEST_F(DetailsForm, onlyTheDictionaryNameKnown_onlyItsPairIsShown)
{
    const auto named = prescription("Метформин");
    named->setDictName("Метформин, таблетки 500 мг");
    const ElectronicPrescriptionForm form(params(named), nullptr);
    EXPECT_FALSE(isShown(form, "medicineDictCodeLabel"));
    EXPECT_FALSE(isShown(form, "medicineDictCodeValueLabel"));
    EXPECT_TRUE(isShown(form, "medicineDictNameLabel"));
    EXPECT_TRUE(isShown(form, "medicineDictNameValueLabel"));
}

TEST_F(DetailsForm, neverDispensed_dispenseDatesAreHidden)
{
    const ElectronicPrescriptionForm form(params(prescription("Метформин")), nullptr);
    EXPECT_FALSE(isShown(form, "medicationDispenseDatesLabel"));
    EXPECT_FALSE(isShown(form, "medicationDispenseDatesValueLabel"));
}

TEST_F(DetailsForm, threeDispenses_dateLabelsAreShownWithThreeLines)
{
    const ElectronicPrescriptionForm form(params(fullPrescription()), nullptr);
    EXPECT_TRUE(isShown(form, "medicationDispenseDatesLabel"));
    EXPECT_EQ(text(form, "medicationDispenseDatesValueLabel").count('\n'), 2);
}

class Expiry : public DetailsForm
{
protected:
    const ClockDouble clock{QDateTime(QDate(2024, 5, 1), QTime(12, 0))};

    static QSharedPointer<ElectronicPrescription> lastsUntil(const QDate& lastDay)
    {
        const auto lasting = prescription("Метформин");
        lasting->setExpirationDate(lastDay);
        return lasting;
    }
};

TEST_F(Expiry, lastDayPast_isShownBesideTheDate)
{
    const ElectronicPrescriptionForm form(params(lastsUntil(QDate(2024, 4, 30))), nullptr);
    EXPECT_TRUE(isShown(form, "expiredLabel"));
    EXPECT_EQ(text(form, "expiredLabel"), "Срок действия истёк");
    EXPECT_EQ(widget<QLabel>(form, "expiredLabel")->property("textRole"), "error");
    EXPECT_EQ(text(form, "expirationDateValueLabel"), "2024-04-30");
    EXPECT_TRUE(widget<QPushButton>(form, "chooseButton")->isEnabled());
}

TEST_F(Expiry, lastDayTodayLaterOrUnknown_nothingIsShown)
{
    for (const QDate& lastDay : {QDate(2024, 5, 1), QDate(2024, 5, 2), QDate()}) {
        EXPECT_FALSE(isShown(ElectronicPrescriptionForm(params(lastsUntil(lastDay)), nullptr), "expiredLabel"))
            << lastDay.toString().toStdString();
    }
}

TEST_F(Expiry, layoutWithoutTheNote_isNoFault)
{
    loseWidget(layout, "expiredLabel");
    const ElectronicPrescriptionForm form(params(lastsUntil(QDate(2024, 4, 30))), nullptr);
    EXPECT_EQ(text(form, "expirationDateValueLabel"), "2024-04-30");
}

TEST_F(DetailsForm, noDiscount_isShownWithoutHighlight)
{
    const ElectronicPrescriptionForm form(params(payingShare(1.0)), nullptr);
    EXPECT_EQ(text(form, "discountValueLabel"), "0.00%");
    EXPECT_EQ(widget<QLabel>(form, "discountValueLabel")->styleSheet(), "");
}

TEST_F(DetailsForm, discountTooSmallToShow_hasNoHighlight)
{
    // The record's own rounding yields no discount between 0 and 0.01, so a double yields it.
    class SmallDiscount : public ElectronicPrescription
    {
    public:
        double getDiscountPercent() const override { return percent; }
        double percent = 0;
    };
    const auto discounted = QSharedPointer<SmallDiscount>::create();
    for (const auto& [percent, shown, isHighlighted] :
         {std::tuple{0.004, "0.00%", false}, std::tuple{0.005, "0.01%", false}, std::tuple{0.006, "0.01%", true}}) {
        discounted->percent = percent;
        const ElectronicPrescriptionForm form(params(discounted), nullptr);
        EXPECT_EQ(text(form, "discountValueLabel"), shown) << percent;
        EXPECT_EQ(widget<QLabel>(form, "discountValueLabel")->styleSheet(), isHighlighted ? highlight : QString())
            << percent;
    }
}

TEST_F(DetailsForm, highlightConfigured_isUsed)
{
    config.setForThisRun("GUI.ElectronicPrescriptionForm:discountLabelStyleSheet", "QLabel { color: #123456 }");
    const ElectronicPrescriptionForm form(params(payingShare(0.5)), nullptr);
    EXPECT_EQ(widget<QLabel>(form, "discountValueLabel")->styleSheet(), "QLabel { color: #123456 }");
}

TEST_F(DetailsForm, negativeDiscount_isShownWithoutHighlight)
{
    const ElectronicPrescriptionForm form(params(payingShare(1.2)), nullptr);
    EXPECT_EQ(text(form, "discountValueLabel"), "-20.00%");
    EXPECT_EQ(widget<QLabel>(form, "discountValueLabel")->styleSheet(), "");
}

TEST_F(DetailsForm, markupAndPlaceholdersInTexts_areShownAsTheyAre)
{
    const auto odd = prescription("<b>x</b> %1");
    odd->setInstructions("<img src='file:///nowhere.png'>");
    const ElectronicPrescriptionForm form(params(odd), nullptr);
    EXPECT_EQ(text(form, "innNameValueLabel"), "<b>x</b> %1");
    EXPECT_EQ(text(form, "instructionsValueLabel"), "<img src='file:///nowhere.png'>");
    for (const auto* label : form.rootWidget()->findChildren<QLabel*>()) {
        EXPECT_EQ(label->textFormat(), Qt::PlainText) << label->objectName().toStdString();
        EXPECT_FALSE(label->toolTip().contains("<b>") || label->toolTip().contains("<img"));
    }
}

TEST_F(DetailsForm, tallerThanTheScreen_keysScrollWhileTheButtonHasTheFocus)
{
    const auto tall = fullPrescription();
    tall->setInstructions(QString("очень длинная инструкция ").repeated(400));
    ElectronicPrescriptionForm form(params(tall), nullptr);
    form.rootWidget()->resize(1024, 600);
    open(form);
    ASSERT_TRUE(QTest::qWaitForWindowActive(form.rootWidget()));
    auto* button = widget<QPushButton>(form, "chooseButton");
    auto* bar = widget<QScrollArea>(form, "detailsScrollArea")->verticalScrollBar();
    ASSERT_GT(bar->maximum(), bar->pageStep());

    QTest::keyClick(button, Qt::Key_PageDown);
    EXPECT_EQ(bar->value(), bar->pageStep());
    QTest::keyClick(button, Qt::Key_PageUp);
    EXPECT_EQ(bar->value(), 0);
    QTest::keyClick(button, Qt::Key_Down);
    EXPECT_EQ(bar->value(), bar->singleStep());
    QTest::keyClick(button, Qt::Key_Up);
    EXPECT_EQ(bar->value(), 0);
    QTest::keyClick(button, Qt::Key_End);
    EXPECT_EQ(bar->value(), bar->maximum());
    QTest::keyClick(button, Qt::Key_Home);
    EXPECT_EQ(bar->value(), 0);
    EXPECT_EQ(form.rootWidget()->focusWidget(), button);
    EXPECT_TRUE(queue.queued.isEmpty());
}
