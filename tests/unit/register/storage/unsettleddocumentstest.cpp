// SPDX-License-Identifier: MIT
#include "unsettleddocuments.h"
#include "logcapture.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

class UnsettledDocumentsTest : public ::testing::Test
{
protected:
    static qsizetype failuresIn(const LogCapture& log)
    {
        return log.lines().filter(u"ERROR register The note of documents with unsettled card operations"_s).size();
    }

    QTemporaryDir folder;
    const QString file = folder.filePath(u"unsettled"_s);
    const UnsettledDocuments documents{folder.path()};
};

TEST_F(UnsettledDocumentsTest, addedAndRemoved_areReadBackByTheNextStart)
{
    EXPECT_TRUE(documents.numbers().isEmpty());
    documents.add(7);
    documents.add(3);
    documents.add(7);
    EXPECT_EQ(UnsettledDocuments(folder.path()).numbers(), (QList<int>{7, 3}));
    documents.remove(7);
    documents.remove(12);
    EXPECT_EQ(UnsettledDocuments(folder.path()).numbers(), QList<int>{3});
}

TEST_F(UnsettledDocumentsTest, nothingNoted_removingWritesNothing)
{
    documents.remove(7);
    EXPECT_FALSE(QFile::exists(file));
}

TEST_F(UnsettledDocumentsTest, damagedNote_isLoggedAndTheNextOneIsWritten)
{
    QFile note(file);
    ASSERT_TRUE(note.open(QIODevice::WriteOnly) && note.write("{\"documents\": [7") > 0);
    note.close();
    const LogCapture log;
    EXPECT_TRUE(documents.numbers().isEmpty());
    EXPECT_EQ(failuresIn(log), 1);
    documents.add(3);
    EXPECT_EQ(documents.numbers(), QList<int>{3});
}

TEST_F(UnsettledDocumentsTest, cannotBeWritten_isLogged)
{
    ASSERT_TRUE(QDir(folder.path()).mkpath(u"unsettled/in the way"_s));
    const LogCapture log;
    documents.add(3);
    EXPECT_EQ(failuresIn(log), 2) << "neither read nor written";
    EXPECT_TRUE(documents.numbers().isEmpty());
}
