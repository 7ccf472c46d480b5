// SPDX-License-Identifier: MIT
#include "scanrecognizer.h"

#include "config.h"

#include <QKeyEvent>

namespace
{

/// Fewer characters than this may come from quick fingers.
constexpr qsizetype shortestScan = 4;

/// Held or locked for what another key writes; a scanner presses such keys, too.
bool isModifier(int key)
{
    switch (key) {
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Alt:
    case Qt::Key_AltGr:
    case Qt::Key_Meta:
    case Qt::Key_CapsLock:
    case Qt::Key_NumLock:
    case Qt::Key_ScrollLock:
        return true;
    default:
        return false;
    }
}

QString setting(const char* key)
{
    return Singleton<Config>::get()->getString(QLatin1String("Scanner:") + QLatin1String(key));
}

} // namespace

ScanRecognizer::ScanRecognizer(const QString& prefix, const QString& suffix)
    : m_prefix(prefix)
    , m_suffix(suffix)
{
}

ScanRecognizer ScanRecognizer::configured()
{
    return {setting("prefix"), setting("suffix")};
}

void ScanRecognizer::key(const QKeyEvent& key, const QString& field)
{
    const QString text = key.text();
    if (text.size() == 1 && key.key() != Qt::Key_Backspace && key.key() != Qt::Key_Delete)
        character(text.front(), key.timestamp(), field);
    else if (!isModifier(key.key()))
        reset();
}

std::optional<ScanRecognizer::Scan> ScanRecognizer::finish(quint64 time)
{
    std::optional<Scan> scan;
    if (const std::optional<qsizetype> start = scanStart(time))
        scan = Scan{stripped(m_input.mid(*start)), m_fields[*start]};
    reset();
    return scan;
}

void ScanRecognizer::character(QChar character, quint64 time, const QString& field)
{
    if (!followsFast(time))
        m_burst = m_input.size();
    m_input.append(character);
    m_fields.append(field);
    m_last = time;
}

void ScanRecognizer::reset()
{
    m_input.clear();
    m_fields.clear();
    m_burst = 0;
    m_last = 0;
}

bool ScanRecognizer::followsFast(quint64 time) const
{
    return time > 0 && m_last > 0 && time >= m_last && time - m_last <= quint64(longestGap.count());
}

std::optional<qsizetype> ScanRecognizer::scanStart(quint64 time) const
{
    if (!m_prefix.isEmpty())
        if (const qsizetype prefix = m_input.lastIndexOf(m_prefix); prefix >= 0)
            return prefix;
    if (followsFast(time) && m_input.size() - m_burst >= shortestScan)
        return m_burst;
    return std::nullopt;
}

QString ScanRecognizer::stripped(QString text) const
{
    text.removeIf([](QChar character) { return !character.isPrint(); });
    if (!m_prefix.isEmpty() && text.startsWith(m_prefix))
        text.remove(0, m_prefix.size());
    if (!m_suffix.isEmpty() && text.endsWith(m_suffix))
        text.chop(m_suffix.size());
    return text;
}
