// SPDX-License-Identifier: MIT
#include "wholefile.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cerrno>

using namespace Qt::StringLiterals;

namespace
{

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

TEST(WholeFile, written_replacesTheFormerOne)
{
    const QTemporaryDir folder;
    EXPECT_TRUE(writeWholeFile(folder.path(), u"чек.txt"_s, "former and longer"));
    EXPECT_TRUE(writeWholeFile(folder.path(), u"чек.txt"_s, "new"));
    EXPECT_EQ(contentOf(folder.filePath(u"чек.txt"_s)), "new");
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList(u"чек.txt"_s));
}

TEST(WholeFile, subfolder_isMade)
{
    const QTemporaryDir folder;
    EXPECT_TRUE(writeWholeFile(folder.path(), u"printed/1.txt"_s, "text"));
    EXPECT_EQ(contentOf(folder.filePath(u"printed/1.txt"_s)), "text");
}

TEST(WholeFile, folderMissing_failsInTheSystemsWordsAndNamesTheFileForTheLog)
{
    const Expected<void> written = writeWholeFile(u"/nonexistent"_s, u"1.txt"_s, "text");
    ASSERT_FALSE(written);
    EXPECT_EQ(written.failure().text.ui(), qt_error_string(ENOENT));
    EXPECT_EQ(written.failure().detail, u"/nonexistent/1.txt: "_s + qt_error_string(ENOENT));
}

TEST(WholeFile, folderOfTheFilesName_failsAndStays)
{
    const QTemporaryDir folder;
    ASSERT_TRUE(QDir(folder.path()).mkdir(u"1.txt"_s));
    const Expected<void> written = writeWholeFile(folder.path(), u"1.txt"_s, "text");
    ASSERT_FALSE(written);
    EXPECT_FALSE(written.failure().text.ui().isEmpty());
    EXPECT_TRUE(written.failure().detail.startsWith(folder.filePath(u"1.txt: "_s)))
        << written.failure().detail.toStdString();
    EXPECT_TRUE(QFileInfo(folder.filePath(u"1.txt"_s)).isDir());
}

TEST(WholeFile, fileOutsideTheFolder_isNotWritten)
{
    const QTemporaryDir folder;
    ASSERT_TRUE(QDir(folder.path()).mkdir(u"data"_s));
    for (const QString& file : {u"../1.txt"_s, u"a/../1.txt"_s, u"a/b/1.txt"_s, u"/1.txt"_s, QString()}) {
        EXPECT_FALSE(writeWholeFile(folder.filePath(u"data"_s), file, "text")) << file.toStdString();
    }
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList(u"data"_s));
}
