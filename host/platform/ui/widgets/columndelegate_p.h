// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QStyledItemDelegate>

/// Draws cells on one line, elided, aligned by column; the whole of a text that is cut off is in its tool tip. A colour
/// that the model gives a text holds in the selected row too, darkened where it would not be readable there.
class ColumnDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// Without a horizontal part numbers with decimals stand at the right, so that their points stand one below
    /// another.
    void setAlignment(int column, Qt::Alignment alignment) { m_alignments.insert(column, alignment); }

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

private:
    QHash<int, Qt::Alignment> m_alignments;
};
