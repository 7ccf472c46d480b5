// SPDX-License-Identifier: MIT
#pragma once

#include "cataloguegoods.h"

#include <QList>
#include <QSharedPointer>
#include <QString>

#include <initializer_list>

/// Goods in the order in which they are shown, and what is needed to search them at every key.
///
/// A value type. Copies share the goods and their index, and can be read in several threads.
class GoodsList
{
public:
    GoodsList();
    GoodsList(const QList<CatalogueGoods>& goods);
    GoodsList(std::initializer_list<CatalogueGoods> goods);

    const QList<CatalogueGoods>& all() const;
    qsizetype size() const { return all().size(); }
    bool isEmpty() const { return all().isEmpty(); }
    const CatalogueGoods& at(qsizetype row) const { return all().at(row); }
    auto begin() const { return all().cbegin(); }
    auto end() const { return all().cend(); }
    auto cbegin() const { return all().cbegin(); }
    auto cend() const { return all().cend(); }

    /// The rows in whose name, non-proprietary name or bar code every word of `search` is found, compared as
    /// searchText(); in order. When there are none, words also match as onOtherLayout() gives them. All rows when
    /// `search` has no word.
    QList<int> matching(const QString& search) const;

    /// How the goods spell the non-proprietary name `wanted`: those that equal it as searchText().
    QStringList spellings(const QString& wanted) const;

private:
    struct Index;

    QSharedPointer<const Index> m_index;
};
