// SPDX-License-Identifier: MIT
#include "configurationcheck.h"

#include "config.h"
#include "configvalue.h"
#include "inilines.h"
#include "secretfiles.h"

#include <QFileInfo>
#include <QKeySequence>
#include <QUrl>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

using Type = ConfigurationKey::Type;

/// What is wrong with a value.
struct Mistake {
    QString text;
    bool preventsStart = false;
};
using Problem = std::optional<Mistake>;

constexpr QFile::Permissions ofOthers = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;

Problem problemOfFile(const QString& path)
{
    const QFileInfo info(path);
    if (!info.isFile() || !info.isReadable()) {
        return Mistake{u"names no file that can be read: "_s + path, true};
    }
    return std::nullopt;
}

Problem problemOfFolder(const QString& path)
{
    const QFileInfo info(path);
    if (!info.isDir() || !info.isReadable()) {
        return Mistake{u"names no folder that can be read: "_s + path, true};
    }
    return std::nullopt;
}

Problem problemOfFolders(const QString& paths)
{
    for (const QString& path : paths.split(u':', Qt::SkipEmptyParts)) {
        if (Problem problem = problemOfFolder(path)) {
            return problem;
        }
    }
    return std::nullopt;
}

Problem problemOfNumber(const ConfigurationKey& known, const QString& value)
{
    const std::optional<int> number = numberValue(value);
    if (number && known.least <= *number && *number <= known.most) {
        return std::nullopt;
    }
    return Mistake{u"wants a whole number from %1 to %2"_s.arg(known.least).arg(known.most)};
}

Problem problemOfChoices(const ConfigurationKey& known, const QString& value)
{
    const QStringList chosen = value.split(u',');
    if (std::all_of(chosen.cbegin(), chosen.cend(),
                    [&known](const QString& choice) { return known.choices.contains(choice.trimmed()); })) {
        return std::nullopt;
    }
    return Mistake{u"wants some of these, with commas between them: "_s + known.choices.join(u", "_s)};
}

Problem problemOfKey(const QString& value)
{
    const QKeySequence keys = QKeySequence::fromString(value);
    for (int number = 0; number < keys.count(); ++number) {
        if (keys[uint(number)].key() == Qt::Key_unknown) {
            return Mistake{u"wants a key, for example F5 or Ctrl+R"_s};
        }
    }
    return std::nullopt;
}

Problem problemOfUrl(const QString& value)
{
    const QUrl url(value, QUrl::StrictMode);
    if (url.isValid() && !url.host().isEmpty() && (url.scheme() == "http"_L1 || url.scheme() == "https"_L1)) {
        return std::nullopt;
    }
    return Mistake{u"wants a URL with http or https and a host"_s};
}

/// An empty value takes a function out of use, except where only certain words make sense.
Problem problemOfValue(const ConfigurationKey& known, const QString& value)
{
    if (known.type == Type::Number) {
        return problemOfNumber(known, value);
    }
    if (value.isEmpty()) {
        return std::nullopt;
    }
    switch (known.type) {
    case Type::Flag:
        return flagValue(value) ? Problem() : Mistake{u"wants true or false"_s};
    case Type::Choice:
        return known.choices.contains(value) ? Problem()
                                             : Mistake{u"wants one of these: "_s + known.choices.join(u", "_s)};
    case Type::Choices:
        return problemOfChoices(known, value);
    case Type::Key:
        return problemOfKey(value);
    case Type::Url:
        return problemOfUrl(value);
    case Type::File:
        return problemOfFile(value);
    case Type::Folder:
        return problemOfFolder(value);
    case Type::Folders:
        return problemOfFolders(value);
    default:
        return std::nullopt;
    }
}

bool isSecret(const ConfigurationKey& known, const QString& value)
{
    return (known.isSecret && !value.isEmpty()) || (known.type == Type::Url && !QUrl(value).password().isEmpty());
}

bool isReadableByOthers(const QString& file)
{
    return bool(QFileInfo(file).permissions() & ofOthers);
}

