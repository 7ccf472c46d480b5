// SPDX-License-Identifier: MIT
#include "connectionfactory.h"
#include "configured.h"
#include "logcapture.h"

#include <QFile>
#include <QSqlError>
#include <QSqlQuery>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cstdio>
#include <memory>

using namespace Qt::StringLiterals;

namespace
{

const QString selectName = u"SELECT dictname FROM medicine WHERE dictcode = '7'"_s;

class GoodsDatabase : public ::testing::Test
{
protected:
    GoodsDatabase() { m_config.set(u"Database:name"_s, path()); }

    QString path(const QString& file = u"goods.sqlite"_s) const { return m_folder.filePath(file); }

    void createDatabase(const QString& file, const QString& name)
    {
        const QString connection = u"writer"_s;
        {
            QSqlDatabase database = QSqlDatabase::addDatabase(u"QSQLITE"_s, connection);
            database.setDatabaseName(file);
            ASSERT_TRUE(database.open());
            QSqlQuery query(database);
            ASSERT_TRUE(query.exec(u"CREATE TABLE medicine (dictcode TEXT, dictname TEXT)"_s));
            ASSERT_TRUE(query.exec(u"INSERT INTO medicine VALUES ('7', '"_s + name + u"')"_s));
        }
        QSqlDatabase::removeDatabase(connection);
    }

    QString readName(const QSqlDatabase& connection)
    {
        QSqlQuery query(connection);
        return query.exec(selectName) && query.next() ? query.value(0).toString() : u"(none)"_s;
    }

    QTemporaryDir m_folder;
    Configured m_config;
    std::unique_ptr<ConnectionFactory> m_factory = std::make_unique<ConnectionFactory>();
};

} // namespace

TEST_F(GoodsDatabase, configuredFile_isReadThroughAnOpenConnection)
{
    createDatabase(path(), u"Парацетамол"_s);
    const QSqlDatabase connection = m_factory->getConnection({}, {});
    EXPECT_TRUE(connection.isOpen());
    EXPECT_EQ(readName(connection), u"Парацетамол"_s);
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
    createDatabase(path(), u"Парацетамол"_s);
    {
        QSqlQuery query(m_factory->getConnection({}, {}));
        query.exec(u"PRAGMA query_only = OFF"_s);
        EXPECT_FALSE(query.exec(QString::fromLatin1(GetParam().sql)));
        EXPECT_TRUE(query.lastError().isValid());
        EXPECT_FALSE(query.lastError().text().trimmed().isEmpty());
    }
    EXPECT_EQ(readName(m_factory->getConnection({}, {})), u"Парацетамол"_s);
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
    createDatabase(path(), u"x"_s);
    const QString shared = m_factory->getConnection({}, {}).connectionName();
    EXPECT_EQ(m_factory->getConnection({}, {}).connectionName(), shared);
    EXPECT_NE(m_factory->getConnection({}, u"own"_s).connectionName(), shared);
    EXPECT_NE(shared, QLatin1StringView(QSqlDatabase::defaultConnection));
    EXPECT_TRUE(m_factory->getConnection({}, u"own"_s).isOpen());
}

TEST_F(GoodsDatabase, namedDatabase_hasItsOwnSection)
{
    createDatabase(path(), u"goods"_s);
    createDatabase(path(u"other.sqlite"_s), u"other"_s);
    m_config.set(u"Database.other:name"_s, path(u"other.sqlite"_s));
    EXPECT_EQ(readName(m_factory->getConnection(u"other"_s, {})), u"other"_s);
    EXPECT_EQ(readName(m_factory->getConnection({}, {})), u"goods"_s);
}

TEST_F(GoodsDatabase, fileMissing_isNotCreatedAndConnectionTellsWhy)
{
    const LogCapture log;
    const QSqlDatabase connection = m_factory->getConnection({}, {});
    EXPECT_FALSE(connection.isOpen());
    EXPECT_TRUE(connection.lastError().isValid());
    EXPECT_TRUE(log.text().contains(u"ERROR database Database cannot be opened"_s)) << log.text().toStdString();
    EXPECT_FALSE(QFile::exists(path()));
    QSqlQuery query(connection);
    EXPECT_FALSE(query.prepare(selectName));
    EXPECT_FALSE(query.exec());
    EXPECT_FALSE(QFile::exists(path()));
}

TEST_F(GoodsDatabase, fileAppearsLater_isOpenedByTheNextCall)
{
    EXPECT_FALSE(m_factory->getConnection({}, {}).isOpen());
    createDatabase(path(), u"Парацетамол"_s);
    EXPECT_EQ(readName(m_factory->getConnection({}, {})), u"Парацетамол"_s);
}

TEST_F(GoodsDatabase, tableMissing_queryFailsWithTheDriversError)
{
    createDatabase(path(), u"x"_s);
    QSqlQuery query(m_factory->getConnection({}, {}));
    EXPECT_FALSE(query.prepare(u"SELECT x FROM nothing"_s));
    EXPECT_TRUE(query.lastError().text().contains(u"nothing"_s));
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
    m_config.set(u"Database:name"_s, m_folder.path());
    EXPECT_FALSE(m_factory->getConnection({}, {}).isOpen());
}

