// SPDX-License-Identifier: MIT
#pragma once

#include "abstractdocument.h"
#include "export.h"

#include <QSharedPointer>

/// A base for whoever needs the current document.
///
/// The host keeps it up to date before hooks run and events go out.
class REGISTERPLATFORM_EXPORT DocumentWatcher
{
public:
    /// For the host: names the document that the cashier works on; null between receipts.
    static void setCurrentDocument(const QSharedPointer<AbstractDocument>& document);

protected:
    DocumentWatcher() = default;
    ~DocumentWatcher() = default;

    /// The document that the cashier works on; null between receipts.
    QSharedPointer<AbstractDocument> getDocument() const;
};
