// SPDX-License-Identifier: MIT
#pragma once

#include "cataloguegoods.h"

#include <QAbstractTableModel>
#include <QList>

/// Goods to pick from. Goods that are out of stock or cannot be sold are grey.
class GoodsTableModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    /// SearchText is for filtering and hidden: name, non-proprietary name and barcode.
    enum Column { Name, NonProprietaryName, Price, Stock, SearchText, ColumnCount };

    explicit GoodsTableModel(const QList<CatalogueGoods>& goods, QObject* parent = nullptr);

    const CatalogueGoods& goods(int row) const { return m_goods.at(row); }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    QVariant text(const CatalogueGoods& goods, int column) const;
    QVariant toolTip(const CatalogueGoods& goods, int column) const;

    QList<CatalogueGoods> m_goods;
};
