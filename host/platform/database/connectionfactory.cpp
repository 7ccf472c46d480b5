// SPDX-License-Identifier: MIT
#include "connectionfactory.h"

#include "connectionwatch.h"
#include "queryguard.h"
#include "readonlyconnection.h"
#include "serverthread_p.h"

#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QObject>
#include <QScopedValueRollback>

#include <chrono>
#include <optional>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

template struct Singleton<ConnectionFactory>;

namespace
{
/// A failure that takes longer has kept the cashier waiting.
constexpr qint64 longWaitMs = 1000;
constexpr std::chrono::seconds restAfterLongWait = 15s;

/// For the answer of an open connection, for connecting, and for the first statement.
std::chrono::seconds longestWait(const DatabaseAccess& access)
{
    return ReadOnlyConnection::answerTime + 2 * access.timeout;
}

/// For statements that the server ends itself after `time`.
std::chrono::seconds longestWait(std::chrono::milliseconds time)
{
    return ReadOnlyConnection::answerTime + std::chrono::ceil<std::chrono::seconds>(time);
}
} // namespace

/// A connection, and what bounds it.
struct ConnectionFactory::Held {
    explicit Held(const DatabaseAccess& access)
        : connection(access)
    {
    }

    void provide()
    {
        watch.reset();
        if (connection.isOpen() || rest.hasExpired()) {
            open();
        }
        if (connection.isOpen()) {
            watchCaller();
        }
    }

    /// Opens it, unless it is open and answers.
    void open()
    {
        const QScopedValueRollback waits(isWaiting, true);
        QElapsedTimer waiting;
        Expected<void> opened;
        const auto openAnew = [this, &opened, &waiting] {
            if (connection.isOpen() && !connection.answers()) {
                connection.close();
            }
            waiting.start();
            opened = rest.hasExpired() ? connection.open() : Expected<void>();
        };
        if (connection.hasServer()) {
            runBesideTheWindow(connection.database(), longestWait(connection.access()), openAnew);
        } else {
            openAnew();
        }
        if (opened) {
            return;
        }
        Log4Qt::LogManager::logger(u"database"_s)
            ->error(connection.access().section + u" cannot be opened: "_s + opened.failure().detail);
        if (waiting.elapsed() > longWaitMs) {
            rest = QDeadlineTimer(restAfterLongWait);
        }
    }

    /// @param statements bounded by themselves
    void runBeside(std::chrono::seconds limit, const std::function<void()>& statements)
    {
        const QScopedValueRollback waits(isWaiting, true);
        const QSqlDatabase database = connection.database();
        bool isSilent = false;
        runBesideTheWindow(database, limit, [&] {
            const ConnectionWatch server(database, limit);
            statements();
            isSilent = server.hasCut();
        });
        if (isSilent) {
            rest = QDeadlineTimer(restAfterLongWait);
        }
    }

    /// Until the caller is back in the event loop.
    void watchCaller()
    {
        watch.emplace(connection.database(), connection.access().timeout);
        QMetaObject::invokeMethod(
            &eventLoop, [this] { watch.reset(); }, Qt::QueuedConnection);
    }

    ReadOnlyConnection connection;
    bool isWaiting = false; ///< for the server, while events run
    std::optional<ConnectionWatch> watch;
    QDeadlineTimer rest{0};
    QObject eventLoop;
};

ConnectionFactory::ConnectionFactory() = default;
ConnectionFactory::~ConnectionFactory() = default;

QSqlDatabase ConnectionFactory::getConnection(const QString& database, const QString& connection)
{
    const QString section = database.isEmpty() ? u"Database"_s : u"Database."_s + database;
    const DatabaseAccess wanted = DatabaseAccess::configured(section);
    std::unique_ptr<Held>& held = m_held[section + u'\n' + connection];
    if (held && held->isWaiting) {
        return {};
    }
    if (!held || held->connection.access() != wanted) {
        held = std::make_unique<Held>(wanted);
    }
    held->provide();
    return held->connection.database();
}

void ConnectionFactory::ask(const QSqlDatabase& connection, std::chrono::milliseconds time,
                            const std::function<void()>& statements)
{
    const auto bounded = [&] {
        const QueryGuard guard(connection, time);
        statements();
    };
    if (Held* held = serverBehind(connection)) {
        held->runBeside(longestWait(time), bounded);
    } else {
        bounded();
    }
}

ConnectionFactory::Held* ConnectionFactory::serverBehind(const QSqlDatabase& connection) const
{
    for (const auto& [name, held] : m_held) {
        if (!held->isWaiting && connection.isOpen() && held->connection.hasServer() &&
            held->connection.database().connectionName() == connection.connectionName()) {
            return held.get();
        }
    }
    return nullptr;
}

void ConnectionFactory::takeReplacedFiles()
{
    for (const auto& [name, held] : m_held) {
        Q_UNUSED(held->connection.takeReplacedFile()) // it is logged
    }
}
