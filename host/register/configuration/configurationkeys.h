// SPDX-License-Identifier: MIT
#pragma once

#include "expected.h"

#include <QJsonObject>
#include <QList>
#include <QString>
#include <QStringList>

#include <limits>
#include <optional>

/// A key of the configuration, as a row of a `configuration.json` describes it (docs/writing-a-plugin.md).
struct ConfigurationKey {
    enum class Type : int {
        Text,
        Flag,    ///< what Config::getBool() takes
        Number,  ///< what Config::getInt() takes, from `least` to `most`
        Choice,  ///< one of `choices`
        Choices, ///< some of `choices`, separated by commas
        Url,     ///< http or https, with a host
        File,    ///< the path of a file that is there
        Folder,  ///< the path of a folder that is there
        Folders, ///< such paths, separated by colons
        Key,     ///< of a keyboard, as Qt names it: "F5", "Ctrl+A"
    };

    QString key; ///< "section:name"; a section "Name.*" is any one that begins with "Name."
    Type type = Type::Text;
    QString defaultValue; ///< as it would be written
    int least = std::numeric_limits<int>::min();
    int most = std::numeric_limits<int>::max();
    QStringList choices;
    bool isSecret = false;
    bool isSetByRegister = false; ///< whatever the file says is overwritten

    /// True when this describes that key of a configuration.
    bool describes(const QString& actual) const;
    /// This key in the form in which it could be meant by `actual`: with its section, when that may be any.
    QString meantBy(const QString& actual) const;
};

/// The keys that the register, the platform and the plug-ins know.
class ConfigurationKeys
{
public:
    /// The register's own keys and the platform's.
    ConfigurationKeys();

    /// Adds the keys of a `configuration.json`. A failure's detail names the file, and the row that cannot be read.
    Expected<void> load(const QString& file);
    /// Adds the keys of all plug-ins of a folder: those of `<plug-in>/configuration.json`, where there is one. A folder
    /// that is not there has no plug-ins.
    /// @return what could not be read
    QList<Failure> loadPlugins(const QString& pluginFolder);

    const QList<ConfigurationKey>& all() const { return m_keys; }
    /// Nothing when nobody knows the key.
    std::optional<ConfigurationKey> find(const QString& key) const;
    /// The secret whose file a key names: "S:password" for "S:passwordFile". Nothing for other keys.
    std::optional<QString> secretOf(const QString& key) const;
    /// The known key that looks most like an unknown one; nothing when none does.
    std::optional<QString> nearestTo(const QString& key) const;

private:
    QList<ConfigurationKey> m_keys;
};
