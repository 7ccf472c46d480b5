// SPDX-License-Identifier: MIT
#include "salesscreen.h"

#include "actionfactory.h"
#include "actionqueuecontroller.h"
#include "config.h"
#include "directionmarks.h"
#include "documentwords.h"
#include "formhost.h"
#include "functionkeybar.h"
#include "graphicaluserinterface.h"
#include "plaintooltip.h"
#include "registeraction.h"
#include "screenhelp.h"
#include "searchpanel.h"
#include "shownkey.h"
#include "tablecolumn.h"
#include "tallotableview.h"
#include "touchmode.h"
#include "tr.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{

bool isText(const QKeyEvent& event)
{
    return !event.text().isEmpty() && event.text().front().isPrint() &&
           !(event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
}

/// The shortcut of the payment as the cashier reads it; empty when none is shown.
QString paymentKeyOf(const QList<FunctionKey>& keys)
{
    const auto key = std::find_if(keys.cbegin(), keys.cend(), [](const FunctionKey& candidate) {
        return candidate.actionType == control::SubtotalAndPayment;
    });
    return key == keys.cend() ? QString() : shownKey(key->shortcut);
}

} // namespace

SalesScreen::SalesScreen(Till& till, const PositionMarks& marks, const QList<FunctionKey>& keys, QWidget* parent)
    : QWidget(parent)
    , m_till(till)
    , m_marks(marks)
    , m_model(marks)
    , m_keys(keys)
{
    setObjectName(u"salesScreen"_s);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 8, 16, 8);
    layout->setSpacing(8);
    layout->addWidget(createHeader());
    layout->addWidget(createTable(), 1);
    createBeginning();
    layout->addWidget(createSearch(keys));
    layout->addWidget(createPayment(keys));
    auto* keyBar = new FunctionKeyBar(keys, this);
    connect(keyBar, &FunctionKeyBar::pressed, this, &SalesScreen::press);
    layout->addWidget(keyBar);

    connect(&m_till, &Till::changed, this, &SalesScreen::refresh);
    connect(&m_till, &Till::positionRaised, this, &SalesScreen::makeCurrent);
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
        {u"number"_s, TableColumn::fittingContents, TableColumn::right},
        {u"name"_s, TableColumn::remainingRoom, TableColumn::left},
        {u"mark"_s, TableColumn::fittingContents, TableColumn::centred},
        {u"quantity"_s, TableColumn::fittingContents, TableColumn::right},
        {u"initialPrice"_s, TableColumn::fittingMoney, TableColumn::right},
        {u"price"_s, TableColumn::fittingMoney, TableColumn::right},
        {u"sum"_s, TableColumn::fittingMoney, TableColumn::right},
        {u"state"_s, TableColumn::fittingContents, TableColumn::left},
    }));
    // The range changes with the positions, and with the height that the payment leaves.
    connect(m_table->verticalScrollBar(), &QScrollBar::rangeChanged, this, &SalesScreen::scrollToCurrent);
    return m_table;
}

/// In the place of the positions. What plug-ins and the pharmacy want said there is in the configuration.
void SalesScreen::createBeginning()
{
    QStringList lines{screenHelp(u"idle"_s).next.ui(), Singleton<Config>::get()->getString(u"Register:idleHint"_s)};
    if (!isTouchMode() && !keyWithShortcut(m_keys, helpKey)) {
        lines.append(tr::Tr(u"idleHelpKey"_s, u"%1 — какие клавиши работают, на любом экране."_s)
                         .arg(QKeySequence(helpKey).toString(QKeySequence::NativeText))
                         .ui());
    }
    lines.removeAll(QString());
    m_beginning = new QLabel(lines.join(u"\n\n"_s), m_table->viewport());
    m_beginning->setObjectName(u"beginningLabel"_s);
    m_beginning->setProperty("textRole", u"hint"_s);
    m_beginning->setTextFormat(Qt::PlainText);
    m_beginning->setAlignment(Qt::AlignCenter);
    m_beginning->setWordWrap(true);
    auto* layout = new QVBoxLayout(m_table->viewport());
    layout->addWidget(m_beginning);
}

QWidget* SalesScreen::createSearch(const QList<FunctionKey>& keys)
{
    m_search = new SearchPanel(paymentKeyOf(keys), this);
    connect(m_search, &SearchPanel::entered, this, &SalesScreen::addGoods);
    return m_search;
}

