// SPDX-License-Identifier: MIT
#include "journal.h"

#include <QJsonArray>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace emulator
{
QJsonObject JournalEntry::json() const
{
    QJsonArray fields;
    for (const auto& [name, value] : headers) {
        fields.append(QJsonObject{{u"name"_s, QString::fromUtf8(name)}, {u"value"_s, QString::fromUtf8(value)}});
    }
    return {{u"number"_s, number},
            {u"connection"_s, qint64(connection)},
            {u"received"_s, received.toString(Qt::ISODateWithMs)},
            {u"endpoint"_s, endpointName(endpoint)},
            {u"method"_s, QString::fromUtf8(method)},
            {u"path"_s, QString::fromUtf8(path())},
            {u"target"_s, QString::fromUtf8(target)},
            {u"headers"_s, fields},
            {u"body"_s, QString::fromUtf8(body)},
            {u"status"_s, status},
            {u"answeredWhole"_s, answeredWhole},
            {u"fault"_s, fault}};
}

qint64 Journal::add(JournalEntry entry)
{
    entry.number = ++m_lastNumber;
    if (m_entries.size() == capacity) {
        m_entries.removeFirst();
    }
    m_entries.append(std::move(entry));
    return m_lastNumber;
}

void Journal::answered(qint64 number, bool whole)
{
    if (m_entries.isEmpty()) {
        return;
    }
    const qint64 index = number - m_entries.first().number;
    if (index >= 0 && index < m_entries.size()) {
        m_entries[index].answeredWhole = whole;
    }
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
