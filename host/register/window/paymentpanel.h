// SPDX-License-Identifier: MIT
#pragma once

#include "document.h"
#include "till.h"
#include "tr.h"

#include <QSharedPointer>
#include <QWidget>

class QKeyEvent;
class QLabel;
class QPushButton;
class TalloKeyboard;
class TalloLineEdit;

/// Replaces the search for goods during the subtotal and the payment: the sum, the cash that the customer gives, and
/// the change.
class PaymentPanel : public QWidget
{
    Q_OBJECT

public:
    /// @param paymentKey the shortcut for the way from the subtotal to the payment; empty: there is none
    explicit PaymentPanel(const QString& paymentKey, QWidget* parent = nullptr);

    /// Shows what the cashier has to do in this phase. Clears the input when the phase changes.
    /// @param document null only while the phase is Positions
    void showPhase(Till::Phase phase, const QSharedPointer<Document>& document);
    /// The widget that the next key is meant for.
    QWidget* input() const;
    /// The cash in roubles, as it was typed; empty: exactly the sum.
    QString received() const;

    bool eventFilter(QObject* watched, QEvent* event) override;

signals:
    /// The cashier goes on from the subtotal to the payment, or closes the document.
    void confirmed();
    /// The cashier goes back to the positions.
    void left();

private:
    void createControls();
    void arrangeControls();
    void showSubtotal(bool payingOut);
    void showPayment();
    void showPayingOut();
    void showChange();
    void showChange(const tr::Tr& change, const char* textRole);
    void showKeyHint(const tr::Tr& hint);
    void showHint(const tr::Tr& hint, const char* textRole);
    bool takeKey(const QKeyEvent& key);
    void refuseScan();

    QString m_paymentKey;
    Till::Phase m_phase = Till::Phase::Positions;
    Kopecks m_sum = {};
    QLabel* m_caption;
    QLabel* m_sumLabel;
    QLabel* m_change;
    QLabel* m_receivedCaption;
    TalloLineEdit* m_received;
    QPushButton* m_back;
    QPushButton* m_pay;
    QLabel* m_hint;
    TalloKeyboard* m_keyboard;
};
