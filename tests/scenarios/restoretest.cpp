// SPDX-License-Identifier: MIT
#include "pharmacy.h"

#include <QDir>
#include <QFile>

class DocumentRestoring : public Pharmacy
{
};

TEST_F(DocumentRestoring, registerKilled_documentComesBackWithItsCard)
{
    start("served-and-left-open.json");
    ASSERT_TRUE(waitForOutput("the receipt is open"));
    const QJsonObject before = savedDocument();
    kill();

    expectPlayed(play("taken-up-after-a-crash.json"));
    EXPECT_EQ(savedDocument(), before);
}

TEST_F(DocumentRestoring, savedDocumentDamaged_isSetAsideUnchangedAndShown)
{
    const QByteArray damaged = "{\"type\": 1, \"positions\": [{\"numb";
    QFile file(dataFolder() + "/receipt.json");
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(damaged);
    file.close();

    expectPlayed(play("told-of-the-damaged-receipt.json"));

    const QStringList setAside = QDir(dataFolder()).entryList({"receipt.json.damaged-*"});
    ASSERT_EQ(setAside.size(), 1);
    QFile kept(dataFolder() + '/' + setAside[0]);
    ASSERT_TRUE(kept.open(QIODevice::ReadOnly));
    EXPECT_EQ(kept.readAll(), damaged);
}
