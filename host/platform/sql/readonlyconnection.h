// SPDX-License-Identifier: MIT
#pragma once

#include "databaseaccess.h"
#include "expected.h"
#include "export.h"
#include "fileidentity.h"

#include <QSqlDatabase>
#include <QString>

#include <functional>
#include <optional>

/// A connection to a database that cannot write, and whose server has to answer in time. It belongs to the thread that
/// makes it.
class REGISTERPLATFORM_EXPORT ReadOnlyConnection
{
public:
    explicit ReadOnlyConnection(const DatabaseAccess& access);
    ~ReadOnlyConnection();
    Q_DISABLE_COPY_MOVE(ReadOnlyConnection)

    /// A server that works answers the simplest question in no time.
    static constexpr std::chrono::seconds answerTime{2};

    const DatabaseAccess& access() const { return m_access; }

    /// Qt's connection; closed until open(). When opening failed its lastError() says why.
    QSqlDatabase database() const;
    bool isOpen() const { return database().isOpen(); }
    /// False for a file, and when the driver is missing: nothing is waited for.
    bool hasServer() const { return !m_access.isFile() && database().isValid(); }

    /// Opens it unless it is open. A missing SQLite file is not created.
    Expected<void> open();
    void close();

    /// True unless the server does not answer at once. Files always do.
    bool answers() const;

    /// Looks at a file; the rest of this connection goes on with the old one when it fails.
    using FileCheck = std::function<Expected<void>(const QSqlDatabase&)>;

    /// When the SQLite file that is open was replaced or changed, opens it anew. A file that cannot be read, that lacks
    /// a table or column of the old one, or that `check` refuses is not taken: the old one stays open, also when its
    /// path leads elsewhere now. Such a file is looked at once. Both outcomes are logged.
    /// @return true when the new file is open; false when there is none; a failure when it is not taken
    Expected<bool> takeReplacedFile(const FileCheck& check = {});

private:
    Expected<void> tryFile(const FileCheck& check) const;

    DatabaseAccess m_access;
    QString m_name; ///< of Qt's connection
    std::optional<FileIdentity> m_file;
    std::optional<FileIdentity> m_refused;
};
