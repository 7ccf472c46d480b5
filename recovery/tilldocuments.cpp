// SPDX-License-Identifier: MIT
#include "tilldocuments.h"

#include "currenttime.h"
#include "documentarchive.h"

#include <algorithm>

namespace
{

/// A clock may have been wrong by years when the request went out.
constexpr int longestDays = 62;

QDate today()
{
    return CurrentTime::create()->current().date();
}

} // namespace

TillDocuments::Documents TillDocuments::ofDay(const QDate& day)
{
    if (!day.isValid()) {
        return ofDay(today());
    }
    const auto known = m_days.constFind(day);
    if (known != m_days.constEnd()) {
        return *known;
    }
    Documents documents = Singleton<DocumentArchive>::get()->documentsOf(day);
    for (QSharedPointer<AbstractDocument>& document : documents) {
        document = sole(document);
    }
    m_days.insert(day, documents);
    return documents;
}

TillDocuments::Documents TillDocuments::since(const QDate& first)
{
    const QDate begin = first.isValid() ? std::max(first, today().addDays(-longestDays)) : first;
    Documents documents = ofDay(begin);
    for (QDate day = begin; day.isValid() && day < today();) {
        day = day.addDays(1);
        for (const auto& document : ofDay(day)) {
            if (!documents.contains(document)) {
                documents.append(document);
            }
        }
    }
    return documents;
}

QSharedPointer<AbstractDocument> TillDocuments::find(const QString& identifier)
{
    const auto known = m_documents.constFind(identifier);
    if (known != m_documents.constEnd()) {
        return *known;
    }
    const auto document = Singleton<DocumentArchive>::get()->document(identifier);
    return document ? sole(document) : nullptr;
}

/// The first object of the document that was read.
QSharedPointer<AbstractDocument> TillDocuments::sole(const QSharedPointer<AbstractDocument>& document)
{
    if (document->identifier().isEmpty()) {
        return document;
    }
    QSharedPointer<AbstractDocument>& known = m_documents[document->identifier()];
    if (!known) {
        known = document;
    }
    return known;
}
