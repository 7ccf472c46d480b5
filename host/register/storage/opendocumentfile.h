// SPDX-License-Identifier: MIT
#pragma once

#include "document.h"
#include "expected.h"

#include <QSharedPointer>
#include <QString>
#include <QStringList>

/// A saved open document that could not be read.
struct DamagedDocumentFile {
    Failure failure;
    QString setAside; ///< the file's new name; empty: it could not be renamed

    /// The next open document would overwrite the damaged file.
    bool isInTheWay() const { return setAside.isEmpty(); }
};

/// The open document on disk.
class OpenDocumentFile
{
public:
    /// @param folder the register's data folder
    explicit OpenDocumentFile(const QString& folder);

    /// The path of the file.
    const QString& file() const { return m_file; }

    /// Saves the open document.
    /// @return false after a failure was shown
    bool saveOrShow(const QSharedPointer<Document>& document) const;

    /// The saved document; null when none was saved.
    using Loaded = Expected<QSharedPointer<Document>, DamagedDocumentFile>;

    /// Reads the open document back. Renames a damaged file to `<name>.damaged-<timestamp>`. When that fails, nothing
    /// may be saved in this folder.
    Loaded load() const;

    /// The names of damaged files that load() has renamed, now or earlier, and that nobody has taken away.
    QStringList setAside() const;

private:
    QString m_file;
};
