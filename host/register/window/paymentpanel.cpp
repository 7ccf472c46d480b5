// SPDX-License-Identifier: MIT
#include "paymentpanel.h"

#include "basicform.h"
#include "cardterminalhost.h"
#include "cardterminals.h"
#include "cashpayment.h"
#include "functionkey.h"
#include "inactivitylocker.h"
#include "registerstyle.h"
#include "scanfilter.h"
#include "shownkey.h"
#include "tallokeyboard.h"
#include "tallolineedit.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QVBoxLayout>

#include <algorithm>
#include <functional>
#include <iterator>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{

constexpr int spaceBetweenFields = 8;
/// Longer than an amount: a barcode is refused as a whole, never cut to an amount.
constexpr int longestInput = 40;

bool hasTerminal()
{
    return !Singleton<CardTerminals>::get()->host().terminal.isNull();
}

/// Accepts an amount of roubles while it is typed.
QValidator* createMoneyValidator(QObject* parent)
{
    return new QRegularExpressionValidator(QRegularExpression(u"\\d*(?:[.,]\\d{0,2})?"_s), parent);
}

QHBoxLayout* createRow()
{
    auto* row = new QHBoxLayout;
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(spaceBetweenFields);
    return row;
}

} // namespace

PaymentPanel::PaymentPanel(const Keys& keys, QWidget* parent)
    : QWidget(parent)
    , m_keys(keys)
    , m_caption(new QLabel(this))
    , m_sumLabel(new QLabel(this))
    , m_currency(new QLabel(currency(), this))
    , m_byCard(new QLabel(this))
    , m_change(new QLabel(this))
    , m_receivedCaption(new QLabel(this))
    , m_received(new TalloLineEdit(this))
    , m_back(new QPushButton(this))
    , m_card(new QPushButton(this))
    , m_pay(new QPushButton(this))
    , m_hint(new QLabel(this))
    , m_keyboard(new TalloKeyboard(this))
{
    setObjectName(u"paymentPanel"_s);
    createControls();
    arrangeControls();
    m_received->installEventFilter(this);
    auto* scans = new ScanFilter(*m_received);
    for (QPushButton* button : {m_back, m_card, m_pay}) {
        button->installEventFilter(this);
        scans->watch(*button);
    }
    connect(scans, &ScanFilter::scanned, this, &PaymentPanel::refuseScan);
    connect(m_received, &QLineEdit::textChanged, this, [this] { showChange(); });
    connect(m_received, &QLineEdit::inputRejected, this, [this] {
        showHint({u"paymentInputRefused"_s, u"Вводите только цифры и запятую, не больше двух цифр после неё."_s},
                 "error");
    });
    connect(m_card, &QPushButton::clicked, this, &PaymentPanel::confirmedByCard);
    connect(m_pay, &QPushButton::clicked, this, &PaymentPanel::confirm);
    connect(m_back, &QPushButton::clicked, this, &PaymentPanel::left);
    connect(m_keyboard, &TalloKeyboard::keyPressed, Singleton<InactivityLocker>::get(), &InactivityLocker::resetTimer);
}

void PaymentPanel::createControls()
{
    m_caption->setObjectName(u"paymentCaptionLabel"_s);
    m_sumLabel->setObjectName(u"paymentSumLabel"_s);
    m_sumLabel->setProperty("textSize", u"sum"_s);
    m_currency->setObjectName(u"paymentCurrencyLabel"_s);
    m_currency->setVisible(!m_currency->text().isEmpty());
    m_byCard->setObjectName(u"chargedLabel"_s);
    m_change->setObjectName(u"changeLabel"_s);
    m_change->setProperty("textSize", u"amount"_s);
    m_change->setAlignment(Qt::AlignRight | Qt::AlignVCenter);

    m_receivedCaption->setObjectName(u"receivedCaptionLabel"_s);
    m_receivedCaption->setText(tr::Tr(u"paymentReceived"_s, u"Получено:"_s).ui());
    m_received->setObjectName(u"receivedLineEdit"_s);
    m_received->setAccessibleName(tr::Tr(u"paymentReceivedField"_s, u"Получено от покупателя"_s).ui());
    m_received->setProperty("textSize", u"sum"_s);
    m_received->setNumeric(true);
    m_received->setMaxLength(longestInput);
    m_received->setValidator(createMoneyValidator(m_received));

    m_back->setObjectName(u"backButton"_s);
    m_back->setText(tr::Tr(u"paymentBack"_s, u"Назад"_s).ui());
    m_back->setAccessibleName(m_back->text());
    m_back->setAutoDefault(true);
    m_card->setObjectName(u"cardButton"_s);
    m_card->setText(withShownKey(m_keys.card, tr::Tr(u"paymentByCard"_s, u"Картой"_s).ui()));
    m_card->setAccessibleName(tr::Tr(u"paymentByCardName"_s, u"Остаток картой"_s).ui());
    m_card->setAutoDefault(true);
    m_pay->setObjectName(u"payButton"_s);
    m_pay->setProperty("primary", true);
    m_pay->setAccessibleName(tr::Tr(u"paymentGoOn"_s, u"К оплате"_s).ui());

    m_hint->setObjectName(u"paymentHintLabel"_s);
    m_hint->setWordWrap(true);

    m_keyboard->setObjectName(u"paymentKeyboard"_s);
    m_keyboard->setKeyboardLayouts(u"digits"_s);
}

