// SPDX-License-Identifier: MIT
#pragma once

#include "amount.h"
#include "document.h"
#include "positionmarks.h"

#include <QAbstractTableModel>
#include <QList>
#include <QSharedPointer>

/// The positions of a document.
///
/// Positions have no signals: call refresh() after a change.
class PositionTableModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { Number, Name, Mark, Quantity, InitialPrice, Price, Sum, State, ColumnCount };

    /// @param marks not owned; must outlive the model
    explicit PositionTableModel(const PositionMarks& marks, QObject* parent = nullptr);

    /// Shows the positions as they are now; null: an empty table.
    void refresh(const QSharedPointer<Document>& document);

    /// The number of the position in that row; 0: there is no such row.
    int positionNumber(int row) const;
    /// The row of the position with that number; -1: there is none.
    int rowOf(int positionNumber) const;
    /// True when the column is empty in every row.
    bool isEmpty(Column column) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    struct Row {
        int number; ///< the position's own, by which plug-ins know it
        int line;   ///< counted from 1, as the cashier reads it
        QString name;
        double packs;
        Kopecks initialPrice;
        Kopecks price;
        Kopecks sum;
        PositionMarks::Look look;
    };

    QString text(const Row& row, int column) const;
    /// The whole text of the cell, and the plug-in's lines about the position. Escaped, so that no text is taken for
    /// mark-up.
    QString toolTip(const Row& row, int column) const;

    const PositionMarks& m_marks;
    QList<Row> m_rows;
};
