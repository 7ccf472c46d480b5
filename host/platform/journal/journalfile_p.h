// SPDX-License-Identifier: MIT
#pragma once

#include "expected.h"

#include <QByteArray>
#include <QFile>
#include <QJsonObject>
#include <QList>
#include <QString>

/// A file of JSON objects, one a line (UTF-8, RFC 8259), that grows at its end. Only its owner can read it.
///
/// A line counts as written when the disk has it. A crash or a power cut can leave a part of the last line only;
/// reading cuts that part off.
class JournalFile
{
public:
    /// @param folder has to exist when something is written
    /// @param name of the file within the folder
    JournalFile(const QString& folder, const QString& name);

    /// The lines; none when there is no such file. A line that is no JSON object is passed over and logged. A file that
    /// cannot be read, or is larger than 64 MiB, is set aside under another name, with the same effect as no file.
    QList<QJsonObject> read();

    /// True when read() found a file or a line that cannot be used. A part of the last line is no damage.
    bool wasDamaged() const { return m_wasDamaged; }

    /// Adds a line. Fails with the system's words; the file then ends as before.
    Expected<void> append(const QJsonObject& line);

    /// Replaces the whole file with these lines. On failure the former ones stay.
    Expected<void> replace(const QList<QJsonObject>& lines);

    /// In bytes.
    qint64 size() const { return m_file.size(); }

private:
    Expected<void> open();
    void setAside(const QString& reason);
    void log(const QString& what) const;

    QString m_folder;
    QString m_name;
    QFile m_file; ///< open for reading and appending, or closed
    bool m_wasDamaged = false;
    bool m_hasPartOfALine = false; ///< at its end, from a write that failed and could not be taken back
};
