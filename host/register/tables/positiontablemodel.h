// SPDX-License-Identifier: MIT
#pragma once

#include "amount.h"
#include "document.h"
#include "positionmarks.h"

#include <QAbstractTableModel>
#include <QList>
#include <QSharedPointer>

/// The document's positions as the cashier sees them.
///
/// Positions do not tell when they change: whoever changed one calls refresh().
class PositionTableModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { Number, Name, Mark, Quantity, InitialPrice, Price, Sum, State, ColumnCount };

    /// @param marks not owned, has to outlive the model
    explicit PositionTableModel(const PositionMarks& marks, QObject* parent = nullptr);

    /// Takes over what stands on the document now; null: an empty table.
    void refresh(const QSharedPointer<Document>& document);

    /// The position's number in that row; 0 when there is no such row.
    int positionNumber(int row) const;
    /// The row of a position; -1 when it is not there.
    int rowOf(int positionNumber) const;
    /// True when no row has anything to show in that column.
    bool isEmpty(Column column) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    struct Row {
        int number;
        QString name;
        double packs;
        Kopecks initialPrice;
        Kopecks price;
        Kopecks sum;
        PositionMarks::Look look;
    };

    QString text(const Row& row, int column) const;
    /// The whole of a text that may be cut off, and what the plug-in tells of the position; foreign text is shown as it
    /// stands, never as mark-up.
    QString toolTip(const Row& row, int column) const;

    const PositionMarks& m_marks;
    QList<Row> m_rows;
};
