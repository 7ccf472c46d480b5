// SPDX-License-Identifier: MIT
#pragma once

#include "amount.h"

#include <QWidget>

class QLabel;
class TalloLineEdit;

/// The search for goods, and the total of the open document beside it.
class SearchPanel : public QWidget
{
    Q_OBJECT

public:
    explicit SearchPanel(QWidget* parent = nullptr);

    void showTotal(Kopecks total);
    /// Clears the search.
    void clear();
    /// The widget that the next key is meant for.
    QWidget* input() const;

signals:
    /// The cashier scanned a code, or typed a text and pressed the Return key; never empty.
    void entered(const QString& text);

private:
    void createSearch();
    void enter(const QString& text);

    TalloLineEdit* m_search;
    QLabel* m_total;
};
