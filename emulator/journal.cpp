// SPDX-License-Identifier: MIT
#include "journal.h"

#include "endpointname.h"

#include <QJsonArray>

#include <algorithm>

namespace emulator
{
QJsonObject JournalEntry::json() const
{
    QJsonArray fields;
    for (const auto& [name, value] : headers)
        fields.append(QJsonObject{{QStringLiteral("name"), QString::fromUtf8(name)},
                                  {QStringLiteral("value"), QString::fromUtf8(value)}});
    return {{QStringLiteral("number"), number},
            {QStringLiteral("connection"), qint64(connection)},
            {QStringLiteral("received"), received.toString(Qt::ISODateWithMs)},
            {QStringLiteral("endpoint"), endpointName(endpoint)},
            {QStringLiteral("method"), QString::fromUtf8(method)},
            {QStringLiteral("path"), QString::fromUtf8(path())},
            {QStringLiteral("target"), QString::fromUtf8(target)},
            {QStringLiteral("headers"), fields},
            {QStringLiteral("body"), QString::fromUtf8(body)},
            {QStringLiteral("status"), status},
            {QStringLiteral("answeredWhole"), answeredWhole},
            {QStringLiteral("fault"), fault}};
}

qint64 Journal::add(JournalEntry entry)
{
    entry.number = ++m_lastNumber;
    if (m_entries.size() == capacity)
        m_entries.removeFirst();
    m_entries.append(std::move(entry));
    return m_lastNumber;
}

void Journal::answered(qint64 number, bool whole)
{
    if (m_entries.isEmpty())
        return;
    const qint64 index = number - m_entries.first().number;
    if (index >= 0 && index < m_entries.size())
        m_entries[index].answeredWhole = whole;
}

QList<JournalEntry> Journal::entriesOf(Endpoint endpoint) const
{
    QList<JournalEntry> entries;
    std::copy_if(
        m_entries.begin(), m_entries.end(), std::back_inserter(entries),
        [endpoint](const JournalEntry& entry) { return endpoint == Endpoint::Any || entry.endpoint == endpoint; });
    return entries;
}

int Journal::count(Endpoint endpoint) const
{
    return int(entriesOf(endpoint).size());
}

void Journal::clear()
{
    m_entries.clear();
}
} // namespace emulator
