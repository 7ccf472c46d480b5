// SPDX-License-Identifier: MIT
#include "electronicprescriptionform.h"

#include "config.h"
#include "currenttime.h"
#include "dialoganswer.h"
#include "dialogeventfilter.h"
#include "prescriptiondate.h"
#include "widgettext.h"

#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QShortcut>

#include <algorithm>
#include <iterator>
#include <utility>

namespace
{

/// A discount above this, in percent, is shown as more than 0.00%.
constexpr double unseenDiscountPercent = 0.005;

QString doses(double quantity)
{
    return QString::number(quantity, 'f', 2);
}

/// One date a line.
QString lines(const QList<QDate>& dates)
{
    QStringList texts;
    std::transform(dates.cbegin(), dates.cend(), std::back_inserter(texts), formatted);
    return texts.join('\n');
}

} // namespace

ElectronicPrescriptionForm::ElectronicPrescriptionForm(const ElectronicPrescriptionParams& params, QObject* parent)
    : BasicForm(parent)
{
    setContextCode(EContext::DialogOnTop);
    loadUI("electronicprescription.ui");
    setUpButtons(params.getStatus() == "active");
    setUpCaptions();
    setUpKeys();

    QSharedPointer<ElectronicPrescription> prescription;
    params.getElectronicPrescription(prescription);
    if (!prescription) {
        return;
    }
    QSharedPointer<Patient> patient;
    params.getPatient(patient);
    const Patient nobody{QString(), QDate()};
    fill(*prescription, patient ? *patient : nobody);
}

void ElectronicPrescriptionForm::onChoose()
{
    sendAnswer(0);
}

void ElectronicPrescriptionForm::onCancel()
{
    sendAnswer(-1);
}

void ElectronicPrescriptionForm::setUpButtons(bool isActive)
{
    using Form = ElectronicPrescriptionForm;
    const WidgetButton<Form> buttons[] = {
        {"cancelButton", tr::Tr("electronicPrescriptionFormCancelButton", "Назад"), &Form::onCancel},
        {"chooseButton", tr::Tr("electronicPrescriptionFormChooseButton", "Подобрать"), &Form::onChoose},
    };
    for (const auto& button : buttons) {
        setUp(findWidget<QPushButton>(button.widget), button, this);
    }
    if (auto* chooseButton = findWidget<QPushButton>("chooseButton")) {
        chooseButton->setEnabled(isActive);
    }
}

void ElectronicPrescriptionForm::setUpCaptions()
{
    const WidgetText captions[] = {
        {"titleLabel", tr::Tr("electronicPrescriptionFormTitle", "Электронный рецепт")},
        {"innNameLabel", tr::Tr("electronicPrescriptionFormInnLabel", "МНН:")},
        {"innCodeLabel", tr::Tr("electronicPrescriptionFormInnCodeLabel", "Код для МНН:")},
        {"medicineDictCodeLabel",
         tr::Tr("electronicPrescriptionFormMedicineDictCodeLabel", "Код справочника\nАИС «ЭЛЕКТРОННЫЙ РЕЦЕПТ»:")},
        {"medicineDictNameLabel", tr::Tr("electronicPrescriptionFormMedicineDictNameLabel",
                                         "Наименование справочника\nАИС «ЭЛЕКТРОННЫЙ РЕЦЕПТ»:")},
        {"tradeNameLabel", tr::Tr("electronicPrescriptionFormTradeNameLabel", "Торговое наименование:")},
        {"tradeNameCodeLabel",
         tr::Tr("electronicPrescriptionFormTradeNameCodeLabel", "Код для торгового наименования:")},
        {"prescribedByInnOrTradeNameLabel",
         tr::Tr("electronicPrescriptionFormPrescribedByInnOrTradeNameLabel", "Рецепт выписан по:")},
        {"patientNameLabel", tr::Tr("electronicPrescriptionFormPatientNameLabel", "ФИО пациента:")},
        {"patientBirthdayLabel", tr::Tr("electronicPrescriptionFormPatientBirthdayLabel", "Дата рождения пациента:")},
        {"prescriptionDateLabel", tr::Tr("electronicPrescriptionFormPrescriptionDateLabel", "Дата выписки рецепта:")},
        {"expirationDateLabel", tr::Tr("electronicPrescriptionFormExpirationDateLabel", "Срок действия рецепта:")},
        {"practitionerNameLabel", tr::Tr("electronicPrescriptionFormPractitionerNameLabel", "ФИО врача:")},
        {"digitalSignatureLabel", tr::Tr("electronicPrescriptionFormDigitalSignatureLabel", "Рецепт подписан ЭЦП:")},
        {"discountLabel", tr::Tr("electronicPrescriptionFormDiscountLabel", "Процент льготы:")},
        {"organizationLabel", tr::Tr("electronicPrescriptionFormOrganizationLabel", "Организация:")},
        {"doseQuantityLabel", tr::Tr("electronicPrescriptionFormDoseQuantityLabel", "Количество выписанных доз:")},
        {"dispensedDoseQuantityLabel",
         tr::Tr("electronicPrescriptionFormDispensedDoseQuantityLabel", "Количество отпущенных доз:")},
        {"instructionsLabel", tr::Tr("electronicPrescriptionFormInstructionsLabel", "Инструкция по применению:")},
        {"medicationDispenseDatesLabel",
         tr::Tr("electronicPrescriptionFormMedicationDispenseDatesLabel", "Даты отпуска препарата по рецепту:")},
    };
    for (const auto& [name, text] : captions) {
        setUp(findWidget<QLabel>(name), text);
    }
}

