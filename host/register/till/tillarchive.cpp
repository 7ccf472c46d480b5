// SPDX-License-Identifier: MIT
#include "tillarchive.h"

#include "till.h"

#include <QMap>

#include <limits>
#include <utility>

TillArchive::TillArchive(const Till& till)
    : m_till(till)
{
    Singleton<DocumentArchive>::instance = this;
}

TillArchive::~TillArchive()
{
    Singleton<DocumentArchive>::instance = m_former;
}

QList<QSharedPointer<AbstractDocument>> TillArchive::documentsOf(const QDate& day) const
{
    const ArchiveFolder& folder = m_till.archive();
    QMap<int, QSharedPointer<Document>> found;
    for (const auto& document : folder.allSuspended()) {
        found.insert(document->getNumber(), document);
    }
    for (const auto& document : folder.ofDay(day, std::numeric_limits<int>::max())) {
        if (document->getState() != Document::State::Suspended) {
            found.insert(document->getNumber(), document);
        }
    }
    if (const auto open = m_till.document()) {
        found.insert(open->getNumber(), open);
    }
    if (const auto current = getDocument().dynamicCast<Document>(); current && found.contains(current->getNumber())) {
        found.insert(current->getNumber(), current);
    }
    QList<QSharedPointer<AbstractDocument>> documents;
    for (const auto& document : std::as_const(found)) {
        if (!document->isUndone()) {
            documents.prepend(document);
        }
    }
    return documents;
}

QSharedPointer<AbstractDocument> TillArchive::document(const QString& identifier) const
{
    if (auto current = getDocument(); current && current->identifier() == identifier) {
        return current;
    }
    if (const auto open = m_till.document(); open && open->identifier() == identifier) {
        return open;
    }
    return m_till.archive().find(identifier.toInt());
}
