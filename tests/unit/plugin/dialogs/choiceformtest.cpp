// SPDX-License-Identifier: MIT
#include "electronicprescriptionchoiceform.h"

#include "complexfilterproxymodel.h"
#include "dialogeventfilter.h"
#include "dialogforms.h"
#include "electronicprescriptionchoicemodel.h"
#include "graphicaluserinterface.h"
#include "iconsviewnotifier.h"
#include "inactivitylocker.h"
#include "tallokeyboard.h"
#include "tallolineedit.h"
#include "tallotableview.h"

#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

namespace
{

using Prescriptions = QList<QSharedPointer<ElectronicPrescription>>;

const QString layout = "electronicprescriptionchoice.ui";

class ChoiceForm : public DialogForms
{
protected:
    ChoiceForm()
    {
        for (const char* inn : {"Метформин", "Инсулин гларгин", "Амлодипин", "Инсулин аспарт", "Бисопролол"}) {
            prescriptions.append(prescription(inn));
        }
    }

    ElectronicPrescriptionChoiceParams params(bool useLast = false) const
    {
        return {prescriptions, "active", patient(), useLast};
    }

    static TalloTableView* table(const BasicForm& form)
    {
        return widget<TalloTableView>(form, "electronicPrescriptionsTableView");
    }
    static TalloLineEdit* filter(const BasicForm& form) { return widget<TalloLineEdit>(form, "medicineNameLineEdit"); }

    static QStringList shownNames(const BasicForm& form)
    {
        QStringList names;
        const auto* model = table(form)->model();
        for (int row = 0; row < model->rowCount(); ++row) {
            names.append(model->index(row, 0).data().toString());
        }
        return names;
    }

    /// Opens the list, chooses a row of the filtered table, and drops the form.
    void chooseAndDrop(const QString& filterText, int row)
    {
        ElectronicPrescriptionChoiceForm form(params(), nullptr);
        open(form);
        filter(form)->setText(filterText);
        table(form)->selectRow(row);
        form.onOk();
        queue.queued.clear();
    }

    Prescriptions prescriptions;
};

/// The watched widgets that leave their parents while it lives, in order.
class RemovedWidgets : public QObject
{
public:
    explicit RemovedWidgets(const QStringList& watched)
        : m_watched(watched)
    {
        qApp->installEventFilter(this);
    }

    QStringList names;

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::ChildRemoved) {
            if (const QString name = static_cast<QChildEvent*>(event)->child()->objectName();
                m_watched.contains(name)) {
                names << name;
            }
        }
        return false;
    }

private:
    const QStringList m_watched;
};

class ChoiceFormTexts : public ChoiceForm, public ::testing::WithParamInterface<std::pair<const char*, const char*>>
{
};

class ChoiceFormRequiredWidgets : public ChoiceForm,
                                  public ::testing::WithParamInterface<std::pair<const char*, const char*>>
{
};

const auto widgetOfParameter = [](const auto& info) { return std::string(info.param.first); };

} // namespace

TEST_P(ChoiceFormTexts, built_widgetHasItsText)
{
    const auto& [name, expected] = GetParam();
    const ElectronicPrescriptionChoiceForm form(params(), nullptr);
    EXPECT_EQ(text(form, name), expected);
}

INSTANTIATE_TEST_SUITE_P(, ChoiceFormTexts,
                         ::testing::Values(std::pair{"cancelButton", "Назад"}, std::pair{"okButton", "Выбрать"},
                                           std::pair{"titleLabel", "Выбор рецепта"},
                                           std::pair{"tradeNameLabel", "Торговое наименование:"},
                                           std::pair{"patientNameLabel", "ФИО пациента:"},
                                           std::pair{"patientBirthdayLabel", "Дата рождения пациента:"},
                                           std::pair{"practitionerNameLabel", "ФИО врача:"},
                                           std::pair{"organizationLabel", "Организация:"}),
                         widgetOfParameter);

TEST_P(ChoiceFormRequiredWidgets, missing_constructorThrowsAndNamesIt)
{
    expectNeeds(layout, GetParam().first, [this] { ElectronicPrescriptionChoiceForm(params(), nullptr); });
}

