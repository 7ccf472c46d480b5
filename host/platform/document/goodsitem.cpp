// SPDX-License-Identifier: MIT
#include "goodsitem.h"

#include "pluginscope.h"

#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

#include <QJsonArray>

using namespace Qt::StringLiterals;

std::optional<Kopecks> GoodsItem::priceOf(double roubles)
{
    const std::optional<Kopecks> price = Kopecks::fromRoubles(roubles);
    return price && *price <= greatestPrice && *price >= -greatestPrice ? price : std::nullopt;
}

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
    return m_goods.price.toRoubles();
}

void GoodsItem::setPrice(double price)
{
    if (const std::optional<Kopecks> accepted = priceOf(price)) {
        m_goods.price = *accepted;
        return;
    }
    const QString plugin = PluginScope::current();
    Log4Qt::LogManager::logger(u"document"_s)
        ->error(u"The price %1 of position %2 is refused; it was set by %3"_s.arg(
            QString::number(price, 'g', 12), QString::number(getNumber()),
            plugin.isEmpty() ? u"the register"_s : u"the plug-in "_s + plugin));
}

double GoodsItem::getMinRetailPrice() const
{
    return m_goods.minRetailPrice.toRoubles();
}

double GoodsItem::getTmcPrice() const
{
    return m_goods.tmcPrice.toRoubles();
}

double GoodsItem::getQuantity() const
{
    return m_goods.quantity;
}

double GoodsItem::getSumb() const
{
    return m_goods.price.forPacks(m_goods.quantity).toRoubles();
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
