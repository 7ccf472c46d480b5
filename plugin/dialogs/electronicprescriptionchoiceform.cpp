// SPDX-License-Identifier: MIT
#include "electronicprescriptionchoiceform.h"

#include "complexfilterproxymodel.h"
#include "config.h"
#include "dialoganswer.h"
#include "dialogeventfilter.h"
#include "electronicprescriptionchoicemodel.h"
#include "iconsviewnotifier.h"
#include "inactivitylocker.h"
#include "prescriptiondate.h"
#include "registerstyle.h"
#include "tallokeyboard.h"
#include "tallolineedit.h"
#include "tallotableview.h"
#include "widgettext.h"

#include <QItemSelectionModel>
#include <QLabel>
#include <QPushButton>

namespace
{

/// Room for what was typed, in a hint, in pixels.
constexpr int longestQuote = 240;

} // namespace

QString ElectronicPrescriptionChoiceForm::savedFilter;
int ElectronicPrescriptionChoiceForm::savedRow = 0;

ElectronicPrescriptionChoiceForm::ElectronicPrescriptionChoiceForm(const ElectronicPrescriptionChoiceParams& params,
                                                                   QObject* parent)
    : BasicForm(parent)
    , m_proxyModel(new ComplexFilterProxyModel(this))
    , m_dialogEventFilter(new DialogEventFilter(this))
{
    setContextCode(EContext::DialogOnTop);
    loadUI("electronicprescriptionchoice.ui");
    if (isTouchMode()) {
        setUpKeyboard();
    } else {
        deleteWidgets({"talloKeyboard", "scrollButtonsNavigationBar", "scrollButtonsNavigationBarSeparator",
                       "horizontalLine", "navigationBar"});
    }
    setUpButtons();
    setUpLabels();
    setUpAccessibleNames();
    setUpInput();

    if (!params.isUseLast()) {
        savedFilter.clear();
        savedRow = 0;
    }
    QList<QSharedPointer<ElectronicPrescription>> prescriptions;
    params.getElectronicPrescriptions(prescriptions);
    QSharedPointer<Patient> patient;
    params.getPatient(patient);
    m_model = new ElectronicPrescriptionChoiceModel(prescriptions, patient, this);
    m_proxyModel->setSourceModel(m_model);
    if (!m_tableView) {
        return;
    }
    m_tableView->setModel(m_proxyModel);
    connect(m_tableView->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &ElectronicPrescriptionChoiceForm::onCurrentChanged);
    setSettings();
}

void ElectronicPrescriptionChoiceForm::show()
{
    BasicForm::show();
    selectRow(savedRow);
    if (m_filterField) {
        m_filterField->setText(savedFilter);
    }
    if (!savedFilter.isEmpty()) {
        applyFilter(savedFilter);
    }
}

void ElectronicPrescriptionChoiceForm::onOk()
{
    const auto row = m_tableView ? sourceIndex(m_tableView->currentIndex()) : QModelIndex();
    if (!row.isValid()) {
        onCancel();
        return;
    }
    sendAnswer(row.row());
    savedRow = row.row();
}

void ElectronicPrescriptionChoiceForm::onCancel()
{
    savedRow = 0;
    savedFilter = QString();
    sendAnswer(-1);
}

void ElectronicPrescriptionChoiceForm::filterTextChanged(const QString& text)
{
    applyFilter(text);
    savedFilter = text;
}

void ElectronicPrescriptionChoiceForm::onCurrentChanged(const QModelIndex& current, const QModelIndex&)
{
    if (!current.isValid()) {
        return;
    }
    const auto prescription = m_model->getElectronicPrescription(sourceIndex(current).row());
    if (!prescription) {
        return;
    }

    setValue("tradeNameValueLabel", prescription->getTradeName());
    if (const auto patient = m_model->getPatient()) {
        setValue("patientNameValueLabel", patient->getName());
        setValue("patientBirthdayValueLabel", formatted(patient->getBirthday()));
    }
    setValue("practitionerNameValueLabel", prescription->getPractitionerName());
    if (const auto organization = prescription->getPayingElectronicPrescriptionOrganization()) {
        setValue("organizationValueLabel", organization->getName());
    }
}

void ElectronicPrescriptionChoiceForm::setUpKeyboard()
{
    auto* keyboard = findWidget<TalloKeyboard>("talloKeyboard", false);
    if (!keyboard) {
        return;
    }
    connect(keyboard, &TalloKeyboard::layoutChanged, Singleton<IconsViewNotifier>::get(),
            &IconsViewNotifier::notifyIcons);
    connect(keyboard, &TalloKeyboard::keyPressed, Singleton<InactivityLocker>::get(), &InactivityLocker::resetTimer);
    keyboard->setKeyboardLayouts(Singleton<Config>::get()->getString("Language:keyboardLayouts", "ru,en"));
}

void ElectronicPrescriptionChoiceForm::setUpButtons()
{
    using Form = ElectronicPrescriptionChoiceForm;
    const WidgetButton<Form> buttons[] = {
        {"cancelButton", tr::Tr("electronicPrescriptionChoiceFormCancelButton", "Назад"), &Form::onCancel},
        {"okButton", tr::Tr("electronicPrescriptionChoiceFormOkButton", "Выбрать"), &Form::onOk},
    };
    for (const auto& button : buttons) {
        setUp(findWidget<QPushButton>(button.widget), button, this);
    }
}

