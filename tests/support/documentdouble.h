// SPDX-License-Identifier: MIT
#pragma once

#include "abstractdocument.h"

/// A document that is what the test says: at first an open sale without positions.
class DocumentDouble : public AbstractDocument
{
public:
    int getType() const override { return type; }
    QList<QSharedPointer<GoodsItem>> getPositions() const override { return positions; }
    bool isClosed() const override { return closed; }
    QString identifier() const override { return name; }
    bool isUndone() const override { return undone; }

    /// Appends a position of these goods and returns it.
    QSharedPointer<GoodsItem> add(const GoodsItem::Goods& goods = {})
    {
        positions.append(QSharedPointer<GoodsItem>::create(goods));
        return positions.last();
    }

    int type = Sale; ///< a value of AbstractDocument::Type
    bool closed = false;
    bool undone = false; ///< cancelled or voided
    QString name;        ///< the identifier
    QList<QSharedPointer<GoodsItem>> positions;
};
