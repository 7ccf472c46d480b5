// SPDX-License-Identifier: MIT
#include "jsondifference.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace
{

QString asText(const QJsonValue& value)
{
    if (value.isUndefined()) {
        return u"nothing"_s;
    }
    const QByteArray list = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
    return QString::fromUtf8(list.mid(1, list.size() - 2));
}

std::optional<QString> differenceOfObjects(const QJsonObject& expected, const QJsonObject& actual, const QString& path)
{
    for (auto member = expected.begin(); member != expected.end(); ++member) {
        const QString memberPath = path.isEmpty() ? member.key() : path + u'.' + member.key();
        if (auto difference = jsonDifference(member.value(), actual.value(member.key()), memberPath)) {
            return difference;
        }
    }
    return std::nullopt;
}

std::optional<QString> differenceOfLists(const QJsonArray& expected, const QJsonArray& actual, const QString& path)
{
    if (expected.size() != actual.size()) {
        return path + u" has "_s + QString::number(actual.size()) + u" entries instead of "_s +
               QString::number(expected.size());
    }
    for (qsizetype entry = 0; entry < expected.size(); ++entry) {
        const QString entryPath = path + u'[' + QString::number(entry) + u']';
        if (auto difference = jsonDifference(expected.at(entry), actual.at(entry), entryPath)) {
            return difference;
        }
    }
    return std::nullopt;
}

} // namespace

std::optional<QString> jsonDifference(const QJsonValue& expected, const QJsonValue& actual, const QString& path)
{
    if (expected.isObject()) {
        const QJsonDocument inText = QJsonDocument::fromJson(actual.toString().toUtf8());
        if (actual.isObject() || inText.isObject()) {
            return differenceOfObjects(expected.toObject(), actual.isObject() ? actual.toObject() : inText.object(),
                                       path);
        }
    } else if (expected.isArray() && actual.isArray()) {
        return differenceOfLists(expected.toArray(), actual.toArray(), path);
    } else if (expected == actual) {
        return std::nullopt;
    }
    return path + u" is "_s + asText(actual) + u" instead of "_s + asText(expected);
}
