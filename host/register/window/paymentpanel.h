// SPDX-License-Identifier: MIT
#pragma once

#include "document.h"
#include "till.h"
#include "tr.h"

#include <QElapsedTimer>
#include <QKeySequence>
#include <QSharedPointer>
#include <QWidget>

class QKeyEvent;
class QLabel;
class QPushButton;
class TalloKeyboard;
class TalloLineEdit;

/// Replaces the search for goods during the subtotal and the payment: what is due, the cash that the customer gives,
/// the change, and the way to pay the rest by card.
class PaymentPanel : public QWidget
{
    Q_OBJECT

public:
    /// The keys that depend on the configuration; an empty one is missing.
    struct Keys {
        QString payment;   ///< goes from the subtotal to the payment; a function key, as the cashier reads it
        QKeySequence card; ///< has the card pay what the cash does not. It needs what is typed here
    };
    explicit PaymentPanel(const Keys& keys, QWidget* parent = nullptr);

    /// What is paid, or paid out.
    struct Amounts {
        Kopecks due{};     ///< still
        Kopecks toCards{}; ///< how much of a return's `due` goes back to cards
    };
    /// Shows what the cashier has to do in this phase. Clears the input when the phase changes.
    /// @param document null only while the phase is Positions
    void showPhase(Till::Phase phase, const QSharedPointer<Document>& document, const Amounts& amounts);
    /// The widget that the next key is meant for.
    QWidget* input() const;
    /// The cash in roubles, as it was typed; empty: exactly the sum.
    QString received() const;

    /// True while the card can pay the rest by its key.
    bool isCardKeyActive() const;

    bool eventFilter(QObject* watched, QEvent* event) override;

signals:
    /// The cashier goes on from the subtotal to the payment, or closes the document.
    void confirmed();
    /// The cashier has the card pay what the cash does not.
    void confirmedByCard();
    /// The cashier goes back to the positions.
    void left();

private:
    void createControls();
    void arrangeControls();
    void showSubtotal(bool payingOut);
    void showPayment(const Document& document);
    void showPayingOut(const Amounts& amounts);
    void showChange();
    void showChange(const tr::Tr& change, const char* textRole);
    void showKeyHint(const tr::Tr& hint);
    void showHint(const tr::Tr& hint, const char* textRole);
    bool takeKey(const QKeyEvent& key);
    void confirm();
    bool isSecondPress() const;
    void refuseScan();

    Keys m_keys;
    Till::Phase m_phase = Till::Phase::Positions;
    bool m_isGoingOn = false;     ///< from the subtotal, by this panel
    QElapsedTimer m_sinceGoingOn; ///< valid while that was the last change of the phase
    Kopecks m_sum = {};           ///< due
    QLabel* m_caption;
    QLabel* m_sumLabel;
    QLabel* m_currency;
    QLabel* m_byCard;
    QLabel* m_change;
    QLabel* m_receivedCaption;
    TalloLineEdit* m_received;
    QPushButton* m_back;
    QPushButton* m_card;
    QPushButton* m_pay;
    QLabel* m_hint;
    TalloKeyboard* m_keyboard;
};
