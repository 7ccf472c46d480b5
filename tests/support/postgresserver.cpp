// SPDX-License-Identifier: MIT
#include "postgresserver.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QStandardPaths>

#include <csignal>

#include <pwd.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace
{

constexpr int longestStepMs = 60'000;

/// A program of the newest PostgreSQL here; empty when there is none.
QString program(const QString& name)
{
    const QDir versions(u"/usr/lib/postgresql"_s);
    for (const QString& version : versions.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name | QDir::Reversed)) {
        const QString found = QStandardPaths::findExecutable(name, {versions.filePath(version + u"/bin"_s)});
        if (!found.isEmpty()) {
            return found;
        }
    }
    return QStandardPaths::findExecutable(name);
}

/// The server refuses to be root's; then it is the user's that its package makes. It ends with the test.
QStringList commandLine(const QString& file, const QStringList& arguments)
{
    QStringList command{u"setpriv"_s, u"--pdeathsig=KILL"_s};
    if (geteuid() == 0) {
        command += {u"--reuid=postgres"_s, u"--regid=postgres"_s, u"--init-groups"_s};
    }
    return command + QStringList{file} + arguments;
}

QList<pid_t> childrenOf(qint64 process)
{
    QFile file(u"/proc/%1/task/%1/children"_s.arg(process));
    QList<pid_t> children;
    if (file.open(QIODevice::ReadOnly)) {
        for (const QByteArray& child : file.readAll().split(' ')) {
            if (!child.trimmed().isEmpty()) {
                children.append(child.toInt());
            }
        }
    }
    return children;
}

} // namespace

PostgresServer::~PostgresServer()
{
    stop();
}

Expected<void> PostgresServer::start()
{
    if (m_server.state() != QProcess::NotRunning) {
        return {};
    }
    const QString file = program(u"postgres"_s);
    if (file.isEmpty() || program(u"initdb"_s).isEmpty()) {
        return untranslatedFailure(u"PostgreSQL is not installed: run scripts/setup"_s);
    }
    if (!m_hasCluster) {
        if (auto created = createCluster(); !created) {
            return created;
        }
        m_hasCluster = true;
    }
    const QStringList command = commandLine(file, {u"-D"_s, m_folder.filePath(u"data"_s), u"-k"_s, m_folder.path(),
                                                   u"-c"_s, u"listen_addresses="_s, u"-c"_s, u"fsync=off"_s, u"-c"_s,
                                                   u"autovacuum=off"_s, u"-c"_s, u"max_connections=20"_s});
    m_server.setProcessChannelMode(QProcess::MergedChannels);
    m_server.start(command.first(), command.mid(1));
    const QDeadlineTimer deadline(longestStepMs);
    while (!execute(u"SELECT 1"_s)) {
        if (deadline.hasExpired() || m_server.waitForFinished(20)) {
            return untranslatedFailure(u"PostgreSQL does not start: "_s + QString::fromUtf8(m_server.readAll()));
        }
    }
    return {};
}

Expected<void> PostgresServer::createCluster()
{
    if (const passwd* owner = geteuid() == 0 ? getpwnam("postgres") : nullptr) {
        if (chown(QFile::encodeName(m_folder.path()).constData(), owner->pw_uid, owner->pw_gid) != 0) {
            return untranslatedFailure(u"The server's folder cannot be given away"_s);
        }
    }
    const QStringList command =
        commandLine(program(u"initdb"_s), {u"-D"_s, m_folder.filePath(u"data"_s), u"-U"_s, user(), u"-A"_s, u"trust"_s,
                                           u"-E"_s, u"UTF8"_s, u"--locale=C"_s, u"--no-sync"_s});
    QProcess creating;
    creating.setProcessChannelMode(QProcess::MergedChannels);
    creating.setWorkingDirectory(u"/"_s);
    creating.start(command.first(), command.mid(1));
    if (!creating.waitForFinished(longestStepMs) || creating.exitCode() != 0) {
        return untranslatedFailure(u"No PostgreSQL cluster can be made: "_s + QString::fromUtf8(creating.readAll()) +
                                   creating.errorString());
    }
    return {};
}

void PostgresServer::stop()
{
    if (m_server.state() == QProcess::NotRunning) {
        return;
    }
    goOn();
    kill(pid_t(m_server.processId()), SIGQUIT);
    m_server.waitForFinished(longestStepMs);
}

void PostgresServer::pause()
{
    signalAll(SIGSTOP);
}

void PostgresServer::goOn()
{
    signalAll(SIGCONT);
}

void PostgresServer::signalAll(int signal) const
{
    const qint64 server = m_server.processId();
    for (const pid_t process : QList<pid_t>{pid_t(server)} + childrenOf(server)) {
        kill(process, signal);
    }
}

QString PostgresServer::user() const
{
    return u"postgres"_s;
}

QString PostgresServer::database() const
{
    return u"postgres"_s;
}

Expected<void> PostgresServer::execute(const QString& statement) const
{
    const QString name = u"PostgreSQL itself"_s;
    Expected<void> outcome;
    {
        QSqlDatabase connection = QSqlDatabase::addDatabase(u"QPSQL"_s, name);
        connection.setHostName(host());
        connection.setUserName(user());
        connection.setDatabaseName(database());
        if (!connection.open()) {
            outcome = untranslatedFailure(connection.lastError().text());
        } else if (QSqlQuery change(connection); !change.exec(statement)) {
            outcome = untranslatedFailure(change.lastError().text());
        }
    }
    QSqlDatabase::removeDatabase(name);
    return outcome;
}
