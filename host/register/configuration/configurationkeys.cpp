// SPDX-License-Identifier: MIT
#include "configurationkeys.h"

#include "jsonfile.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>

#include <algorithm>
#include <numeric>
#include <vector>

using namespace Qt::StringLiterals;

namespace
{

using Type = ConfigurationKey::Type;

const QString anySection = u".*"_s;
const QString fileSuffix = u"File"_s;

struct NamedType {
    QLatin1StringView name = {};
    Type type = Type::Text;
};

constexpr NamedType namedTypes[] = {
    {"text"_L1, Type::Text},       {"flag"_L1, Type::Flag}, {"number"_L1, Type::Number}, {"choice"_L1, Type::Choice},
    {"choices"_L1, Type::Choices}, {"url"_L1, Type::Url},   {"file"_L1, Type::File},     {"folder"_L1, Type::Folder},
    {"folders"_L1, Type::Folders}, {"key"_L1, Type::Key},
};

QString sectionOf(const QString& key)
{
    return key.left(key.lastIndexOf(u':'));
}

QString nameOf(const QString& key)
{
    return key.mid(key.lastIndexOf(u':') + 1);
}

std::optional<Type> typeOf(const QString& name)
{
    const auto* const found = std::find_if(std::begin(namedTypes), std::end(namedTypes),
                                           [&name](const NamedType& row) { return row.name == name; });
    return found == std::end(namedTypes) ? std::nullopt : std::optional(found->type);
}

/// Nothing when the row has no key of the form "section:name", or a type that is unknown.
std::optional<ConfigurationKey> readRow(const QJsonObject& row)
{
    ConfigurationKey key;
    key.key = row.value("key"_L1).toString();
    const std::optional<Type> type = typeOf(row.value("type"_L1).toString());
    if (!type || key.key.lastIndexOf(u':') < 1 || nameOf(key.key).isEmpty()) {
        return std::nullopt;
    }
    key.type = *type;
    key.defaultValue = row.value("default"_L1).toString();
    key.least = row.value("least"_L1).toInt(key.least);
    key.most = row.value("most"_L1).toInt(key.most);
    key.choices = row.value("choices"_L1).toVariant().toStringList();
    key.isSecret = row.value("secret"_L1).toBool();
    key.isSetByRegister = row.value("setByRegister"_L1).toBool();
    return key;
}

/// How many letters have to be put in, left out or replaced to make one text of the other, whatever their case
/// (Levenshtein).
int distance(const QString& left, const QString& right)
{
    std::vector<int> costs(size_t(right.size()) + 1);
    std::iota(costs.begin(), costs.end(), 0);
    for (qsizetype row = 0; row < left.size(); ++row) {
        int diagonal = std::exchange(costs[0], int(row) + 1);
        for (qsizetype column = 0; column < right.size(); ++column) {
            const int replaced = diagonal + (left[row].toLower() == right[column].toLower() ? 0 : 1);
            diagonal = costs[size_t(column) + 1];
            costs[size_t(column) + 1] = std::min({replaced, diagonal + 1, costs[size_t(column)] + 1});
        }
    }
    return costs.back();
}

} // namespace

bool ConfigurationKey::describes(const QString& actual) const
{
    return key == actual || (sectionOf(key).endsWith(anySection) && meantBy(actual) == actual);
}

QString ConfigurationKey::meantBy(const QString& actual) const
{
    const QString section = sectionOf(key);
    const qsizetype dot = sectionOf(actual).indexOf(u'.');
    if (!section.endsWith(anySection) || dot < 0) {
        return key;
    }
    return section.chopped(anySection.size()) + sectionOf(actual).mid(dot) + u':' + nameOf(key);
}

ConfigurationKeys::ConfigurationKeys()
{
    const Expected<void> loaded = load(u":/configuration/registerkeys.json"_s);
    Q_ASSERT(loaded);
}

Expected<void> ConfigurationKeys::load(const QString& file)
{
    const Expected<QJsonObject> root = readJsonObject(file);
    if (!root) {
        return root.failure();
    }
    const QJsonArray rows = root->value("keys"_L1).toArray();
    for (qsizetype number = 0; number < rows.size(); ++number) {
        const std::optional<ConfigurationKey> key = readRow(rows.at(number).toObject());
        if (!key) {
            return Failure{{}, u"%1: keys[%2] has no key, or a type that is unknown"_s.arg(file).arg(number)};
        }
        m_keys.append(*key);
    }
    return {};
}

QList<Failure> ConfigurationKeys::loadPlugins(const QString& pluginFolder)
{
    QList<Failure> failures;
    for (const QFileInfo& plugin : QDir(pluginFolder).entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name)) {
        const QString file = QDir(plugin.filePath()).filePath(u"configuration.json"_s);
        if (!QFileInfo::exists(file)) {
            continue;
        }
        if (const Expected<void> loaded = load(file); !loaded) {
            failures.append(loaded.failure());
        }
    }
    return failures;
}

std::optional<ConfigurationKey> ConfigurationKeys::find(const QString& key) const
{
    const auto found = std::find_if(m_keys.cbegin(), m_keys.cend(),
                                    [&key](const ConfigurationKey& known) { return known.describes(key); });
    return found == m_keys.cend() ? std::nullopt : std::optional(*found);
}

std::optional<QString> ConfigurationKeys::secretOf(const QString& key) const
{
    if (!key.endsWith(fileSuffix)) {
        return std::nullopt;
    }
    const QString secret = key.chopped(fileSuffix.size());
    const std::optional<ConfigurationKey> known = find(secret);
    return known && known->isSecret ? std::optional(secret) : std::nullopt;
}

std::optional<QString> ConfigurationKeys::nearestTo(const QString& key) const
{
    constexpr int lettersPerMistake = 5;
    std::optional<QString> nearest;
    int least = int(key.size()) / lettersPerMistake + 1;
    for (const ConfigurationKey& known : m_keys) {
        QStringList candidates{known.meantBy(key)};
        if (known.isSecret) {
            candidates.append(candidates.constFirst() + fileSuffix);
        }
        for (const QString& candidate : candidates) {
            if (const int mistakes = distance(key, candidate); mistakes < least) {
                least = mistakes;
                nearest = candidate;
            }
        }
    }
    return nearest;
}
