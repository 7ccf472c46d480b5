// SPDX-License-Identifier: MIT
#pragma once

#include "export.h"

#include <QMap>
#include <QSortFilterProxyModel>
#include <QString>
#include <QStringMatcher>

/// Shows the rows that pass the filters of all columns. Filters look at the display texts; "е" and "ё" are two letters.
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
    ///
    /// Views see one change of the layout: an index whose row passes stays valid, the others become invalid; a current
    /// row that is filtered out leaves none current.
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
