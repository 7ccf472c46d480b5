// SPDX-License-Identifier: MIT
#pragma once

#include "export.h"

#include <QMap>
#include <QSortFilterProxyModel>
#include <QString>
#include <QStringMatcher>

/// Shows the rows that pass the filters of all columns. Filters compare display texts; "е" and "ё" are two letters.
class REGISTERPLATFORM_EXPORT ComplexFilterProxyModel : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    enum FilterMode : int {
        Equals = 0,     ///< the whole text; case is ignored
        Contains = 1,   ///< a part of it; case is ignored
        StartsWith = 2, ///< its beginning; case is ignored
    };

    explicit ComplexFilterProxyModel(QObject* parent = nullptr);

    /// Sets the filter of a column. It replaces the column's former filter. An empty text lets every row pass.
    ///
    /// Views see one change of the layout. An index stays valid when its row passes, else it becomes invalid. When the
    /// current row is filtered out, no row is current.
    void addFilter(int column, const QString& text, FilterMode mode);

protected:
    bool filterAcceptsRow(int sourceRow, const QModelIndex& sourceParent) const override;

private:
    struct Filter {
        QStringMatcher matcher;
        FilterMode mode;

        bool accepts(const QString& text) const;
    };
    QMap<int, Filter> m_filters;
};
