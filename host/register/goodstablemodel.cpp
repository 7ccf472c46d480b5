// SPDX-License-Identifier: MIT
#include "goodstablemodel.h"

#include "amount.h"
#include "registerstyle.h"
#include "tr.h"

#include <QBrush>

GoodsTableModel::GoodsTableModel(const QList<CatalogueGoods>& goods, QObject* parent)
    : QAbstractTableModel(parent)
    , m_goods(goods)
{
}

int GoodsTableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_goods.size());
}

int GoodsTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant GoodsTableModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
        return text(m_goods.at(index.row()), index.column());
    case Qt::ForegroundRole:
        return m_goods.at(index.row()).isInStock() ? QVariant() : QBrush(RegisterColours().mutedText);
    default:
        return {};
    }
}

QVariant GoodsTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    switch (section) {
    case Name:
        return tr::Tr(QStringLiteral("goodsColumnName"), QStringLiteral("Наименование")).ui();
    case NonProprietaryName:
        return tr::Tr(QStringLiteral("goodsColumnNonProprietaryName"), QStringLiteral("МНН")).ui();
    case Price:
        return tr::Tr(QStringLiteral("goodsColumnPrice"), QStringLiteral("Цена")).ui();
    case Stock:
        return tr::Tr(QStringLiteral("goodsColumnStock"), QStringLiteral("Остаток")).ui();
    default:
        return {};
    }
}

QVariant GoodsTableModel::text(const CatalogueGoods& goods, int column) const
{
    switch (column) {
    case Name:
        return goods.name;
    case NonProprietaryName:
        return goods.nonProprietaryName;
    case Price:
        return amountText(kopecks(goods.price));
    case Stock:
        return goods.isInStock() ? QString::number(goods.stock)
                                 : tr::Tr(QStringLiteral("goodsOutOfStock"), QStringLiteral("нет")).ui();
    case SearchText:
        return QString(goods.name + QLatin1Char('\n') + goods.nonProprietaryName + QLatin1Char('\n') + goods.barcode);
    default:
        return {};
    }
}
