// SPDX-License-Identifier: MIT
#pragma once

#include "amount.h"
#include "goodsitem.h"

#include <QJsonObject>
#include <QSharedPointer>

#include <optional>

/// A position of the document.
class Position : public GoodsItem
{
public:
    Position(const Goods& goods, const QString& barcode);

    /// What was asked per pack before the price was first changed; the price itself when it never was.
    double getInitialPrice() const { return m_initialPrice.value_or(getPrice()); }
    void setPrice(double price) override;

    void setQuantity(double packs) { m_goods.quantity = packs; }

    Kopecks getSum() const { return kopecks(getSumb()); }

    /// Belongs to a external document: it is neither changed nor removed like any other goods.
    bool isExternal() const { return !getSoftCheckId().isEmpty(); }

    /// As GoodsItem's, with "barcode" and, once the price was changed, "initialPrice".
    QJsonObject toJson() const override;
    /// The position that was saved so.
    ///
    /// Throws BasicException when a member that a position cannot do without is missing or of another kind.
    static QSharedPointer<Position> fromJson(const QJsonObject& saved);

private:
    std::optional<double> m_initialPrice;
    QString m_barcode;
};
