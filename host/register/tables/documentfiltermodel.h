// SPDX-License-Identifier: MIT
#pragma once

#include "complexfilterproxymodel.h"

#include <QStringList>

/// Those documents of a DocumentTableModel that pass the filters and in which a search finds all its words.
class DocumentFilterModel : public ComplexFilterProxyModel
{
    Q_OBJECT

public:
    using ComplexFilterProxyModel::ComplexFilterProxyModel;

    /// @param text words in any order, compared as searchText(); without a word every document passes
    void search(const QString& text);

protected:
    bool filterAcceptsRow(int sourceRow, const QModelIndex& sourceParent) const override;

private:
    QStringList m_words;
};
