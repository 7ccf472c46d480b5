// SPDX-License-Identifier: MIT
#include "position.h"

#include "savedmember.h"

using namespace Qt::StringLiterals;

Position::Position(const Goods& goods, const QString& barcode, const QString& code)
    : GoodsItem(goods)
    , m_barcode(barcode)
    , m_code(code)
{
}

void Position::setPrice(double price)
{
    const Kopecks before = m_goods.price;
    GoodsItem::setPrice(price);
    if (!m_initialPrice && m_goods.price != before) {
        m_initialPrice = before;
    }
}

void Position::takeOverPluginData(const Position& other)
{
    setExtendedOptions(other.getExtendedOptions());
    setSoftCheckId(other.getSoftCheckId());
    for (const QString& tag : other.getTags()) {
        setTag(tag);
    }
    m_plugin = other.m_plugin;
    m_undecidedPlugins = other.m_undecidedPlugins;
}

QJsonObject Position::toJson() const
{
    QJsonObject saved = GoodsItem::toJson();
    saved.insert(u"barcode"_s, m_barcode);
    saved.insert(u"code"_s, m_code);
    if (m_initialPrice) {
        saved.insert(u"initialPrice"_s, m_initialPrice->toRoubles());
    }
    if (!m_plugin.isEmpty()) {
        saved.insert(u"plugin"_s, m_plugin);
    }
    if (!m_undecidedPlugins.isEmpty()) {
        saved.insert(u"undecided"_s, QJsonArray::fromStringList(m_undecidedPlugins));
    }
    return saved;
}

QSharedPointer<Position> Position::fromJson(const QJsonObject& saved)
{
    const Goods goods{
        .number = savedmember::positiveInteger(saved, u"number"_s),
        .name = savedmember::text(saved, u"name"_s),
        .price = savedmember::price(saved, u"price"_s),
        .minRetailPrice = savedmember::price(saved, u"minRetailPrice"_s),
        .tmcPrice = savedmember::price(saved, u"tmcPrice"_s),
        .quantity = savedmember::packs(saved, u"quantity"_s),
    };
    auto position = QSharedPointer<Position>::create(goods, saved.value("barcode"_L1).toString(),
                                                     saved.value("code"_L1).toString());
    for (const auto tag : savedmember::list(saved, u"tags"_s)) {
        position->setTag(tag.toString());
    }
    position->setExtendedOptions(savedmember::text(saved, u"extendedOptions"_s));
    position->setSoftCheckId(savedmember::text(saved, u"softCheckId"_s));
    if (saved.contains("initialPrice"_L1)) {
        position->m_initialPrice = savedmember::price(saved, u"initialPrice"_s);
    }
    if (saved.contains("undecided"_L1)) {
        position->m_undecidedPlugins = savedmember::texts(saved, u"undecided"_s);
    }
    // Last: the calls above may run while a plug-in waits for the register.
    position->m_plugin = saved.contains("plugin"_L1) ? savedmember::text(saved, u"plugin"_s) : QString();
    return position;
}
