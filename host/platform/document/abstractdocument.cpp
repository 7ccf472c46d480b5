// SPDX-License-Identifier: MIT
#include "abstractdocument.h"

#include <QJsonArray>

#include <algorithm>

using namespace Qt::StringLiterals;

const QString AbstractDocument::openDocumentFile = u"receipt.json"_s;

AbstractDocument::AbstractDocument(QObject* parent)
    : QObject(parent)
{
}

AbstractDocument::~AbstractDocument() = default;

QSharedPointer<GoodsItem> AbstractDocument::getPosition(int number) const
{
    const QList<QSharedPointer<GoodsItem>> positions = getPositions();
    const auto found = std::find_if(positions.cbegin(), positions.cend(),
                                    [number](const auto& position) { return position->getNumber() == number; });
    return found == positions.cend() ? nullptr : *found;
}

bool AbstractDocument::isClosed() const
{
    return false;
}

QString AbstractDocument::fileName() const
{
    return openDocumentFile;
}

QString AbstractDocument::identifier() const
{
    return {};
}

QVariant AbstractDocument::getPluginValue(const QString& plugin, const QString& key, const QVariant& def) const
{
    return m_pluginValues.value(plugin).value(key, def);
}

void AbstractDocument::setPluginValue(const QString& plugin, const QString& key, const QVariant& value)
{
    QVariantMap& values = m_pluginValues[plugin];
    if (value.isValid()) {
        values.insert(key, value);
    } else {
        values.remove(key);
    }
    if (values.isEmpty()) {
        m_pluginValues.remove(plugin);
    }
}

bool AbstractDocument::isUndone() const
{
    return false;
}

QJsonObject AbstractDocument::toJson() const
{
    QJsonArray positions;
    for (const QSharedPointer<GoodsItem>& position : getPositions()) {
        positions.append(position->toJson());
    }
    QJsonObject plugins;
    for (auto values = m_pluginValues.cbegin(); values != m_pluginValues.cend(); ++values) {
        plugins.insert(values.key(), QJsonObject::fromVariantMap(values.value()));
    }
    return {
        {u"format"_s, formatVersion}, {u"type"_s, getType()},  {u"closed"_s, isClosed()},
        {u"positions"_s, positions},  {u"plugins"_s, plugins},
    };
}