/// systemd itself keeps others from its credentials; the group's bits there are the mask of an access list.
bool isCredential(const QString& file)
{
    const QString folder = qEnvironmentVariable("CREDENTIALS_DIRECTORY");
    return !folder.isEmpty() && QFileInfo(file).canonicalPath() == QFileInfo(folder).canonicalFilePath();
}

/// A key as the file has it: "[Register] unlockCode".
QString asWritten(const QString& key)
{
    const qsizetype colon = key.lastIndexOf(u':');
    return u'[' + key.left(colon) + u"] "_s + key.mid(colon + 1);
}

/// The key was written again, mostly below an older line that was forgotten.
/// @param lines where it is
Problem problemOfRepetition(const QList<int>& lines)
{
    if (lines.isEmpty()) {
        return std::nullopt;
    }
    QStringList numbers;
    for (const int line : lines) {
        numbers.append(QString::number(line));
    }
    return Mistake{
        u"is there more than once, in lines %1: only the last counts, remove the others"_s.arg(numbers.join(u", "_s))};
}

QString withMode(const QString& file)
{
    return file + u" can be read by other users: set its mode to 0600"_s;
}

/// The configuration and what is known of it.
class Check
{
public:
    Check(const Config& config, const QString& file, const ConfigurationKeys& keys)
        : m_config(config)
        , m_file(file)
        , m_keys(keys)
    {
    }

    Problem problemOf(const QString& key) const
    {
        if (const std::optional<ConfigurationKey> known = m_keys.find(key)) {
            return problemOfKnown(*known, m_config.getString(key));
        }
        if (const std::optional<QString> secret = m_keys.secretOf(key)) {
            return problemOfSecretFile(*secret, m_config.getString(key));
        }
        const std::optional<QString> nearest = m_keys.nearestTo(key);
        return Mistake{u"unknown key"_s + (nearest ? u"; did you mean "_s + asWritten(*nearest) + u'?' : QString())};
    }

private:
    Problem problemOfKnown(const ConfigurationKey& known, const QString& value) const
    {
        if (known.isSetByRegister) {
            return Mistake{u"has no effect: the register sets it"_s};
        }
        if (Problem problem = problemOfValue(known, value)) {
            return problem;
        }
        if (isSecret(known, value) && isReadableByOthers(m_file)) {
            return Mistake{u"is a secret, and "_s + withMode(m_file)};
        }
        return std::nullopt;
    }

    Problem problemOfSecretFile(const QString& secret, const QString& configured) const
    {
        if (configured.isEmpty()) {
            return std::nullopt;
        }
        const QString path = secretFilePath(configured, m_file);
        if (const Expected<QString> content = readSecretFile(path); !content) {
            return Mistake{u"cannot be used: "_s + content.failure().detail, true};
        }
        if (!isCredential(path) && isReadableByOthers(path)) {
            return Mistake{u"names a secret, and "_s + withMode(path)};
        }
        if (m_config.keys().contains(secret)) {
            return Mistake{u"wins over "_s + asWritten(secret) + u": remove one of them"_s};
        }
        return std::nullopt;
    }

    const Config& m_config;
    const QString& m_file;
    const ConfigurationKeys& m_keys;
};

} // namespace

QString ConfigurationFinding::description(const QString& file) const
{
    const QString place = line > 0 ? file + u':' + QString::number(line) : file;
    return place + u": "_s + asWritten(key) + u": "_s + text;
}

QList<ConfigurationFinding> checkConfiguration(const Config& config, const QString& file, const ConfigurationKeys& keys)
{
    const QHash<QString, int> lines = readIniLines(file);
    const Check check(config, file, keys);
    const QHash<QString, QList<int>> repeated = readRepeatedKeys(file);
    QList<ConfigurationFinding> findings;
    for (const QString& key : config.keys()) {
        Problem problem = check.problemOf(key);
        if (!problem) {
            problem = problemOfRepetition(repeated.value(key));
        }
        if (problem) {
            findings.append({key, lines.value(key), problem->text, problem->preventsStart});
        }
    }
    std::stable_sort(findings.begin(), findings.end(),
                     [](const auto& left, const auto& right) { return left.line < right.line; });
    return findings;
}
