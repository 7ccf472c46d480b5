// SPDX-License-Identifier: MIT
#pragma once

#include "export.h"

#include <QSet>
#include <QStringList>
#include <QTableView>

class ColumnDelegate;

/// The register's table: whole rows are current, one at a time, and columns are described by texts.
///
/// A cell is one line. A text that does not fit is elided, and whole in the tool tip. Captions are the model's
/// headerData.
class REGISTERPLATFORM_EXPORT TalloTableView : public QTableView
{
    Q_OBJECT

public:
    explicit TalloTableView(QWidget* parent = nullptr);

    /// Describes the columns, in order, each by the text of a TableColumn: "name;caption;width;shown;alignment".
    /// - name, caption: not used here
    /// - width: pixels, or -1: the room that is left (shared when several columns ask for it), or -2: fits the contents
    ///   (the rows on the screen, up to a reasonable width), or -3: the same for amounts of money, and at least as wide
    ///   as 9 999 999,99 in bold type
    /// - shown: "true" or "false"
    /// - alignment: Qt::Alignment as a number, for the cells. Without a horizontal part, numbers with decimals are at
    ///   the right, all other texts at the left
    ///
    /// A text of another form is logged and leaves its column as it was. The columns apply also to a model set later.
    void setColumns(const QStringList& columns);
    /// The texts as they were given.
    QStringList columns() const { return m_columns; }

protected:
    int sizeHintForColumn(int column) const override;
    /// A press beside the rows leaves the current row selected.
    void mousePressEvent(QMouseEvent* event) override;

private:
    void applyColumns();
    int moneyWidth() const;

    ColumnDelegate* m_delegate;
    QStringList m_columns;
    QSet<int> m_moneyColumns;
};
