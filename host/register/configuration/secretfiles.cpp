// SPDX-License-Identifier: MIT
#include "secretfiles.h"

#include "config.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>

using namespace Qt::StringLiterals;

namespace
{

constexpr qint64 largestSecret = 65536; // 64 KiB

Failure failure(const QString& file, const QString& reason)
{
    return {{}, file + u' ' + reason};
}

QByteArray withoutLineBreak(QByteArray content)
{
    if (content.endsWith('\n')) {
        content.chop(content.endsWith("\r\n") ? 2 : 1);
    }
    return content;
}

} // namespace

QString secretFilePath(const QString& configured, const QString& configurationFile)
{
    const QString credentials = qEnvironmentVariable("CREDENTIALS_DIRECTORY");
    const QDir folder(credentials.isEmpty() ? QFileInfo(configurationFile).absolutePath() : credentials);
    return QDir::cleanPath(folder.absoluteFilePath(configured));
}

Expected<QString> readSecretFile(const QString& file)
{
    if (!QFileInfo::exists(file)) {
        return failure(file, u"is not there"_s);
    }
    QFile source(file);
    if (!QFileInfo(file).isFile() || !source.open(QIODevice::ReadOnly)) {
        return failure(file, u"is not a file that can be read"_s);
    }
    const QByteArray content = withoutLineBreak(source.read(largestSecret + 1));
    if (content.isEmpty()) {
        return failure(file, u"is empty"_s);
    }
    if (content.size() > largestSecret) {
        return failure(file, u"is larger than 64 KiB"_s);
    }
    QStringDecoder decode(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString secret = decode(content);
    if (decode.hasError() || secret.contains(QChar::Null)) {
        return failure(file, u"is not a text in UTF-8"_s);
    }
    return secret;
}

Expected<void> readSecretFiles(Config& config, const ConfigurationKeys& keys, const QString& configurationFile)
{
    for (const QString& key : config.keys()) {
        const std::optional<QString> secret = keys.secretOf(key);
        const QString configured = config.getString(key);
        if (!secret || configured.isEmpty()) {
            continue;
        }
        const Expected<QString> content = readSecretFile(secretFilePath(configured, configurationFile));
        if (!content) {
            return Failure{{}, key + u": "_s + content.failure().detail};
        }
        config.setForThisRun(*secret, *content);
    }
    return {};
}
