// SPDX-License-Identifier: MIT
#pragma once

#include "abstractdocument.h"

/// A document that holds the positions it is given.
class PlainDocument : public AbstractDocument
{
public:
    int getType() const override { return Sale; }
    QList<QSharedPointer<GoodsItem>> getPositions() const override { return positions; }

    QSharedPointer<GoodsItem> add(const GoodsItem::Goods& goods)
    {
        positions.append(QSharedPointer<GoodsItem>::create(goods));
        return positions.last();
    }

    QList<QSharedPointer<GoodsItem>> positions;
};
