// SPDX-License-Identifier: MIT
// The catalogue of goods on a real server that stops, stands still and comes back.
#include "basicexception.h"
#include "dialogdouble.h"
#include "inputblocker.h"
#include "postgresserver.h"
#include "qtmessages.h"
#include "registeraction.h"
#include "runningrequest.h"
#include "tillfixture.h"

#include <QSignalSpy>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace
{

const QString barcode = u"4600000000024"_s;
constexpr int longestWaitMs = 30'000;

class GoodsServer : public TillFixture
{
protected:
    static void SetUpTestSuite()
    {
        server = std::make_unique<PostgresServer>();
        start();
        ASSERT_TRUE(server->execute(u"CREATE TABLE goods (code TEXT, barcode TEXT, inn TEXT, name TEXT, price NUMERIC, "
                                    "catalogueprice NUMERIC, minretailprice NUMERIC, stock INTEGER)"_s));
        ASSERT_TRUE(server->execute(u"INSERT INTO goods VALUES "
                                    "('2', '4600000000024', 'Ёлка', 'Ёлка, сбор 50 г', 12.40, 12.90, 1.20, 7), "
                                    "('1', '4600000000017', 'елка ', 'Ель, капли', 3, 3, 0, 1), "
                                    "('3', '4600000000031', 'Ель', 'Ель, мазь', 3, 3, 0, 1)"_s));
    }
    static void TearDownTestSuite() { server.reset(); }
    static void start()
    {
        const Expected<void> started = server->start();
        ASSERT_TRUE(started) << started.failure().detail.toStdString();
    }

    GoodsServer()
    {
        start();
        config.set(u"Database:driver"_s, u"QPSQL"_s);
        config.set(u"Database:host"_s, server->host());
        config.set(u"Database:name"_s, server->database());
        config.set(u"Database:user"_s, server->user());
        config.set(u"Database:timeout"_s, u"2"_s);
        config.set(u"Database:refresh"_s, u"1"_s);
    }
    ~GoodsServer() override { server->goOn(); }

    /// What the cashier reads when a look-up fails; empty when it succeeds.
    QString message() const
    {
        try {
            catalogue.byBarcode(barcode);
            return {};
        } catch (const BasicException& unreadable) {
            return unreadable.tr().ui();
        }
    }

    static inline std::unique_ptr<PostgresServer> server;
};

/// Whoever reads all goods waits at one of them until letGo(), as at a server that is slow. The other goods can be
/// read.
class SlowGoodsServer : public GoodsServer
{
protected:
    SlowGoodsServer()
    {
        config.set(u"Database:timeout"_s, u"10"_s);
        for (const QString& statement :
             {u"CREATE OR REPLACE FUNCTION held() RETURNS INTEGER STABLE LANGUAGE plpgsql AS "
              "'BEGIN PERFORM pg_advisory_lock_shared(42); PERFORM pg_advisory_unlock_shared(42); RETURN 1; END'"_s,
              u"ALTER TABLE goods RENAME TO stored"_s,
              u"CREATE VIEW goods AS SELECT code, barcode, inn, name, price, catalogueprice, minretailprice, "
              "CASE code WHEN '3' THEN held() ELSE stock END AS stock FROM stored"_s}) {
            const Expected<void> done = server->execute(statement);
            EXPECT_TRUE(done) << statement.toStdString();
        }
        QSqlDatabase connection = QSqlDatabase::addDatabase(u"QPSQL"_s, holder);
        connection.setHostName(server->host());
        connection.setUserName(server->user());
        connection.setDatabaseName(server->database());
        EXPECT_TRUE(connection.open());
        EXPECT_TRUE(QSqlQuery(connection).exec(u"SELECT pg_advisory_lock(42)"_s));
    }
    ~SlowGoodsServer() override
    {
        letGo();
        QSqlDatabase::removeDatabase(holder);
        EXPECT_TRUE(server->execute(u"DROP VIEW goods"_s));
        EXPECT_TRUE(server->execute(u"ALTER TABLE stored RENAME TO goods"_s));
    }
    static void letGo() { QSqlDatabase::database(holder, false).close(); }
    /// Somebody reads all goods and waits.
    static bool isHeld()
    {
        QSqlQuery query(QSqlDatabase::database(holder, false));
        return query.exec(u"SELECT 1 FROM pg_locks WHERE locktype = 'advisory' AND NOT granted"_s) && query.next();
    }

    static inline const QString holder = u"whoever holds the goods"_s;
};

const QString begin = u"Справочник товаров недоступен: "_s;
const QString end = u"\nПроверьте базу данных товаров и повторите или позовите администратора."_s;

} // namespace

