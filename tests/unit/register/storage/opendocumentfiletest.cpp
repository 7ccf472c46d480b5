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
    ASSERT_TRUE(loaded);
    EXPECT_FALSE(*loaded);
}

TEST_F(OpenDocumentFileTest, savedDocument_isLoadedAndItsFileStays)
{
    const OpenDocumentFile store(folder.path());
    const auto document = QSharedPointer<Document>::create(3, QDateTime({2024, 1, 1}, {8, 0}));
    document->add({}, {});
    ASSERT_TRUE(store.saveOrShow(document));
    const auto loaded = store.load();
    ASSERT_TRUE(loaded && *loaded);
    EXPECT_EQ((*loaded)->toJson(), document->toJson());
    EXPECT_TRUE(QFile::exists(path(u"receipt.json"_s)));
}

TEST_F(OpenDocumentFileTest, damagedFile_isSetAsideByteForByte)
{
    const QByteArray half("{\"format\": 1, \"posi");
    write(path(u"receipt.json"_s), half);
    const auto loaded = OpenDocumentFile(folder.path()).load();
    ASSERT_FALSE(loaded);
    EXPECT_FALSE(loaded.failure().failure.text.ui().isEmpty());
    EXPECT_FALSE(loaded.failure().failure.detail.isEmpty());
    EXPECT_EQ(loaded.failure().setAside, path(u"receipt.json.damaged-20240229-120000"_s));
    EXPECT_EQ(read(loaded.failure().setAside), half);
    EXPECT_FALSE(loaded.failure().isInTheWay());
    EXPECT_FALSE(QFile::exists(path(u"receipt.json"_s)));
}

TEST_F(OpenDocumentFileTest, twoDamagedFilesInOneSecond_bothAreKept)
{
    write(path(u"receipt.json"_s), "first");
    const auto first = OpenDocumentFile(folder.path()).load();
    write(path(u"receipt.json"_s), "second");
    const auto second = OpenDocumentFile(folder.path()).load();
    EXPECT_NE(first.failure().setAside, second.failure().setAside);
    EXPECT_EQ(read(first.failure().setAside), "first");
    EXPECT_EQ(read(second.failure().setAside), "second");
    EXPECT_EQ(OpenDocumentFile(folder.path()).setAside(),
              (QStringList{u"receipt.json.damaged-20240229-120000"_s, u"receipt.json.damaged-20240229-120000-2"_s}));
}

TEST_F(OpenDocumentFileTest, damagedFileThatCannotBeRenamed_isInTheWayAndUnchanged)
{
    const QString deep = deepFolder(folder.path());
    ASSERT_TRUE(QDir().mkpath(deep));
    const OpenDocumentFile store(deep);
    write(store.file(), "half");
    const auto loaded = store.load();
    ASSERT_FALSE(loaded);
    EXPECT_FALSE(loaded.failure().failure.detail.isEmpty());
    EXPECT_TRUE(loaded.failure().setAside.isEmpty());
    EXPECT_TRUE(loaded.failure().isInTheWay());
    EXPECT_EQ(read(store.file()), "half");
}

TEST_F(OpenDocumentFileTest, jsonOfAnotherKind_isDamage)
{
    for (const QByteArray content : {"", "[]", "null", "{}", "\xff\xfe", "{\"format\":1,\"type\":1}"}) {
        write(path(u"receipt.json"_s), content);
        const auto loaded = OpenDocumentFile(folder.path()).load();
        ASSERT_FALSE(loaded) << content.constData();
        EXPECT_FALSE(loaded.failure().failure.text.ui().isEmpty()) << content.constData();
        EXPECT_FALSE(loaded.failure().failure.detail.isEmpty()) << content.constData();
        EXPECT_EQ(read(loaded.failure().setAside), content);
    }
}

TEST_F(OpenDocumentFileTest, folderInPlaceOfTheFile_isDamage)
{
    ASSERT_TRUE(QDir(folder.path()).mkdir(u"receipt.json"_s));
    const auto loaded = OpenDocumentFile(folder.path()).load();
    ASSERT_FALSE(loaded);
    EXPECT_FALSE(loaded.failure().failure.detail.isEmpty());
    EXPECT_EQ(OpenDocumentFile(folder.path()).setAside().size(), 1);
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

TEST_F(OpenDocumentFileTest, numbersFileDamaged_countingBeginsAtOne)
{
    for (const QByteArray content : {"", "abc", "-5"}) {
        write(path(u"lastreceiptnumber"_s), content);
        EXPECT_EQ(DocumentNumbers(folder.path()).next(), 1) << content.constData();
    }
}
