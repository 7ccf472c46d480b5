// SPDX-License-Identifier: MIT
#pragma once

#include "export.h"

#include <QMap>
#include <QSortFilterProxyModel>
#include <QString>

/// Shows the rows that pass the filters of all columns.
class REGISTERPLATFORM_EXPORT ComplexFilterProxyModel : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    enum FilterMode : int {
        Equals = 0,     ///< the whole text, whatever the case
        Contains = 1,   ///< a part of it, whatever the case
        StartsWith = 2, ///< its beginning, whatever the case
    };

    explicit ComplexFilterProxyModel(QObject* parent = nullptr);

    /// Sets the filter of a column: it replaces the column's former one. An empty text lets every row pass.
    void addFilter(int column, const QString& text, FilterMode mode);

protected:
    bool filterAcceptsRow(int sourceRow, const QModelIndex& sourceParent) const override;

private:
    struct Filter {
        QString text;
        FilterMode mode;
    };
    QMap<int, Filter> m_filters;
};
