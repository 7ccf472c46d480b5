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

void DocumentWatcher::setCurrentDocument(const QSharedPointer<AbstractDocument>& document)
{
    currentDocument() = document;
}

QSharedPointer<AbstractDocument> DocumentWatcher::getDocument() const
{
    return currentDocument();
}
