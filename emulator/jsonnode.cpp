// SPDX-License-Identifier: MIT
#include "jsonnode.h"

#include "emulatorerror.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <cmath>
#include <limits>

namespace emulator
{
namespace
{
/// "line 3, column 14" of an offset in octets.
QString lineAndColumn(const QByteArray& text, int offset)
{
    const QByteArray before = text.left(offset);
    const qsizetype line = before.count('\n') + 1;
    const qsizetype column = QString::fromUtf8(before.mid(before.lastIndexOf('\n') + 1)).size() + 1;
    return QStringLiteral("line %1, column %2").arg(line).arg(column);
}
} // namespace

JsonNode JsonNode::parse(const QByteArray& json)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(json, &error);
    if (error.error != QJsonParseError::NoError) {
        throw EmulatorError(QStringLiteral("no JSON, ") + lineAndColumn(json, error.offset) + QStringLiteral(": ") +
                            error.errorString());
    }
    return JsonNode(document.isArray() ? QJsonValue(document.array()) : QJsonValue(document.object()), QString());
}

JsonNode::JsonNode(const QJsonValue& value, const QString& place)
    : m_object(value.toObject())
    , m_place(place)
{
    if (!value.isObject())
        throw EmulatorError((place.isEmpty() ? QString() : place + QStringLiteral(": ")) +
                            QStringLiteral("an object is expected"));
}

QString JsonNode::placeOf(const QString& key) const
{
    return m_place.isEmpty() ? key : m_place + QLatin1Char('.') + key;
}

void JsonNode::fail(const QString& key, const QString& reason) const
{
    throw EmulatorError(placeOf(key) + QStringLiteral(": ") + reason);
}

void JsonNode::allowOnly(const QStringList& keys) const
{
    for (auto member = m_object.begin(); member != m_object.end(); ++member) {
        if (!keys.contains(member.key()))
            fail(member.key(), QStringLiteral("no such member here; known are ") + keys.join(QStringLiteral(", ")));
    }
}

QString JsonNode::text(const QString& key) const
{
    QString text = this->text(key, QString());
    if (text.isEmpty())
        fail(key, QStringLiteral("a text is expected"));
    return text;
}

QString JsonNode::text(const QString& key, const QString& whenAbsent) const
{
    if (!has(key))
        return whenAbsent;
    const QJsonValue value = m_object.value(key);
    if (!value.isString())
        fail(key, QStringLiteral("a text is expected"));
    return value.toString();
}

bool JsonNode::flag(const QString& key, bool whenAbsent) const
{
    if (!has(key))
        return whenAbsent;
    const QJsonValue value = m_object.value(key);
    if (!value.isBool())
        fail(key, QStringLiteral("true or false is expected"));
    return value.toBool();
}

std::optional<double> JsonNode::number(const QString& key) const
{
    if (!has(key))
        return std::nullopt;
    const QJsonValue value = m_object.value(key);
    if (!value.isDouble())
        fail(key, QStringLiteral("a number is expected"));
    return value.toDouble();
}

std::optional<int> JsonNode::count(const QString& key) const
{
    const auto value = number(key);
    if (!value)
        return std::nullopt;
    if (*value < 0 || *value != std::floor(*value) || *value > std::numeric_limits<int>::max())
        fail(key, QStringLiteral("a whole number that is not negative is expected"));
    return int(*value);
}

QStringList JsonNode::texts(const QString& key) const
{
    QStringList texts;
    if (!has(key))
        return texts;
    if (!m_object.value(key).isArray())
        fail(key, QStringLiteral("an array of texts is expected"));
    const QJsonArray array = m_object.value(key).toArray();
    for (qsizetype index = 0; index < array.size(); ++index) {
        if (!array.at(index).isString())
            fail(key + QLatin1Char('[') + QString::number(index) + QLatin1Char(']'),
                 QStringLiteral("a text is expected"));
        texts.append(array.at(index).toString());
    }
    return texts;
}

QList<JsonNode> JsonNode::list(const QString& key) const
{
    QList<JsonNode> nodes;
    if (!has(key))
        return nodes;
    if (!m_object.value(key).isArray())
        fail(key, QStringLiteral("an array is expected"));
    const QJsonArray array = m_object.value(key).toArray();
    for (qsizetype index = 0; index < array.size(); ++index)
        nodes.append(
            JsonNode(array.at(index), placeOf(key) + QLatin1Char('[') + QString::number(index) + QLatin1Char(']')));
    return nodes;
}

JsonNode JsonNode::object(const QString& key) const
{
    return JsonNode(has(key) ? m_object.value(key) : QJsonValue(QJsonObject()), placeOf(key));
}
} // namespace emulator
