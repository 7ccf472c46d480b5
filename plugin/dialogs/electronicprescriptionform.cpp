// SPDX-License-Identifier: MIT
#include "electronicprescriptionform.h"

#include "config.h"
#include "currenttime.h"
#include "dialogeventfilter.h"
#include "formanswer.h"
#include "formbutton.h"
#include "prescriptiondate.h"
#include "prescriptionhelp.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

#include <functional>
#include <optional>

using namespace Qt::StringLiterals;

namespace
{

/// Up to this, in percent, a discount is shown as 0.00%.
constexpr double unseenDiscountPercent = 0.005;

struct Shown {
    const ElectronicPrescription& prescription;
    const Patient* patient = nullptr; ///< null: unknown
};

/// The text of a field; nothing: it is unknown.
using Value = std::function<std::optional<QString>(const Shown&)>;

/// What the form does when a field is unknown. The values are filled in this order.
enum class Presence {
    Always,            ///< looks its label up all the same; the label stays as it is laid out
    MaybeUnknown,      ///< then its value label stays as it is laid out
    HiddenWhenUnknown, ///< then its row is hidden
};

/// A field of a prescription: one row of the form.
struct Field {
    QString name; ///< the caption's object name is name + "Label", the value's is name + "ValueLabel"
    tr::Tr caption;
    Value value;
    Presence presence = Presence::Always;

