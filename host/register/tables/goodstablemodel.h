// SPDX-License-Identifier: MIT
#pragma once

#include "goodslist.h"

#include <QAbstractTableModel>
#include <QList>

/// Goods to pick from: all, or those that match a search. Goods that are out of stock or cannot be sold are grey.
class GoodsTableModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { Name, NonProprietaryName, Price, Stock, ColumnCount };

    explicit GoodsTableModel(const GoodsList& goods, QObject* parent = nullptr);

    /// Offers these goods instead. The search has to be repeated.
    void offer(const GoodsList& goods);
    /// Shows the goods that match, see GoodsList::matching(). Views are reset.
    void search(const QString& text);

    const CatalogueGoods& goods(int row) const { return m_goods.at(m_shown.at(row)); }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    QVariant text(const CatalogueGoods& goods, int column) const;
    QVariant toolTip(const CatalogueGoods& goods, int column) const;

    GoodsList m_goods;
    QList<int> m_shown; ///< rows of the list
};
