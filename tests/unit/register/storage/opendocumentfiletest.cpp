// SPDX-License-Identifier: MIT
#include "opendocumentfile.h"
#include "clockdouble.h"
#include "configured.h"
#include "deepfolder.h"
#include "documentnumbers.h"
#include "finally.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

void write(const QString& path, const QByteArray& content)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << qPrintable(path);
    file.write(content);
}

QByteArray read(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("cannot be read");
}

} // namespace

class OpenDocumentFileTest : public ::testing::Test
{
protected:
    OpenDocumentFileTest() { config.set(u"Register:data"_s, folder.path()); }

    QString path(const QString& name) const { return folder.filePath(name); }

    QTemporaryDir folder;
    Configured config;
    const ClockDouble clock{QDateTime({2024, 2, 29}, {12, 0})};
};

TEST_F(OpenDocumentFileTest, nothingSaved_nothingLoaded)
{
    const auto loaded = OpenDocumentFile(folder.path()).load();
    EXPECT_FALSE(loaded.document);
    EXPECT_TRUE(loaded.damage.isEmpty());
}

TEST_F(OpenDocumentFileTest, savedDocument_isLoadedAndItsFileStays)
{
    const OpenDocumentFile store(folder.path());
    const auto document = QSharedPointer<Document>::create(3, QDateTime({2024, 1, 1}, {8, 0}));
    document->add({}, {});
    ASSERT_TRUE(store.save(document));
    const auto loaded = store.load();
    ASSERT_TRUE(loaded.document);
    EXPECT_EQ(loaded.document->toJson(), document->toJson());
    EXPECT_TRUE(QFile::exists(path(u"receipt.json"_s)));
}

TEST_F(OpenDocumentFileTest, damagedFile_isSetAsideByteForByte)
{
    const QByteArray half("{\"format\": 1, \"posi");
    write(path(u"receipt.json"_s), half);
    const auto loaded = OpenDocumentFile(folder.path()).load();
    EXPECT_FALSE(loaded.document);
    EXPECT_FALSE(loaded.damage.isEmpty());
    EXPECT_EQ(loaded.setAside, path(u"receipt.json.damaged-20240229-120000"_s));
    EXPECT_EQ(read(loaded.setAside), half);
    EXPECT_FALSE(loaded.isInTheWay());
    EXPECT_FALSE(QFile::exists(path(u"receipt.json"_s)));
}

TEST_F(OpenDocumentFileTest, secondDamagedFileInOneSecond_doesNotOverwriteTheFirst)
{
    write(path(u"receipt.json"_s), "first");
    const auto first = OpenDocumentFile(folder.path()).load();
    write(path(u"receipt.json"_s), "second");
    const auto second = OpenDocumentFile(folder.path()).load();
    EXPECT_NE(first.setAside, second.setAside);
    EXPECT_EQ(read(first.setAside), "first");
    EXPECT_EQ(read(second.setAside), "second");
}

TEST_F(OpenDocumentFileTest, damagedFileThatCannotBeRenamed_isInTheWayAndStaysAsItIs)
{
    const QString deep = deepFolder(folder.path());
    ASSERT_TRUE(QDir().mkpath(deep));
    const OpenDocumentFile store(deep);
    write(store.file(), "half");
    const auto loaded = store.load();
    EXPECT_FALSE(loaded.document);
    EXPECT_FALSE(loaded.damage.isEmpty());
    EXPECT_TRUE(loaded.setAside.isEmpty());
    EXPECT_TRUE(loaded.isInTheWay());
    EXPECT_EQ(read(store.file()), "half");
}

TEST_F(OpenDocumentFileTest, jsonOfAnotherKind_isDamage)
{
    for (const QByteArray content : {"", "[]", "null", "{}", "\xff\xfe", "{\"format\":1,\"type\":1}"}) {
        write(path(u"receipt.json"_s), content);
        const auto loaded = OpenDocumentFile(folder.path()).load();
        EXPECT_FALSE(loaded.document) << content.constData();
        EXPECT_FALSE(loaded.damage.isEmpty()) << content.constData();
        EXPECT_EQ(read(loaded.setAside), content);
    }
}

TEST_F(OpenDocumentFileTest, folderInTheFilesPlace_isDamage)
{
    ASSERT_TRUE(QDir(folder.path()).mkdir(u"receipt.json"_s));
    const auto loaded = OpenDocumentFile(folder.path()).load();
    EXPECT_FALSE(loaded.document);
    EXPECT_FALSE(loaded.damage.isEmpty());
}

TEST_F(OpenDocumentFileTest, numbers_countOnAcrossRestarts)
{
    EXPECT_EQ(DocumentNumbers(folder.path()).next(), 1);
    EXPECT_EQ(DocumentNumbers(folder.path()).next(), 2);
    DocumentNumbers(folder.path()).pass(10);
    EXPECT_EQ(DocumentNumbers(folder.path()).next(), 11);
    DocumentNumbers(folder.path()).pass(4);
    EXPECT_EQ(DocumentNumbers(folder.path()).next(), 12);
}

TEST_F(OpenDocumentFileTest, numbersFileDamaged_countingBeginsAnew)
{
    for (const QByteArray content : {"", "abc", "-5"}) {
        write(path(u"lastreceiptnumber"_s), content);
        EXPECT_EQ(DocumentNumbers(folder.path()).next(), 1) << content.constData();
    }
}
