// SPDX-License-Identifier: MIT
#pragma once

#include "complexfilterproxymodel.h"
#include "wantedwords.h"

/// Those documents of a DocumentTableModel that pass the filters and in which a search finds all its words.
class DocumentFilterModel : public ComplexFilterProxyModel
{
    Q_OBJECT

public:
    using ComplexFilterProxyModel::ComplexFilterProxyModel;

    /// @param text words in any order, compared as searchText(), when none is found also as onOtherLayout() gives them;
    ///        without a word every document passes
    void search(const QString& text);

protected:
    bool filterAcceptsRow(int sourceRow, const QModelIndex& sourceParent) const override;

private:
    WantedWords m_words;
};
