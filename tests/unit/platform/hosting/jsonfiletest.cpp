// SPDX-License-Identifier: MIT
#include "jsonfile.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

class JsonFile : public ::testing::Test
{
protected:
    Expected<QJsonObject> read(const QByteArray& content) const
    {
        QFile file(path());
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
        file.close();
        return readJsonObject(path());
    }

    QString path() const { return m_folder.filePath(u"чек.json"_s); }

    QTemporaryDir m_folder;
};

} // namespace

TEST_F(JsonFile, object_isRead)
{
    const Expected<QJsonObject> object = read(R"({"name": "Амоксидар", "positions": [1, 2]})");
    ASSERT_TRUE(object);
    EXPECT_EQ(object->value(u"name"_s), u"Амоксидар"_s);
    EXPECT_EQ(object->size(), 2);
}

TEST_F(JsonFile, emptyObject_isRead)
{
    const Expected<QJsonObject> object = read("{}");
    ASSERT_TRUE(object);
    EXPECT_TRUE(object->isEmpty());
}

TEST_F(JsonFile, noFile_failsAndNamesIt)
{
    const Expected<QJsonObject> object = readJsonObject(path());
    ASSERT_FALSE(object);
    EXPECT_EQ(object.failure().text.key(), u"jsonFileNotReadable"_s);
    EXPECT_TRUE(object.failure().text.ui().contains(path()));
    EXPECT_TRUE(object.failure().detail.startsWith(path())) << object.failure().detail.toStdString();
}

TEST_F(JsonFile, folder_isNoFile)
{
    const Expected<QJsonObject> object = readJsonObject(m_folder.path());
    ASSERT_FALSE(object);
    EXPECT_EQ(object.failure().text.key(), u"jsonFileNotReadable"_s);
}

TEST_F(JsonFile, cutInTheMiddle_isDamagedAtAByte)
{
    const Expected<QJsonObject> object = read(R"({"name": )");
    ASSERT_FALSE(object);
    EXPECT_EQ(object.failure().text.key(), u"jsonFileDamaged"_s);
    EXPECT_TRUE(object.failure().text.ui().contains(path()));
    EXPECT_TRUE(object.failure().detail.contains(u": byte 9: "_s)) << object.failure().detail.toStdString();
}

TEST_F(JsonFile, nothingOrAnotherValue_isDamaged)
{
    for (const QByteArray& content : {QByteArray(), QByteArray("[{}]"), QByteArray("null"), QByteArray("7"),
                                      QByteArray("{} {}"), QByteArray("{\"a\": \"\xff\"}")}) {
        const Expected<QJsonObject> object = read(content);
        ASSERT_FALSE(object) << content.toStdString();
        EXPECT_EQ(object.failure().text.key(), u"jsonFileDamaged"_s);
    }
}
