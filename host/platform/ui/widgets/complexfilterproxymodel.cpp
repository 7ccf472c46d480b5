// SPDX-License-Identifier: MIT
#include "complexfilterproxymodel.h"

ComplexFilterProxyModel::ComplexFilterProxyModel(QObject* parent)
    : QSortFilterProxyModel(parent)
{
}

void ComplexFilterProxyModel::addFilter(int column, const QString& text, FilterMode mode)
{
    if (text.isEmpty()) {
        m_filters.remove(column);
    } else {
        m_filters.insert(column, {QStringMatcher(text, Qt::CaseInsensitive), mode});
    }
    // One change of the layout for all rows. If each row were removed and inserted on its own, a view would take many
    // times as long as the filter.
    invalidate();
}

bool ComplexFilterProxyModel::filterAcceptsRow(int sourceRow, const QModelIndex& sourceParent) const
{
    for (auto filter = m_filters.cbegin(); filter != m_filters.cend(); ++filter) {
        const QString text = sourceModel()->index(sourceRow, filter.key(), sourceParent).data().toString();
        if (!filter->accepts(text)) {
            return false;
        }
    }
    return true;
}

bool ComplexFilterProxyModel::Filter::accepts(const QString& text) const
{
    switch (mode) {
    case Equals:
        return text.compare(matcher.pattern(), Qt::CaseInsensitive) == 0;
    case StartsWith:
        return text.startsWith(matcher.pattern(), Qt::CaseInsensitive);
    case Contains:
        break;
    }
    return matcher.indexIn(text) >= 0;
}
