// SPDX-License-Identifier: MIT
#include "jsondifference.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace
{

QString asText(const QJsonValue& value)
{
    if (value.isUndefined())
        return QStringLiteral("nothing");
    const QByteArray list = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
    return QString::fromUtf8(list.mid(1, list.size() - 2));
}

QString differenceOfObjects(const QJsonObject& expected, const QJsonObject& actual, const QString& path)
{
    for (auto member = expected.begin(); member != expected.end(); ++member) {
        const QString memberPath = path.isEmpty() ? member.key() : path + QLatin1Char('.') + member.key();
        QString difference = jsonDifference(member.value(), actual.value(member.key()), memberPath);
        if (!difference.isEmpty())
            return difference;
    }
    return {};
}

QString differenceOfLists(const QJsonArray& expected, const QJsonArray& actual, const QString& path)
{
    if (expected.size() != actual.size())
        return path + QStringLiteral(" has ") + QString::number(actual.size()) +
               QStringLiteral(" entries instead of ") + QString::number(expected.size());
    for (qsizetype entry = 0; entry < expected.size(); ++entry) {
        const QString entryPath = path + QLatin1Char('[') + QString::number(entry) + QLatin1Char(']');
        QString difference = jsonDifference(expected.at(entry), actual.at(entry), entryPath);
        if (!difference.isEmpty())
            return difference;
    }
    return {};
}

} // namespace

QString jsonDifference(const QJsonValue& expected, const QJsonValue& actual, const QString& path)
{
    if (expected.isObject()) {
        const QJsonDocument inText = QJsonDocument::fromJson(actual.toString().toUtf8());
        if (actual.isObject() || inText.isObject())
            return differenceOfObjects(expected.toObject(), actual.isObject() ? actual.toObject() : inText.object(),
                                       path);
    } else if (expected.isArray() && actual.isArray()) {
        return differenceOfLists(expected.toArray(), actual.toArray(), path);
    } else if (expected == actual) {
        return {};
    }
    return path + QStringLiteral(" is ") + asText(actual) + QStringLiteral(" instead of ") + asText(expected);
}
