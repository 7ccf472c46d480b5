// SPDX-License-Identifier: MIT
#include "documentwatcher.h"

namespace
{

QSharedPointer<AbstractDocument>& currentDocument()
{
    static QSharedPointer<AbstractDocument> document;
    return document;
}

} // namespace

DocumentWatcher::DocumentWatcher() = default;

DocumentWatcher::~DocumentWatcher() = default;

void DocumentWatcher::setCurrentDocument(const QSharedPointer<AbstractDocument>& document)
{
    currentDocument() = document;
}

QSharedPointer<AbstractDocument> DocumentWatcher::getDocument() const
{
    return currentDocument();
}
