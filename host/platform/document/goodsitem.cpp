// SPDX-License-Identifier: MIT
#include "goodsitem.h"

#include "pluginscope.h"

#include <QJsonArray>

#include <cmath>

using namespace Qt::StringLiterals;

namespace
{

/// Rounds half away from zero to two decimals. The 1e-6 makes up for what binary fractions lose.
double toCents(double amount)
{
    return std::round(amount * 100.0 + std::copysign(1e-6, amount)) / 100.0;
}

} // namespace

GoodsItem::GoodsItem() = default;

GoodsItem::GoodsItem(const Goods& goods)
    : m_goods(goods)
{
}

GoodsItem::~GoodsItem() = default;

int GoodsItem::getNumber() const
{
    return m_goods.number;
}

QString GoodsItem::getName() const
{
    return m_goods.name;
}

double GoodsItem::getPrice() const
{
    return m_goods.price;
}

void GoodsItem::setPrice(double price)
{
    m_goods.price = price;
}

double GoodsItem::getMinRetailPrice() const
{
    return m_goods.minRetailPrice;
}

double GoodsItem::getTmcPrice() const
{
    return m_goods.tmcPrice;
}

double GoodsItem::getQuantity() const
{
    return m_goods.quantity;
}

double GoodsItem::getSumb() const
{
    return toCents(getPrice() * getQuantity());
}

QStringList GoodsItem::getTags() const
{
    return m_tags;
}

void GoodsItem::setTag(const QString& tag)
{
    noteMarking();
    if (!m_tags.contains(tag)) {
        m_tags.append(tag);
    }
}

QString GoodsItem::getExtendedOptions() const
{
    return m_extendedOptions;
}

void GoodsItem::setExtendedOptions(const QString& options)
{
    noteMarking();
    m_extendedOptions = options;
}

QString GoodsItem::getSoftCheckId() const
{
    return m_softCheckId;
}

void GoodsItem::setSoftCheckId(const QString& id)
{
    if (!id.isEmpty() && !PluginScope::current().isEmpty()) {
        m_plugin = PluginScope::current();
    }
    m_softCheckId = id;
}

/// A later plug-in that marks the position as well does not take it over.
void GoodsItem::noteMarking()
{
    if (m_plugin.isEmpty()) {
        m_plugin = PluginScope::current();
    }
}

QJsonObject GoodsItem::toJson() const
{
    return {
        {u"number"_s, getNumber()},
        {u"name"_s, getName()},
        {u"price"_s, getPrice()},
        {u"minRetailPrice"_s, getMinRetailPrice()},
        {u"tmcPrice"_s, getTmcPrice()},
        {u"quantity"_s, getQuantity()},
        {u"sum"_s, getSumb()},
        {u"tags"_s, QJsonArray::fromStringList(getTags())},
        {u"extendedOptions"_s, getExtendedOptions()},
        {u"softCheckId"_s, getSoftCheckId()},
    };
}