TEST_P(ChoiceFormRequiredWidgets, ofAnotherClass_constructorThrowsAndNamesBothClasses)
{
    const auto& [name, className] = GetParam();
    expectNeedsClass(layout, name, className, [this] { ElectronicPrescriptionChoiceForm(params(), nullptr); });
}

TEST_P(ChoiceFormRequiredWidgets, missingAndFaultsCollected_formWorksWithoutIt)
{
    loseWidget(layout, GetParam().first);
    collectLayoutFaults();
    ElectronicPrescriptionChoiceForm form(params(), nullptr);
    EXPECT_EQ(layoutFaults, QStringList(QString("Не найден виджет ") + GetParam().first));
    open(form);
    form.filterTextChanged("инсулин");
    form.onOk();
    EXPECT_EQ(answer().first, "data");
}

INSTANTIATE_TEST_SUITE_P(
    , ChoiceFormRequiredWidgets,
    ::testing::Values(std::pair{"cancelButton", "QPushButton"}, std::pair{"okButton", "QPushButton"},
                      std::pair{"titleLabel", "QLabel"}, std::pair{"tradeNameLabel", "QLabel"},
                      std::pair{"patientNameLabel", "QLabel"}, std::pair{"patientBirthdayLabel", "QLabel"},
                      std::pair{"practitionerNameLabel", "QLabel"}, std::pair{"organizationLabel", "QLabel"},
                      std::pair{"electronicPrescriptionsTableView", "TalloTableView"},
                      std::pair{"medicineNameLineEdit", "TalloLineEdit"}),
    widgetOfParameter);

class ChoiceFormValueLabels : public ChoiceForm, public ::testing::WithParamInterface<const char*>
{
protected:
    ChoiceFormValueLabels()
    {
        for (const auto& each : prescriptions) {
            each->setPayingElectronicPrescriptionOrganization(
                QSharedPointer<PayingElectronicPrescriptionOrganization>::create("77", "Фонд здоровья"));
        }
    }
};

TEST_P(ChoiceFormValueLabels, missing_formIsBuiltAndThrowsWhenARowIsShown)
{
    loseWidget(layout, GetParam());
    ElectronicPrescriptionChoiceForm form(params(), nullptr);
    EXPECT_THROW(open(form), BasicException);
}

TEST_P(ChoiceFormValueLabels, missingAndFaultsCollected_isReportedAtEachRow)
{
    loseWidget(layout, GetParam());
    collectLayoutFaults();
    ElectronicPrescriptionChoiceForm form(params(), nullptr);
    EXPECT_TRUE(layoutFaults.isEmpty());
    open(form);
    table(form)->selectRow(1);
    const QString fault = QString("Не найден виджет ") + GetParam();
    EXPECT_EQ(layoutFaults, QStringList({fault, fault}));
}

TEST_P(ChoiceFormValueLabels, ofAnotherClassAndThreeRowsShown_isReportedOnce)
{
    makeSlider(layout, GetParam());
    collectLayoutFaults();
    ElectronicPrescriptionChoiceForm form(params(), nullptr);
    open(form);
    table(form)->selectRow(1);
    table(form)->selectRow(2);
    EXPECT_EQ(
        layoutFaults,
        QStringList(
            QString("Ошибка загрузки виджета '%1'. Не удалось 'QSlider' привести к типу 'QLabel'").arg(GetParam())));
}

INSTANTIATE_TEST_SUITE_P(, ChoiceFormValueLabels,
                         ::testing::Values("tradeNameValueLabel", "patientNameValueLabel", "patientBirthdayValueLabel",
                                           "practitionerNameValueLabel", "organizationValueLabel"),
                         [](const auto& instance) { return std::string(instance.param); });

TEST_F(ChoiceForm, layoutWithoutOrganizationLabel_isAFaultOnlyWhenAnOrganizationIsShown)
{
    prescriptions.at(2)->setPayingElectronicPrescriptionOrganization(
        QSharedPointer<PayingElectronicPrescriptionOrganization>::create("77", "Фонд здоровья"));
    loseWidget(layout, "organizationValueLabel");
    ElectronicPrescriptionChoiceForm form(params(), nullptr);
    open(form);
    EXPECT_NO_THROW(table(form)->selectRow(1));
    EXPECT_THROW(table(form)->selectRow(2), BasicException);
}

