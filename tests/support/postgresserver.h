// SPDX-License-Identifier: MIT
#pragma once

#include "expected.h"

#include <QProcess>
#include <QString>
#include <QTemporaryDir>

/// A PostgreSQL server of its own in a temporary folder, reached by a Unix socket there. It trusts everyone.
class PostgresServer
{
public:
    PostgresServer() = default;
    /// Ends the server.
    ~PostgresServer();
    Q_DISABLE_COPY_MOVE(PostgresServer)

    /// Starts the server, with the data that it had, and waits until it takes connections. A failure says what is
    /// missing.
    Expected<void> start();
    void stop();

    /// From now on it accepts connections and never answers.
    void pause();
    void goOn();

    /// What a client has to configure.
    QString host() const { return m_folder.path(); }
    QString user() const;
    QString database() const;

    /// Runs a statement that changes something.
    Expected<void> execute(const QString& statement) const;

private:
    Expected<void> createCluster();
    void signalAll(int signal) const;

    QTemporaryDir m_folder;
    QProcess m_server;
    bool m_hasCluster = false;
};
