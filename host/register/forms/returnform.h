// SPDX-License-Identifier: MIT
#pragma once

#include "basicform.h"
#include "returnparams.h"

#include <QStandardItemModel>

class QPushButton;
class TalloTableView;

/// The cashier chooses which positions of a sale come back. All are chosen at first.
class ReturnForm : public BasicForm
{
    Q_OBJECT

public:
    explicit ReturnForm(const ReturnParams& params, QObject* parent = nullptr);

private:
    void fill(const ReturnParams& params);
    void setUpTable();
    void setUpButtons();
    void nameControls();
    void toggle(int row);
    void toggleAll();
    void showChoice();
    void confirm();

    bool isChosen(int row) const;
    void choose(int row, bool chosen);
    int chosenCount() const;

    QList<QSharedPointer<Position>> m_positions;
    QStandardItemModel m_model;
    TalloTableView* m_table;
    QPushButton* m_all;
    QPushButton* m_return;
};
