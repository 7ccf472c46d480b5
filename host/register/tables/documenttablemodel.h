// SPDX-License-Identifier: MIT
#pragma once

#include "document.h"

#include <QAbstractTableModel>
#include <QList>
#include <QSharedPointer>

#include <functional>

/// The documents suspended and finished. What waits is amber, what is void is grey.
class DocumentTableModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    /// Time is when it was finished, of a document suspended when it was opened; the tool tip tells both, and when it
    /// was voided. SearchText is hidden: number, state and the names of the positions, for filtering.
    enum Column { Number, State, Time, Positions, Sum, SearchText, ColumnCount };

    using Pointer = QSharedPointer<Document>;
    using QAbstractTableModel::QAbstractTableModel;

    /// @param isReturned tells whether a sale was returned; asked once for each document
    void show(const QList<Pointer>& documents, const std::function<bool(const Document&)>& isReturned);

    Pointer document(int row) const { return m_rows.at(row).document; }
    bool isReturned(int row) const { return m_rows.at(row).isReturned; }
    /// The row of the document with that number; -1 when it is not there.
    int rowOf(int number) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    struct Row {
        Pointer document;
        bool isReturned;
    };

    static QString text(const Row& row, int column);
    static QString times(const Document& document);
    static QString searchText(const Row& row);

    QList<Row> m_rows;
};
