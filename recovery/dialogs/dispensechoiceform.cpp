// SPDX-License-Identifier: MIT
#include "dispensechoiceform.h"

#include "dialogeventfilter.h"
#include "formanswer.h"
#include "plaintooltip.h"
#include "tablecolumn.h"
#include "tallotableview.h"
#include "wrappedlabel.h"

#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QPushButton>
#include <QStandardItemModel>

#include <utility>

using namespace Qt::StringLiterals;

namespace
{

enum Column { HandedOver, Doses, Pharmacy, Id, ColumnCount };

/// Of goods and request. A longer text is whole in its tool tip.
constexpr int mostLines = 2;

FormHelp choiceHelp()
{
    return {{{FormHelp::arrowKeys(), {u"dispenseChoiceHelpRow"_s, u"выбрать отпуск"_s}},
             {FormHelp::enterKey(), {u"dispenseChoiceHelpEnter"_s, u"подтвердить выбранный"_s}},
             {u"Esc"_s, {u"dispenseChoiceHelpLater"_s, u"отложить решение"_s}}},
            {u"dispenseChoiceHelpNext"_s,
             u"Найдите отпуск, ответ на который не дошёл: сверьте время, дозы и аптеку. Если его нет, выберите "
             "последнюю строку. Не уверены — отложите решение: чек можно отложить "
             "и обслужить следующего покупателя."_s}};
}

tr::Tr question(bool hasDispenses)
{
    if (hasDispenses) {
        return {u"dispenseChoiceQuestion"_s,
                u"Ответ реестра об этом отпуске не дошёл до кассы. Ниже всё похожее, что показывает реестр. Какой "
                "отпуск в списке — этот? Если ни один, выберите последнюю строку."_s};
    }
    return {u"dispenseChoiceNothing"_s,
            u"Ответ реестра об этом отпуске не дошёл до кассы, и этого рецепта реестр кассе не показывает. Спросите "
            "оператора реестра и выберите, что он ответит."_s};
}

tr::Tr hint(bool isTouch)
{
    return isTouch ? tr::Tr(u"dispenseChoiceTouchHint"_s, u"Коснитесь строки, затем кнопки «Выбрать». Пока решение "
                                                          "отложено, в реестр ничего не отправляется."_s)
                   : tr::Tr(u"dispenseChoiceHint"_s, u"Выберите строку стрелками и нажмите «Ввод». Esc — отложить: "
                                                     "до решения в реестр ничего не отправляется."_s);
}

tr::Tr noneOfThem(bool hasDispenses)
{
    return hasDispenses ? tr::Tr(u"dispenseChoiceNoneOfThem"_s, u"Ни один из них — отпуска в реестре нет"_s)
                        : tr::Tr(u"dispenseChoiceNotRegistered"_s, u"Отпуска в реестре нет"_s);
}

QStandardItemModel* makeModel(const QList<DispenseChoiceRow>& dispenses, QObject* parent)
{
    auto* model = new QStandardItemModel(0, ColumnCount, parent);
    model->setHorizontalHeaderLabels(
        {tr::Tr(u"dispenseChoiceHandedOver"_s, u"Отпущено"_s).ui(), tr::Tr(u"dispenseChoiceDoses"_s, u"Доз"_s).ui(),
         tr::Tr(u"dispenseChoicePharmacy"_s, u"Аптека"_s).ui(), tr::Tr(u"dispenseChoiceId"_s, u"Номер записи"_s).ui()});
    const QString withoutId = tr::Tr(u"dispenseChoiceWithoutId"_s, u"реестр не сообщает"_s).ui();
    const auto append = [model](const QStringList& texts) {
        for (int column = 0, row = model->rowCount(); column < ColumnCount; ++column) {
            model->setItem(row, column, new QStandardItem(texts.value(column)));
        }
    };
    for (const DispenseChoiceRow& dispense : dispenses) {
        append(
            {dispense.handedOver, dispense.doses, dispense.pharmacy, dispense.id.isEmpty() ? withoutId : dispense.id});
    }
    if (dispenses.isEmpty()) {
        append({tr::Tr(u"dispenseChoiceIsRegistered"_s, u"Отпуск в реестре есть"_s).ui()});
    }
    append({noneOfThem(!dispenses.isEmpty()).ui()});
    return model;
}

/// A text that is no dispense has the whole width, and does not widen its column.
///
/// @param first the first row with such a text
void spanRows(TalloTableView& table, QStandardItemModel& model, qsizetype first)
{
    for (int row = int(first); row < model.rowCount(); ++row) {
        model.item(row, 0)->setSizeHint({0, 0});
        table.setSpan(row, 0, 1, ColumnCount);
    }
}

void limitHeight(WrappedLabel& label)
{
    label.ensurePolished();
    label.setMaximumHeight(mostLines * label.fontMetrics().lineSpacing());
}

} // namespace

