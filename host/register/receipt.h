// SPDX-License-Identifier: MIT
#pragma once

#include "abstractdocument.h"
#include "amount.h"
#include "receiptposition.h"

#include <QDateTime>
#include <QJsonObject>
#include <QList>
#include <QSharedPointer>

/// The sale that the cashier works on.
class Receipt : public AbstractDocument
{
    Q_OBJECT

public:
    Receipt(int number, const QDateTime& opened);

    int getNumber() const { return m_number; }
    QDateTime getOpened() const { return m_opened; }

    int getType() const override { return Sale; }
    QList<QSharedPointer<GoodsItem>> getPositions() const override;
    const QList<QSharedPointer<ReceiptPosition>>& positions() const { return m_positions; }
    /// The position with that number; null when there is none.
    QSharedPointer<ReceiptPosition> position(int number) const;

    /// The sum of all positions, each rounded to kopecks.
    Kopecks getSum() const;

    /// Adds a position and gives it the next number; numbers are not given twice.
    QSharedPointer<ReceiptPosition> add(GoodsItem::Goods goods, const QString& barcode);
    /// Takes a position off the receipt; one that is not there is passed over.
    void remove(int number);

    QJsonObject toJson() const override;
    /// The receipt that was saved so.
    ///
    /// Throws BasicException, which says what is wrong, when it is no receipt of this register.
    static QSharedPointer<Receipt> fromJson(const QJsonObject& saved);

private:
    int m_number;
    QDateTime m_opened;
    int m_nextPosition = 1;
    QList<QSharedPointer<ReceiptPosition>> m_positions;
};
