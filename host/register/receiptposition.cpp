// SPDX-License-Identifier: MIT
#include "receiptposition.h"

#include "savedmember.h"

ReceiptPosition::ReceiptPosition(const Goods& goods, const QString& barcode)
    : GoodsItem(goods)
    , m_barcode(barcode)
{
}

void ReceiptPosition::setPrice(double price)
{
    if (!m_initialPrice && kopecks(price) != kopecks(getPrice()))
        m_initialPrice = getPrice();
    GoodsItem::setPrice(price);
}

QJsonObject ReceiptPosition::toJson() const
{
    QJsonObject saved = GoodsItem::toJson();
    saved.insert(QStringLiteral("barcode"), m_barcode);
    if (m_initialPrice)
        saved.insert(QStringLiteral("initialPrice"), *m_initialPrice);
    return saved;
}

QSharedPointer<ReceiptPosition> ReceiptPosition::fromJson(const QJsonObject& saved)
{
    const Goods goods{
        .number = savedmember::positiveInteger(saved, QStringLiteral("number")),
        .name = savedmember::text(saved, QStringLiteral("name")),
        .price = savedmember::number(saved, QStringLiteral("price")),
        .minRetailPrice = savedmember::number(saved, QStringLiteral("minRetailPrice")),
        .tmcPrice = savedmember::number(saved, QStringLiteral("tmcPrice")),
        .quantity = savedmember::number(saved, QStringLiteral("quantity")),
    };
    auto position = QSharedPointer<ReceiptPosition>::create(goods, saved.value(QLatin1String("barcode")).toString());
    for (const auto tag : savedmember::list(saved, QStringLiteral("tags")))
        position->setTag(tag.toString());
    position->setExtendedOptions(savedmember::text(saved, QStringLiteral("extendedOptions")));
    position->setSoftCheckId(savedmember::text(saved, QStringLiteral("softCheckId")));
    if (saved.contains(QLatin1String("initialPrice")))
        position->m_initialPrice = savedmember::number(saved, QStringLiteral("initialPrice"));
    return position;
}
