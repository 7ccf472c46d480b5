// SPDX-License-Identifier: MIT
#include "jsonnode.h"

#include "emulatorerror.h"
#include "filecontent.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace emulator
{
namespace
{
/// "line 3, column 14", from an offset in octets.
QString lineAndColumn(const QByteArray& text, int offset)
{
    const QByteArray before = text.left(offset);
    const qsizetype line = before.count('\n') + 1;
    const qsizetype column = QString::fromUtf8(before.mid(before.lastIndexOf('\n') + 1)).size() + 1;
    return u"line %1, column %2"_s.arg(line).arg(column);
}
} // namespace

JsonNode JsonNode::parse(const QByteArray& json)
{
    return parse(json, QString());
}

JsonNode JsonNode::fromFile(const QString& path)
{
    return parse(contentOfFile(path), path + u": "_s);
}

JsonNode JsonNode::parse(const QByteArray& json, const QString& source)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(json, &error);
    if (error.error != QJsonParseError::NoError) {
        throw EmulatorError(source + u"no JSON, "_s + lineAndColumn(json, error.offset) + u": "_s +
                            error.errorString());
    }
    return JsonNode(document.isArray() ? QJsonValue(document.array()) : QJsonValue(document.object()), source,
                    QString());
}

JsonNode::JsonNode(const QJsonValue& value, const QString& source, const QString& place)
    : m_object(value.toObject())
    , m_source(source)
    , m_place(place)
{
    if (!value.isObject()) {
        throw EmulatorError(m_source + (place.isEmpty() ? QString() : place + u": "_s) + u"an object is expected"_s);
    }
}

QString JsonNode::placeOf(const QString& key) const
{
    return m_place.isEmpty() ? key : m_place + u'.' + key;
}

void JsonNode::fail(const QString& key, const QString& reason) const
{
    throw EmulatorError(m_source + placeOf(key) + u": "_s + reason);
}

void JsonNode::allowOnly(const QStringList& keys) const
{
    for (auto member = m_object.begin(); member != m_object.end(); ++member) {
        if (!keys.contains(member.key())) {
            fail(member.key(), u"no such member here; known are "_s + keys.join(u", "_s));
        }
    }
}

QString JsonNode::text(const QString& key) const
{
    QString text = this->text(key, QString());
    if (text.isEmpty()) {
        fail(key, u"a text is expected"_s);
    }
    return text;
}

QString JsonNode::text(const QString& key, const QString& whenAbsent) const
{
    if (!has(key)) {
        return whenAbsent;
    }
    const QJsonValue value = m_object.value(key);
    if (!value.isString()) {
        fail(key, u"a text is expected"_s);
    }
    return value.toString();
}

bool JsonNode::flag(const QString& key, bool whenAbsent) const
{
    if (!has(key)) {
        return whenAbsent;
    }
    const QJsonValue value = m_object.value(key);
    if (!value.isBool()) {
        fail(key, u"true or false is expected"_s);
    }
    return value.toBool();
}

std::optional<double> JsonNode::number(const QString& key) const
{
    if (!has(key)) {
        return std::nullopt;
    }
    const QJsonValue value = m_object.value(key);
    if (!value.isDouble()) {
        fail(key, u"a number is expected"_s);
    }
    return value.toDouble();
}

std::optional<int> JsonNode::count(const QString& key) const
{
    const auto value = number(key);
    if (!value) {
        return std::nullopt;
    }
    if (*value < 0 || *value != std::floor(*value) || *value > std::numeric_limits<int>::max()) {
        fail(key, u"a whole number that is not negative is expected"_s);
    }
    return int(*value);
}

QStringList JsonNode::texts(const QString& key) const
{
    QStringList texts;
    if (!has(key)) {
        return texts;
    }
    if (!m_object.value(key).isArray()) {
        fail(key, u"an array of texts is expected"_s);
    }
    const QJsonArray array = m_object.value(key).toArray();
    for (qsizetype index = 0; index < array.size(); ++index) {
        if (!array.at(index).isString()) {
            fail(key + u'[' + QString::number(index) + u']', u"a text is expected"_s);
        }
        texts.append(array.at(index).toString());
    }
    return texts;
}

QList<JsonNode> JsonNode::list(const QString& key) const
{
    QList<JsonNode> nodes;
    if (!has(key)) {
        return nodes;
    }
    if (!m_object.value(key).isArray()) {
        fail(key, u"an array is expected"_s);
    }
    const QJsonArray array = m_object.value(key).toArray();
    for (qsizetype index = 0; index < array.size(); ++index) {
        nodes.append(JsonNode(array.at(index), m_source, placeOf(key) + u'[' + QString::number(index) + u']'));
    }
    return nodes;
}

JsonNode JsonNode::object(const QString& key) const
{
    return JsonNode(has(key) ? m_object.value(key) : QJsonValue(QJsonObject()), m_source, placeOf(key));
}
} // namespace emulator