TEST_F(ChoiceForm, layoutFaultInTheFirstRow_endsTheDialogWithTheFault)
{
    prescriptions.at(0)->setPayingElectronicPrescriptionOrganization(
        QSharedPointer<PayingElectronicPrescriptionOrganization>::create("77", "Фонд здоровья"));
    loseWidget(layout, "organizationValueLabel");
    const auto form = QSharedPointer<ElectronicPrescriptionChoiceForm>::create(params(), nullptr);
    GraphicalUserInterface gui;
    EXPECT_THROW(gui.run(form), BasicException);
    EXPECT_EQ(gui.topForm(), nullptr);
}

TEST_F(ChoiceForm, layoutAsksForRichText_registryTextsArePlain)
{
    askForRichText(layout);
    prescriptions.at(0)->setTradeName("<b>Сиофор</b>");
    ElectronicPrescriptionChoiceForm form(params(), nullptr);
    ASSERT_EQ(widget<QLabel>(form, "tradeNameValueLabel")->textFormat(), Qt::RichText);
    open(form);
    filter(form)->setText("<b>");
    EXPECT_EQ(text(form, "tradeNameValueLabel"), "<b>Сиофор</b>");
    expectPlainTexts(form);
}

TEST_F(ChoiceForm, built_filterFieldShowsWhatItSearches)
{
    const ElectronicPrescriptionChoiceForm form(params(), nullptr);
    EXPECT_EQ(filter(form)->placeholderText(), "Поиск по МНН");
}

TEST_F(ChoiceForm, settingsAppliedAgain_tableHasTheSameColumns)
{
    const ElectronicPrescriptionChoiceForm form(params(), nullptr);
    const QStringList columns = table(form)->columns();
    table(form)->setColumns({});
    form.setSettings();
    EXPECT_EQ(table(form)->columns(), columns);
}

TEST_F(ChoiceForm, answerSent_isTheData)
{
    const ElectronicPrescriptionChoiceForm form(params(), nullptr);
    form.sendAnswer(2);
    EXPECT_EQ(answer(), std::pair(QString("data"), QVariant(2)));
}

TEST_F(ChoiceForm, layoutFileMissing_constructorThrows)
{
    config.setForThisRun("GUI:layouts", "");
    EXPECT_THROW(ElectronicPrescriptionChoiceForm(params(), nullptr), BasicException);
}

TEST_F(ChoiceForm, built_contextIsTheDialogs)
{
    EXPECT_EQ(ElectronicPrescriptionChoiceForm(params(), nullptr).contextCode(), 15);
}

TEST_F(ChoiceForm, noTouchMode_touchWidgetsAreDeletedAndTheButtonsStay)
{
    const ElectronicPrescriptionChoiceForm form(params(), nullptr);
    for (const char* name : {"talloKeyboard", "scrollButtonsNavigationBar", "scrollButtonsNavigationBarSeparator",
                             "horizontalLine", "navigationBar"}) {
        EXPECT_EQ(form.rootWidget()->findChild<QWidget*>(name), nullptr) << name;
    }
    EXPECT_NE(widget<QPushButton>(form, "okButton"), nullptr);
    EXPECT_NE(widget<QPushButton>(form, "cancelButton"), nullptr);
}

TEST_F(ChoiceForm, noTouchMode_touchWidgetsAreDeletedInThisOrder)
{
    const QStringList touchWidgets{"talloKeyboard", "scrollButtonsNavigationBar", "scrollButtonsNavigationBarSeparator",
                                   "horizontalLine", "navigationBar"};
    const RemovedWidgets removed(touchWidgets);
    const ElectronicPrescriptionChoiceForm form(params(), nullptr);
    EXPECT_EQ(removed.names, touchWidgets);
}

TEST_F(ChoiceForm, touchMode_touchWidgetsStay)
{
    setTouchMode(true);
    const ElectronicPrescriptionChoiceForm form(params(), nullptr);
    for (const char* name : {"talloKeyboard", "scrollButtonsNavigationBar", "scrollButtonsNavigationBarSeparator",
                             "horizontalLine", "navigationBar"}) {
        EXPECT_NE(form.rootWidget()->findChild<QWidget*>(name), nullptr) << name;
    }
}

