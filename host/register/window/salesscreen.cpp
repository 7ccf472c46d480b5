// SPDX-License-Identifier: MIT
#include "salesscreen.h"

#include "actionfactory.h"
#include "actionqueuecontroller.h"
#include "documentwords.h"
#include "functionkeybar.h"
#include "paymentpanel.h"
#include "registeraction.h"
#include "tablecolumn.h"
#include "tallolineedit.h"
#include "tallotableview.h"
#include "tr.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{

/// A character for the search line: typed or scanned while a function key has the focus.
bool isText(const QKeyEvent& event)
{
    return !event.text().isEmpty() && event.text().front().isPrint() &&
           !(event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
}

} // namespace

SalesScreen::SalesScreen(Till& till, const PositionMarks& marks, const QList<FunctionKey>& keys, QWidget* parent)
    : QWidget(parent)
    , m_till(till)
    , m_marks(marks)
    , m_model(marks)
{
    setObjectName(u"salesScreen"_s);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 8, 16, 8);
    layout->setSpacing(8);
    layout->addWidget(createHeader());
    layout->addWidget(createTable(), 1);
    layout->addWidget(m_searchAndTotal = createSearchAndTotal());
    layout->addWidget(createPayment(keys));
    auto* keyBar = new FunctionKeyBar(keys, this);
    connect(keyBar, &FunctionKeyBar::pressed, this, &SalesScreen::press);
    layout->addWidget(keyBar);

    connect(&m_till, &Till::changed, this, &SalesScreen::refresh);
    refresh();
}

QWidget* SalesScreen::createHeader()
{
    auto* header = new QWidget(this);
    auto* layout = new QHBoxLayout(header);
    layout->setContentsMargins(0, 0, 0, 0);
    m_documentNumber = new QLabel(header);
    m_documentNumber->setObjectName(u"receiptNumberLabel"_s);
    m_documentNumber->setProperty("textSize", u"title"_s);
    m_documentInfo = new QLabel(header);
    m_documentInfo->setObjectName(u"documentInfoLabel"_s);
    m_documentInfo->setProperty("textRole", u"value"_s);
    m_documentInfo->setTextFormat(Qt::PlainText);
    m_documentInfo->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_documentInfo->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    layout->addWidget(m_documentNumber);
    layout->addWidget(m_documentInfo, 1);
    return header;
}

QWidget* SalesScreen::createTable()
{
    m_table = new TalloTableView(this);
    m_table->setObjectName(u"receiptTable"_s);
    m_table->setAccessibleName(tr::Tr(u"receiptTable"_s, u"Позиции чека"_s).ui());
    m_table->setFocusPolicy(Qt::NoFocus); // Up and Down in the search line move its rows
    m_table->setModel(&m_model);
    m_table->setColumns(TableColumn::texts({
        {u"number"_s, 40, TableColumn::right},
        {u"name"_s, TableColumn::remainingRoom, TableColumn::left},
        {u"mark"_s, TableColumn::fittingContents, TableColumn::centred},
        {u"quantity"_s, TableColumn::fittingContents, TableColumn::right},
        {u"initialPrice"_s, TableColumn::fittingContents, TableColumn::right},
        {u"price"_s, 88, TableColumn::right},
        {u"sum"_s, 104, TableColumn::right},
        {u"state"_s, TableColumn::fittingContents, TableColumn::left},
    }));
    // The range follows both the positions and the room: the payment takes some of it.
    connect(m_table->verticalScrollBar(), &QScrollBar::rangeChanged, this, &SalesScreen::scrollToCurrent);
    return m_table;
}

QWidget* SalesScreen::createSearchAndTotal()
{
    auto* row = new QWidget(this);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);

    m_search = new TalloLineEdit(row);
    m_search->setObjectName(u"searchLineEdit"_s);
    const QString hint = tr::Tr(u"searchGoods"_s, u"Поиск товара: название, МНН или штрихкод"_s).ui();
    m_search->setPlaceholderText(hint);
    m_search->setAccessibleName(hint);
    m_search->setMaxLength(200);
    connect(m_search, &QLineEdit::returnPressed, this, &SalesScreen::search);

    auto* total = new QLabel(tr::Tr(u"receiptTotal"_s, u"ИТОГО"_s).ui(), row);
    total->setObjectName(u"totalCaptionLabel"_s);
    m_total = new QLabel(row);
    m_total->setObjectName(u"totalLabel"_s);
    m_total->setAccessibleName(total->text());
    m_total->setProperty("textSize", u"sum"_s);
    m_total->setAlignment(Qt::AlignRight | Qt::AlignVCenter);

    layout->addWidget(m_search, 1);
    layout->addSpacing(16);
    layout->addWidget(total);
    layout->addWidget(m_total);
    return row;
}

QWidget* SalesScreen::createPayment(const QList<FunctionKey>& keys)
{
    const auto paymentKey = std::find_if(keys.cbegin(), keys.cend(), [](const FunctionKey& key) {
        return key.actionType == control::SubtotalAndPayment;
    });
    m_payment = new PaymentPanel(
        paymentKey == keys.cend() ? QString() : paymentKey->shortcut.toString(QKeySequence::NativeText), this);
    connect(m_payment, &PaymentPanel::confirmed, this, &SalesScreen::goOn);
    connect(m_payment, &PaymentPanel::left, this, &SalesScreen::goBack);
    return m_payment;
}