DispenseChoiceForm::DispenseChoiceForm(const DispenseChoiceParams& params, QObject* parent)
    : BasicForm(parent)
{
    setHelp(choiceHelp());
    loadUI(u"dispensechoice.ui"_s);
    if (!isTouchMode()) {
        deleteWidgets({u"navigationBar"_s});
    }
    rootWidget()->installEventFilter(new DialogEventFilter(this));
    showTexts(params);
    m_table = findWidget<TalloTableView>(u"dispensesTable"_s);
    m_confirm = findWidget<QPushButton>(u"chooseButton"_s);
    if (m_table && m_confirm) {
        setUpTable(params.dispenses);
        setUpButtons();
        nameControls();
    }
}

void DispenseChoiceForm::showTexts(const DispenseChoiceParams& params)
{
    const bool hasDispenses = !params.dispenses.isEmpty();
    showText(u"titleLabel"_s, tr::Tr(u"dispenseChoiceTitle"_s, u"Отпуск по рецепту: что записано в реестре"_s).ui());
    showText(u"goodsLabel"_s, params.goods);
    showText(u"requestLabel"_s, tr::Tr(u"dispenseChoiceRequest"_s, u"Доз: %1 · запрос отправлен: %2 · рецепт %3"_s)
                                    .arg(params.doses)
                                    .arg(params.sent)
                                    .arg(params.prescription)
                                    .ui());
    showText(u"questionLabel"_s, question(hasDispenses).ui());
    showText(u"hintLabel"_s, hint(isTouchMode()).ui());
    for (const QString& name : {u"goodsLabel"_s, u"requestLabel"_s}) {
        if (auto* label = findWidget<WrappedLabel>(name)) {
            limitHeight(*label);
        }
    }
}

void DispenseChoiceForm::setUpTable(const QList<DispenseChoiceRow>& dispenses)
{
    auto* model = makeModel(dispenses, this);
    m_table->setModel(model);
    m_table->setColumns(TableColumn::texts({
        {u"handedOver"_s, TableColumn::fittingContents, TableColumn::left},
        {u"doses"_s, TableColumn::fittingContents, TableColumn::right},
        {u"pharmacy"_s, TableColumn::remainingRoom, TableColumn::left},
        {u"id"_s, TableColumn::remainingRoom, TableColumn::left},
    }));
    spanRows(*m_table, *model, dispenses.size());
    m_table->setCurrentIndex({}); // otherwise the first row becomes the current one with the focus
    m_table->installEventFilter(this);
    connect(m_table->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &DispenseChoiceForm::showWhetherChosen);
}

void DispenseChoiceForm::setUpButtons()
{
    const std::pair<QString, tr::Tr> texts[] = {
        {u"chooseButton"_s, {u"dispenseChoiceConfirm"_s, u"Выбрать"_s}},
        {u"laterButton"_s, {u"dispenseChoiceLater"_s, u"Отложить решение"_s}},
    };
    for (const auto& [name, text] : texts) {
        if (auto* button = findWidget<QPushButton>(name)) {
            button->setText(text.ui());
            button->setAccessibleName(text.ui());
        }
    }
    connect(m_confirm, &QPushButton::clicked, this, &DispenseChoiceForm::confirm);
    if (auto* later = findWidget<QPushButton>(u"laterButton"_s)) {
        connect(later, &QPushButton::clicked, this, &BasicForm::dismissed);
    }
    showWhetherChosen();
}

void DispenseChoiceForm::nameControls()
{
    setAccessibleNames({
        {u"dispensesTable"_s, {u"dispenseChoiceTable"_s, u"Отпуск по рецепту в реестре"_s}},
    });
}

void DispenseChoiceForm::showWhetherChosen()
{
    const bool isChosen = m_table->selectionModel()->hasSelection();
    m_confirm->setEnabled(isChosen);
    const tr::Tr reason(u"dispenseChoiceNoRow"_s, u"Сначала выберите строку."_s);
    m_confirm->setToolTip(isChosen ? QString() : plainToolTip(reason.ui()));
}

void DispenseChoiceForm::confirm()
{
    answerForm(u"data"_s, m_table->selectionModel()->selectedRows().value(0).row());
}

/// A table chooses the row that begins with what is typed: a typed amount or a scan would decide.
bool DispenseChoiceForm::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_table && event->type() == QEvent::KeyPress) {
        const QString typed = static_cast<QKeyEvent*>(event)->text();
        return !typed.isEmpty() && typed.front().isPrint();
    }
    return BasicForm::eventFilter(watched, event);
}
