// SPDX-License-Identifier: MIT
#include "returnform.h"

#include "dialogeventfilter.h"
#include "formanswer.h"
#include "formkeys.h"
#include "plaintooltip.h"
#include "registerstyle.h"
#include "shownkey.h"
#include "tablecolumn.h"
#include "tallotableview.h"

#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QStandardItem>

using namespace Qt::StringLiterals;

namespace
{

const QString tick = u"✓"_s;
const QString withoutTick = u"—"_s; ///< cannot come back now

enum Column { Chosen, Number, Name, Mark, Packs, Sum, ColumnCount };

QStandardItem* cell(const QString& text, Qt::Alignment alignment)
{
    auto* item = new QStandardItem(text);
    item->setTextAlignment(alignment | Qt::AlignVCenter);
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    return item;
}

} // namespace

ReturnForm::ReturnForm(const ReturnParams& params, QObject* parent)
    : BasicForm(parent)
    , m_positions(params.positions)
    , m_obstacles(params.obstacles)
    , m_model(0, ColumnCount)
{
    loadUI(u"return.ui"_s);
    if (!isTouchMode()) {
        deleteWidgets({u"scrollButtonsNavigationBar"_s, u"navigationBar"_s});
    }
    m_table = findWidget<TalloTableView>(u"positionsTable"_s);
    m_all = findWidget<QPushButton>(u"allButton"_s);
    m_return = findWidget<QPushButton>(u"returnButton"_s);
    showText(u"titleLabel"_s, tr::Tr(u"returnTitle"_s, u"Возврат товара. %1: что возвращают"_s).arg(params.title).ui());
    fill(params);
    setUpTable();
    setUpButtons();
    nameControls();

    auto* keys = new DialogEventFilter(this);
    keys->setTableView(m_table);
    connect(keys, &DialogEventFilter::cancel, this, &BasicForm::dismissed);
    rootWidget()->installEventFilter(keys);
    showChoice();
}

void ReturnForm::fill(const ReturnParams& params)
{
    m_model.setHorizontalHeaderLabels(
        {tr::Tr(u"returnColumnChosen"_s, u"Вернуть"_s).ui(), tr::Tr(u"returnColumnNumber"_s, u"№"_s).ui(),
         tr::Tr(u"returnColumnName"_s, u"Наименование"_s).ui(), tr::Tr(u"returnColumnMark"_s, u"Вид"_s).ui(),
         tr::Tr(u"returnColumnPacks"_s, u"Упаковок"_s).ui(),
         captionWithCurrency(tr::Tr(u"returnColumnSum"_s, u"Сумма"_s).ui())});
    for (const QSharedPointer<Position>& position : m_positions) {
        const int place = params.places.value(m_model.rowCount());
        m_model.appendRow({cell({}, Qt::AlignHCenter), cell(QString::number(place), Qt::AlignRight),
                           cell(position->getName(), Qt::AlignLeft),
                           cell(params.marks->look(*position).mark, Qt::AlignHCenter),
                           cell(packsText(position->getQuantity()), Qt::AlignRight),
                           cell(amountFigures(position->getSum()), Qt::AlignRight)});
        m_model.item(m_model.rowCount() - 1, Name)->setToolTip(plainToolTip(position->getName()));
        choose(m_model.rowCount() - 1, canBeChosen(m_model.rowCount() - 1));
    }
}

void ReturnForm::setUpTable()
{
    m_table->setModel(&m_model);
    m_table->setColumns(TableColumn::texts({
        {u"chosen"_s, TableColumn::fittingContents, TableColumn::centred},
        {u"number"_s, TableColumn::fittingContents, TableColumn::right},
        {u"name"_s, TableColumn::remainingRoom, TableColumn::left},
        {u"mark"_s, TableColumn::fittingContents, TableColumn::centred},
        {u"packs"_s, TableColumn::fittingContents, TableColumn::right},
        {u"sum"_s, TableColumn::fittingMoney, TableColumn::right},
    }));
    m_table->setColumnHidden(Mark, m_model.findItems(QString(), Qt::MatchExactly, Mark).size() == m_model.rowCount());
    m_table->setCurrentIndex(m_model.index(0, Name));
    enlargeTicks();
    connect(m_table, &QTableView::clicked, this, [this](const QModelIndex& index) { toggle(index.row()); });
    auto* space = new QShortcut(Qt::Key_Space, m_table, nullptr, nullptr, Qt::WidgetShortcut);
    space->setAutoRepeat(false);
    connect(space, &QShortcut::activated, this, [this] { toggle(m_table->currentIndex().row()); });
}

/// A tick is a narrow sign, which is lost beside a name of the same size.
void ReturnForm::enlargeTicks()
{
    m_table->ensurePolished();
    QFont font = m_table->font();
    font.setPointSizeF(font.pointSizeF() * 1.4);
    font.setBold(true);
    for (int row = 0; row < m_model.rowCount(); ++row) {
        m_model.item(row, Chosen)->setFont(font);
    }
}

