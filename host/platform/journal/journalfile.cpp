// SPDX-License-Identifier: MIT
#include "journalfile_p.h"

#include "wholefile.h"

#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

#include <QDateTime>
#include <QDir>
#include <QJsonDocument>

#include <cerrno>

#include <fcntl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace
{

constexpr qint64 largestFile = qint64(64) * 1024 * 1024;

QByteArray lineOf(const QJsonObject& object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n';
}

bool writeAll(QFile& file, const QByteArray& bytes)
{
    for (qint64 written = 0; written < bytes.size();) {
        const qint64 more = file.write(bytes.constData() + written, bytes.size() - written);
        if (more <= 0) {
            return false;
        }
        written += more;
    }
    return ::fdatasync(file.handle()) == 0;
}

Failure failure(const QFile& file, const QString& systemsWords)
{
    return {tr::Tr(tr::undefined, systemsWords), file.fileName() + u": "_s + systemsWords};
}

} // namespace

JournalFile::JournalFile(const QString& folder, const QString& name)
    : m_folder(folder)
    , m_name(name)
    , m_file(QDir(folder).filePath(name))
{
}

QList<QJsonObject> JournalFile::read()
{
    if (m_folder.isEmpty() || !m_file.exists()) {
        return {};
    }
    if (m_file.size() > largestFile) {
        setAside(u"it is too large"_s);
        return {};
    }
    if (const Expected<void> opened = open(); !opened) {
        setAside(opened.failure().detail);
        return {};
    }
    m_file.seek(0);
    const QByteArray content = m_file.readAll();
    const qsizetype whole = content.lastIndexOf('\n') + 1;
    if (whole < content.size()) {
        log(u"its last line is not whole and is cut off"_s);
        m_file.resize(whole);
    }
    QList<QJsonObject> objects;
    const QList<QByteArray> lines = content.first(whole).split('\n');
    for (const QByteArray& line : lines) {
        const QJsonDocument document = QJsonDocument::fromJson(line);
        if (document.isObject()) {
            objects.append(document.object());
        } else if (!line.isEmpty()) {
            m_wasDamaged = true;
            log(u"a damaged line is passed over"_s);
        }
    }
    return objects;
}

Expected<void> JournalFile::append(const QJsonObject& line)
{
    if (Expected<void> opened = open(); !opened) {
        return opened;
    }
    const qint64 end = m_file.size();
    m_file.seek(end);
    const QByteArray before = m_hasPartOfALine ? "\n" : "";
    if (writeAll(m_file, before + lineOf(line))) {
        m_hasPartOfALine = false;
        return {};
    }
    Failure reason = failure(m_file, qt_error_string(errno));
    m_hasPartOfALine = !m_file.resize(end) || m_hasPartOfALine;
    return reason;
}

Expected<void> JournalFile::replace(const QList<QJsonObject>& lines)
{
    QByteArray content;
    for (const QJsonObject& line : lines) {
        content += lineOf(line);
    }
    Expected<void> written = writeWholeFile(m_folder, m_name, content);
    m_hasPartOfALine = m_hasPartOfALine && !written;
    m_file.close(); // may be the former file, also after a failure
    return written;
}

Expected<void> JournalFile::open()
{
    if (m_file.isOpen()) {
        return {};
    }
    const bool isNew = !m_file.exists();
    if (isNew) {
        // Written whole, so that its name lasts through a power cut.
        if (Expected<void> written = writeWholeFile(m_folder, m_name, {}); !written) {
            return written;
        }
    }
    if (!m_file.open(QIODevice::ReadWrite | QIODevice::Unbuffered)) {
        return failure(m_file, m_file.errorString());
    }
    m_file.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
    return {};
}

void JournalFile::setAside(const QString& reason)
{
    m_wasDamaged = true;
    m_file.close();
    const QString name = m_name + u".damaged-"_s + QDateTime::currentDateTimeUtc().toString(u"yyyyMMddThhmmsszzz"_s);
    const bool renamed = QDir(m_folder).rename(m_name, name);
    log((renamed ? "it is kept as "_L1 + name : u"it cannot be used"_s) + u": "_s + reason);
}

void JournalFile::log(const QString& what) const
{
    Log4Qt::LogManager::logger(u"journal"_s)->warn(m_file.fileName() + u": "_s + what);
}
