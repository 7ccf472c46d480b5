// SPDX-License-Identifier: MIT
#pragma once

#include "abstractdocument.h"
#include "export.h"

#include <QSharedPointer>

/// A base for classes that need the current document.
///
/// The host keeps it up to date before hooks run and events go out.
class REGISTERPLATFORM_EXPORT DocumentWatcher
{
public:
    /// For the host: sets the document that the cashier works on; null when none is open.
    static void setCurrentDocument(const QSharedPointer<AbstractDocument>& document);

protected:
    DocumentWatcher() = default;
    ~DocumentWatcher() = default;

    /// The document that the cashier works on; null when none is open.
    QSharedPointer<AbstractDocument> getDocument() const;
};