    QString captionLabel() const { return name + "Label"_L1; }
    QString valueLabel() const { return name + "ValueLabel"_L1; }
};

QString asText(const QString& text)
{
    return text;
}

QString asText(const QDate& date)
{
    return formatted(date);
}

/// Two decimals, where the choice list has three.
QString asText(double number)
{
    return QString::number(number, 'f', 2);
}

template <typename T>
Value of(T (ElectronicPrescription::*getter)() const)
{
    return [getter](const Shown& shown) { return asText((shown.prescription.*getter)()); };
}

template <typename T>
Value of(T (Patient::*getter)() const)
{
    return [getter](const Shown& shown) {
        return shown.patient ? std::optional(asText((shown.patient->*getter)())) : std::nullopt;
    };
}

Value ofUnlessEmpty(QString (ElectronicPrescription::*getter)() const)
{
    return [getter](const Shown& shown) {
        const QString text = (shown.prescription.*getter)();
        return text.isEmpty() ? std::nullopt : std::optional(text);
    };
}

QString prescribedBy(const Shown& shown)
{
    return shown.prescription.isPrescribedByInn()
               ? tr::Tr(u"electronicPrescriptionFormPrescribedByInn"_s, u"МНН"_s).ui()
               : tr::Tr(u"electronicPrescriptionFormPrescribedByTradeName"_s, u"Торговому наименованию"_s).ui();
}

QString digitalSignature(const Shown& shown)
{
    return shown.prescription.hasDigitalSignature()
               ? tr::Tr(u"electronicPrescriptionFormDigitalSignatureYes"_s, u"Да"_s).ui()
               : tr::Tr(u"electronicPrescriptionFormDigitalSignatureNo"_s, u"Нет"_s).ui();
}

QString discount(const Shown& shown)
{
    return asText(shown.prescription.getDiscountPercent()) + u'%';
}

std::optional<QString> organization(const Shown& shown)
{
    const auto organization = shown.prescription.getPayingElectronicPrescriptionOrganization();
    return organization ? std::optional(organization->getName()) : std::nullopt;
}

/// One date a line.
std::optional<QString> dispenseDates(const Shown& shown)
{
    QList<QDate> dates;
    shown.prescription.getMedicationDispenseDates(dates);
    if (dates.isEmpty()) {
        return std::nullopt;
    }
    QStringList lines;
    for (const QDate& date : dates) {
        lines.append(formatted(date));
    }
    return lines.join(u'\n');
}

const QList<Field>& fields()
{
    using Prescription = ElectronicPrescription;
    static const QList<Field> all{
        {u"innName"_s, {u"electronicPrescriptionFormInnLabel"_s, u"МНН:"_s}, of(&Prescription::getInn)},
        {u"innCode"_s, {u"electronicPrescriptionFormInnCodeLabel"_s, u"Код для МНН:"_s}, of(&Prescription::getInnCode)},
        {u"medicineDictCode"_s,
         {u"electronicPrescriptionFormMedicineDictCodeLabel"_s, u"Код справочника\nАИС «ЭЛЕКТРОННЫЙ РЕЦЕПТ»:"_s},
         ofUnlessEmpty(&Prescription::getDictCode),
         Presence::HiddenWhenUnknown},
        {u"medicineDictName"_s,
         {u"electronicPrescriptionFormMedicineDictNameLabel"_s,
          u"Наименование справочника\nАИС «ЭЛЕКТРОННЫЙ РЕЦЕПТ»:"_s},
         ofUnlessEmpty(&Prescription::getDictName),
         Presence::HiddenWhenUnknown},
        {u"tradeName"_s,
         {u"electronicPrescriptionFormTradeNameLabel"_s, u"Торговое наименование:"_s},
         of(&Prescription::getTradeName)},
        {u"tradeNameCode"_s,
         {u"electronicPrescriptionFormTradeNameCodeLabel"_s, u"Код для торгового наименования:"_s},
         of(&Prescription::getTradeNameCode)},
        {u"prescribedByInnOrTradeName"_s,
         {u"electronicPrescriptionFormPrescribedByInnOrTradeNameLabel"_s, u"Рецепт выписан по:"_s},
         prescribedBy},

        {u"patientName"_s,
         {u"electronicPrescriptionFormPatientNameLabel"_s, u"ФИО пациента:"_s},
         of(&Patient::getName)},
        {u"patientBirthday"_s,
         {u"electronicPrescriptionFormPatientBirthdayLabel"_s, u"Дата рождения пациента:"_s},
         of(&Patient::getBirthday)},

        {u"prescriptionDate"_s,
         {u"electronicPrescriptionFormPrescriptionDateLabel"_s, u"Дата выписки рецепта:"_s},
         of(&Prescription::getPrescriptionDate)},
        {u"expirationDate"_s,
         {u"electronicPrescriptionFormExpirationDateLabel"_s, u"Срок действия рецепта:"_s},
         of(&Prescription::getExpirationDate)},
        {u"practitionerName"_s,
         {u"electronicPrescriptionFormPractitionerNameLabel"_s, u"ФИО врача:"_s},
         of(&Prescription::getPractitionerName)},
        {u"digitalSignature"_s,
         {u"electronicPrescriptionFormDigitalSignatureLabel"_s, u"Рецепт подписан ЭЦП:"_s},
         digitalSignature},
        {u"discount"_s, {u"electronicPrescriptionFormDiscountLabel"_s, u"Процент льготы:"_s}, discount},
        {u"organization"_s,
         {u"electronicPrescriptionFormOrganizationLabel"_s, u"Организация:"_s},
         organization,
         Presence::MaybeUnknown},

        {u"doseQuantity"_s,
         {u"electronicPrescriptionFormDoseQuantityLabel"_s, u"Количество выписанных доз:"_s},
         of(&Prescription::getDoseQuantity)},
        {u"dispensedDoseQuantity"_s,
         {u"electronicPrescriptionFormDispensedDoseQuantityLabel"_s, u"Количество отпущенных доз:"_s},
         of(&Prescription::getDispensedDoseQuantity)},
        {u"instructions"_s,
         {u"electronicPrescriptionFormInstructionsLabel"_s, u"Инструкция по применению:"_s},
         of(&Prescription::getInstructions)},
        {u"medicationDispenseDates"_s,
         {u"electronicPrescriptionFormMedicationDispenseDatesLabel"_s, u"Даты отпуска препарата по рецепту:"_s},
         dispenseDates,
         Presence::HiddenWhenUnknown},
    };
    return all;
}

} // namespace