TEST_F(GoodsServer, asked_givesTheGoodsWithTheirColumns)
{
    const std::optional<CatalogueGoods> goods = catalogue.byBarcode(barcode);
    ASSERT_TRUE(goods);
    EXPECT_EQ(goods->name, u"Ёлка, сбор 50 г"_s);
    EXPECT_EQ(*goods->price, Kopecks{1240});
    EXPECT_EQ(goods->stock, 7);
    EXPECT_EQ(catalogue.goodsOf(u"ЕЛКА"_s).size(), 2) << "before all goods were read";
    EXPECT_EQ(catalogue.goodsOf({}).size(), 3);
    EXPECT_EQ(catalogue.goodsOf(u"ЕЛКА"_s).size(), 2) << "afterwards";
    EXPECT_TRUE(catalogue.goodsOf(u"ель'"_s).isEmpty());
}

TEST_F(GoodsServer, standsStill_theWindowLivesTheCashierIsToldAndTheGoodsComeBack)
{
    ASSERT_EQ(message(), QString());
    witness.seen.clear(); // a busy machine may take its time to connect
    server->pause();
    int ticks = 0;
    QTimer heart;
    QObject::connect(&heart, &QTimer::timeout, &heart, [&ticks] { ++ticks; });
    heart.start(50);

    EXPECT_EQ(message(), begin + u"сервер не ответил за 2 с"_s + end);

    EXPECT_GT(ticks, 5);
    EXPECT_EQ(witness.codes(), (QList<int>{EActivityListener::LongWorkBegins, EActivityListener::LongWorkEnds}));
    EXPECT_EQ(witness.seen.first().seconds, 24) << "the busy screen says how long it takes at most";
    const QString again = message();
    EXPECT_TRUE(again.startsWith(begin)) << again.toStdString();
    EXPECT_TRUE(again.contains(u"timeout expired"_s)) << again.toStdString();
    server->goOn();
    EXPECT_EQ(message(), QString());
}

/// A cashier who presses Esc at the busy screen.
class ImpatientCashier
{
public:
    ImpatientCashier()
    {
        RunningRequest::setEscape(&m_presses, [this](RunningRequest& request) {
            changesSomething = request.changesSomething();
            limit = request.limit();
            request.stop();
        });
        QObject::connect(&m_presses, &QTimer::timeout, &m_window, [this] {
            if (InputBlocker::isActive()) {
                QTest::keyClick(&m_window, Qt::Key_Escape);
            }
        });
        m_presses.start(20);
    }

    bool changesSomething = true;
    std::chrono::seconds limit{0};

private:
    QWidget m_window;
    QTimer m_presses;
};

TEST_F(GoodsServer, standsStillAndTheCashierPressesEsc_theReadingEndsAtOnceAndTheGoodsComeBack)
{
    config.set(u"Database:timeout"_s, u"60"_s);
    ASSERT_EQ(message(), QString());
    server->pause();
    {
        const ImpatientCashier cashier;
        EXPECT_EQ(message(),
                  u"Чтение справочника товаров прекращено кассиром. Чтобы прочитать его, дайте команду ещё раз."_s);
        EXPECT_FALSE(cashier.changesSomething) << "Esc asks nothing";
        EXPECT_EQ(cashier.limit, std::chrono::seconds(720));
    }
    EXPECT_EQ(RunningRequest::current(), nullptr);
    EXPECT_FALSE(InputBlocker::isActive());
    server->goOn();
    EXPECT_EQ(message(), QString());
}

TEST_F(GoodsServer, readingStoppedByTheCashier_theCommandShowsANoticeAndAddsNothing)
{
    config.set(u"Database:timeout"_s, u"60"_s);
    ASSERT_EQ(message(), QString());
    server->pause();
    const ImpatientCashier cashier;
    const DialogDouble dialog;
    control::Action scanned(registeraction::addGoods);
    scanned.insert(u"search"_s, barcode);
    EXPECT_EQ(controller.object.execute(scanned), EContext::Stop);
    control::Action wanted(control::SelectGoods);
    wanted.insert(u"filterByInn"_s, u"Ёлка"_s);
    EXPECT_EQ(controller.object.execute(wanted), EContext::Stop);
    ASSERT_EQ(dialog.messages().size(), 2);
    for (const DialogDouble::Message& shown : dialog.messages()) {
        EXPECT_EQ(shown.kind, Dialog::Notice) << "a wish is no error";
        EXPECT_EQ(shown.tr.key(), u"goodsReadingStopped"_s);
    }
    EXPECT_FALSE(till->document());
}

