// SPDX-License-Identifier: MIT
#include "pharmacydoubles.h"

#include "connectionfactory.h"
#include "inputblocker.h"
#include "postgresserver.h"

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QTimer>

namespace
{

/// The goods database is a real SQLite file, behind the register's own read-only connection.
class DictionaryName : public PharmacyTest
{
protected:
    DictionaryName()
    {
        config.setForThisRun("Database:driver", "QSQLITE");
        config.setForThisRun("Database:name", folder.filePath("goods.db"));
        prescription->setDictCode("123");
    }

    void execute(const QStringList& statements)
    {
        {
            QSqlDatabase database = QSqlDatabase::addDatabase("QSQLITE", "dictionary");
            database.setDatabaseName(folder.filePath("goods.db"));
            ASSERT_TRUE(database.open());
            for (const QString& statement : statements) {
                ASSERT_TRUE(QSqlQuery(database).exec(statement)) << qPrintable(statement);
            }
        }
        QSqlDatabase::removeDatabase("dictionary");
    }

    void createDictionary()
    {
        execute({"CREATE TABLE medicine (dictcode INTEGER, dictname TEXT)",
                 "INSERT INTO medicine VALUES (12, 'Аспирин'), (123, 'Парацетамол таб. 500 мг'), (124, NULL)"});
    }

    QString nameFor(const QString& code)
    {
        prescription->setDictCode(code);
        prescription->setDictName("");
        service.fillDictionaryName(prescription);
        return prescription->getDictName();
    }

    QTemporaryDir folder;
    Own<ConnectionFactory> connections;
    QSharedPointer<ElectronicPrescription> prescription{prescriptionWithId("a")};
};

TEST_F(DictionaryName, knownCode_givesTheName)
{
    createDictionary();

    EXPECT_EQ(nameFor("123"), "Парацетамол таб. 500 мг");
    EXPECT_EQ(nameFor("12"), "Аспирин");
}

TEST_F(DictionaryName, codeColumnOfText_holdsCodesWithoutLeadingZeros)
{
    execute({"CREATE TABLE medicine (dictcode TEXT PRIMARY KEY, dictname TEXT NOT NULL)",
             "INSERT INTO medicine VALUES ('123', 'Парацетамол'), ('0124', 'Аспирин')"});

    EXPECT_EQ(nameFor("123"), "Парацетамол");
    EXPECT_EQ(nameFor("0123"), "Парацетамол");
    EXPECT_EQ(nameFor("124"), "");
    EXPECT_EQ(nameFor("0124"), "") << "a number has no leading zero";
}

TEST_F(DictionaryName, codeColumnOfNumbers_isComparedByValue)
{
    createDictionary();

    EXPECT_EQ(nameFor("0123"), "Парацетамол таб. 500 мг");
}

TEST_F(DictionaryName, unknownCode_givesTheEmptyName)
{
    createDictionary();

    EXPECT_EQ(nameFor("7"), "");
    EXPECT_EQ(nameFor("124"), "") << "no name in the dictionary";
}

TEST_F(DictionaryName, severalRows_firstOneCounts)
{
    createDictionary();
    execute({"INSERT INTO medicine VALUES (123, 'Другое')"});

    EXPECT_EQ(nameFor("123"), "Парацетамол таб. 500 мг");
}

TEST_F(DictionaryName, nameKnownAlready_isNotLookedUp)
{
    createDictionary();
    prescription->setDictName("as it was");

    service.fillDictionaryName(prescription);

    EXPECT_EQ(prescription->getDictName(), "as it was");
}

/// A connection that notes what was asked for.
class ConnectionDouble : public ConnectionFactory
{
public:
    QStringList asked;

    QSqlDatabase getConnection(const QString& database, const QString& connection) override
    {
        asked << QString("'%1' '%2'").arg(database, connection);
        return ConnectionFactory::getConnection(database, connection);
    }
};

TEST_F(DictionaryName, connection_isTheDefaultOneAndAskedForOnce)
{
    createDictionary();
    const Own<ConnectionFactory, ConnectionDouble> noting;

    EXPECT_EQ(nameFor("123"), "Парацетамол таб. 500 мг");

    EXPECT_EQ(noting.object.asked, QStringList{"'' ''"});
}

TEST_F(DictionaryName, codeThatIsNoNumber_leavesTheNameEmpty)
{
    createDictionary();

    EXPECT_EQ(nameFor(""), "");
    EXPECT_EQ(nameFor("no number"), "");
    EXPECT_EQ(nameFor("1; DROP TABLE medicine"), "");
    EXPECT_EQ(nameFor("%1 %2"), "");
    EXPECT_EQ(nameFor("123"), "Парацетамол таб. 500 мг");
}

TEST_F(DictionaryName, codeIsAnExpressionWithoutAnEnd_isGivenUpAndTheNextNameIsFound)
{
    createDictionary();

    EXPECT_EQ(nameFor("(WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) SELECT max(i) FROM n)"), "");
    EXPECT_EQ(nameFor("instr(hex(zeroblob(20000000)), hex(zeroblob(10000000)) || '1')"), "");
    EXPECT_EQ(nameFor("123"), "Парацетамол таб. 500 мг");
}

TEST_F(DictionaryName, noTable_leavesTheNameEmpty)
{
    execute({"CREATE TABLE another (dictcode INTEGER)"});

    EXPECT_EQ(nameFor("123"), "");
}

TEST_F(DictionaryName, noDatabase_leavesTheNameEmptyAndMakesNone)
{
    EXPECT_EQ(nameFor("123"), "");

    EXPECT_FALSE(QFile::exists(folder.filePath("goods.db")));
}

/// Connects, and stands still before anything is asked.
class StandingStill : public ConnectionFactory
{
public:
    explicit StandingStill(PostgresServer& server)
        : m_server(server)
    {
    }

    QSqlDatabase getConnection(const QString& database, const QString& connection) override
    {
        auto made = ConnectionFactory::getConnection(database, connection);
        m_server.pause();
        return made;
    }

private:
    PostgresServer& m_server;
};

TEST_F(DictionaryName, serverStandsStillOnceConnected_theWindowLivesAndTheNameStaysEmpty)
{
    PostgresServer server;
    ASSERT_TRUE(server.start());
    ASSERT_TRUE(server.execute("CREATE TABLE medicine (dictcode INTEGER, dictname TEXT)"));
    ASSERT_TRUE(server.execute("INSERT INTO medicine VALUES (123, 'Парацетамол')"));
    config.setForThisRun("Database:driver", "QPSQL");
    config.setForThisRun("Database:host", server.host());
    config.setForThisRun("Database:name", server.database());
    config.setForThisRun("Database:user", server.user());
    EXPECT_EQ(nameFor("123"), "Парацетамол");

    const Own<ConnectionFactory, StandingStill> still(server);
    int beats = 0;
    QTimer heart;
    QObject::connect(&heart, &QTimer::timeout, &heart, [&beats] { beats += InputBlocker::isActive() ? 1 : 0; });
    heart.start(50);
    EXPECT_EQ(nameFor("123"), "");
    EXPECT_GT(beats, 5);
    server.goOn();
}

TEST_F(DictionaryName, chosenPrescription_isLookedUpBeforeItsDetails)
{
    createDictionary();
    cashier.rows << 0 << -1;
    cashier.details << status(-1);

    service.processElectronicPrescriptions("77", "active", {prescription});

    EXPECT_EQ(shownDictionaryNames, QStringList{"Парацетамол таб. 500 мг"});
}

} // namespace
