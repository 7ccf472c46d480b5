// SPDX-License-Identifier: MIT
#include "savetofilelogic.h"
#include "configured.h"
#include "finally.h"
#include "logcapture.h"
#include "plaindocument.h"
#include "shownmessages.h"
#include "smalldisk.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace
{

class SavedDocument : public ::testing::Test
{
protected:
    SavedDocument() { m_config.set(QStringLiteral("Register:data"), m_folder.path()); }

    QSharedPointer<PlainDocument> document(const QString& name) const
    {
        const auto result = QSharedPointer<PlainDocument>::create();
        result->add({1, name, 10.0, 0.0, 10.0, 1.0});
        return result;
    }

    QByteArray content(const QString& file = SaveToFileLogic::currentReceiptFile) const
    {
        QFile opened(m_folder.filePath(file));
        return opened.open(QIODevice::ReadOnly) ? opened.readAll() : QByteArray();
    }

    QStringList files() const { return QDir(m_folder.path()).entryList(QDir::Files | QDir::Hidden); }

    bool save(const QSharedPointer<AbstractDocument>& saved, const QString& file = {})
    {
        return MockFactory<SaveToFileLogic>::create()->save(saved, file);
    }

    /// The one message of a failed save: an error that names the folder, the reason, and what to do.
    void expectTold(const QString& reason) const
    {
        ASSERT_EQ(m_messages.all().size(), 1);
        const ShownMessages::Message& message = m_messages.all().first();
        EXPECT_EQ(message.kind, 1);
        EXPECT_TRUE(message.text.contains(reason)) << message.text.toStdString();
        EXPECT_TRUE(message.text.contains(QStringLiteral("не сохранён"))) << message.text.toStdString();
        EXPECT_TRUE(message.text.contains(QStringLiteral("повторите"))) << message.text.toStdString();
    }

    QTemporaryDir m_folder;
    Configured m_config;
    ShownMessages m_messages;
};

class StoredDocument : public PlainDocument
{
public:
    QString fileName() const override { return QStringLiteral("stored-7.json"); }
};

} // namespace

TEST_F(SavedDocument, noFileNamed_isTheOpenReceiptAsJson)
{
    const auto saved = document(QStringLiteral("Аспирин"));
    EXPECT_TRUE(save(saved));
    EXPECT_EQ(files(), QStringList(QStringLiteral("receipt.json")));
    EXPECT_EQ(QJsonDocument::fromJson(content()).object(), saved->toJson());
    EXPECT_TRUE(m_messages.all().isEmpty());
}

TEST_F(SavedDocument, documentNamesItsFile_openReceiptStaysAsItIs)
{
    EXPECT_TRUE(save(document(QStringLiteral("open"))));
    const QByteArray open = content();
    const auto stored = QSharedPointer<StoredDocument>::create();
    stored->add({1, QStringLiteral("stored"), 10.0, 0.0, 10.0, 1.0});
    EXPECT_TRUE(save(stored));
    EXPECT_EQ(files(), QStringList({QStringLiteral("receipt.json"), QStringLiteral("stored-7.json")}));
    EXPECT_EQ(content(), open);
    EXPECT_EQ(QJsonDocument::fromJson(content(stored->fileName())).object(), stored->toJson());
}

TEST_F(SavedDocument, fileNamed_isWrittenBesideTheOthers)
{
    EXPECT_TRUE(save(document(QStringLiteral("a"))));
    EXPECT_TRUE(save(document(QStringLiteral("b")), QStringLiteral("stored 7.json")));
    EXPECT_EQ(files(), QStringList({QStringLiteral("receipt.json"), QStringLiteral("stored 7.json")}));
    EXPECT_TRUE(content().contains("\"a\""));
    EXPECT_TRUE(content(QStringLiteral("stored 7.json")).contains("\"b\""));
}

TEST_F(SavedDocument, savedAgain_replacesTheFormerWhole)
{
    EXPECT_TRUE(save(document(QString(1000, u'x'))));
    const auto later = document(QStringLiteral("y"));
    EXPECT_TRUE(save(later));
    EXPECT_EQ(QJsonDocument::fromJson(content()).object(), later->toJson());
    EXPECT_EQ(files().size(), 1);
}

TEST_F(SavedDocument, file_isReadableByItsOwnerAlone)
{
    EXPECT_TRUE(save(document(QStringLiteral("x"))));
    const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    EXPECT_EQ(QFile::permissions(m_folder.filePath(QStringLiteral("receipt.json"))) & others, 0);
}

TEST_F(SavedDocument, null_isRefusedWithoutAMessage)
{
    EXPECT_FALSE(save(nullptr));
    EXPECT_TRUE(files().isEmpty());
    EXPECT_TRUE(m_messages.all().isEmpty());
}

