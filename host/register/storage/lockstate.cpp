// SPDX-License-Identifier: MIT
#include "lockstate.h"

#include "currenttime.h"
#include "jsonfile.h"
#include "wholefile.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

const QString lockFile = u"screenlock.json"_s;

constexpr int freeTries = 2;
constexpr auto firstWait = std::chrono::seconds(5);
constexpr auto longestWait = std::chrono::seconds(300);

std::chrono::seconds waitAfter(int wrongTries)
{
    auto wait = wrongTries > freeTries ? firstWait : std::chrono::seconds(0);
    for (int tries = freeTries + 1; tries < wrongTries && wait < longestWait; ++tries) {
        wait *= 2;
    }
    return std::min(wait, longestWait);
}

void logFailure(const QString& what, const QString& detail)
{
    Log4Qt::LogManager::logger(u"register"_s)->error(what + detail);
}

} // namespace

LockState::LockState(const QString& folder)
    : m_folder(folder)
    , m_isLocked(QFile::exists(QDir(folder).filePath(lockFile)))
{
    if (m_isLocked) {
        read();
    }
}

void LockState::lock()
{
    m_isLocked = true;
    m_wrongTries = 0;
    m_lastTry = {};
    save();
}

void LockState::unlock()
{
    m_isLocked = false;
    QFile file(QDir(m_folder).filePath(lockFile));
    if (file.exists() && !file.remove()) {
        logFailure(u"The next start will be locked: "_s, file.fileName() + u": "_s + file.errorString());
    }
}

void LockState::countWrongTry()
{
    ++m_wrongTries;
    m_lastTry = CurrentTime::create()->current();
    save();
}

std::chrono::seconds LockState::wait()
{
    const QDateTime now = CurrentTime::create()->current();
    if (!m_lastTry.isValid() || m_lastTry > now) { // the clock was set back
        m_lastTry = now;
    }
    const auto gone = std::chrono::milliseconds(m_lastTry.msecsTo(now));
    const auto left = std::chrono::ceil<std::chrono::seconds>(waitAfter(m_wrongTries) - gone);
    return std::max(left, std::chrono::seconds(0));
}

/// A damaged file leaves the screen locked.
void LockState::read()
{
    const Expected<QJsonObject> saved = readJsonObject(QDir(m_folder).filePath(lockFile));
    if (!saved) {
        logFailure(u"The wrong tries to unlock are forgotten: "_s, saved.failure().detail);
        return;
    }
    m_wrongTries = std::max(0, saved->value(u"wrongTries"_s).toInt());
    m_lastTry = QDateTime::fromString(saved->value(u"lastTry"_s).toString(), Qt::ISODateWithMs);
}

void LockState::save() const
{
    QJsonObject state{{u"wrongTries"_s, m_wrongTries}};
    if (m_lastTry.isValid()) {
        state.insert(u"lastTry"_s, m_lastTry.toUTC().toString(Qt::ISODateWithMs));
    }
    if (const auto saved = writeWholeFile(m_folder, lockFile, QJsonDocument(state).toJson()); !saved) {
        logFailure(u"A restart would come back unlocked: "_s, saved.failure().detail);
    }
}
