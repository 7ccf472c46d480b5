// SPDX-License-Identifier: MIT
#include "connectionfactory.h"
#include "configured.h"
#include "logcapture.h"

#include <QFile>
#include <QSqlError>
#include <QSqlQuery>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>

namespace
{

const QString selectName = QStringLiteral("SELECT dictname FROM medicine WHERE dictcode = '7'");

class GoodsDatabase : public ::testing::Test
{
protected:
    GoodsDatabase() { m_config.set(QStringLiteral("Database:name"), path()); }

    QString path(const QString& file = QStringLiteral("goods.sqlite")) const { return m_folder.filePath(file); }

    void createDatabase(const QString& file, const QString& name)
    {
        const QString connection = QStringLiteral("writer");
        {
            QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connection);
            database.setDatabaseName(file);
            ASSERT_TRUE(database.open());
            QSqlQuery query(database);
            ASSERT_TRUE(query.exec(QStringLiteral("CREATE TABLE medicine (dictcode TEXT, dictname TEXT)")));
            ASSERT_TRUE(
                query.exec(QStringLiteral("INSERT INTO medicine VALUES ('7', '") + name + QStringLiteral("')")));
        }
        QSqlDatabase::removeDatabase(connection);
    }

    QString readName(const QSqlDatabase& connection)
    {
        QSqlQuery query(connection);
        return query.exec(selectName) && query.next() ? query.value(0).toString() : QStringLiteral("(none)");
    }

    QTemporaryDir m_folder;
    Configured m_config;
    std::unique_ptr<ConnectionFactory> m_factory = std::make_unique<ConnectionFactory>();
};

} // namespace

TEST_F(GoodsDatabase, configuredFile_isReadThroughAnOpenConnection)
{
    createDatabase(path(), QStringLiteral("Парацетамол"));
    const QSqlDatabase connection = m_factory->getConnection({}, {});
    EXPECT_TRUE(connection.isOpen());
    EXPECT_EQ(readName(connection), QStringLiteral("Парацетамол"));
}

struct Statement {
    const char* name;
    const char* sql;
};

class GoodsDatabaseStatement : public GoodsDatabase, public ::testing::WithParamInterface<Statement>
{
};

TEST_P(GoodsDatabaseStatement, thatWrites_failsAndChangesNothing)
{
    createDatabase(path(), QStringLiteral("Парацетамол"));
    {
        QSqlQuery query(m_factory->getConnection({}, {}));
        query.exec(QStringLiteral("PRAGMA query_only = OFF"));
        EXPECT_FALSE(query.exec(QString::fromLatin1(GetParam().sql)));
        EXPECT_TRUE(query.lastError().isValid());
        EXPECT_FALSE(query.lastError().text().trimmed().isEmpty());
    }
    EXPECT_EQ(readName(m_factory->getConnection({}, {})), QStringLiteral("Парацетамол"));
}

