// SPDX-License-Identifier: MIT
#pragma once

#include "basicform.h"
#include "returnparams.h"

#include <QStandardItemModel>

class QPushButton;
class TalloTableView;

/// The cashier chooses which positions of a sale come back. All that can are chosen at first.
class ReturnForm : public BasicForm
{
    Q_OBJECT

public:
    explicit ReturnForm(const ReturnParams& params, QObject* parent = nullptr);

private:
    void fill(const ReturnParams& params);
    void setUpTable();
    void enlargeTicks();
    void setUpButtons();
    void nameControls();
    void toggle(int row);
    void toggleAll();
    void showChoice();
    void showHint(const QString& text, const char* textRole);
    void showObstacle(int row);
    void confirm();

    bool isChosen(int row) const;
    void choose(int row, bool chosen);
    bool canBeChosen(int row) const { return !m_obstacles.contains(m_positions.at(row)->getNumber()); }
    int rowsWhere(bool (ReturnForm::*holds)(int row) const) const;

    QList<QSharedPointer<Position>> m_positions;
    QHash<int, Obstacle> m_obstacles; ///< by the number of the position
    QStandardItemModel m_model;
    TalloTableView* m_table;
    QPushButton* m_all;
    QPushButton* m_return;
};
