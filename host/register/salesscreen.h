// SPDX-License-Identifier: MIT
#pragma once

#include "functionkey.h"
#include "positionmarks.h"
#include "receipttablemodel.h"
#include "sale.h"

#include <QList>
#include <QWidget>

class FunctionKeyBar;
class QLabel;
class TalloLineEdit;
class TalloTableView;

/// The screen of the open receipt: its positions, the total, the search for goods and the function keys.
class SalesScreen : public QWidget
{
    Q_OBJECT

public:
    /// @param sale, marks not owned
    SalesScreen(Sale& sale, const PositionMarks& marks, const QList<FunctionKey>& keys, QWidget* parent = nullptr);

    /// Shows the receipt as it is now.
    void refresh();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QWidget* createHeader();
    QWidget* createTable();
    QWidget* createSearchAndTotal();
    void search();
    void give(const FunctionKey& key);
    void moveRow(int by);

    Sale& m_sale;
    const PositionMarks& m_marks;
    ReceiptTableModel m_model;
    QLabel* m_receiptNumber = nullptr;
    QLabel* m_documentInfo = nullptr;
    TalloTableView* m_table = nullptr;
    TalloLineEdit* m_search = nullptr;
    QLabel* m_total = nullptr;
    int m_positions = 0;
};