void PaymentPanel::arrangeControls()
{
    auto* sums = createRow();
    sums->addWidget(m_caption);
    sums->addWidget(m_sumLabel);
    sums->addWidget(m_currency);
    sums->addWidget(m_byCard);
    sums->addStretch();
    sums->addWidget(m_change);
    auto* input = createRow();
    input->addWidget(m_receivedCaption);
    input->addWidget(m_received, 1);
    input->addStretch();
    input->addWidget(m_back);
    input->addWidget(m_card);
    input->addWidget(m_pay);

    auto* column = new QVBoxLayout;
    column->setSpacing(spaceBetweenFields);
    column->addLayout(sums);
    column->addLayout(input);
    column->addWidget(m_hint);
    column->addStretch();
    auto* layout = createRow();
    layout->addLayout(column, 5);
    layout->addWidget(m_keyboard, 2);
    setLayout(layout);
}

void PaymentPanel::showPhase(Till::Phase phase, const QSharedPointer<Document>& document, const Amounts& amounts)
{
    if (std::exchange(m_phase, phase) != phase) {
        m_received->clear();
        m_sinceGoingOn.invalidate();
        if (std::exchange(m_isGoingOn, false)) {
            m_sinceGoingOn.start();
        }
    }
    setVisible(phase != Till::Phase::Positions);
    if (phase == Till::Phase::Positions) {
        return;
    }
    m_sum = amounts.due;
    m_byCard->clear();
    m_sumLabel->setText(amountFigures(m_sum));
    if (phase == Till::Phase::Subtotal) {
        showSubtotal(document->isReturn());
    } else if (document->isReturn()) {
        showPayingOut(amounts);
    } else {
        showPayment(*document);
    }
    m_sumLabel->setAccessibleName(m_caption->text());
    m_pay->setAccessibleName(m_pay->text());

    const bool takesMoney = phase == Till::Phase::Payment && !document->isReturn();
    for (QWidget* control : {static_cast<QWidget*>(m_receivedCaption), static_cast<QWidget*>(m_received),
                             static_cast<QWidget*>(m_change)}) {
        control->setVisible(takesMoney);
    }
    m_card->setVisible(takesMoney && hasTerminal());
    m_keyboard->setVisible(takesMoney && BasicForm::isTouchMode());
}

QWidget* PaymentPanel::input() const
{
    return m_received->isVisibleTo(this) ? static_cast<QWidget*>(m_received) : m_pay;
}

bool PaymentPanel::isCardKeyActive() const
{
    return m_card->isVisibleTo(this) && isVisible() && !m_keys.card.isEmpty();
}

QString PaymentPanel::received() const
{
    return m_received->text();
}

void PaymentPanel::showSubtotal(bool payingOut)
{
    m_caption->setText(tr::Tr(u"paymentSubtotal"_s, u"ПОДЫТОГ"_s).ui());
    m_pay->setText(
        (payingOut ? tr::Tr(u"paymentGoOnPayingOut"_s, u"К выплате"_s) : tr::Tr(u"paymentGoOn"_s, u"К оплате"_s)).ui());
    showKeyHint(m_keys.payment.isEmpty()
                    ? tr::Tr(u"paymentSubtotalHint"_s, u"Ввод — дальше, Esc — назад к позициям."_s)
                    : tr::Tr(u"paymentSubtotalKeyHint"_s, u"%1 или Ввод — дальше, Esc — назад к позициям."_s)
                          .arg(m_keys.payment));
}

void PaymentPanel::showPayment(const Document& document)
{
    m_caption->setText(tr::Tr(u"paymentDue"_s, u"К ОПЛАТЕ"_s).ui());
    m_pay->setText(tr::Tr(u"paymentPay"_s, u"Закрыть чек"_s).ui());
    m_received->setPlaceholderText(amountFigures(m_sum));
    if (document.getCharged() > Kopecks{0}) {
        m_byCard->setText(
            tr::Tr(u"paymentCharged"_s, u"Картой оплачено %1"_s).arg(amountText(document.getCharged())).ui());
    }
    showChange();
}

