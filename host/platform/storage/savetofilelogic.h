// SPDX-License-Identifier: MIT
#pragma once

#include "abstractdocument.h"
#include "export.h"
#include "mockfactory.h"

#include <QSharedPointer>
#include <QString>

class SaveToFileLogic;
extern template struct REGISTERPLATFORM_EXPORT MockFactory<SaveToFileLogic>;

/// Saves a document so that it survives a crash and a power cut.
class REGISTERPLATFORM_EXPORT SaveToFileLogic : public MockFactory<SaveToFileLogic>
{
public:
    SaveToFileLogic() = default;
    virtual ~SaveToFileLogic();
    Q_DISABLE_COPY_MOVE(SaveToFileLogic)

    /// Writes AbstractDocument::toJson() to a file of the folder "Register:data", whole or not at all: into a
    /// temporary file, synced, renamed over the old one, and the folder synced. Blocks until the disk has it. A failure
    /// is logged, and shown to the cashier before this returns.
    ///
    /// @param document null: nothing is written and the result is false
    /// @param file a file name within the folder, or `subfolder/name`, whose subfolder is made if there is none;
    ///        empty: the document's own, AbstractDocument::fileName()
    /// @return false after a failure. The former file is then still there, unless only the folder could not be synced:
    ///         then the new file is there, and a power cut may bring the former one back.
    virtual bool save(const QSharedPointer<AbstractDocument>& document, const QString& file);
};