TEST_F(GoodsDatabase, nothingConfigured_isNotOpenedAndLogged)
{
    m_config.set(u"Database:name"_s, QString());
    const LogCapture log;
    const QSqlDatabase connection = m_factory->getConnection({}, {});
    EXPECT_FALSE(connection.isOpen());
    EXPECT_TRUE(log.text().contains(u"Database:name"_s)) << log.text().toStdString();
    QSqlQuery query(connection);
    EXPECT_FALSE(query.prepare(selectName));
}

TEST_F(GoodsDatabase, configurationChanged_nextConnectionIsToTheNewFile)
{
    createDatabase(path(), u"old"_s);
    createDatabase(path(u"new.sqlite"_s), u"new"_s);
    EXPECT_EQ(readName(m_factory->getConnection({}, {})), u"old"_s);
    m_config.set(u"Database:name"_s, path(u"new.sqlite"_s));
    EXPECT_EQ(readName(m_factory->getConnection({}, {})), u"new"_s);
}

TEST_F(GoodsDatabase, fileReplaced_staysInUseUntilReplacedFilesAreTaken)
{
    createDatabase(path(), u"old"_s);
    createDatabase(path(u"new.sqlite"_s), u"new"_s);
    EXPECT_EQ(readName(m_factory->getConnection({}, {})), u"old"_s);
    ASSERT_EQ(std::rename(path(u"new.sqlite"_s).toLocal8Bit(), path().toLocal8Bit()), 0);
    EXPECT_EQ(readName(m_factory->getConnection({}, {})), u"old"_s);
    const LogCapture log;
    m_factory->takeReplacedFiles();
    EXPECT_EQ(readName(m_factory->getConnection({}, {})), u"new"_s);
    EXPECT_EQ(log.lines(), QStringList{u"INFO database Database: the new file "_s + path() + u" is in use"_s});
    m_factory->takeReplacedFiles();
    EXPECT_EQ(log.lines().size(), 1) << "it is taken once";
}

TEST_F(GoodsDatabase, fileReplacedByOneThatLacksAColumn_oldOneStaysInUseAndThatIsLoggedOnce)
{
    createDatabase(path(), u"old"_s);
    createDatabase(path(u"new.sqlite"_s), u"new"_s);
    {
        QSqlDatabase writer = QSqlDatabase::addDatabase(u"QSQLITE"_s, u"writer"_s);
        writer.setDatabaseName(path(u"new.sqlite"_s));
        ASSERT_TRUE(writer.open());
        ASSERT_TRUE(QSqlQuery(writer).exec(u"ALTER TABLE medicine DROP COLUMN dictname"_s));
    }
    QSqlDatabase::removeDatabase(u"writer"_s);
    EXPECT_EQ(readName(m_factory->getConnection({}, {})), u"old"_s);
    ASSERT_EQ(std::rename(path(u"new.sqlite"_s).toLocal8Bit(), path().toLocal8Bit()), 0);
    const LogCapture log;
    m_factory->takeReplacedFiles();
    m_factory->takeReplacedFiles();
    EXPECT_EQ(readName(m_factory->getConnection({}, {})), u"old"_s);
    EXPECT_EQ(log.lines(), QStringList{u"ERROR database Database: the new file "_s + path() +
                                       u" is not taken, the old one stays in use: the column medicine.dictname "
                                       "is missing"_s});
}

TEST_F(GoodsDatabase, unknownDriver_isNotOpenedAndLogged)
{
    createDatabase(path(), u"x"_s);
    m_config.set(u"Database:driver"_s, u"QNONE"_s);
    const LogCapture log;
    EXPECT_FALSE(m_factory->getConnection({}, {}).isOpen());
    EXPECT_TRUE(log.text().contains(u"QNONE"_s)) << log.text().toStdString();
}

TEST_F(GoodsDatabase, serverNotReachable_isNotOpenedAndPasswordIsNotLogged)
{
    m_config.set(u"Database:driver"_s, u"QPSQL"_s);
    m_config.set(u"Database:host"_s, m_folder.path()); // a folder without a server's socket
    m_config.set(u"Database:password"_s, u"hidden"_s);
    const LogCapture log;
    const QSqlDatabase connection = m_factory->getConnection({}, {});
    EXPECT_FALSE(connection.isOpen());
    EXPECT_TRUE(connection.lastError().isValid());
    EXPECT_FALSE(log.lines().isEmpty());
    EXPECT_FALSE(log.text().contains(u"hidden"_s));
}

TEST_F(GoodsDatabase, factoryGone_itsConnectionsAreRemoved)
{
    createDatabase(path(), u"x"_s);
    const QString name = m_factory->getConnection({}, {}).connectionName();
    EXPECT_TRUE(QSqlDatabase::contains(name));
    m_factory.reset();
    EXPECT_FALSE(QSqlDatabase::contains(name));
}
