// SPDX-License-Identifier: MIT
#pragma once

#include "abstractdocument.h"
#include "export.h"
#include "singleton.h"

#include <QDate>
#include <QList>
#include <QSharedPointer>

/// The register's documents, for a plug-in that looks through those of a day, or for one.
///
/// What a plug-in changes in one (setPluginValue(), options, tags and soft check id of a position) it saves with
/// SaveToFileLogic::save(document, {}), which writes the document's own file; nothing else of it changes, even when it
/// is closed. A plug-in asks again in each command and keeps none: the document may have been resumed or voided
/// meanwhile.
///
/// The host puts an archive of its own into the Singleton. This one is empty. Main thread.
class REGISTERPLATFORM_EXPORT DocumentArchive
{
public:
    DocumentArchive() = default;
    virtual ~DocumentArchive();
    Q_DISABLE_COPY_MOVE(DocumentArchive)

    /// The open document, all suspended documents, and the closed sales and returns that were opened or closed on that
    /// day; each once, the greatest number first. Cancelled and voided documents are left out. The open document, and
    /// one that is being voided, is the very object that is current; the others are read from the disk, which blocks. A
    /// file that cannot be read is logged and passed over.
    ///
    /// @param day in local time
    virtual QList<QSharedPointer<AbstractDocument>> documentsOf(const QDate& day) const;

    /// The document of that name, of whatever day, cancelled and voided ones too. Null when the register has none, or
    /// none that can be read. As for documentsOf(), the current one is the very object, and another one is read from
    /// the disk. While plug-ins are initialised, the document that was open when the register ended is not found: it
    /// comes with event 17.
    ///
    /// @param identifier AbstractDocument::identifier()
    virtual QSharedPointer<AbstractDocument> document(const QString& identifier) const;
};

extern template struct REGISTERPLATFORM_EXPORT Singleton<DocumentArchive>;
