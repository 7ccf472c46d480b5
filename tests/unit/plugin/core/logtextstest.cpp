// SPDX-License-Identifier: MIT
#include "pharmacydoubles.h"

#include "connectionfactory.h"
#include "graphicaluserinterface.h"
#include "logcapture.h"
#include "qtmessages.h"

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>

namespace
{

class LogTexts : public PharmacyTest
{
protected:
    QStringList lines() const { return log.lines().filter(" electronicPrescription "); }

    void createDatabase(const QString& statement)
    {
        {
            QSqlDatabase database = QSqlDatabase::addDatabase("QSQLITE", "dictionary");
            database.setDatabaseName(folder.filePath("goods.db"));
            ASSERT_TRUE(database.open());
            ASSERT_TRUE(QSqlQuery(database).exec(statement));
        }
        QSqlDatabase::removeDatabase("dictionary");
        config.setForThisRun("Database:name", folder.filePath("goods.db"));
    }

    void lookUp(const QString& code)
    {
        const auto prescription = prescriptionWithId("a");
        prescription->setDictCode(code);
        service.fillDictionaryName(prescription);
    }

    QTemporaryDir folder;
    Own<ConnectionFactory> connections;
    LogCapture log;
};

TEST_F(LogTexts, pharmacyOff_isAnError)
{
    service.init();

    EXPECT_EQ(lines(), QStringList{"ERROR electronicPrescription Не подключен плагин 'pharmacy'"});
}

TEST_F(LogTexts, initialised_isAnInformation)
{
    const Own<GraphicalUserInterface> userInterface;
    config.setForThisRun("plugins:pharmacy", "true");

    service.init();

    EXPECT_EQ(lines(), QStringList{"INFO electronicPrescription Инициализация выполнена"});
}

TEST_F(LogTexts, cardInputCancelled_isAWarning)
{
    cashier.texts << core::BasicDialog::Result({}, true);

    service.processElectronicPrescriptionsByAction(control::Action(control::PluginCommand));

    EXPECT_EQ(lines(), QStringList{"WARN electronicPrescription Отменено пользователем"});
}

TEST_F(LogTexts, positionNotFound_isAnErrorWithTheNumber)
{
    control::Action action(control::RemovePosition);
    action.insert("positionNumber", 17);

    service.cancelElectronicPrescriptionByAction(action);

    EXPECT_EQ(lines(), QStringList{"ERROR electronicPrescription Не удалось найти позицию с номером '17'"});
}

TEST_F(LogTexts, emptyDictionaryCode_failsToPrepare)
{
    createDatabase("CREATE TABLE medicine (dictcode INTEGER, dictname TEXT)");

    lookUp("");

    ASSERT_EQ(lines().size(), 1);
    EXPECT_TRUE(lines()[0].startsWith("ERROR electronicPrescription Ошибка выполнения prepare для запроса "
                                      "SELECT dictname FROM medicine WHERE dictcode =  LIMIT 1: "))
        << qPrintable(lines()[0]);
    EXPECT_TRUE(lines()[0].contains("syntax error"));
}

TEST_F(LogTexts, dictionaryCode_isWrittenIntoTheStatement)
{
    createDatabase("CREATE TABLE another (dictcode INTEGER)");

    lookUp("123");

    ASSERT_EQ(lines().size(), 1);
    EXPECT_TRUE(lines()[0].contains(" SELECT dictname FROM medicine WHERE dictcode = 123 LIMIT 1: "))
        << qPrintable(lines()[0]);
}

TEST_F(LogTexts, placeholdersInTheCode_stayInTheStatement)
{
    createDatabase("CREATE TABLE another (dictcode INTEGER)");

    lookUp("%2");

    ASSERT_EQ(lines().size(), 1);
    EXPECT_TRUE(lines()[0].contains(" WHERE dictcode = %2 LIMIT 1: ")) << qPrintable(lines()[0]);
}

TEST_F(LogTexts, statementFailsToRun_isAnErrorOfItsOwn)
{
    createDatabase("CREATE TABLE medicine (dictcode INTEGER, dictname TEXT)");

    lookUp("?"); // one value is asked for and none is bound

    ASSERT_EQ(lines().size(), 1);
    EXPECT_TRUE(lines()[0].startsWith("ERROR electronicPrescription Ошибка выполнения запроса "
                                      "SELECT dictname FROM medicine WHERE dictcode = ? LIMIT 1: "))
        << qPrintable(lines()[0]);
}

TEST_F(LogTexts, codeIsAnExpressionWithoutAnEnd_failsToRun)
{
    createDatabase("CREATE TABLE medicine (dictcode INTEGER, dictname TEXT);");
    createDatabase("INSERT INTO medicine VALUES (1, 'Аспирин')");

    lookUp("(WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) SELECT max(i) FROM n)");

    ASSERT_EQ(lines().size(), 1);
    EXPECT_TRUE(lines()[0].startsWith("ERROR electronicPrescription Ошибка выполнения запроса SELECT dictname FROM "
                                      "medicine WHERE dictcode = (WITH RECURSIVE n(i) AS "))
        << qPrintable(lines()[0]);
    EXPECT_TRUE(lines()[0].contains("interrupted")) << qPrintable(lines()[0]);
}

TEST_F(LogTexts, noDatabase_failsToPrepare)
{
    config.setForThisRun("Database:name", folder.filePath("none.db"));
    const QtMessages qt;

    lookUp("123");

    ASSERT_EQ(lines().size(), 1);
    EXPECT_TRUE(lines()[0].startsWith("ERROR electronicPrescription Ошибка выполнения prepare для запроса "));
    EXPECT_EQ(qt.with({}), QStringList()) << "Qt warns of nothing beside it";
}

TEST_F(LogTexts, unknownDictionaryCode_isNotLogged)
{
    createDatabase("CREATE TABLE medicine (dictcode INTEGER, dictname TEXT)");

    lookUp("123");

    EXPECT_TRUE(lines().isEmpty());
}

TEST_F(LogTexts, wholeCommand_logsNeitherCardNorNames)
{
    registry->patient = {{"name", QJsonArray{QJsonObject{{"family", QJsonArray{"Петров"}}}}}};
    registry->bundles = {QJsonObject()};
    cashier.texts << entered("4477001");
    cashier.rows << -1;

    service.processElectronicPrescriptionsByAction(control::Action(control::PluginCommand));

    EXPECT_FALSE(log.text().contains("4477001"));
    EXPECT_FALSE(log.text().contains("Петров"));
}

} // namespace
