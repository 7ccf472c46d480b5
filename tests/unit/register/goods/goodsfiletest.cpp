// SPDX-License-Identifier: MIT
// The file with the goods is replaced while the register works.
#include "basicexception.h"
#include "logcapture.h"
#include "qtmessages.h"
#include "tillfixture.h"

#include <QFile>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTest>

#include <cstdio>
#include <functional>

using namespace Qt::StringLiterals;

namespace
{

class GoodsFile : public TillFixture
{
protected:
    QString file() const { return folder.filePath(u"goods.sqlite"_s); }
    QString newFile() const { return folder.filePath(u"new.sqlite"_s); }

    /// A copy of the file as another program makes it, changed by a statement.
    void makeNewFile(const QString& statement) const
    {
        QFile::remove(newFile());
        ASSERT_TRUE(QFile::copy(file(), newFile()));
        change(newFile(), statement);
    }
    static void change(const QString& path, const QString& statement)
    {
        const QString name = u"importing"_s;
        {
            QSqlDatabase database = QSqlDatabase::addDatabase(u"QSQLITE"_s, name);
            database.setDatabaseName(path);
            ASSERT_TRUE(database.open());
            ASSERT_TRUE(QSqlQuery(database).exec(statement));
        }
        QSqlDatabase::removeDatabase(name);
    }
    void replace() const
    {
        ASSERT_EQ(std::rename(QFile::encodeName(newFile()).constData(), QFile::encodeName(file()).constData()), 0);
    }
    QString dictionaryName()
    {
        QSqlQuery query(connections.object.getConnection({}, {}));
        return query.exec(u"SELECT dictname FROM medicine WHERE dictcode = 1001"_s) && query.next()
                   ? query.value(0).toString()
                   : QString();
    }
    double price() const { return catalogue.byBarcode(amoxidar)->price->toRoubles(); }
    double listedPrice() const
    {
        const GoodsList goods = catalogue.goodsOf({});
        return goods.at(goods.matching(amoxidar).value(0)).price->toRoubles();
    }
    static QStringList databaseLines(const LogCapture& log) { return log.lines().filter(u" database "_s); }
};

const QString dearer = u"UPDATE goods SET price = 99 WHERE code = '00001'"_s;

} // namespace

TEST_F(GoodsFile, replacedBetweenDocuments_theNextLookUpReadsTheNewOne)
{
    EXPECT_EQ(price(), 12.4);
    EXPECT_EQ(listedPrice(), 12.4);
    makeNewFile(dearer);
    change(newFile(), u"UPDATE medicine SET dictname = 'Новое имя' WHERE dictcode = '1001'"_s);
    EXPECT_NE(dictionaryName(), u"Новое имя"_s);
    replace();
    const LogCapture log;
    EXPECT_EQ(price(), 99);
    EXPECT_EQ(listedPrice(), 99);
    EXPECT_EQ(dictionaryName(), u"Новое имя"_s) << "plug-ins read it too";
    const QString taken = u"INFO database Database: the new file "_s + file() + u" is in use"_s;
    EXPECT_EQ(databaseLines(log), (QStringList{taken, taken})) << "for the register and for the plug-ins";
}

TEST_F(GoodsFile, replacedWhileADocumentIsOpen_isTakenAfterTheDocument)
{
    EXPECT_EQ(price(), 12.4);
    const QString former = dictionaryName();
    catalogue.keepFresh();
    till->open();
    makeNewFile(dearer);
    change(newFile(), u"UPDATE medicine SET dictname = 'Новое имя'"_s);
    replace();
    const LogCapture log;
    EXPECT_EQ(price(), 12.4);
    EXPECT_EQ(listedPrice(), 12.4);
    EXPECT_EQ(dictionaryName(), former);
    EXPECT_TRUE(databaseLines(log).isEmpty()) << log.text().toStdString();

    till->cancel();
    EXPECT_TRUE(QTest::qWaitFor([this] { return dictionaryName() == u"Новое имя"_s; }));
    EXPECT_EQ(price(), 99);
    EXPECT_EQ(listedPrice(), 99);
}

struct UnusableFile {
    const char* name;
    QString statement; ///< that spoils the new file; empty: it is no database
    QString said;      ///< a part of the message
};

class GoodsFileUnusable : public GoodsFile, public ::testing::WithParamInterface<UnusableFile>
{
};

TEST_P(GoodsFileUnusable, takesTheOldOnesPlace_theOldOneStaysInUseAndTheCashierIsToldOnce)
{
    EXPECT_EQ(price(), 12.4);
    const QString former = dictionaryName();
    if (GetParam().statement.isEmpty()) {
        QFile garbage(newFile());
        ASSERT_TRUE(garbage.open(QIODevice::WriteOnly));
        garbage.write(QByteArray(5000, 'x'));
    } else {
        makeNewFile(GetParam().statement);
    }
    replace();
    QSignalSpy refused(&catalogue, &GoodsCatalogue::fileRefused);
    const LogCapture log;

    EXPECT_EQ(price(), 12.4);
    EXPECT_EQ(listedPrice(), 12.4);
    EXPECT_EQ(dictionaryName(), former);

    ASSERT_EQ(refused.size(), 1);
    const QString said = refused.first().first().value<tr::Tr>().ui();
    EXPECT_TRUE(said.startsWith(u"Новый файл справочника товаров не читается: "_s)) << said.toStdString();
    EXPECT_TRUE(said.contains(GetParam().said)) << said.toStdString();
    ASSERT_EQ(databaseLines(log).size(), 1) << log.text().toStdString();
    EXPECT_TRUE(log.text().contains(u"the old one stays in use"_s));

    // One that can be read ends it.
    QFile::remove(file());
    ASSERT_TRUE(createDemoGoods(newFile()));
    change(newFile(), dearer);
    replace();
    EXPECT_EQ(price(), 99);
}