INSTANTIATE_TEST_SUITE_P(Statements, GoodsDatabaseStatement,
                         ::testing::Values(Statement{"insert", "INSERT INTO medicine VALUES ('8', 'x')"},
                                           Statement{"update", "UPDATE medicine SET dictname = 'x'"},
                                           Statement{"remove", "DELETE FROM medicine"},
                                           Statement{"dropTable", "DROP TABLE medicine"},
                                           Statement{"createTable", "CREATE TABLE t (x)"},
                                           Statement{"pragma", "PRAGMA user_version = 5"}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(GoodsDatabase, sameArguments_giveTheSameConnectionAndOthersAnother)
{
    createDatabase(path(), QStringLiteral("x"));
    const QString shared = m_factory->getConnection({}, {}).connectionName();
    EXPECT_EQ(m_factory->getConnection({}, {}).connectionName(), shared);
    EXPECT_NE(m_factory->getConnection({}, QStringLiteral("own")).connectionName(), shared);
    EXPECT_NE(shared, QLatin1String(QSqlDatabase::defaultConnection));
    EXPECT_TRUE(m_factory->getConnection({}, QStringLiteral("own")).isOpen());
}

TEST_F(GoodsDatabase, namedDatabase_hasItsOwnSection)
{
    createDatabase(path(), QStringLiteral("goods"));
    createDatabase(path(QStringLiteral("other.sqlite")), QStringLiteral("other"));
    m_config.set(QStringLiteral("Database.other:name"), path(QStringLiteral("other.sqlite")));
    EXPECT_EQ(readName(m_factory->getConnection(QStringLiteral("other"), {})), QStringLiteral("other"));
    EXPECT_EQ(readName(m_factory->getConnection({}, {})), QStringLiteral("goods"));
}

TEST_F(GoodsDatabase, fileMissing_isNotCreatedAndConnectionTellsWhy)
{
    const LogCapture log;
    const QSqlDatabase connection = m_factory->getConnection({}, {});
    EXPECT_FALSE(connection.isOpen());
    EXPECT_TRUE(connection.lastError().isValid());
    EXPECT_TRUE(log.text().contains(QStringLiteral("ERROR database Database cannot be opened")))
        << log.text().toStdString();
    EXPECT_FALSE(QFile::exists(path()));
    QSqlQuery query(connection);
    EXPECT_FALSE(query.prepare(selectName));
    EXPECT_FALSE(query.exec());
    EXPECT_FALSE(QFile::exists(path()));
}

TEST_F(GoodsDatabase, fileAppearsLater_isOpenedByTheNextCall)
{
    EXPECT_FALSE(m_factory->getConnection({}, {}).isOpen());
    createDatabase(path(), QStringLiteral("Парацетамол"));
    EXPECT_EQ(readName(m_factory->getConnection({}, {})), QStringLiteral("Парацетамол"));
}

TEST_F(GoodsDatabase, tableMissing_queryFailsWithTheDriversError)
{
    createDatabase(path(), QStringLiteral("x"));
    QSqlQuery query(m_factory->getConnection({}, {}));
    EXPECT_FALSE(query.prepare(QStringLiteral("SELECT x FROM nothing")));
    EXPECT_TRUE(query.lastError().text().contains(QStringLiteral("nothing")));
}

TEST_F(GoodsDatabase, fileIsNoDatabase_connectionOrQueryFails)
{
    QFile file(path());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray(5000, 'x'));
    file.close();
    QSqlQuery query(m_factory->getConnection({}, {}));
    EXPECT_FALSE(query.exec(selectName));
    EXPECT_TRUE(query.lastError().isValid() || m_factory->getConnection({}, {}).lastError().isValid());
}

TEST_F(GoodsDatabase, directoryInsteadOfFile_isNotOpened)
{
    m_config.set(QStringLiteral("Database:name"), m_folder.path());
    EXPECT_FALSE(m_factory->getConnection({}, {}).isOpen());
}

TEST_F(GoodsDatabase, nothingConfigured_isNotOpenedAndLogged)
{
    m_config.set(QStringLiteral("Database:name"), QString());
    const LogCapture log;
    const QSqlDatabase connection = m_factory->getConnection({}, {});
    EXPECT_FALSE(connection.isOpen());
    EXPECT_TRUE(log.text().contains(QStringLiteral("Database:name"))) << log.text().toStdString();
    QSqlQuery query(connection);
    EXPECT_FALSE(query.prepare(selectName));
}

TEST_F(GoodsDatabase, configurationChanged_nextConnectionIsToTheNewFile)
{
    createDatabase(path(), QStringLiteral("old"));
    createDatabase(path(QStringLiteral("new.sqlite")), QStringLiteral("new"));
    EXPECT_EQ(readName(m_factory->getConnection({}, {})), QStringLiteral("old"));
    m_config.set(QStringLiteral("Database:name"), path(QStringLiteral("new.sqlite")));
    EXPECT_EQ(readName(m_factory->getConnection({}, {})), QStringLiteral("new"));
}

TEST_F(GoodsDatabase, unknownDriver_isNotOpenedAndLogged)
{
    createDatabase(path(), QStringLiteral("x"));
    m_config.set(QStringLiteral("Database:driver"), QStringLiteral("QNONE"));
    const LogCapture log;
    EXPECT_FALSE(m_factory->getConnection({}, {}).isOpen());
    EXPECT_TRUE(log.text().contains(QStringLiteral("QNONE"))) << log.text().toStdString();
}

TEST_F(GoodsDatabase, serverNotReachable_isNotOpenedAndPasswordIsNotLogged)
{
    m_config.set(QStringLiteral("Database:driver"), QStringLiteral("QPSQL"));
    m_config.set(QStringLiteral("Database:host"), m_folder.path()); // a folder without a server's socket
    m_config.set(QStringLiteral("Database:password"), QStringLiteral("hidden"));
    const LogCapture log;
    const QSqlDatabase connection = m_factory->getConnection({}, {});
    EXPECT_FALSE(connection.isOpen());
    EXPECT_TRUE(connection.lastError().isValid());
    EXPECT_FALSE(log.lines().isEmpty());
    EXPECT_FALSE(log.text().contains(QStringLiteral("hidden")));
}

TEST_F(GoodsDatabase, factoryGone_itsConnectionsAreRemoved)
{
    createDatabase(path(), QStringLiteral("x"));
    const QString name = m_factory->getConnection({}, {}).connectionName();
    EXPECT_TRUE(QSqlDatabase::contains(name));
    m_factory.reset();
    EXPECT_FALSE(QSqlDatabase::contains(name));
}
