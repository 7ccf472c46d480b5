// SPDX-License-Identifier: MIT
#include "documentfiltermodel.h"

#include "documenttablemodel.h"
#include "searchtext.h"

void DocumentFilterModel::search(const QString& text)
{
    m_words = WantedWords::asTyped(text);
    invalidate();
    if (rowCount() == 0) {
        m_words = WantedWords::onEitherLayout(text);
        invalidate();
    }
}

bool DocumentFilterModel::filterAcceptsRow(int sourceRow, const QModelIndex& sourceParent) const
{
    if (!ComplexFilterProxyModel::filterAcceptsRow(sourceRow, sourceParent)) {
        return false;
    }
    const QModelIndex names = sourceModel()->index(sourceRow, DocumentTableModel::SearchText, sourceParent);
    return m_words.areIn(searchText(names.data().toString()));
}