TEST_F(GoodsServer, stoppedAndStartedAgain_theCashierIsToldWhyAndTheGoodsComeBack)
{
    ASSERT_EQ(message(), QString());
    server->stop();
    const QtMessages qt;
    for (int look = 0; look < 2; ++look) {
        const QString told = message();
        EXPECT_TRUE(told.startsWith(begin)) << told.toStdString();
        EXPECT_TRUE(told.contains(u".s.PGSQL"_s)) << "it names the server: " << told.toStdString();
    }
    EXPECT_EQ(qt.with(u"Sql"_s), QStringList());
    start();
    EXPECT_EQ(message(), QString());
}

TEST_F(GoodsServer, standsStillAtTheStart_nothingWaitsAndTheGoodsComeBackByThemselves)
{
    server->pause();
    QSignalSpy failed(&catalogue, &GoodsCatalogue::failed);
    QSignalSpy recovered(&catalogue, &GoodsCatalogue::recovered);
    catalogue.keepFresh();
    EXPECT_TRUE(failed.isEmpty());
    ASSERT_TRUE(failed.wait(longestWaitMs));
    EXPECT_TRUE(failed.first().first().value<tr::Tr>().ui().startsWith(begin));
    EXPECT_TRUE(recovered.isEmpty());
    server->goOn();
    ASSERT_TRUE(recovered.wait(longestWaitMs));
    EXPECT_EQ(failed.size(), 1) << "it is told once";
    EXPECT_EQ(catalogue.goodsOf({}).size(), 3);
}

TEST_F(GoodsServer, goodsChange_theKeptListIsReadAgainInTheBackground)
{
    catalogue.keepFresh();
    EXPECT_EQ(catalogue.goodsOf({}).at(0).stock, 7);
    ASSERT_TRUE(server->execute(u"UPDATE goods SET stock = 70 WHERE code = '2'"_s));
    EXPECT_EQ(catalogue.byBarcode(barcode)->stock, 70) << "a scan reads its goods at once";
    EXPECT_TRUE(QTest::qWaitFor([this] { return catalogue.goodsOf({}).at(0).stock == 70; }, longestWaitMs));
    ASSERT_TRUE(server->execute(u"UPDATE goods SET stock = 7 WHERE code = '2'"_s));
}

TEST_F(SlowGoodsServer, lookUpWhileAllGoodsAreRead_isAnsweredFirst)
{
    const QSignalSpy failed(&catalogue, &GoodsCatalogue::failed);
    catalogue.keepFresh();
    ASSERT_TRUE(QTest::qWaitFor([] { return isHeld(); }, longestWaitMs));
    ASSERT_TRUE(catalogue.byBarcode(barcode));
    EXPECT_EQ(catalogue.byBarcode(barcode)->name, u"Ёлка, сбор 50 г"_s);
    EXPECT_EQ(catalogue.goodsOf(u"ЕЛКА"_s).size(), 2);
    QCoreApplication::processEvents();
    EXPECT_TRUE(isHeld()) << "all goods are still being read";
    EXPECT_TRUE(failed.isEmpty()) << "the reading was not given up first";
    letGo();
    EXPECT_EQ(catalogue.goodsOf({}).size(), 3);
}

TEST_F(SlowGoodsServer, listOpenedWhileItIsRead_waitsForThatReadingAlone)
{
    catalogue.keepFresh();
    ASSERT_TRUE(QTest::qWaitFor([] { return isHeld(); }, longestWaitMs));
    QTimer::singleShot(0, &SlowGoodsServer::letGo);
    EXPECT_EQ(catalogue.goodsOf({}).size(), 3);
}

TEST_F(GoodsServer, nameLookedUpAfterAllGoodsWereRead_itsSpellingsAreThoseOfTheList)
{
    config.set(u"Database:refresh"_s, u"1000"_s);
    EXPECT_EQ(catalogue.goodsOf(u"ЕЛКА"_s).size(), 2);
    catalogue.keepFresh();
    EXPECT_EQ(catalogue.goodsOf({}).size(), 3);
    QCoreApplication::processEvents();
    ASSERT_TRUE(server->execute(u"INSERT INTO goods VALUES ('4', '4600000000048', 'елКА', 'Ель', 3, 3, 0, 1)"_s));
    EXPECT_EQ(catalogue.goodsOf(u"ЕЛКА"_s).size(), 2) << "the names are not read again for each prescription";
    ASSERT_TRUE(server->execute(u"DELETE FROM goods WHERE code = '4'"_s));
}
