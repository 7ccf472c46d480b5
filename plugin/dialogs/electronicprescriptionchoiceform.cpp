// SPDX-License-Identifier: MIT
#include "electronicprescriptionchoiceform.h"

#include "complexfilterproxymodel.h"
#include "config.h"
#include "dialogeventfilter.h"
#include "electronicprescriptionchoicemodel.h"
#include "formanswer.h"
#include "formbutton.h"
#include "iconsviewnotifier.h"
#include "inactivitylocker.h"
#include "prescriptiondate.h"
#include "prescriptionhelp.h"
#include "registerstyle.h"
#include "tablecolumn.h"
#include "tallokeyboard.h"
#include "tallolineedit.h"
#include "tallotableview.h"

#include <QItemSelectionModel>
#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace
{

/// Room in a hint for the text of the filter, in pixels.
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
    setHelp(prescriptionhelp::choice());
    loadUI(u"electronicprescriptionchoice.ui"_s);
    if (isTouchMode()) {
        setUpKeyboard();
    } else {
        deleteWidgets({u"talloKeyboard"_s, u"scrollButtonsNavigationBar"_s, u"scrollButtonsNavigationBarSeparator"_s,
                       u"horizontalLine"_s, u"navigationBar"_s});
    }
    setUpButtons();
    setUpCaptions();
    setUpInput();
    setUpAccessibleNames();

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

    showText(u"tradeNameValueLabel"_s, prescription->getTradeName());
    if (const auto patient = m_model->getPatient()) {
        showText(u"patientNameValueLabel"_s, patient->getName());
        showText(u"patientBirthdayValueLabel"_s, formatted(patient->getBirthday()));
    }
    showText(u"practitionerNameValueLabel"_s, prescription->getPractitionerName());
    if (const auto organization = prescription->getPayingElectronicPrescriptionOrganization()) {
        showText(u"organizationValueLabel"_s, organization->getName());
    }
}

void ElectronicPrescriptionChoiceForm::setUpKeyboard()
{
    auto* keyboard = findWidget<TalloKeyboard>(u"talloKeyboard"_s, false);
    if (!keyboard) {
        return;
    }
    connect(keyboard, &TalloKeyboard::layoutChanged, Singleton<IconsViewNotifier>::get(),
            &IconsViewNotifier::notifyIcons);
    connect(keyboard, &TalloKeyboard::keyPressed, Singleton<InactivityLocker>::get(), &InactivityLocker::resetTimer);
    keyboard->setKeyboardLayouts(Singleton<Config>::get()->getString(u"Language:keyboardLayouts"_s, u"ru,en"_s));
}

void ElectronicPrescriptionChoiceForm::setUpButtons()
{
    using Form = ElectronicPrescriptionChoiceForm;
    const FormButton<Form> buttons[] = {
        {u"cancelButton"_s, {u"electronicPrescriptionChoiceFormCancelButton"_s, u"Назад"_s}, &Form::onCancel},
        {u"okButton"_s, {u"electronicPrescriptionChoiceFormOkButton"_s, u"Выбрать"_s}, &Form::onOk},
    };
    for (const auto& button : buttons) {
        setUp(findWidget<QPushButton>(button.name), button, this);
    }
}

void ElectronicPrescriptionChoiceForm::setUpCaptions()
{
    const std::pair<QString, tr::Tr> captions[] = {
        {u"titleLabel"_s, {u"electronicPrescriptionChoiceFormTitle"_s, u"Выбор рецепта"_s}},
        {u"tradeNameLabel"_s, {u"electronicPrescriptionChoiceFormTradeNameLabel"_s, u"Торговое наименование:"_s}},
        {u"patientNameLabel"_s, {u"electronicPrescriptionChoiceFormPatientNameLabel"_s, u"ФИО пациента:"_s}},
        {u"patientBirthdayLabel"_s,
         {u"electronicPrescriptionChoiceFormPatientBirthdayLabel"_s, u"Дата рождения пациента:"_s}},
        {u"practitionerNameLabel"_s, {u"electronicPrescriptionChoiceFormPractitionerNameLabel"_s, u"ФИО врача:"_s}},
        {u"organizationLabel"_s, {u"electronicPrescriptionChoiceFormOrganizationLabel"_s, u"Организация:"_s}},
    };
    for (const auto& [label, text] : captions) {
        showText(label, text.ui());
    }
}