void SalesScreen::refresh()
{
    const QSharedPointer<Document> document = m_till.document();
    const QSharedPointer<Document> before = std::exchange(m_shown, document);
    showPositions();
    m_documentNumber->setText(document ? documentwords::title(*document)
                                       : tr::Tr(u"receiptNone"_s, u"Чек не открыт"_s).ui());
    const QString info = document ? m_marks.documentText(*document) : QString();
    m_documentInfo->setText(info);
    m_documentInfo->setToolTip(info);
    m_total->setText(amountText(document ? document->getSum() : 0));
    showPhase();
    if (before && before != document) {
        emit ended(*before);
    }
}

void SalesScreen::showPositions()
{
    const int formerRow = m_table->currentIndex().row();
    const int number = m_model.positionNumber(formerRow);
    const auto count = m_shown ? int(m_shown->positions().size()) : 0;
    const bool grown = count > std::exchange(m_positionCount, count);

    m_model.refresh(m_shown);
    if (count > 0) {
        m_table->setCurrentIndex(m_model.index(grown ? count - 1 : rowAfter(formerRow, number), 0));
    }
    for (const auto column : {PositionTableModel::Mark, PositionTableModel::InitialPrice, PositionTableModel::State}) {
        m_table->setColumnHidden(column, m_model.isEmpty(column));
    }
    scrollToCurrent();
}

/// The row of the position that was current, else the one that took its place.
int SalesScreen::rowAfter(int formerRow, int number) const
{
    const int row = m_model.rowOf(number);
    return row >= 0 ? row : std::clamp(formerRow, 0, m_model.rowCount() - 1);
}

void SalesScreen::scrollToCurrent()
{
    m_table->scrollTo(m_table->currentIndex(), QAbstractItemView::EnsureVisible);
}

/// The focus goes along with the phase, unless it stands in a form above this screen.
void SalesScreen::showPhase()
{
    const Till::Phase phase = m_till.phase();
    const bool searching = phase == Till::Phase::Positions;
    const bool hasFocus = isAncestorOf(QApplication::focusWidget());
    const QWidget* inputBefore = focusProxy();
    m_payment->showPhase(phase, m_shown);
    m_searchAndTotal->setVisible(searching);
    QWidget* input = searching ? m_search : m_payment->input();
    setFocusProxy(input);
    if (hasFocus && input != inputBefore) {
        input->setFocus();
    }
}

void SalesScreen::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Up:
        moveRow(-1);
        return;
    case Qt::Key_Down:
        moveRow(+1);
        return;
    case Qt::Key_Escape:
        goBack();
        return;
    default:
        if (isText(*event)) {
            type(*event);
        } else {
            QWidget::keyPressEvent(event);
        }
    }
}

/// What is typed or scanned while a function key has the focus goes where it is expected.
void SalesScreen::type(QKeyEvent& event)
{
    auto* line = qobject_cast<QLineEdit*>(focusProxy());
    if (!line) {
        return;
    }
    line->setFocus();
    QApplication::sendEvent(line, &event);
}

void SalesScreen::moveRow(int by)
{
    if (m_model.rowCount() > 0) {
        m_table->setCurrentIndex(
            m_model.index(std::clamp(m_table->currentIndex().row() + by, 0, m_model.rowCount() - 1), 0));
    }
}

void SalesScreen::search()
{
    const QString text = m_search->text().trimmed();
    m_search->clear();
    if (text.isEmpty()) {
        return;
    }
    control::Action action = Singleton<control::ActionFactory>::get()->create(registeraction::addGoods);
    action.insert(u"search"_s, text);
    Singleton<ActionQueueController>::get()->enqueue(action, false);
}

void SalesScreen::goOn()
{
    if (m_till.phase() == Till::Phase::Subtotal) {
        give(Singleton<control::ActionFactory>::get()->create(control::SubtotalAndPayment));
        return;
    }
    control::Action pay = Singleton<control::ActionFactory>::get()->create(registeraction::pay);
    pay.insert(u"received"_s, m_payment->received());
    give(pay);
}

void SalesScreen::goBack()
{
    if (m_till.phase() != Till::Phase::Positions) {
        give(Singleton<control::ActionFactory>::get()->create(registeraction::backToPositions));
        return;
    }
    m_search->clear();
    m_search->setFocus();
}

void SalesScreen::press(const FunctionKey& key)
{
    const bool handled = Singleton<ActionQueueController>::get()->isHandled(key.actionType);
    control::Action action =
        Singleton<control::ActionFactory>::get()->create(handled ? key.actionType : registeraction::explainKey);
    if (!handled) {
        action.insert(u"text"_s, key.text);
    }
    for (auto argument = key.arguments.cbegin(); argument != key.arguments.cend(); ++argument) {
        action.insert(argument.key(), argument.value());
    }
    if (const int number = m_model.positionNumber(m_table->currentIndex().row())) {
        action.insert(u"positionNumber"_s, number);
    }
    give(action);
}

/// Keys pressed while the register is at work do nothing.
void SalesScreen::give(const control::Action& action)
{
    auto* controller = Singleton<ActionQueueController>::get();
    if (!controller->isBusy()) {
        controller->enqueue(action, false);
    }
}