void ElectronicPrescriptionChoiceForm::setUpLabels()
{
    const WidgetText captions[] = {
        {"titleLabel", tr::Tr("electronicPrescriptionChoiceFormTitle", "Выбор рецепта")},
        {"tradeNameLabel", tr::Tr("electronicPrescriptionChoiceFormTradeNameLabel", "Торговое наименование:")},
        {"patientNameLabel", tr::Tr("electronicPrescriptionChoiceFormPatientNameLabel", "ФИО пациента:")},
        {"patientBirthdayLabel",
         tr::Tr("electronicPrescriptionChoiceFormPatientBirthdayLabel", "Дата рождения пациента:")},
        {"practitionerNameLabel", tr::Tr("electronicPrescriptionChoiceFormPractitionerNameLabel", "ФИО врача:")},
        {"organizationLabel", tr::Tr("electronicPrescriptionChoiceFormOrganizationLabel", "Организация:")},
    };
    for (const auto& [name, text] : captions) {
        setUp(findWidget<QLabel>(name), text);
    }
    // They are filled row by row. A layout that lacks one is refused here, while somebody can be told.
    for (const auto* name : {"tradeNameValueLabel", "patientNameValueLabel", "patientBirthdayValueLabel",
                             "practitionerNameValueLabel", "organizationValueLabel"}) {
        findWidget<QLabel>(name);
    }
}

void ElectronicPrescriptionChoiceForm::setUpAccessibleNames()
{
    setAccessibleNames({
        {"medicineNameLineEdit", tr::Tr("electronicPrescriptionChoiceFormFilter", "Поиск по МНН")},
        {"electronicPrescriptionsTableView", tr::Tr("electronicPrescriptionChoiceFormTable", "Рецепты пациента")},
        {"prescriptionScrollArea", tr::Tr("electronicPrescriptionChoiceFormDetails", "Сведения о рецепте")},
        {"talloKeyboard", tr::Tr("electronicPrescriptionChoiceFormKeyboard", "Клавиатура")},
        {"pageUpButton", tr::Tr("electronicPrescriptionChoiceFormPageUp", "Страница вверх")},
        {"scrollUpButton", tr::Tr("electronicPrescriptionChoiceFormScrollUp", "Строка вверх")},
        {"scrollDownButton", tr::Tr("electronicPrescriptionChoiceFormScrollDown", "Строка вниз")},
        {"pageDownButton", tr::Tr("electronicPrescriptionChoiceFormPageDown", "Страница вниз")},
    });
}

void ElectronicPrescriptionChoiceForm::setUpInput()
{
    m_tableView = findWidget<TalloTableView>("electronicPrescriptionsTableView");
    m_filterField = findWidget<TalloLineEdit>("medicineNameLineEdit", false);
    if (m_filterField) {
        m_filterField->setPlaceholderText(m_filterField->accessibleName());
        m_filterField->installEventFilter(this);
        connect(m_filterField, &TalloLineEdit::textChanged, this, &ElectronicPrescriptionChoiceForm::filterTextChanged);
    }
    m_dialogEventFilter->setTableView(m_tableView);
    m_dialogEventFilter->setLineEdit(m_filterField);
    connect(m_dialogEventFilter, &DialogEventFilter::cancel, this, &ElectronicPrescriptionChoiceForm::onCancel);
    connect(m_dialogEventFilter, &DialogEventFilter::ok, this, &ElectronicPrescriptionChoiceForm::onOk);
    rootWidget()->installEventFilter(m_dialogEventFilter);
}

void ElectronicPrescriptionChoiceForm::setSettings() const
{
    // name;caption;width;shown;alignment: the name takes the room that the others leave, the date is centred.
    const QString columns = "medicineName;МНН;-1;true;128, code;;-2;true;128, prescriptionDate;;-2;true;132,"
                            "doseQuantity;;-2;true;128, dispensedDoseQuantity;;-2;true;128";
    m_tableView->setColumns(columns.split(','));
}

void ElectronicPrescriptionChoiceForm::applyFilter(const QString& text)
{
    m_proxyModel->addFilter(ElectronicPrescriptionChoiceModel::Inn, text, ComplexFilterProxyModel::Contains);
    selectRow(0);
    tellIfNothingMatches(text);
}

void ElectronicPrescriptionChoiceForm::tellIfNothingMatches(const QString& text)
{
    const bool isNoneLeft = m_proxyModel->rowCount() == 0;
    if (auto* hint = findWidget<QLabel>("noMatchLabel", false)) {
        const auto quoted = hint->fontMetrics().elidedText(text, Qt::ElideRight, longestQuote);
        hint->setText(
            tr::Tr("electronicPrescriptionChoiceFormNoMatch", "Нет рецептов, где МНН содержит «%1». Измените поиск.")
                .arg(quoted)
                .ui());
        hint->setVisible(isNoneLeft);
    }
    // It goes on answering as onOk() does, so it only looks as if there were nothing to choose.
    if (auto* okButton = findWidget<QPushButton>("okButton", false)) {
        setStyleProperty(*okButton, "idle", isNoneLeft);
    }
}

void ElectronicPrescriptionChoiceForm::selectRow(int row)
{
    if (m_tableView) {
        m_tableView->selectRow(row);
    }
}

QModelIndex ElectronicPrescriptionChoiceForm::sourceIndex(const QModelIndex& shown) const
{
    return m_proxyModel->mapToSource(m_proxyModel->index(shown.row(), 0));
}

void ElectronicPrescriptionChoiceForm::setValue(const QString& label, const QString& text)
{
    if (auto* found = findWidget<QLabel>(label)) {
        found->setText(text);
    }
}

void ElectronicPrescriptionChoiceForm::sendAnswer(const QVariant& answer) const
{
    sendDialogAnswer("data", answer);
}
