// SPDX-License-Identifier: MIT
#include "goodstablemodel.h"

#include "amount.h"
#include "registerstyle.h"
#include "tr.h"

#include <QBrush>

using namespace Qt::StringLiterals;

namespace
{

/// Empty when it is not kept.
QString stockText(const CatalogueGoods& goods)
{
    if (!goods.isInStock()) {
        return tr::Tr(u"goodsOutOfStock"_s, u"нет"_s).ui();
    }
    return goods.stock ? QString::number(*goods.stock) : QString();
}

} // namespace

GoodsTableModel::GoodsTableModel(const GoodsList& goods, QObject* parent)
    : QAbstractTableModel(parent)
    , m_goods(goods)
    , m_shown(goods.matching({}))
{
}

void GoodsTableModel::offer(const GoodsList& goods)
{
    beginResetModel();
    m_goods = goods;
    m_shown = goods.matching({});
    endResetModel();
}

void GoodsTableModel::search(const QString& text)
{
    beginResetModel();
    m_shown = m_goods.matching(text);
    endResetModel();
}

int GoodsTableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_shown.size());
}

int GoodsTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant GoodsTableModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid)) {
        return {};
    }
    const CatalogueGoods& shown = goods(index.row());
    switch (role) {
    case Qt::DisplayRole:
        return text(shown, index.column());
    case Qt::ToolTipRole:
        return toolTip(shown, index.column());
    case Qt::ForegroundRole:
        return shown.isInStock() && !shown.obstacleToSelling() ? QVariant() : QBrush(RegisterColours().mutedText);
    default:
        return {};
    }
}

QVariant GoodsTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) {
        return {};
    }
    switch (section) {
    case Name:
        return tr::Tr(u"goodsColumnName"_s, u"Наименование"_s).ui();
    case NonProprietaryName:
        return tr::Tr(u"goodsColumnNonProprietaryName"_s, u"МНН"_s).ui();
    case Price:
        return captionWithCurrency(tr::Tr(u"goodsColumnPrice"_s, u"Цена"_s).ui());
    case Stock:
        return tr::Tr(u"goodsColumnStock"_s, u"Остаток"_s).ui();
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
        return goods.price ? amountFigures(*goods.price) : tr::Tr(u"goodsNoPrice"_s, u"нет цены"_s).ui();
    case Stock:
        return stockText(goods);
    default:
        return {};
    }
}

/// The price says what is wrong with it.
QVariant GoodsTableModel::toolTip(const CatalogueGoods& goods, int column) const
{
    const std::optional<tr::Tr> obstacle = goods.obstacleToSelling();
    return column == Price && obstacle ? obstacle->ui() : text(goods, column);
}
