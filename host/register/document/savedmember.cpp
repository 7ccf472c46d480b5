// SPDX-License-Identifier: MIT
#include "savedmember.h"

#include "basicexception.h"
#include "goodsitem.h"

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace savedmember
{

void refuse(const QString& name)
{
    throw BasicException(tr::Tr(u"receiptMemberDamaged"_s, u"Данные «%1» отсутствуют или искажены"_s).arg(name));
}

QString text(const QJsonObject& object, const QString& name)
{
    const QJsonValue value = object.value(name);
    if (!value.isString()) {
        refuse(name);
    }
    return value.toString();
}

double number(const QJsonObject& object, const QString& name)
{
    const QJsonValue value = object.value(name);
    if (!value.isDouble()) {
        refuse(name);
    }
    return value.toDouble();
}

int positiveInteger(const QJsonObject& object, const QString& name)
{
    const double value = number(object, name);
    if (value < 1 || value >= std::numeric_limits<int>::max() || value != std::floor(value)) {
        refuse(name);
    }
    return int(value);
}

Kopecks amount(const QJsonObject& object, const QString& name)
{
    const std::optional<Kopecks> amount = Kopecks::fromRoubles(number(object, name));
    if (!amount) {
        refuse(name);
    }
    return *amount;
}

Kopecks price(const QJsonObject& object, const QString& name)
{
    const std::optional<Kopecks> price = GoodsItem::priceOf(number(object, name));
    if (!price) {
        refuse(name);
    }
    return *price;
}

double packs(const QJsonObject& object, const QString& name)
{
    const double packs = number(object, name);
    if (!(std::abs(packs) <= GoodsItem::greatestQuantity) || packs != std::round(packs * 1000.0) / 1000.0) {
        refuse(name);
    }
    return packs;
}

QJsonArray list(const QJsonObject& object, const QString& name)
{
    const QJsonValue value = object.value(name);
    if (!value.isArray()) {
        refuse(name);
    }
    return value.toArray();
}

QStringList texts(const QJsonObject& object, const QString& name)
{
    QStringList texts;
    for (const auto value : list(object, name)) {
        if (!value.isString()) {
            refuse(name);
        }
        texts.append(value.toString());
    }
    return texts;
}

QJsonObject object(const QJsonObject& parent, const QString& name)
{
    const QJsonValue value = parent.value(name);
    if (!value.isObject()) {
        refuse(name);
    }
    return value.toObject();
}

} // namespace savedmember
