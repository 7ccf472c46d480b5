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
    // One change of the layout, however scattered the rows are that come and go: told one by one, they would cost a
    // view many times the filtering.
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
