// SPDX-License-Identifier: MIT
#pragma once

#include "amount.h"
#include "goodsitem.h"

#include <QJsonObject>
#include <QSharedPointer>

#include <optional>

/// A line of a document.
class Position : public GoodsItem
{
public:
    Position(const Goods& goods, const QString& barcode);

    /// The price per pack in roubles before its first change; the current price when it never changed.
    double getInitialPrice() const { return m_initialPrice.value_or(getPrice()); }
    void setPrice(double price) override;

    void setQuantity(double packs) { m_goods.quantity = packs; }

    Kopecks getSum() const { return kopecks(getSumb()); }

    /// True when it comes from an external document, for example a prescription: it cannot be changed, and is removed
    /// only after a question.
    bool isExternal() const { return !getSoftCheckId().isEmpty(); }

    /// Takes over tags, options, soft check id and the plug-in that they belong to. A tag that is there already stays.
    void takeOverPluginData(const Position& other);

    /// The members of GoodsItem, "barcode", "plugin" when the position belongs to one and, after a change of price,
    /// "initialPrice".
    QJsonObject toJson() const override;
    /// Reads what toJson() wrote. Throws BasicException when a required member is missing or of the wrong type.
    static QSharedPointer<Position> fromJson(const QJsonObject& saved);

private:
    std::optional<double> m_initialPrice;
    QString m_barcode;
};
