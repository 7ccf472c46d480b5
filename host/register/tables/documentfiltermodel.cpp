// SPDX-License-Identifier: MIT
#include "documentfiltermodel.h"

#include "documenttablemodel.h"
#include "searchtext.h"

#include <algorithm>

void DocumentFilterModel::search(const QString& text)
{
    m_words = searchWords(text);
    invalidate();
}

bool DocumentFilterModel::filterAcceptsRow(int sourceRow, const QModelIndex& sourceParent) const
{
    if (!ComplexFilterProxyModel::filterAcceptsRow(sourceRow, sourceParent)) {
        return false;
    }
    const QModelIndex names = sourceModel()->index(sourceRow, DocumentTableModel::SearchText, sourceParent);
    const QString text = searchText(names.data().toString());
    return std::all_of(m_words.cbegin(), m_words.cend(), [&text](const QString& word) { return text.contains(word); });
}
