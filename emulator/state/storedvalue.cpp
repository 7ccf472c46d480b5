// SPDX-License-Identifier: MIT
#include "storedvalue.h"

#include <QJsonArray>
#include <QJsonDocument>

using namespace Qt::StringLiterals;

namespace emulator
{
QVariant stored(const QString& member)
{
    return member.isNull() ? u""_s : member;
}

QVariant stored(const QStringList& member)
{
    return QString::fromUtf8(QJsonDocument(QJsonArray::fromStringList(member)).toJson(QJsonDocument::Compact));
}

QVariant stored(const QByteArray& member)
{
    return stored(QString::fromUtf8(member));
}

QVariant stored(const QDate& member)
{
    return stored(member.toString(Qt::ISODate));
}

QVariant stored(const std::optional<double>& member)
{
    return member ? QVariant(*member) : QVariant();
}

void restore(QString& member, const QVariant& value)
{
    member = value.toString();
}

void restore(QStringList& member, const QVariant& value)
{
    const QJsonArray texts = QJsonDocument::fromJson(value.toByteArray()).array();
    for (const auto text : texts) {
        member.append(text.toString());
    }
}

void restore(QByteArray& member, const QVariant& value)
{
    member = value.toByteArray();
}

void restore(QDate& member, const QVariant& value)
{
    member = QDate::fromString(value.toString(), Qt::ISODate);
}

void restore(std::optional<double>& member, const QVariant& value)
{
    if (!value.isNull()) {
        member = value.toDouble();
    }
}
} // namespace emulator
