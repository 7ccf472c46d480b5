// SPDX-License-Identifier: MIT
#include "serverchecks.h"

#include "currenttime.h"
#include "server.h"

#include <QLocale>
#include <QTimeZone>

using namespace Qt::StringLiterals;

namespace doctor
{
namespace
{

// A dispense that is dated in the registry's future is refused, and servers take a token for a few minutes too early.
constexpr qint64 secondsOfWarning = 60;
constexpr qint64 secondsWrong = 300;

constexpr qint64 secondsOfMinute = 60;
constexpr qint64 secondsOfHour = 60 * secondsOfMinute;
constexpr qint64 secondsOfDay = 24 * secondsOfHour;

/// The one form that is sent (RFC 9110, 5.6.7).
QDateTime readDate(const QByteArray& date)
{
    const QDateTime read = QLocale::c().toDateTime(QString::fromLatin1(date), u"ddd, dd MMM yyyy hh:mm:ss 'GMT'"_s);
    return {read.date(), read.time(), QTimeZone::utc()};
}

QString withUnit(const tr::Tr& unit, qint64 count)
{
    return unit.arg(QString::number(count)).ui();
}

/// "1 d 2 h 3 min", "42 s"
QString inWords(qint64 seconds)
{
    if (seconds < 2 * secondsOfMinute) {
        return withUnit({u"doctorSeconds"_s, u"%1 s"_s}, seconds);
    }
    QStringList parts;
    if (seconds >= secondsOfDay) {
        parts.append(withUnit({u"doctorDays"_s, u"%1 d"_s}, seconds / secondsOfDay));
    }
    if (seconds >= secondsOfHour) {
        parts.append(withUnit({u"doctorHours"_s, u"%1 h"_s}, seconds % secondsOfDay / secondsOfHour));
    }
    parts.append(withUnit({u"doctorMinutes"_s, u"%1 min"_s}, seconds % secondsOfHour / secondsOfMinute));
    return parts.join(u' ');
}

FindingCode judgeClock(qint64 secondsAhead)
{
    if (qAbs(secondsAhead) < secondsOfWarning) {
        return FindingCode::ClockGood;
    }
    if (qAbs(secondsAhead) < secondsWrong) {
        return FindingCode::ClockDrifts;
    }
    return secondsAhead > 0 ? FindingCode::ClockAhead : FindingCode::ClockBehind;
}

} // namespace

Finding checkClock(Server& server, const TimeLimit& /*limit*/)
{
    const QDateTime date = readDate(server.answer.date);
    if (!date.isValid()) {
        return finding(FindingCode::ClockUnknown);
    }
    const qint64 ahead = date.secsTo(CurrentTime::create()->current());
    return finding(judgeClock(ahead), {inWords(qAbs(ahead))});
}

} // namespace doctor