void PaymentPanel::showPayingOut(const Amounts& amounts)
{
    m_caption->setText(tr::Tr(u"paymentPayOut"_s, u"К ВОЗВРАТУ"_s).ui());
    if (amounts.toCards == Kopecks{0}) {
        m_pay->setText(tr::Tr(u"paymentPaidOut"_s, u"Деньги выданы"_s).ui());
        showKeyHint(
            {u"paymentPayOutHint"_s, u"Выдайте деньги покупателю. Ввод — закрыть возврат, Esc — назад к позициям."_s});
        return;
    }
    const Kopecks inCash = amounts.due - amounts.toCards;
    m_byCard->setText(inCash == Kopecks{0}
                          ? tr::Tr(u"paymentToCardsAlone"_s, u"На карту %1"_s).arg(amountText(amounts.toCards)).ui()
                          : tr::Tr(u"paymentToCards"_s, u"На карту %1, наличными %2"_s)
                                .arg(amountText(amounts.toCards))
                                .arg(amountText(inCash))
                                .ui());
    m_pay->setText(tr::Tr(u"paymentRefund"_s, u"Вернуть деньги"_s).ui());
    showKeyHint(
        {u"paymentRefundHint"_s, u"Ввод — вернуть деньги на карту и закрыть возврат, Esc — назад к позициям."_s});
}

void PaymentPanel::showChange()
{
    const auto payment = cashpayment::received(m_sum, m_received->text());
    if (payment) {
        showChange(tr::Tr(u"paymentChange"_s, u"Сдача %1"_s).arg(amountText(payment->amount - m_sum)), "value");
    } else {
        showChange(payment.failure().brief, typedAmount(m_received->text()) ? "waiting" : "error");
    }
    showKeyHint(hasTerminal() && !m_keys.card.isEmpty()
                    ? tr::Tr(u"paymentCardHint"_s, u"Ввод — закрыть чек, %1 — остаток картой, Esc — назад к позициям. "
                                                   "Пустое поле — ровно сумма к оплате."_s)
                          .arg(m_keys.card.toString(QKeySequence::NativeText))
                    : tr::Tr(u"paymentHint"_s,
                             u"Ввод — закрыть чек, Esc — назад к позициям. Пустое поле — ровно сумма к оплате."_s));
}

void PaymentPanel::showChange(const tr::Tr& change, const char* textRole)
{
    setStyleProperty(*m_change, u"textRole"_s, QLatin1StringView(textRole)); // first: the width depends on it
    m_change->setText(change.ui());
}

/// Without the hint in touch mode: there are buttons, and no such keys.
void PaymentPanel::showKeyHint(const tr::Tr& hint)
{
    showHint(BasicForm::isTouchMode() ? tr::Tr() : hint, "hint");
}

void PaymentPanel::showHint(const tr::Tr& hint, const char* textRole)
{
    m_hint->setText(hint.ui());
    setStyleProperty(*m_hint, u"textRole"_s, QLatin1StringView(textRole));
}

bool PaymentPanel::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress) {
        return QWidget::eventFilter(watched, event);
    }
    const auto& key = *static_cast<QKeyEvent*>(event);
    if (key.key() == Qt::Key_Up || key.key() == Qt::Key_Down) {
        event->ignore(); // the sales screen moves the current position
        return true;
    }
    return takeKey(key);
}

bool PaymentPanel::takeKey(const QKeyEvent& key)
{
    if (key.key() == cardPaymentKey && isCardKeyActive()) {
        if (!key.isAutoRepeat()) {
            m_card->click();
        }
        return true;
    }
    if (key.key() != Qt::Key_Return && key.key() != Qt::Key_Enter) {
        return false;
    }
    // A held Return was meant for the screen before.
    if (!key.isAutoRepeat()) {
        QPushButton* const others[] = {m_back, m_card};
        const auto* focused = std::find_if(std::begin(others), std::end(others), std::mem_fn(&QWidget::hasFocus));
        (focused == std::end(others) ? m_pay : *focused)->click();
    }
    return true;
}

void PaymentPanel::confirm()
{
    if (isSecondPress()) {
        return;
    }
    m_isGoingOn = m_phase == Till::Phase::Subtotal;
    emit confirmed();
}

/// The second press of a double press at the subtotal was not meant for the payment, which has the same button: nobody
/// has read what is due there.
bool PaymentPanel::isSecondPress() const
{
    return m_sinceGoingOn.isValid() && m_sinceGoingOn.elapsed() < QApplication::doubleClickInterval() &&
           m_received->text().isEmpty();
}

/// A barcode is never money, and the Return key at its end never confirms the payment.
void PaymentPanel::refuseScan()
{
    m_received->selectAll();
    showHint({u"paymentScanRefused"_s,
              u"Отсканирован штрихкод, он не считается. Чтобы добавить товар, вернитесь к позициям."_s},
             "error");
}
