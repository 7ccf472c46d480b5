// SPDX-License-Identifier: MIT
#pragma once

#include "document.h"

#include <QSharedPointer>
#include <QString>

/// The open document on disk.
class OpenDocumentFile
{
public:
    /// @param folder the register's data folder
    explicit OpenDocumentFile(const QString& folder);

    /// Where the open document is saved.
    const QString& file() const { return m_file; }

    /// Saves the document as the open one; a failure has been told to the cashier when it returns false.
    bool save(const QSharedPointer<Document>& document) const;

    /// What load() found.
    struct Loaded {
        QSharedPointer<Document> document; ///< null: no open document was saved, or it was damaged
        QString damage;                    ///< what is wrong with the file; empty: nothing
        QString setAside;                  ///< where the damaged file was put; empty: it could not be moved

        /// A damaged file stands where the next document would be saved over it.
        bool isInTheWay() const { return !damage.isEmpty() && setAside.isEmpty(); }
    };

    /// Reads the open document back. A damaged file is renamed to `<name>.damaged-<timestamp>`; where that fails, no
    /// document may be saved in this folder.
    Loaded load() const;

private:
    QString m_file;
};