void ElectronicPrescriptionForm::setUpKeys()
{
    auto* dialogEventFilter = new DialogEventFilter(this);
    connect(dialogEventFilter, &DialogEventFilter::cancel, this, &ElectronicPrescriptionForm::onCancel);
    rootWidget()->installEventFilter(dialogEventFilter);

    auto* scrollArea = findWidget<QScrollArea>("detailsScrollArea", false);
    if (!scrollArea) {
        return;
    }
    scrollArea->setAccessibleName(tr::Tr("electronicPrescriptionFormDetails", "Сведения о рецепте").ui());
    // The focus stands on a button, so the keys that scroll are the form's.
    constexpr std::pair<Qt::Key, QAbstractSlider::SliderAction> scrollKeys[] = {
        {Qt::Key_Up, QAbstractSlider::SliderSingleStepSub},   {Qt::Key_Down, QAbstractSlider::SliderSingleStepAdd},
        {Qt::Key_PageUp, QAbstractSlider::SliderPageStepSub}, {Qt::Key_PageDown, QAbstractSlider::SliderPageStepAdd},
        {Qt::Key_Home, QAbstractSlider::SliderToMinimum},     {Qt::Key_End, QAbstractSlider::SliderToMaximum},
    };
    for (const auto& [key, action] : scrollKeys) {
        auto* shortcut = new QShortcut(key, rootWidget());
        shortcut->setContext(Qt::WidgetWithChildrenShortcut);
        connect(shortcut, &QShortcut::activated, scrollArea,
                [scrollArea, scrollAction = action] { scrollArea->verticalScrollBar()->triggerAction(scrollAction); });
    }
}

void ElectronicPrescriptionForm::fill(const ElectronicPrescription& prescription, const Patient& patient)
{
    const auto prescribedBy = prescription.isPrescribedByInn()
                                  ? tr::Tr("electronicPrescriptionFormPrescribedByInn", "МНН")
                                  : tr::Tr("electronicPrescriptionFormPrescribedByTradeName", "Торговому наименованию");
    const auto signature = prescription.hasDigitalSignature()
                               ? tr::Tr("electronicPrescriptionFormDigitalSignatureYes", "Да")
                               : tr::Tr("electronicPrescriptionFormDigitalSignatureNo", "Нет");
    const double discountPercent = prescription.getDiscountPercent();
    const auto dictCode = prescription.getDictCode();
    const auto dictName = prescription.getDictName();
    QList<QDate> dispenseDates;
    prescription.getMedicationDispenseDates(dispenseDates);

    setValue("innNameValueLabel", prescription.getInn());
    setValue("innCodeValueLabel", prescription.getInnCode());
    setValue("tradeNameValueLabel", prescription.getTradeName());
    setValue("tradeNameCodeValueLabel", prescription.getTradeNameCode());
    setValue("prescribedByInnOrTradeNameValueLabel", prescribedBy.ui());
    setValue("patientNameValueLabel", patient.getName());
    setValue("patientBirthdayValueLabel", formatted(patient.getBirthday()));
    setValue("prescriptionDateValueLabel", formatted(prescription.getPrescriptionDate()));
    setValue("expirationDateValueLabel", formatted(prescription.getExpirationDate()));
    setValue("practitionerNameValueLabel", prescription.getPractitionerName());
    setValue("digitalSignatureValueLabel", signature.ui());
    setValue("discountValueLabel", QString::number(discountPercent, 'f', 2) + '%');
    setValue("doseQuantityValueLabel", doses(prescription.getDoseQuantity()));
    setValue("dispensedDoseQuantityValueLabel", doses(prescription.getDispensedDoseQuantity()));
    setValue("instructionsValueLabel", prescription.getInstructions());
    if (const auto organization = prescription.getPayingElectronicPrescriptionOrganization()) {
        setValue("organizationValueLabel", organization->getName());
    }
    setValue("medicineDictCodeValueLabel", dictCode);
    setValue("medicineDictNameValueLabel", dictName);
    setValue("medicationDispenseDatesValueLabel", lines(dispenseDates));

    if (discountPercent > unseenDiscountPercent) {
        highlightDiscount();
    }
    tellIfExpired(prescription.getExpirationDate());

    setRowVisible("medicineDictCodeLabel", "medicineDictCodeValueLabel", !dictCode.isEmpty());
    setRowVisible("medicineDictNameLabel", "medicineDictNameValueLabel", !dictName.isEmpty());
    setRowVisible("medicationDispenseDatesLabel", "medicationDispenseDatesValueLabel", !dispenseDates.isEmpty());
}

void ElectronicPrescriptionForm::setValue(const QString& label, const QString& text)
{
    if (auto* found = findWidget<QLabel>(label)) {
        found->setText(text);
    }
}

void ElectronicPrescriptionForm::highlightDiscount()
{
    if (auto* label = findWidget<QLabel>("discountValueLabel")) {
        label->setStyleSheet(
            Singleton<Config>::get()->getString("GUI.ElectronicPrescriptionForm:discountLabelStyleSheet",
                                                "QLabel { background-color: #ff4646; color: #000000 }"));
    }
}

void ElectronicPrescriptionForm::tellIfExpired(const QDate& lastDay)
{
    auto* label = findWidget<QLabel>("expiredLabel", false);
    if (!label || !lastDay.isValid() || lastDay >= CurrentTime::create()->current().date()) {
        return;
    }
    label->setText(tr::Tr("electronicPrescriptionFormExpired", "Срок действия истёк").ui());
    label->show();
}

void ElectronicPrescriptionForm::setRowVisible(const QString& caption, const QString& value, bool isVisible)
{
    for (const auto& name : {caption, value}) {
        if (auto* label = findWidget<QLabel>(name)) {
            label->setVisible(isVisible);
        }
    }
}

void ElectronicPrescriptionForm::sendAnswer(const QVariant& answer) const
{
    sendDialogAnswer("status", answer);
}
