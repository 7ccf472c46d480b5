// SPDX-License-Identifier: MIT
#pragma once

#include "export.h"
#include "singleton.h"

#include <QHash>
#include <QString>

/// The register's configuration: an INI file in UTF-8.
///
/// A key is "section:key", for example "RestClient:caFile"; a section may hold dots, and the case of its
/// letters counts. A default is given only when the key is absent: a key with an empty value is an empty text. Values
/// that hold a comma need no quotes; values that hold a semicolon, or begin or end with a blank, are quoted ("…") as
/// docs/configuration.md shows.
///
/// Main thread. Reading never fails: a file that is not there reads as an empty one (see isReadable()).
class REGISTERPLATFORM_EXPORT Config
{
public:
    /// An empty configuration: every key has its default.
    Config();
    /// Reads `file`, the path of an INI file. Later changes of the file are not seen.
    explicit Config(const QString& file);
    virtual ~Config();
    Config(const Config&) = delete;
    Config& operator=(const Config&) = delete;

    /// "true", "yes", "on" and "1" are true, "false", "no", "off", "0" and an empty value false, whatever the case;
    /// anything else is logged as a warning and gives `def`.
    virtual bool getBool(const QString& key, bool def = false) const;
    virtual QString getString(const QString& key, const QString& def = {}) const;
    /// A decimal integer; anything else (an overflow too) is logged as a warning and gives `def`.
    virtual int getInt(const QString& key, int def = 0) const;

    /// Sets a value for this run: it wins over the file and is never written to it. For command-line options.
    virtual void setForThisRun(const QString& key, const QString& value);

    /// False when a file was named and could not be read as an INI file; errorText() then tells why.
    bool isReadable() const;
    QString errorText() const;

private:
    QHash<QString, QString> m_values;
    QString m_error;
};

extern template struct REGISTERPLATFORM_EXPORT Singleton<Config>;
