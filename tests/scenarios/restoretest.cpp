// SPDX-License-Identifier: MIT
#include "pharmacy.h"

#include <QDir>
#include <QFile>

class ReceiptRestoring : public Pharmacy
{
};

TEST_F(ReceiptRestoring, registerKilled_receiptComesBackWithItsCard)
{
    start("served-and-left-open.json");
    ASSERT_TRUE(waitForOutput("the receipt is open"));
    const QJsonObject before = savedReceipt();
    kill();

    expectHeld(play("taken-up-after-a-crash.json"));
    EXPECT_EQ(savedReceipt(), before);
}

TEST_F(ReceiptRestoring, savedReceiptDamaged_isSetAsideUnchangedAndTold)
{
    const QByteArray damaged = "{\"type\": 1, \"positions\": [{\"numb";
    QFile file(dataFolder() + "/receipt.json");
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(damaged);
    file.close();

    expectHeld(play("told-of-the-damaged-receipt.json"));

    const QStringList setAside = QDir(dataFolder()).entryList({"receipt.json.damaged-*"});
    ASSERT_EQ(setAside.size(), 1);
    QFile kept(dataFolder() + '/' + setAside[0]);
    ASSERT_TRUE(kept.open(QIODevice::ReadOnly));
    EXPECT_EQ(kept.readAll(), damaged);
}
