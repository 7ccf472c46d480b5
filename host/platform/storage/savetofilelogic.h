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
    SaveToFileLogic(const SaveToFileLogic&) = delete;
    SaveToFileLogic& operator=(const SaveToFileLogic&) = delete;

    /// Writes AbstractDocument::toJson() to a file of the folder "Register:data", whole or not at all: into a
    /// temporary file, synced, renamed over the old one, and the folder synced.
    ///
    /// @param document null: nothing is written and the result is false
    /// @param file a file name within the folder, or `subfolder/name`, whose subfolder is made where there is none;
    ///        empty: the document's own, AbstractDocument::fileName()
    /// @return false when the file could not be written; the cashier has then been told, and the former file stands.
    ///         False too, after telling the cashier, when the new file stands but the folder could not be synced, so
    ///         that a power cut may bring the former file back.
    virtual bool save(const QSharedPointer<AbstractDocument>& document, const QString& file);
};