TEST_F(ChoiceForm, touchModeNothingConfigured_keyboardHasRussianAndEnglish)
{
    setTouchMode(true);
    const ElectronicPrescriptionChoiceForm form(params(), nullptr);
    EXPECT_EQ(widget<TalloKeyboard>(form, "talloKeyboard")->keyboardLayouts(), (QStringList{"ru", "en"}));
}

TEST_F(ChoiceForm, touchModeLayoutsConfigured_keyboardHasThose)
{
    setTouchMode(true);
    config.setForThisRun("Language:keyboardLayouts", "en,digits");
    const ElectronicPrescriptionChoiceForm form(params(), nullptr);
    EXPECT_EQ(widget<TalloKeyboard>(form, "talloKeyboard")->keyboardLayouts(), (QStringList{"en", "digits"}));
}

TEST_F(ChoiceForm, keyboardSwitchesLayout_statusLineIsNotified)
{
    setTouchMode(true);
    const ElectronicPrescriptionChoiceForm form(params(), nullptr);
    const QSignalSpy icons(Singleton<IconsViewNotifier>::get(), &IconsViewNotifier::iconsChanged);
    QEvent event(QEvent::KeyboardLayoutChange);
    emit widget<TalloKeyboard>(form, "talloKeyboard")->layoutChanged(&event);
    EXPECT_EQ(icons.count(), 1);
}

TEST_F(ChoiceForm, keyOfTheKeyboardPressed_inactivityTimeStartsAgain)
{
    setTouchMode(true);
    const ElectronicPrescriptionChoiceForm form(params(), nullptr);
    EXPECT_TRUE(QObject::disconnect(widget<TalloKeyboard>(form, "talloKeyboard"), &TalloKeyboard::keyPressed,
                                    Singleton<InactivityLocker>::get(), &InactivityLocker::resetTimer));
}

TEST_F(ChoiceForm, touchModeLayoutWithoutKeyboard_isNoFault)
{
    setTouchMode(true);
    loseWidget(layout, "talloKeyboard");
    EXPECT_NO_THROW(ElectronicPrescriptionChoiceForm(params(), nullptr));
}

TEST_F(ChoiceForm, opened_everyPrescriptionIsShownFirstRowCurrentAndFocusInTheFilter)
{
    ElectronicPrescriptionChoiceForm form(params(), nullptr);
    open(form);
    EXPECT_EQ(shownNames(form),
              (QStringList{"Метформин", "Инсулин гларгин", "Амлодипин", "Инсулин аспарт", "Бисопролол"}));
    EXPECT_EQ(table(form)->currentIndex().row(), 0);
    EXPECT_EQ(form.rootWidget()->focusWidget(), filter(form));
    EXPECT_EQ(filter(form)->text(), "");
}

TEST_F(ChoiceForm, built_tableHasTheColumnSpecificationAsSplitAtTheCommas)
{
    const ElectronicPrescriptionChoiceForm form(params(), nullptr);
    EXPECT_EQ(table(form)->columns(),
              (QStringList{"medicineName;МНН;-1;true;128", " code;;-2;true;128", " prescriptionDate;;-2;true;132",
                           "doseQuantity;;-2;true;128", " dispensedDoseQuantity;;-2;true;128"}));
}

TEST_F(ChoiceForm, built_tableShowsTheModelThroughTheFilter)
{
    const ElectronicPrescriptionChoiceForm form(params(), nullptr);
    const auto* proxy = qobject_cast<ComplexFilterProxyModel*>(table(form)->model());
    ASSERT_NE(proxy, nullptr);
    EXPECT_EQ(proxy->parent(), &form);
    const auto* model = qobject_cast<ElectronicPrescriptionChoiceModel*>(proxy->sourceModel());
    ASSERT_NE(model, nullptr);
    EXPECT_EQ(model->parent(), &form);
    EXPECT_EQ(model->getElectronicPrescription(3), prescriptions.at(3));
}

TEST_F(ChoiceForm, textTyped_onlyNamesThatContainItAreShownWhateverTheCase)
{
    ElectronicPrescriptionChoiceForm form(params(), nullptr);
    open(form);
    filter(form)->setText("ИНСУЛ");
    EXPECT_EQ(shownNames(form), (QStringList{"Инсулин гларгин", "Инсулин аспарт"}));
    EXPECT_EQ(table(form)->currentIndex().row(), 0);
    filter(form)->setText("аспарт");
    EXPECT_EQ(shownNames(form), QStringList("Инсулин аспарт"));
    filter(form)->setText("");
    EXPECT_EQ(shownNames(form).size(), 5);
    EXPECT_EQ(table(form)->currentIndex().row(), 0);
}