QWidget* SalesScreen::createPayment(const QList<FunctionKey>& keys)
{
    const bool isCardKeyTaken = keyWithShortcut(keys, cardPaymentKey) != nullptr;
    m_payment =
        new PaymentPanel({paymentKeyOf(keys), isCardKeyTaken ? QKeySequence() : QKeySequence(cardPaymentKey)}, this);
    connect(m_payment, &PaymentPanel::confirmed, this, &SalesScreen::goOn);
    connect(m_payment, &PaymentPanel::confirmedByCard, this, [this] { pay(PaymentMethod::Card); });
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
    const QString info = document ? withoutDirectionMarks(m_marks.documentText(*document)) : QString();
    m_documentInfo->setText(info);
    m_documentInfo->setToolTip(plainToolTip(info));
    m_search->showDocument(document.data());
    m_beginning->setVisible(!document);
    showPhase();
    if (before && before != document) {
        emit ended(*before);
    }
}

QString SalesScreen::heading() const
{
    return m_documentNumber->text();
}

QString SalesScreen::screen() const
{
    switch (m_till.phase()) {
    case Till::Phase::Subtotal:
        return u"subtotal"_s;
    case Till::Phase::Payment:
        return m_shown->isReturn() ? u"payOut"_s : u"payment"_s;
    default:
        return m_shown ? u"positions"_s : u"idle"_s;
    }
}

FormHelp SalesScreen::help() const
{
    FormHelp help = screenHelp(screen());
    if (m_payment->isCardKeyActive()) {
        help.keys.append({QKeySequence(cardPaymentKey).toString(QKeySequence::NativeText),
                          {u"helpPaymentByCard"_s, u"остаток картой"_s}});
    }
    for (const FunctionKey& key : m_keys) {
        if (!key.shortcut.isEmpty() && doesSomething(key)) {
            help.keys.append({key.shortcut.toString(QKeySequence::NativeText), {tr::undefined, key.text}});
        }
    }
    return help;
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

/// The row of the position that was current; when it was removed, the row that took its place.
int SalesScreen::rowAfter(int formerRow, int number) const
{
    const int row = m_model.rowOf(number);
    return row >= 0 ? row : std::clamp(formerRow, 0, m_model.rowCount() - 1);
}

void SalesScreen::makeCurrent(int positionNumber)
{
    m_table->setCurrentIndex(m_model.index(m_model.rowOf(positionNumber), 0));
    scrollToCurrent();
}

void SalesScreen::scrollToCurrent()
{
    m_table->scrollTo(m_table->currentIndex(), QAbstractItemView::EnsureVisible);
}

PaymentPanel::Amounts SalesScreen::amounts() const
{
    const QList<CardOperation> toCards = m_shown->isReturn() ? m_till.owedToCards(*m_shown) : QList<CardOperation>();
    return {m_till.due(), cardoperations::totalOf(toCards)};
}

/// Moves the focus to the input of the phase, unless a form above this screen has it.
void SalesScreen::showPhase()
{
    const Till::Phase phase = m_till.phase();
    const bool searching = phase == Till::Phase::Positions;
    const bool hasFocus = isAncestorOf(QApplication::focusWidget());
    const QWidget* inputBefore = focusProxy();
    m_payment->showPhase(phase, m_shown, searching ? PaymentPanel::Amounts() : amounts());
    m_search->setVisible(searching);
    QWidget* input = searching ? m_search->input() : m_payment->input();
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

/// Characters that are typed or scanned while a function key has the focus go to the input of the phase.
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

void SalesScreen::addGoods(const QString& search)
{
    control::Action action = Singleton<control::ActionFactory>::get()->create(registeraction::addGoods);
    action.insert(u"search"_s, search);
    Singleton<ActionQueueController>::get()->enqueue(action, false);
}

void SalesScreen::goOn()
{
    if (m_till.phase() == Till::Phase::Subtotal) {
        give(Singleton<control::ActionFactory>::get()->create(control::SubtotalAndPayment));
        return;
    }
    pay(PaymentMethod::Cash);
}

void SalesScreen::pay(PaymentMethod method)
{
    control::Action action = Singleton<control::ActionFactory>::get()->create(registeraction::pay);
    action.insert(u"method"_s, QString(rowOf(method).word));
    action.insert(u"received"_s, m_payment->received());
    give(action);
}

void SalesScreen::goBack()
{
    if (m_till.phase() != Till::Phase::Positions) {
        give(Singleton<control::ActionFactory>::get()->create(registeraction::backToPositions));
        return;
    }
    m_search->clear();
    m_search->input()->setFocus();
}

void SalesScreen::press(const FunctionKey& key)
{
    give(actionOf(key, m_model.positionNumber(m_table->currentIndex().row())));
}

/// Ignores keys while an action is running.
void SalesScreen::give(const control::Action& action)
{
    auto* controller = Singleton<ActionQueueController>::get();
    if (!controller->isBusy()) {
        // Whatever was shown before is no message of this action.
        Singleton<GraphicalUserInterface>::get()->host().lastMessage.clear();
        controller->enqueue(action, false);
    }
}
