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

/// What stands in the place of the search for goods when a document is at its subtotal or its payment: the sum, the
/// cash that the customer gives, and the change.
class PaymentPanel : public QWidget
{
    Q_OBJECT

public:
    /// @param paymentKey the shortcut that leads from the subtotal to the payment; empty: there is none
    explicit PaymentPanel(const QString& paymentKey, QWidget* parent = nullptr);

    /// Shows what the phase asks the cashier to do. What was typed stays until the phase is another one.
    /// @param document null while the phase is Positions and none is open
    void showPhase(Till::Phase phase, const QSharedPointer<Document>& document);
    /// Where the next key is expected.
    QWidget* input() const;
    /// The cash as it was typed, in roubles; empty: exactly the sum.
    QString received() const;

    bool eventFilter(QObject* watched, QEvent* event) override;

signals:
    /// On to what comes next: from the subtotal to the payment, from the payment to the next document.
    void confirmed();
    /// Back to the positions.
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
    Kopecks m_sum = 0;
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
