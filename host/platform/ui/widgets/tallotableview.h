// SPDX-License-Identifier: MIT
#pragma once

#include "export.h"

#include <QStringList>
#include <QTableView>

class ColumnDelegate;
class ColumnHeader;

/// The register's table: whole rows are current, one at a time, and columns are described by texts.
///
/// Cells are one line; what does not fit is elided, the whole text is in the tool tip.
class REGISTERPLATFORM_EXPORT TalloTableView : public QTableView
{
    Q_OBJECT

public:
    explicit TalloTableView(QWidget* parent = nullptr);

    /// Describes the columns, in order. Each item is "name;caption;width;shown;alignment":
    /// - name: for configuration; blanks around it do not count
    /// - caption: empty: the model's own header text
    /// - width: pixels, or -1: the room that is left (shared when several columns ask for it), or -2: fits the contents
    ///   (the rows on the screen, up to a reasonable width)
    /// - shown: "true" or "false"
    /// - alignment: Qt::Alignment as a number, for the cells; without a horizontal part numbers with decimals stand at
    ///   the right, all else at the left
    ///
    /// An item that does not read so leaves its column as it was, and is logged. Holds also for a model set later.
    void setColumns(const QStringList& columns);
    /// The items as they were given.
    QStringList columns() const { return m_columns; }

protected:
    /// A press beside the rows leaves the current row selected.
    void mousePressEvent(QMouseEvent* event) override;

private:
    void applyColumns();

    ColumnHeader* m_header;
    ColumnDelegate* m_delegate;
    QStringList m_columns;
};
