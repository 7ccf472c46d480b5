// SPDX-License-Identifier: MIT
#include "tr.h"

#include <QtGlobal>

namespace tr
{

namespace
{

/// The catalogue's text for a key; empty when no catalogue has it.
QString translation(const QString& key)
{
    if (key.isEmpty() || key == undefined) {
        return {};
    }
    const QString found = qtTrId(key.toUtf8().constData());
    return found == key ? QString() : found;
}

/// The number of a placeholder whose digits begin at `begin` (1 to 99), and how many digits it has; 0: none is there.
int placeholderAt(const QString& pattern, qsizetype begin, int& digits)
{
    int number = 0;
    digits = 0;
    while (digits < 2 && begin + digits < pattern.size()) {
        const char16_t digit = pattern[begin + digits].unicode();
        if (digit < u'0' || digit > u'9' || (digits == 0 && digit == u'0')) {
            break;
        }
        number = number * 10 + (digit - u'0');
        ++digits;
    }
    return number;
}

QString filled(const QString& pattern, const QStringList& values)
{
    QString result;
    result.reserve(pattern.size());
    qsizetype position = 0;
    while (position < pattern.size()) {
        int digits = 0;
        const int number = pattern[position] == u'%' ? placeholderAt(pattern, position + 1, digits) : 0;
        if (number >= 1 && number <= values.size()) {
            result += values[number - 1];
            position += 1 + digits;
        } else {
            result += pattern[position];
            ++position;
        }
    }
    return result;
}

} // namespace

Tr::Tr(const QString& key, const QString& text)
    : m_key(key)
    , m_text(text)
{
}

QString Tr::ui() const
{
    const QString translated = translation(m_key);
    return filled(translated.isEmpty() ? m_text : translated, m_values);
}

Tr Tr::arg(const QString& value) const
{
    Tr result = *this;
    result.m_values.append(value);
    return result;
}

} // namespace tr