TEST_F(SavedDocument, diskFull_isToldAndFormerFileStands)
{
    EXPECT_TRUE(save(document(QStringLiteral("former"))));
    const QByteArray former = content();
    const LogCapture log;
    {
        const SmallDisk smallDisk(4096);
        EXPECT_FALSE(save(document(QString(100'000, u'x'))));
    }
    EXPECT_EQ(content(), former);
    EXPECT_EQ(files().size(), 1);
    expectTold(m_folder.path());
    EXPECT_TRUE(log.text().contains(QStringLiteral("ERROR document"))) << log.text().toStdString();
    EXPECT_FALSE(log.text().contains(QStringLiteral("xxx")));
}

TEST_F(SavedDocument, diskFullAtTheLastBytes_isToldAndFormerFileStands)
{
    EXPECT_TRUE(save(document(QStringLiteral("former"))));
    const QByteArray former = content();
    {
        const SmallDisk smallDisk(64); // less than what QSaveFile keeps back until it commits
        EXPECT_FALSE(save(document(QStringLiteral("later"))));
    }
    EXPECT_EQ(content(), former);
    EXPECT_EQ(files().size(), 1);
    expectTold(m_folder.path());
    EXPECT_TRUE(save(document(QStringLiteral("later"))));
}

TEST_F(SavedDocument, folderTakesNoFiles_isTold)
{
    const QString readOnly = QStringLiteral("/proc/self"); // refuses new files to everybody, root included
    m_config.set(QStringLiteral("Register:data"), readOnly);
    EXPECT_FALSE(save(document(QStringLiteral("x"))));
    expectTold(readOnly);
}

TEST_F(SavedDocument, folderMissing_isToldAndNotCreated)
{
    const QString missing = m_folder.filePath(QStringLiteral("missing"));
    m_config.set(QStringLiteral("Register:data"), missing);
    EXPECT_FALSE(save(document(QStringLiteral("x"))));
    expectTold(missing);
    EXPECT_FALSE(QDir(missing).exists());
}

TEST_F(SavedDocument, folderIsAFile_isTold)
{
    EXPECT_TRUE(save(document(QStringLiteral("x"))));
    m_config.set(QStringLiteral("Register:data"), m_folder.filePath(QStringLiteral("receipt.json")));
    EXPECT_FALSE(save(document(QStringLiteral("y"))));
    expectTold(QStringLiteral("receipt.json"));
}

TEST_F(SavedDocument, noFolderConfigured_isToldWithTheKey)
{
    m_config.set(QStringLiteral("Register:data"), QString());
    EXPECT_FALSE(save(document(QStringLiteral("x"))));
    expectTold(QStringLiteral("Register:data"));
}

TEST_F(SavedDocument, aFolderStandsInTheFilesPlace_isToldAndStands)
{
    ASSERT_TRUE(QDir(m_folder.path()).mkdir(QStringLiteral("receipt.json")));
    EXPECT_FALSE(save(document(QStringLiteral("x"))));
    expectTold(m_folder.path());
    EXPECT_TRUE(QDir(m_folder.filePath(QStringLiteral("receipt.json"))).exists());
}

TEST_F(SavedDocument, fileInASubfolder_isWrittenThereAndTheSubfolderMadeOnce)
{
    EXPECT_TRUE(save(document(QStringLiteral("a")), QStringLiteral("stored/a.json")));
    EXPECT_TRUE(save(document(QStringLiteral("b")), QStringLiteral("stored/b c.json")));
    EXPECT_EQ(QDir(m_folder.filePath(QStringLiteral("stored"))).entryList(QDir::Files | QDir::Hidden),
              (QStringList{QStringLiteral("a.json"), QStringLiteral("b c.json")}));
    EXPECT_TRUE(content(QStringLiteral("stored/b c.json")).contains("\"b\""));
    EXPECT_TRUE(files().isEmpty());
    const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    EXPECT_EQ(QFile::permissions(m_folder.filePath(QStringLiteral("stored/a.json"))) & others, 0);
}

TEST_F(SavedDocument, aFileStandsInTheSubfoldersPlace_isToldAndStands)
{
    EXPECT_TRUE(save(document(QStringLiteral("x")), QStringLiteral("stored")));
    const QByteArray former = content(QStringLiteral("stored"));
    EXPECT_FALSE(save(document(QStringLiteral("y")), QStringLiteral("stored/a.json")));
    expectTold(m_folder.path());
    EXPECT_EQ(content(QStringLiteral("stored")), former);
}

TEST_F(SavedDocument, fileOutsideTheFolder_isRefused)
{
    const QTemporaryDir elsewhere;
    const QString outside[] = {
        elsewhere.filePath(QStringLiteral("a.json")),
        QStringLiteral("../a.json"),
        QStringLiteral("stored/../a.json"),
        QStringLiteral("./a.json"),
        QStringLiteral("stored/."),
        QStringLiteral("/a.json"),
        QStringLiteral("stored/"),
        QStringLiteral("stored//a.json"),
        QStringLiteral("stored/more/a.json"),
        QStringLiteral(".."),
    };
    for (const QString& file : outside)
        EXPECT_FALSE(save(document(QStringLiteral("x")), file)) << qPrintable(file);
    EXPECT_EQ(m_messages.all().size(), std::ssize(outside));
    EXPECT_TRUE(QDir(elsewhere.path()).isEmpty());
    EXPECT_TRUE(QDir(m_folder.path()).isEmpty());
    EXPECT_FALSE(QFile::exists(m_folder.filePath(QStringLiteral("../a.json"))));
}
