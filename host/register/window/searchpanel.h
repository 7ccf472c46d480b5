// SPDX-License-Identifier: MIT
#pragma once

#include "document.h"

#include <QWidget>

class QLabel;
class TalloLineEdit;

/// The search for goods, and the total of the open document beside it.
class SearchPanel : public QWidget
{
    Q_OBJECT

public:
    /// @param paymentKey of the payment, for a hint; empty: it has none
    explicit SearchPanel(const QString& paymentKey, QWidget* parent = nullptr);

    /// Shows the total of a document: of a sale beside the search, of a return beside what to do next.
    /// @param document null: none is open
    void showDocument(const Document* document);
    /// Clears the search.
    void clear();
    /// The widget that the next key is meant for.
    QWidget* input() const;

signals:
    /// The cashier scanned a code, or typed a text and pressed the Return key; never empty.
    void entered(const QString& text);

private:
    void createSearch();
    QString returnHint() const;
    void enter(const QString& text);

    QString m_paymentKey;
    TalloLineEdit* m_search;
    QLabel* m_caption;
    QLabel* m_total;
};
