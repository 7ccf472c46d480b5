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
#include <utility>

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

Log4Qt::Logger* logger()
{
    return Log4Qt::LogManager::logger(u"database"_s);
}
} // namespace

/// A connection, and what bounds it.
struct ConnectionFactory::Held {
    explicit Held(const DatabaseAccess& access)
        : connection(access)
        , name(connection.database().connectionName())
    {
    }

    void provide()
    {
        watch.reset();
        if (connection.isOpen() || rest.hasExpired()) {
            open();
        }
        if (!isWaiting && connection.isOpen()) {
            watchCaller();
        }
    }

    /// Opens it, unless it is open and answers. When the cashier stops that, it is still waited for afterwards.
    void open()
    {
        if (!connection.hasServer()) {
            openAnew();
            noteOpening();
            return;
        }
        QScopedValueRollback waits(isWaiting, true);
        auto opening = std::make_unique<ServerThread>(connection.database(), [this] { openAnew(); });
        if (opening->wait(longestWait(connection.access()))) {
            noteOpening();
            return;
        }
        waits.commit();
        logger()->warn(u"The cashier does not wait for "_s + connection.access().section);
        leftBehind = std::move(opening);
        leftBehind->whenDone(&eventLoop, [this] { takeBack(); });
    }

    void takeBack()
    {
        if (leftBehind && leftBehind->isDone()) {
            leftBehind.reset();
            isWaiting = false;
            noteOpening();
        }
    }

    void openAnew()
    {
        if (connection.isOpen() && !connection.answers()) {
            connection.close();
        }
        waiting.start();
        opened = rest.hasExpired() ? connection.open() : Expected<void>();
    }

    void noteOpening()
    {
        if (opened) {
            return;
        }
        logger()->error(connection.access().section + u" cannot be opened: "_s + opened.failure().detail);
        if (waiting.elapsed() > longWaitMs) {
            rest = QDeadlineTimer(restAfterLongWait);
        }
    }

    /// @param statements bounded by themselves
    void runBeside(std::chrono::seconds limit, const std::function<void()>& statements)
    {
        const QScopedValueRollback waits(isWaiting, true);
        const QSqlDatabase database = connection.database();
        ConnectionWatch server(database, limit);
        ServerThread thread(database, statements);
        while (!thread.wait(limit)) {
            server.cut();
        }
        if (server.hasCut()) {
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
    const QString name;     ///< of Qt's connection, which is another thread's while it is waited for
    bool isWaiting = false; ///< for the server, while events run
    std::optional<ConnectionWatch> watch;
    QDeadlineTimer rest{0};
    QObject eventLoop;

    // What openAnew() finds. It may run in a thread of its own.
    Expected<void> opened;
    QElapsedTimer waiting;
    std::unique_ptr<ServerThread> leftBehind; ///< opens it although the cashier has stopped that
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
    return held->isWaiting ? QSqlDatabase() : held->connection.database();
}

void ConnectionFactory::ask(const QSqlDatabase& connection, std::chrono::milliseconds time,
                            const std::function<void()>& statements)
{
    const auto bounded = [&] {
        const QueryGuard guard(connection, time);
        statements();
    };
    Held* const held = serverBehind(connection);
    if (held && held->isWaiting) {
        return; // another thread uses it
    }
    if (held && connection.isOpen()) {
        held->runBeside(longestWait(time), bounded);
    } else {
        bounded();
    }
}

ConnectionFactory::Held* ConnectionFactory::serverBehind(const QSqlDatabase& connection) const
{
    for (const auto& [name, held] : m_held) {
        if (held->name == connection.connectionName() && !held->connection.access().isFile()) {
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