void ReturnForm::setUpButtons()
{
    auto* cancel = findWidget<QPushButton>(u"cancelButton"_s);
    cancel->setText(tr::Tr(u"returnCancel"_s, u"Назад"_s).ui());
    connect(cancel, &QPushButton::clicked, this, &BasicForm::dismissed);
    connect(m_all, &QPushButton::clicked, this, &ReturnForm::toggleAll);
    connect(m_return, &QPushButton::clicked, this, &ReturnForm::confirm);
    auto* all = new QShortcut(formkeys::allPositions, rootWidget());
    all->setAutoRepeat(false);
    connect(all, &QShortcut::activated, m_all, &QPushButton::click);
    m_return->setText(tr::Tr(u"returnConfirm"_s, u"Вернуть выбранные"_s).ui());
    for (QPushButton* button : {cancel, m_return}) {
        button->setAccessibleName(button->text());
    }
}

void ReturnForm::nameControls()
{
    setAccessibleNames({
        {u"positionsTable"_s, {u"returnPositions"_s, u"Позиции продажи"_s}},
    });
}

void ReturnForm::toggle(int row)
{
    if (row < 0) {
        return;
    }
    choose(row, !isChosen(row));
    showChoice();
    showObstacle(row);
}

void ReturnForm::toggleAll()
{
    const bool choosesAll = rowsWhere(&ReturnForm::isChosen) < rowsWhere(&ReturnForm::canBeChosen);
    for (int row = 0; row < m_model.rowCount(); ++row) {
        choose(row, choosesAll);
    }
    showChoice();
    m_table->setFocus();
}

void ReturnForm::showChoice()
{
    Kopecks sum{0};
    for (int row = 0; row < m_model.rowCount(); ++row) {
        if (isChosen(row)) {
            sum = sum + m_positions.at(row)->getSum();
        }
    }
    const int chosen = rowsWhere(&ReturnForm::isChosen);
    const tr::Tr allText = chosen < rowsWhere(&ReturnForm::canBeChosen) ? tr::Tr(u"returnAll"_s, u"Выбрать все"_s)
                                                                        : tr::Tr(u"returnNone"_s, u"Снять все"_s);
    m_all->setText(withShownKey(formkeys::allPositions, allText.ui()));
    m_all->setAccessibleName(allText.ui());
    m_return->setEnabled(chosen > 0);
    const tr::Tr hint =
        isTouchMode()
            ? tr::Tr(u"returnTouchHint"_s, u"Выбрано %1 из %2 на сумму %3. Коснитесь строки, чтобы выбрать её "
                                           "или снять, затем кнопки «Вернуть выбранные»."_s)
            : tr::Tr(u"returnHint"_s, u"Выбрано %1 из %2 на сумму %3. Пробел — выбрать строку или снять, "
                                      "Ввод — вернуть выбранные, Esc — назад."_s);
    showHint(hint.arg(QString::number(chosen)).arg(QString::number(m_model.rowCount())).arg(amountText(sum)).ui(),
             "hint");
}

void ReturnForm::showHint(const QString& text, const char* textRole)
{
    showText(u"hintLabel"_s, text);
    setStyleProperty(*findWidget<QLabel>(u"hintLabel"_s), u"textRole"_s, QLatin1StringView(textRole));
}

/// Says why a position cannot be chosen; nothing for one that can.
void ReturnForm::showObstacle(int row)
{
    const auto obstacle = m_obstacles.constFind(m_positions.at(row)->getNumber());
    if (obstacle != m_obstacles.cend()) {
        showHint(tr::Tr(u"returnNotNow"_s, u"Позицию № %1 пока нельзя вернуть: %2."_s)
                     .arg(m_model.item(row, Number)->text())
                     .arg(obstacle->shortest().ui())
                     .ui(),
                 "waiting");
    }
}

void ReturnForm::confirm()
{
    QVariantList numbers;
    for (int row = 0; row < m_model.rowCount(); ++row) {
        if (isChosen(row)) {
            numbers.append(m_positions.at(row)->getNumber());
        }
    }
    answerForm(u"positions"_s, numbers);
}

bool ReturnForm::isChosen(int row) const
{
    return m_model.item(row, Chosen)->text() == tick;
}

void ReturnForm::choose(int row, bool chosen)
{
    const QString text = chosen ? tick : QString();
    m_model.item(row, Chosen)->setText(canBeChosen(row) ? text : withoutTick);
}

int ReturnForm::rowsWhere(bool (ReturnForm::*holds)(int row) const) const
{
    int count = 0;
    for (int row = 0; row < m_model.rowCount(); ++row) {
        count += (this->*holds)(row) ? 1 : 0;
    }
    return count;
}
