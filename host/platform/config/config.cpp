// SPDX-License-Identifier: MIT
#include "config.h"

#include "configvalue.h"

#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QStringDecoder>

using namespace Qt::StringLiterals;

template struct Singleton<Config>;

namespace
{

struct IniText {
    bool hasByteOrderMark;
};

Failure failure(const QString& file, const QString& detail)
{
    return {
        tr::Tr(u"configNotReadable"_s, u"Настройки в файле %1 не прочитаны.\nОбратитесь к администратору."_s).arg(file),
        detail};
}

/// Checks the file before QSettings reads it: QSettings takes a binary file for an empty configuration.
Expected<IniText> inspect(const QString& path)
{
    const QFileInfo info(path);
    if (!info.exists()) {
        return failure(path, u"there is no file "_s + path);
    }
    if (!info.isFile()) {
        return failure(path, path + u" is not a file"_s);
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return failure(path, path + u": "_s + file.errorString());
    }
    const QByteArray bytes = file.readAll();
    QStringDecoder decode(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless); // so that a cut end is an error
    const QString text = decode(bytes);
    if (decode.hasError() || text.contains(QChar::Null)) {
        return failure(path, path + u" is not a text in UTF-8"_s);
    }
    if (text.contains(u"@Variant(")) // QSettings would make objects of it, whatever they are
    {
        return failure(path, path + u" has a value that is no text: @Variant("_s);
    }
    return IniText{bytes.startsWith("\xEF\xBB\xBF")};
}

/// QSettings' name of a key as ours: "section/key" becomes "section:key"; the section General is not named by
/// QSettings.
QString configKey(const QString& settingsKey)
{
    const qsizetype slash = settingsKey.lastIndexOf(u'/');
    if (slash < 0) {
        return u"General:"_s + settingsKey;
    }
    return settingsKey.left(slash) + u':' + settingsKey.mid(slash + 1);
}

void warnAbout(const QString& key, const QString& expected)
{
    Log4Qt::LogManager::logger(u"config"_s)->warn(key + u" is not "_s + expected + u"; the default is taken"_s);
}

} // namespace

Config::Config() = default;

Config::Config(const QString& file)
{
    const Expected<IniText> text = inspect(file);
    if (!text) {
        m_reading = text.failure();
        return;
    }
    const QSettings settings(file, QSettings::IniFormat);
    const QStringList keys = settings.allKeys();
    for (const QString& key : keys) // a value with commas comes as a list
    {
        m_values.insert(configKey(key), settings.value(key).toStringList().join(u','));
    }
    // Qt 6.4 reads what follows a byte order mark, but counts the mark itself as a faulty line.
    if (settings.status() != QSettings::NoError && !text->hasByteOrderMark) {
        m_reading = failure(file, file + u" has lines that are neither a section nor a key with a value"_s);
    }
}

Config::~Config() = default;

bool Config::getBool(const QString& key, bool def) const
{
    const auto found = m_values.constFind(key);
    if (found == m_values.constEnd()) {
        return def;
    }
    if (const std::optional<bool> flag = flagValue(*found)) {
        return *flag;
    }
    warnAbout(key, u"true or false"_s);
    return def;
}

QString Config::getString(const QString& key, const QString& def) const
{
    return m_values.value(key, def);
}

int Config::getInt(const QString& key, int def) const
{
    const auto found = m_values.constFind(key);
    if (found == m_values.constEnd()) {
        return def;
    }
    if (const std::optional<int> number = numberValue(*found)) {
        return *number;
    }
    warnAbout(key, u"a whole number between -2147483648 and 2147483647"_s);
    return def;
}

QStringList Config::keys() const
{
    QStringList keys = m_values.keys();
    keys.sort();
    return keys;
}

void Config::setForThisRun(const QString& key, const QString& value)
{
    m_values.insert(key, value);
}
