// SPDX-License-Identifier: MIT
#include "receipt.h"

#include "savedmember.h"

#include <QJsonArray>

#include <algorithm>
#include <numeric>

Receipt::Receipt(int number, const QDateTime& opened)
    : m_number(number)
    , m_opened(opened)
{
}

QList<QSharedPointer<GoodsItem>> Receipt::getPositions() const
{
    return {m_positions.cbegin(), m_positions.cend()};
}

QSharedPointer<ReceiptPosition> Receipt::position(int number) const
{
    return getPosition(number).staticCast<ReceiptPosition>();
}

Kopecks Receipt::getSum() const
{
    return std::accumulate(m_positions.cbegin(), m_positions.cend(), Kopecks(0),
                           [](Kopecks sum, const auto& position) { return sum + position->getSum(); });
}

QSharedPointer<ReceiptPosition> Receipt::add(GoodsItem::Goods goods, const QString& barcode)
{
    goods.number = m_nextPosition++;
    m_positions.append(QSharedPointer<ReceiptPosition>::create(goods, barcode));
    return m_positions.last();
}

void Receipt::remove(int number)
{
    m_positions.removeIf([number](const auto& position) { return position->getNumber() == number; });
}

QJsonObject Receipt::toJson() const
{
    QJsonObject saved = AbstractDocument::toJson();
    saved.insert(QStringLiteral("number"), m_number);
    saved.insert(QStringLiteral("opened"), m_opened.toString(Qt::ISODate));
    saved.insert(QStringLiteral("nextPosition"), m_nextPosition);
    saved.insert(QStringLiteral("sum"), static_cast<double>(getSum()) / 100.0);
    return saved;
}

QSharedPointer<Receipt> Receipt::fromJson(const QJsonObject& saved)
{
    if (savedmember::positiveInteger(saved, QStringLiteral("format")) != formatVersion)
        savedmember::refuse(QStringLiteral("format"));
    if (savedmember::positiveInteger(saved, QStringLiteral("type")) != Sale)
        savedmember::refuse(QStringLiteral("type"));
    const QDateTime opened = QDateTime::fromString(savedmember::text(saved, QStringLiteral("opened")), Qt::ISODate);
    if (!opened.isValid())
        savedmember::refuse(QStringLiteral("opened"));

    auto receipt =
        QSharedPointer<Receipt>::create(savedmember::positiveInteger(saved, QStringLiteral("number")), opened);
    for (const QJsonValue& value : savedmember::list(saved, QStringLiteral("positions"))) {
        const auto position = ReceiptPosition::fromJson(value.toObject());
        if (receipt->position(position->getNumber()))
            savedmember::refuse(QStringLiteral("number"));
        receipt->m_positions.append(position);
        receipt->m_nextPosition = std::max(receipt->m_nextPosition, position->getNumber() + 1);
    }
    receipt->m_nextPosition =
        std::max(receipt->m_nextPosition, savedmember::positiveInteger(saved, QStringLiteral("nextPosition")));

    const QJsonObject plugins = savedmember::object(saved, QStringLiteral("plugins"));
    for (auto plugin = plugins.begin(); plugin != plugins.end(); ++plugin) {
        const QVariantMap values = plugin.value().toObject().toVariantMap();
        for (auto value = values.cbegin(); value != values.cend(); ++value)
            receipt->setPluginValue(plugin.key(), value.key(), value.value());
    }
    return receipt;
}
