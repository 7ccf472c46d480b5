// SPDX-License-Identifier: MIT
#pragma once

#include "expected.h"
#include "export.h"
#include "singleton.h"

#include <QHash>
#include <QString>
#include <QStringList>

/// The register's configuration: an INI file in UTF-8.
///
/// A key is "section:key", for example "RestClient:caFile". A section may hold dots, and its case matters. The default
/// holds only when the key is absent: a key with an empty value is an empty text. A value with a comma needs no quotes;
/// a value with a semicolon, or with a blank at either end, is quoted ("…") as docs/configuration.md shows.
///
/// Main thread.
class REGISTERPLATFORM_EXPORT Config
{
public:
    /// An empty configuration: every key has its default.
    Config();
    /// Reads `file`, the path of an INI file. Later changes of the file are not seen. What can be
    /// read of it is read; reading() says whether that was all.
    explicit Config(const QString& file);
    virtual ~Config();
    Q_DISABLE_COPY_MOVE(Config)

    /// "true", "yes", "on" and "1" are true, "false", "no", "off", "0" and an empty value false, whatever the case;
    /// anything else is logged as a warning and gives `def`.
    virtual bool getBool(const QString& key, bool def = false) const;
    virtual QString getString(const QString& key, const QString& def = {}) const;
    /// A decimal integer; anything else (an overflow too) is logged as a warning and gives `def`.
    virtual int getInt(const QString& key, int def = 0) const;

    /// Sets a value for this run: it wins over the file and is never written to it. For command-line options.
    virtual void setForThisRun(const QString& key, const QString& value);

    /// Every key that has a value, "section:key", in alphabetical order.
    QStringList keys() const;

    /// What came of reading the file: a failure when there is none, or when it is no INI file in UTF-8. An empty
    /// configuration was read well.
    const Expected<void>& reading() const { return m_reading; }

private:
    QHash<QString, QString> m_values;
    Expected<void> m_reading;
};

extern template struct REGISTERPLATFORM_EXPORT Singleton<Config>;