TEST_F(ChoiceForm, codeTyped_otherColumnsAreNotSearched)
{
    for (const auto& each : prescriptions) {
        each->setInnCode("2100");
    }
    ElectronicPrescriptionChoiceForm form(params(), nullptr);
    open(form);
    filter(form)->setText("2100");
    EXPECT_TRUE(shownNames(form).isEmpty());
}

TEST_F(ChoiceForm, rowChosenInAFilteredView_answersTheRowOfTheWholeList)
{
    ElectronicPrescriptionChoiceForm form(params(), nullptr);
    open(form);
    filter(form)->setText("инсулин");
    table(form)->selectRow(1);
    form.onOk();
    EXPECT_EQ(answer(), std::pair(QString("data"), QVariant(3)));
}

TEST_F(ChoiceForm, emptyList_tableIsEmptyAndOkAnswersMinusOne)
{
    ElectronicPrescriptionChoiceForm form(ElectronicPrescriptionChoiceParams(), nullptr);
    open(form);
    EXPECT_TRUE(shownNames(form).isEmpty());
    form.onOk();
    EXPECT_EQ(answer(), std::pair(QString("data"), QVariant(-1)));
}

TEST_F(ChoiceForm, nothingPassesTheFilter_okAnswersMinusOneAndForgetsLikeBack)
{
    {
        ElectronicPrescriptionChoiceForm form(params(), nullptr);
        open(form);
        filter(form)->setText("нет такого");
        form.onOk();
        EXPECT_EQ(answer(), std::pair(QString("data"), QVariant(-1)));
    }
    ElectronicPrescriptionChoiceForm again(params(true), nullptr);
    open(again);
    EXPECT_EQ(filter(again)->text(), "");
    EXPECT_EQ(table(again)->currentIndex().row(), 0);
}

TEST_F(ChoiceForm, nothingPassesTheFilter_hintIsShownAndTheButtonLooksIdle)
{
    ElectronicPrescriptionChoiceForm form(params(), nullptr);
    open(form);
    const auto* hint = widget<QLabel>(form, "noMatchLabel");
    const auto* okButton = widget<QPushButton>(form, "okButton");
    EXPECT_FALSE(hint->isVisible());
    filter(form)->setText("нет такого");
    EXPECT_TRUE(hint->isVisible());
    EXPECT_EQ(hint->text(), "Нет рецептов, где МНН содержит «нет такого». Измените поиск.");
    EXPECT_TRUE(okButton->property("idle").toBool());
    EXPECT_TRUE(okButton->isEnabled()) << "it answers all the same";
    filter(form)->setText("инсулин");
    EXPECT_FALSE(hint->isVisible());
    EXPECT_FALSE(okButton->property("idle").toBool());
}

TEST_F(ChoiceForm, layoutWithoutTheHint_filtersAllTheSame)
{
    loseWidget(layout, "noMatchLabel");
    ElectronicPrescriptionChoiceForm form(params(), nullptr);
    open(form);
    filter(form)->setText("нет такого");
    EXPECT_TRUE(shownNames(form).isEmpty());
}

TEST_F(ChoiceForm, okButtonClicked_answersTheCurrentRow)
{
    ElectronicPrescriptionChoiceForm form(params(), nullptr);
    open(form);
    table(form)->selectRow(4);
    widget<QPushButton>(form, "okButton")->click();
    EXPECT_EQ(answer(), std::pair(QString("data"), QVariant(4)));
}

TEST_F(ChoiceForm, cancelButtonClicked_answersMinusOne)
{
    ElectronicPrescriptionChoiceForm form(params(), nullptr);
    open(form);
    widget<QPushButton>(form, "cancelButton")->click();
    EXPECT_EQ(answer(), std::pair(QString("data"), QVariant(-1)));
}

