// SPDX-License-Identifier: MIT
#include "scanrecognizer.h"

#include "config.h"

#include <QKeyEvent>

using namespace Qt::StringLiterals;

namespace
{

/// Fewer characters than this may come from quick fingers.
constexpr qsizetype shortestScan = 4;

/// A key that changes what another key writes. A scanner presses such keys, too.
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
    return Singleton<Config>::get()->getString("Scanner:"_L1 + QLatin1StringView(key));
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

std::optional<ScanRecognizer::Scan> ScanRecognizer::take(const QKeyEvent& key, const QString& field)
{
    if (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter) {
        return finish(key.timestamp());
    }
    write(key, field);
    return std::nullopt;
}

void ScanRecognizer::write(const QKeyEvent& key, const QString& field)
{
    const QString text = key.text();
    const bool isWriting = text.size() == 1 && key.key() != Qt::Key_Backspace && key.key() != Qt::Key_Delete;
    if (isWriting && !key.isAutoRepeat()) {
        character(text.front(), key.timestamp(), field);
    } else if (!isModifier(key.key())) {
        reset();
    }
}

std::optional<ScanRecognizer::Scan> ScanRecognizer::finish(quint64 time)
{
    std::optional<Scan> scan;
    if (const std::optional<Start> start = scanStart(time)) {
        scan = Scan{stripped(m_input.mid(start->at)), start->field};
    }
    reset();
    return scan;
}

void ScanRecognizer::character(QChar character, quint64 time, const QString& field)
{
    // The other characters' fields are not kept: something may lie on the keyboard for hours.
    if (!followsFast(time)) {
        m_burst = {m_input.size(), field};
    }
    m_last = time;
    m_input.append(character);
    if (m_prefix.isEmpty()) {
        return;
    }
    m_fields.append(field);
    if (m_fields.size() > m_prefix.size()) {
        m_fields.removeFirst();
    }
    if (m_input.endsWith(m_prefix)) {
        m_prefixed = Start{m_input.size() - m_prefix.size(), m_fields.first()};
    }
}

void ScanRecognizer::reset()
{
    m_input.clear();
    m_fields.clear();
    m_burst = {};
    m_prefixed.reset();
    m_last = 0;
}

bool ScanRecognizer::followsFast(quint64 time) const
{
    return time > 0 && m_last > 0 && time >= m_last && time - m_last <= quint64(longestGap.count());
}

std::optional<ScanRecognizer::Start> ScanRecognizer::scanStart(quint64 time) const
{
    if (m_prefixed) {
        return m_prefixed;
    }
    if (followsFast(time) && m_input.size() - m_burst.at >= shortestScan) {
        return m_burst;
    }
    return std::nullopt;
}

QString ScanRecognizer::stripped(QString text) const
{
    text.removeIf([](QChar character) { return !character.isPrint(); });
    if (!m_prefix.isEmpty() && text.startsWith(m_prefix)) {
        text.remove(0, m_prefix.size());
    }
    if (!m_suffix.isEmpty() && text.endsWith(m_suffix)) {
        text.chop(m_suffix.size());
    }
    return text;
}