INSTANTIATE_TEST_SUITE_P(
    Files, GoodsFileUnusable,
    ::testing::Values(UnusableFile{"noDatabase", {}, u"not a database"_s},
                      UnusableFile{"withoutGoods", u"DROP TABLE goods"_s, u"goods.code"_s},
                      UnusableFile{"withoutAColumn", u"ALTER TABLE goods DROP COLUMN stock"_s, u"goods.stock"_s},
                      UnusableFile{"withoutMedicines", u"DROP TABLE medicine"_s, u"medicine.dictcode"_s}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(GoodsFile, removed_theOpenOneStaysInUse)
{
    EXPECT_EQ(price(), 12.4);
    ASSERT_TRUE(QFile::remove(file()));
    EXPECT_EQ(price(), 12.4);
    EXPECT_EQ(listedPrice(), 12.4);
}

TEST_F(GoodsFile, changedByAnotherProgram_theListIsNew)
{
    EXPECT_EQ(listedPrice(), 12.4);
    till->open();
    change(file(), dearer);
    EXPECT_EQ(listedPrice(), 99);
    EXPECT_EQ(price(), 99);
}

TEST_F(GoodsFile, lackingAtFirst_isToldWithoutAWarningOfQtAndReadAsSoonAsItIsThere)
{
    config.set(u"Database:name"_s, newFile());
    const QtMessages qt;
    try {
        price();
        FAIL();
    } catch (const BasicException& unreadable) {
        EXPECT_TRUE(unreadable.tr().ui().contains(u"недоступен: unable to open database file"_s))
            << unreadable.tr().ui().toStdString();
    }
    EXPECT_EQ(qt.with(u"Sql"_s), QStringList());
    ASSERT_TRUE(createDemoGoods(newFile()));
    EXPECT_EQ(price(), 12.4);
}

TEST_F(GoodsFile, namelessDatabase_isToldWithAReason)
{
    config.set(u"Database:name"_s, QString());
    try {
        price();
        FAIL();
    } catch (const BasicException& unreadable) {
        EXPECT_TRUE(unreadable.tr().ui().contains(u"недоступен: Database:name"_s));
    }
}

struct UnusableDatabase {
    const char* name;
    std::function<void(Configured& config, const QString& folder)> configure;
};

/// A goods database that never worked.
class GoodsDatabaseUnusable : public GoodsFile, public ::testing::WithParamInterface<UnusableDatabase>
{
protected:
    static void useFile(Configured& config, const QString& path, const QByteArray& contents)
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(contents);
        config.set(u"Database:name"_s, path);
    }
    /// What the cashier reads between the colon and the advice.
    static QString reasonIn(const QString& said)
    {
        static const QRegularExpression form(u"\\AСправочник товаров недоступен: (.*)\nПроверьте базу данных товаров"_s,
                                             QRegularExpression::DotMatchesEverythingOption);
        return form.match(said).captured(1).trimmed();
    }

public:
    static QList<UnusableDatabase> all()
    {
        return {
            {"missingFile", [](Configured& config,
                               const QString& folder) { config.set(u"Database:name"_s, folder + u"/none.sqlite"_s); }},
            {"missingFolder", [](Configured& config,
                                 const QString& folder) { config.set(u"Database:name"_s, folder + u"/no/goods"_s); }},
            {"folder", [](Configured& config, const QString& folder) { config.set(u"Database:name"_s, folder); }},
            {"emptyFile",
             [](Configured& config, const QString& folder) { useFile(config, folder + u"/empty.sqlite"_s, {}); }},
            {"text", [](Configured& config,
                        const QString& folder) { useFile(config, folder + u"/text.sqlite"_s, QByteArray(5000, 'x')); }},
            {"serverThatRefuses",
             [](Configured& config, const QString&) {
                 config.set(u"Database:driver"_s, u"QPSQL"_s);
                 config.set(u"Database:host"_s, u"127.0.0.1"_s);
                 config.set(u"Database:port"_s, u"1"_s);
                 config.set(u"Database:timeout"_s, u"2"_s);
             }},
            {"unknownDriver", [](Configured& config, const QString&) { config.set(u"Database:driver"_s, u"QNONE"_s); }},
        };
    }
};

TEST_P(GoodsDatabaseUnusable, fromTheStart_eachMessageHasAReasonAndQtWarnsOfNothing)
{
    GetParam().configure(config, folder.path());
    const QtMessages qt;
    for (const std::function<void()>& look :
         {std::function<void()>([this] { price(); }), std::function<void()>([this] { catalogue.goodsOf({}); }),
          std::function<void()>([this] { catalogue.goodsOf(u"Амоксициллин"_s); })}) {
        try {
            look();
            FAIL();
        } catch (const BasicException& unreadable) {
            EXPECT_NE(reasonIn(unreadable.tr().ui()), QString()) << unreadable.tr().ui().toStdString();
        }
    }
    QSignalSpy failed(&catalogue, &GoodsCatalogue::failed);
    catalogue.keepFresh();
    ASSERT_TRUE(QTest::qWaitFor([&failed] { return !failed.isEmpty(); }, 30'000));
    EXPECT_NE(reasonIn(failed.first().first().value<tr::Tr>().ui()), QString());
    connections.object.getConnection({}, {});
    EXPECT_EQ(qt.with(QString()), QStringList());
}

INSTANTIATE_TEST_SUITE_P(, GoodsDatabaseUnusable, ::testing::ValuesIn(GoodsDatabaseUnusable::all()),
                         [](const auto& row) { return std::string(row.param.name); });