TEST_F(ChoiceForm, eventFilterEmitsOkOrCancel_formAnswers)
{
    ElectronicPrescriptionChoiceForm form(params(), nullptr);
    open(form);
    auto* eventFilter = form.findChild<DialogEventFilter*>();
    ASSERT_NE(eventFilter, nullptr);
    emit eventFilter->ok();
    EXPECT_EQ(answer(), std::pair(QString("data"), QVariant(0)));
    queue.queued.clear();
    emit eventFilter->cancel();
    EXPECT_EQ(answer(), std::pair(QString("data"), QVariant(-1)));
}

TEST_F(ChoiceForm, keysInTheFilterField_moveTheTableAndReturnChooses)
{
    ElectronicPrescriptionChoiceForm form(params(), nullptr);
    open(form);
    QTest::keyClick(filter(form), Qt::Key_Down);
    QTest::keyClick(filter(form), Qt::Key_Down);
    QTest::keyClick(filter(form), Qt::Key_Up);
    EXPECT_EQ(table(form)->currentIndex().row(), 1);
    QTest::keyClick(filter(form), Qt::Key_Return);
    EXPECT_EQ(answer(), std::pair(QString("data"), QVariant(1)));
}

TEST_F(ChoiceForm, escapeInTheFilterField_answersMinusOne)
{
    ElectronicPrescriptionChoiceForm form(params(), nullptr);
    open(form);
    QTest::keyClick(filter(form), Qt::Key_Escape);
    EXPECT_EQ(answer(), std::pair(QString("data"), QVariant(-1)));
}

TEST_F(ChoiceForm, windowClosed_answersMinusOneAndStaysVisible)
{
    ElectronicPrescriptionChoiceForm form(params(), nullptr);
    open(form);
    form.rootWidget()->close();
    EXPECT_EQ(answer(), std::pair(QString("data"), QVariant(-1)));
    EXPECT_TRUE(form.rootWidget()->isVisible());
}

TEST_F(ChoiceForm, rowBecomesCurrent_detailsBesideTheTableAreItsOwn)
{
    prescriptions.at(1)->setTradeName("Лантус");
    prescriptions.at(1)->setPractitionerName("Осокин Лев Андреевич");
    prescriptions.at(1)->setPayingElectronicPrescriptionOrganization(
        QSharedPointer<PayingElectronicPrescriptionOrganization>::create("77", "Фонд здоровья"));
    ElectronicPrescriptionChoiceForm form(params(), nullptr);
    open(form);
    table(form)->selectRow(1);
    EXPECT_EQ(text(form, "tradeNameValueLabel"), "Лантус");
    EXPECT_EQ(text(form, "patientNameValueLabel"), "Рябинина Ольга Петровна");
    EXPECT_EQ(text(form, "patientBirthdayValueLabel"), "1961-05-04");
    EXPECT_EQ(text(form, "practitionerNameValueLabel"), "Осокин Лев Андреевич");
    EXPECT_EQ(text(form, "organizationValueLabel"), "Фонд здоровья");
}

TEST_F(ChoiceForm, filterLeavesAnotherRowCurrent_detailsAreThatRows)
{
    prescriptions.at(0)->setTradeName("Сиофор");
    prescriptions.at(3)->setTradeName("НовоРапид");
    ElectronicPrescriptionChoiceForm form(params(), nullptr);
    open(form);
    EXPECT_EQ(text(form, "tradeNameValueLabel"), "Сиофор");
    filter(form)->setText("аспарт");
    EXPECT_EQ(text(form, "tradeNameValueLabel"), "НовоРапид");
}

TEST_F(ChoiceForm, rowWithoutOrganization_organizationLabelKeepsItsText)
{
    prescriptions.at(0)->setPayingElectronicPrescriptionOrganization(
        QSharedPointer<PayingElectronicPrescriptionOrganization>::create("77", "Фонд здоровья"));
    ElectronicPrescriptionChoiceForm form(params(), nullptr);
    open(form);
    table(form)->selectRow(1);
    EXPECT_EQ(text(form, "organizationValueLabel"), "Фонд здоровья");
}

TEST_F(ChoiceForm, invalidIndexOrNullPrescription_labelsStayAsTheyWere)
{
    prescriptions.at(0)->setTradeName("Сиофор");
    prescriptions[1].reset();
    ElectronicPrescriptionChoiceForm form(params(), nullptr);
    open(form);
    form.onCurrentChanged(QModelIndex(), QModelIndex());
    EXPECT_EQ(text(form, "tradeNameValueLabel"), "Сиофор");
    table(form)->selectRow(1);
    EXPECT_EQ(text(form, "tradeNameValueLabel"), "Сиофор");
    form.onCurrentChanged(ElectronicPrescriptionChoiceModel({}, {}, nullptr).index(40, 0), QModelIndex());
    EXPECT_EQ(text(form, "tradeNameValueLabel"), "Сиофор");
}

