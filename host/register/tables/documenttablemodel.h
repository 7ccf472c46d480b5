// SPDX-License-Identifier: MIT
#pragma once

#include "document.h"

#include <QAbstractTableModel>
#include <QList>
#include <QSharedPointer>

#include <functional>

/// The suspended and the finished documents. The state of a suspended document is amber; cancelled and voided documents
/// are grey.
class DocumentTableModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    /// Time is when the document was finished, for a suspended one when it was opened. Its tool tip has all times.
    /// The last two are for filtering and hidden. SearchText has number, state and the names of the positions; Days the
    /// days when the document was opened and finished, as dayText() writes them.
    enum Column { Number, State, Time, Positions, Sum, SearchText, Days, ColumnCount };

    using Pointer = QSharedPointer<Document>;
    using QAbstractTableModel::QAbstractTableModel;

    /// @param returned how much of a sale was returned; called once for each document
    void show(const QList<Pointer>& documents, const std::function<Document::Returned(const Document&)>& returned);

    /// Adds those documents that are not there yet, each in its place: the latest is the first. For `returned` see
    /// show().
    void add(const QList<Pointer>& documents, const std::function<Document::Returned(const Document&)>& returned);

    static QString dayText(QDate day);

    Pointer document(int row) const { return m_rows.at(row).document; }
    /// The row of the document with that number; -1: there is none.
    int rowOf(int number) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    struct Row {
        Pointer document;
        Document::Returned returned;
    };

    static QString text(const Row& row, int column);
    static QString times(const Document& document);
    static QString searchText(const Row& row);

    QList<Row> m_rows;
};