ElectronicPrescriptionForm::ElectronicPrescriptionForm(const ElectronicPrescriptionParams& params, QObject* parent)
    : BasicForm(parent)
{
    setContextCode(EContext::DialogOnTop);
    const bool isActive = params.getStatus() == "active"_L1;
    setHelp(prescriptionhelp::details(isActive));
    loadUI(u"electronicprescription.ui"_s);
    setUpButtons(isActive);
    setUpCaptions();
    setUpKeys();

    QSharedPointer<ElectronicPrescription> prescription;
    params.getElectronicPrescription(prescription);
    if (!prescription) {
        return;
    }
    QSharedPointer<Patient> patient;
    params.getPatient(patient);
    fill(*prescription, patient.data());
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
    const FormButton<Form> buttons[] = {
        {u"cancelButton"_s, {u"electronicPrescriptionFormCancelButton"_s, u"Назад"_s}, &Form::onCancel},
        {u"chooseButton"_s, {u"electronicPrescriptionFormChooseButton"_s, u"Подобрать"_s}, &Form::onChoose},
    };
    for (const auto& button : buttons) {
        setUp(findWidget<QPushButton>(button.name), button, this);
    }
    if (auto* chooseButton = findWidget<QPushButton>(u"chooseButton"_s, false)) {
        chooseButton->setEnabled(isActive);
    }
}

void ElectronicPrescriptionForm::setUpCaptions()
{
    showText(u"titleLabel"_s, tr::Tr(u"electronicPrescriptionFormTitle"_s, u"Электронный рецепт"_s).ui());
    for (const Field& field : fields()) {
        showText(field.captionLabel(), field.caption.ui());
    }
    setAccessibleNames({{u"detailsScrollArea"_s, {u"electronicPrescriptionFormDetails"_s, u"Сведения о рецепте"_s}}});
}

void ElectronicPrescriptionForm::setUpKeys()
{
    auto* dialogEventFilter = new DialogEventFilter(this);
    connect(dialogEventFilter, &DialogEventFilter::cancel, this, &ElectronicPrescriptionForm::onCancel);
    rootWidget()->installEventFilter(dialogEventFilter);
}

void ElectronicPrescriptionForm::fill(const ElectronicPrescription& prescription, const Patient* patient)
{
    const Shown shown{prescription, patient};
    for (const auto presence : {Presence::Always, Presence::MaybeUnknown, Presence::HiddenWhenUnknown}) {
        for (const Field& field : fields()) {
            if (field.presence != presence) {
                continue;
            }
            const auto value = field.value(shown);
            if (value || presence == Presence::HiddenWhenUnknown) {
                showText(field.valueLabel(), value.value_or(QString()));
            }
        }
    }
    if (prescription.getDiscountPercent() > unseenDiscountPercent) {
        highlightDiscount();
    }
    showIfExpired(prescription.getExpirationDate());
    for (const Field& field : fields()) {
        if (field.presence != Presence::HiddenWhenUnknown) {
            continue;
        }
        for (const QString& name : {field.captionLabel(), field.valueLabel()}) {
            if (auto* label = findWidget<QLabel>(name)) {
                label->setVisible(field.value(shown).has_value());
                leaveNoRoomIfHidden(label);
            }
        }
    }
}

/// The rows share the room that a large screen has to spare: a hidden one would be a gap.
void ElectronicPrescriptionForm::leaveNoRoomIfHidden(QLabel* label) const
{
    for (auto* grid : rootWidget()->findChildren<QGridLayout*>()) {
        const int index = grid->indexOf(label);
        if (index >= 0 && label->isHidden()) {
            int row = 0;
            int column = 0;
            int span = 0;
            grid->getItemPosition(index, &row, &column, &span, &span);
            grid->setRowStretch(row, 0);
        }
    }
}

void ElectronicPrescriptionForm::highlightDiscount()
{
    if (auto* label = findWidget<QLabel>(u"discountValueLabel"_s)) {
        label->setStyleSheet(
            Singleton<Config>::get()->getString(u"GUI.ElectronicPrescriptionForm:discountLabelStyleSheet"_s,
                                                u"QLabel { background-color: #ff4646; color: #000000 }"_s));
    }
}

void ElectronicPrescriptionForm::showIfExpired(const QDate& lastDay)
{
    if (!lastDay.isValid() || lastDay >= CurrentTime::create()->current().date()) {
        return;
    }
    showText(u"expiredLabel"_s, tr::Tr(u"electronicPrescriptionFormExpired"_s, u"Срок действия истёк"_s).ui(), false);
    if (auto* label = findWidget<QLabel>(u"expiredLabel"_s, false)) {
        label->show();
    }
}

void ElectronicPrescriptionForm::sendAnswer(const QVariant& answer) const
{
    answerForm(u"status"_s, answer);
}
