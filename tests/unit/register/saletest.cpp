// SPDX-License-Identifier: MIT
#include "shownmessages.h"
#include "till.h"

#include <QDir>
#include <QJsonArray>

class SaleTest : public Till
{
protected:
    ReceiptStore::Loaded saved() const { return ReceiptStore(folder.path()).load(); }
};

TEST_F(SaleTest, opened_isCurrentAndSavedBeforeEvent10)
{
    sale->open();
    ASSERT_EQ(witness.codes(), QList<int>{10});
    EXPECT_EQ(witness.seen.first().current, sale->receipt());
    EXPECT_EQ(witness.seen.first().context, EContext::OpenReceipt);
    EXPECT_EQ(savedReceipt().value(QStringLiteral("number")).toInt(), 1);
}

TEST_F(SaleTest, openedTwice_staysTheSame)
{
    sale->open();
    const auto receipt = sale->receipt();
    sale->open();
    EXPECT_EQ(sale->receipt(), receipt);
    EXPECT_EQ(witness.codes(), QList<int>{10});
}

TEST_F(SaleTest, firstGoods_openTheReceipt)
{
    EXPECT_EQ(sale->add(article(amoxidar, 2)), 1);
    EXPECT_EQ(witness.codes(), QList<int>{10});
    EXPECT_EQ(sale->receipt()->getSum(), 2480);
    const QJsonObject position = savedReceipt().value(QStringLiteral("positions")).toArray().at(0).toObject();
    EXPECT_EQ(position.value(QStringLiteral("quantity")).toDouble(), 2.0);
    EXPECT_EQ(position.value(QStringLiteral("tmcPrice")).toDouble(), 12.9);
    EXPECT_EQ(position.value(QStringLiteral("minRetailPrice")).toDouble(), 1.2);
    EXPECT_EQ(position.value(QStringLiteral("barcode")).toString(), amoxidar);
}

TEST_F(SaleTest, packsAndRemoval_areSaved)
{
    sale->add(article(amoxidar));
    sale->add(article(amoxidar));
    sale->setPacks(2, 5);
    EXPECT_EQ(savedReceipt().value(QStringLiteral("sum")).toDouble(), 74.4);
    sale->remove(1);
    EXPECT_EQ(savedReceipt().value(QStringLiteral("positions")).toArray().size(), 1);
    sale->remove(17);
    sale->setPacks(17, 3);
    EXPECT_EQ(savedReceipt().value(QStringLiteral("sum")).toDouble(), 62.0);
}

TEST_F(SaleTest, recalculation_tellsTheScreens)
{
    sale->add(article(amoxidar));
    int changes = 0;
    QObject::connect(sale.get(), &Sale::changed, [&changes] { ++changes; });
    loyalty.object.recalculate(sale->receipt());
    EXPECT_EQ(changes, 1);
}

TEST_F(SaleTest, restored_isCurrentAndToldByEvent17Alone)
{
    sale->add(article(amoxidar));
    sale->receipt()->setPluginValue(QStringLiteral("P"), QStringLiteral("card"), QStringLiteral("42"));
    sale->setPacks(1, 3);
    const QJsonObject before = sale->receipt()->toJson();
    DocumentWatcher::setCurrentDocument(nullptr);
    witness.seen.clear();

    Sale again(folder.path());
    again.restore(saved());
    ASSERT_EQ(witness.codes(), QList<int>{17});
    const Witness::Seen& seen = witness.seen.first();
    EXPECT_EQ(seen.context, EContext::OpenReceipt);
    EXPECT_EQ(seen.document.metaType(), QMetaType::fromType<QSharedPointer<AbstractDocument>>());
    EXPECT_EQ(seen.document.value<QSharedPointer<AbstractDocument>>(), seen.current);
    EXPECT_EQ(seen.current, again.receipt());
    EXPECT_EQ(again.receipt()->toJson(), before);
}

TEST_F(SaleTest, nothingToRestore_nothingIsTold)
{
    sale->restore(saved());
    EXPECT_TRUE(witness.seen.isEmpty());
    EXPECT_FALSE(sale->receipt());
    EXPECT_EQ(controller.object.context(), EContext::Idle);
}

TEST_F(SaleTest, damagedReceipt_isToldAndANewOneTakesAnotherNumber)
{
    sale->open();
    QFile file(folder.filePath(QStringLiteral("receipt.json")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("{\"format\": 1, ");
    file.close();
    const ShownMessages messages;

    Sale again(folder.path());
    again.restore(saved());
    EXPECT_FALSE(again.receipt());
    ASSERT_EQ(messages.all().size(), 1);
    EXPECT_EQ(messages.all().first().kind, Dialog::Error);
    EXPECT_TRUE(messages.all().first().text.contains(QStringLiteral("receipt.json.damaged-")));
    again.open();
    EXPECT_EQ(again.receipt()->getNumber(), 2);
    EXPECT_EQ(QDir(folder.path()).entryList({QStringLiteral("receipt.json.damaged-*")}).size(), 1);
}
