// SPDX-License-Identifier: MIT
#pragma once

#include "amount.h"
#include "goodsitem.h"
#include "goodskey.h"

#include <QJsonObject>
#include <QSharedPointer>
#include <QStringList>

#include <optional>

/// A line of a document.
class Position : public GoodsItem
{
public:
    /// @param barcode, code of the goods in the catalogue
    Position(const Goods& goods, const QString& barcode, const QString& code = {});

    GoodsKey goodsKey() const { return {m_code, m_barcode, getName()}; }

    /// Per pack.
    Kopecks price() const { return m_goods.price; }
    /// The price per pack before its first change; the current price when it never changed.
    Kopecks initialPrice() const { return m_initialPrice.value_or(m_goods.price); }
    void setPrice(double price) override;

    void setQuantity(double packs) { m_goods.quantity = packs; }

    Kopecks getSum() const { return m_goods.price.forPacks(m_goods.quantity); }

    /// True when it comes from an external document, for example a prescription: it cannot be changed, and is removed
    /// only after a question.
    bool isExternal() const { return !getSoftCheckId().isEmpty(); }

    /// The plug-ins that did not know yet what their servers hold of the position when it was saved last, by the names
    /// that PluginScope gives them. PositionMarks::undecidedPlugins() has those of now.
    QStringList savedUndecidedPlugins() const { return m_undecidedPlugins; }
    void noteUndecidedPlugins(const QStringList& plugins) { m_undecidedPlugins = plugins; }

    /// Takes over tags, options, soft check id and the plug-ins that they belong to. A tag that is there already stays.
    void takeOverPluginData(const Position& other);

    /// The members of GoodsItem, "barcode", "code", "plugin" when the position belongs to one, "undecided" when
    /// there are savedUndecidedPlugins() and, after a change of price, "initialPrice".
    QJsonObject toJson() const override;
    /// Reads what toJson() wrote. Throws BasicException when a required member is missing or of the wrong type.
    static QSharedPointer<Position> fromJson(const QJsonObject& saved);

private:
    std::optional<Kopecks> m_initialPrice;
    QString m_barcode;
    QString m_code;
    QStringList m_undecidedPlugins;
};
