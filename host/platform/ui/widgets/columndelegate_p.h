// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QStyledItemDelegate>

/// Draws cells on one line, elided, aligned by column. A text that is cut off is whole in its tool tip. The model's
/// colour of a text is used in the selected row, too, and darkened where it would be hard to read.
class ColumnDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// Without a horizontal part, numbers with decimals are at the right, so that their points are aligned.
    void setAlignment(int column, Qt::Alignment alignment) { m_alignments.insert(column, alignment); }

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

private:
    QHash<int, Qt::Alignment> m_alignments;
};