TEST_F(ChoiceForm, recordWithoutPatient_patientLabelsKeepTheLayoutsTexts)
{
    changeLayout(layout, "(name=\"patient\\w+ValueLabel\">)",
                 "\\1<property name=\"text\"><string>неизвестно</string></property>");
    ElectronicPrescriptionChoiceForm form({prescriptions, "active", {}, false}, nullptr);
    open(form);
    EXPECT_EQ(text(form, "patientNameValueLabel"), "неизвестно");
    EXPECT_EQ(text(form, "patientBirthdayValueLabel"), "неизвестно");
}

TEST_F(ChoiceForm, reopenedAfterARowWasChosen_thatRowIsCurrent)
{
    chooseAndDrop("", 3);
    ElectronicPrescriptionChoiceForm form(params(true), nullptr);
    open(form);
    EXPECT_EQ(table(form)->currentIndex().row(), 3);
    EXPECT_EQ(filter(form)->text(), "");
}

TEST_F(ChoiceForm, reopenedAfterRowAndFilter_filterIsAppliedAndItsFirstRowCurrent)
{
    chooseAndDrop("инсулин", 1);
    ElectronicPrescriptionChoiceForm form(params(true), nullptr);
    open(form);
    EXPECT_EQ(filter(form)->text(), "инсулин");
    EXPECT_EQ(shownNames(form), (QStringList{"Инсулин гларгин", "Инсулин аспарт"}));
    EXPECT_EQ(table(form)->currentIndex().row(), 0);
}

TEST_F(ChoiceForm, reopenedWithoutAFilterField_savedFilterIsAppliedAndItsFirstRowCurrent)
{
    chooseAndDrop("инсулин", 1);
    loseWidget(layout, "medicineNameLineEdit");
    collectLayoutFaults();
    ElectronicPrescriptionChoiceForm form(params(true), nullptr);
    open(form);
    EXPECT_EQ(shownNames(form), (QStringList{"Инсулин гларгин", "Инсулин аспарт"}));
    EXPECT_EQ(table(form)->currentIndex().row(), 0);
    form.onOk();
    EXPECT_EQ(answer(), std::pair(QString("data"), QVariant(1)));
}

TEST_F(ChoiceForm, reopenedWithoutUseLast_filterAndRowAreForgotten)
{
    chooseAndDrop("инсулин", 1);
    {
        ElectronicPrescriptionChoiceForm form(params(false), nullptr);
        open(form);
        EXPECT_EQ(filter(form)->text(), "");
        EXPECT_EQ(table(form)->currentIndex().row(), 0);
    }
    ElectronicPrescriptionChoiceForm form(params(true), nullptr);
    open(form);
    EXPECT_EQ(filter(form)->text(), "") << "forgotten for good, not only for that opening";
}

TEST_F(ChoiceForm, reopenedAfterBack_filterIsEmptyAndRowZeroCurrent)
{
    {
        ElectronicPrescriptionChoiceForm form(params(), nullptr);
        open(form);
        filter(form)->setText("инсулин");
        table(form)->selectRow(1);
        form.onCancel();
    }
    ElectronicPrescriptionChoiceForm form(params(true), nullptr);
    open(form);
    EXPECT_EQ(filter(form)->text(), "");
    EXPECT_EQ(table(form)->currentIndex().row(), 0);
    EXPECT_EQ(shownNames(form).size(), 5);
}

TEST_F(ChoiceForm, reopenedWithFewerPrescriptionsThanTheRow_nothingIsCurrentAndNothingBreaks)
{
    chooseAndDrop("", 4);
    prescriptions.resize(2);
    ElectronicPrescriptionChoiceForm form(params(true), nullptr);
    open(form);
    EXPECT_FALSE(table(form)->currentIndex().isValid());
    form.onOk();
    EXPECT_EQ(answer(), std::pair(QString("data"), QVariant(-1)));
}