void ElectronicPrescriptionChoiceForm::setUpInput()
{
    m_tableView = findWidget<TalloTableView>(u"electronicPrescriptionsTableView"_s);
    m_filterField = findWidget<TalloLineEdit>(u"medicineNameLineEdit"_s);
    if (m_filterField) {
        m_filterField->installEventFilter(this);
        connect(m_filterField, &TalloLineEdit::textChanged, this, &ElectronicPrescriptionChoiceForm::filterTextChanged);
    }
    m_dialogEventFilter->setTableView(m_tableView);
    m_dialogEventFilter->setLineEdit(m_filterField);
    connect(m_dialogEventFilter, &DialogEventFilter::cancel, this, &ElectronicPrescriptionChoiceForm::onCancel);
    connect(m_dialogEventFilter, &DialogEventFilter::ok, this, &ElectronicPrescriptionChoiceForm::onOk);
    rootWidget()->installEventFilter(m_dialogEventFilter);
}

void ElectronicPrescriptionChoiceForm::setUpAccessibleNames()
{
    setAccessibleNames({
        {u"medicineNameLineEdit"_s, {u"electronicPrescriptionChoiceFormFilter"_s, u"Поиск по МНН"_s}},
        {u"electronicPrescriptionsTableView"_s, {u"electronicPrescriptionChoiceFormTable"_s, u"Рецепты пациента"_s}},
        {u"prescriptionScrollArea"_s, {u"electronicPrescriptionChoiceFormDetails"_s, u"Сведения о рецепте"_s}},
        {u"talloKeyboard"_s, {u"electronicPrescriptionChoiceFormKeyboard"_s, u"Клавиатура"_s}},
    });
    if (m_filterField) {
        m_filterField->setPlaceholderText(m_filterField->accessibleName());
    }
}

void ElectronicPrescriptionChoiceForm::setSettings() const
{
    if (!m_tableView) {
        return;
    }
    // The blanks before some names belong to the columns' texts.
    const int fitting = TableColumn::fittingContents;
    m_tableView->setColumns(TableColumn::texts({
        {.name = u"medicineName"_s, .caption = u"МНН"_s},
        {.name = u" code"_s, .width = fitting},
        {.name = u" prescriptionDate"_s, .width = fitting, .alignment = TableColumn::centred},
        {.name = u"doseQuantity"_s, .width = fitting},
        {.name = u" dispensedDoseQuantity"_s, .width = fitting},
    }));
}

void ElectronicPrescriptionChoiceForm::applyFilter(const QString& text)
{
    m_proxyModel->addFilter(ElectronicPrescriptionChoiceModel::Inn, text, ComplexFilterProxyModel::Contains);
    selectRow(0);
    showWhetherAnyMatches(text);
}

void ElectronicPrescriptionChoiceForm::showWhetherAnyMatches(const QString& text)
{
    const bool isNoneLeft = m_proxyModel->rowCount() == 0;
    if (auto* hint = findWidget<QLabel>(u"noMatchLabel"_s, false)) {
        const auto quoted = hint->fontMetrics().elidedText(text, Qt::ElideRight, longestQuote);
        const tr::Tr noMatch(u"electronicPrescriptionChoiceFormNoMatch"_s,
                             u"Нет рецептов, где МНН содержит «%1». Измените поиск."_s);
        showText(u"noMatchLabel"_s, noMatch.arg(quoted).ui(), false);
        hint->setVisible(isNoneLeft);
    }
    // The button answers as onOk() does, so it only looks as if there were nothing to choose.
    if (auto* okButton = findWidget<QPushButton>(u"okButton"_s, false)) {
        setStyleProperty(*okButton, u"idle"_s, isNoneLeft);
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

void ElectronicPrescriptionChoiceForm::sendAnswer(const QVariant& answer) const
{
    answerForm(u"data"_s, answer);
}
