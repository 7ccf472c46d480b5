// SPDX-License-Identifier: MIT
#include "savetofilelogic.h"
#include "configured.h"
#include "dialogdouble.h"
#include "documentdouble.h"
#include "finally.h"
#include "logcapture.h"
#include "smalldisk.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

class SavedDocument : public ::testing::Test
{
protected:
    SavedDocument() { m_config.set(u"Register:data"_s, m_folder.path()); }

    QSharedPointer<DocumentDouble> document(const QString& name) const
    {
        const auto result = QSharedPointer<DocumentDouble>::create();
        result->add({1, name, Kopecks{1000}, {}, Kopecks{1000}, 1.0});
        return result;
    }

    QByteArray content(const QString& file = AbstractDocument::openDocumentFile) const
    {
        QFile opened(m_folder.filePath(file));
        return opened.open(QIODevice::ReadOnly) ? opened.readAll() : QByteArray();
    }

    QStringList files() const { return QDir(m_folder.path()).entryList(QDir::Files | QDir::Hidden); }

    bool save(const QSharedPointer<AbstractDocument>& saved, const QString& file = {})
    {
        return SaveToFileLogic::create()->save(saved, file);
    }

    /// The one message of a failed save: an error that names the folder, the reason, and what to do.
    void expectTold(const QString& reason) const
    {
        ASSERT_EQ(m_dialog.messages().size(), 1);
        const DialogDouble::Message& message = m_dialog.messages().first();
        EXPECT_EQ(message.kind, 1);
        EXPECT_TRUE(message.text.contains(reason)) << message.text.toStdString();
        EXPECT_TRUE(message.text.contains(u"не сохранён"_s)) << message.text.toStdString();
        EXPECT_TRUE(message.text.contains(u"повторите"_s)) << message.text.toStdString();
    }

    QTemporaryDir m_folder;
    Configured m_config;
    DialogDouble m_dialog;
};

class StoredDocument : public DocumentDouble
{
public:
    QString fileName() const override { return u"stored-7.json"_s; }
};

} // namespace

TEST_F(SavedDocument, noFileNamed_isTheOpenReceiptAsJson)
{
    const auto saved = document(u"Аспирин"_s);
    EXPECT_TRUE(save(saved));
    EXPECT_EQ(files(), QStringList(u"receipt.json"_s));
    EXPECT_EQ(QJsonDocument::fromJson(content()).object(), saved->toJson());
    EXPECT_TRUE(m_dialog.messages().isEmpty());
}

TEST_F(SavedDocument, documentNamesItsFile_openReceiptStaysAsItIs)
{
    EXPECT_TRUE(save(document(u"open"_s)));
    const QByteArray open = content();
    const auto stored = QSharedPointer<StoredDocument>::create();
    stored->add({1, u"stored"_s, Kopecks{1000}, {}, Kopecks{1000}, 1.0});
    EXPECT_TRUE(save(stored));
    EXPECT_EQ(files(), QStringList({u"receipt.json"_s, u"stored-7.json"_s}));
    EXPECT_EQ(content(), open);
    EXPECT_EQ(QJsonDocument::fromJson(content(stored->fileName())).object(), stored->toJson());
}

TEST_F(SavedDocument, fileNamed_isWrittenBesideTheOthers)
{
    EXPECT_TRUE(save(document(u"a"_s)));
    EXPECT_TRUE(save(document(u"b"_s), u"stored 7.json"_s));
    EXPECT_EQ(files(), QStringList({u"receipt.json"_s, u"stored 7.json"_s}));
    EXPECT_TRUE(content().contains("\"a\""));
    EXPECT_TRUE(content(u"stored 7.json"_s).contains("\"b\""));
}

TEST_F(SavedDocument, savedAgain_replacesTheFormerWhole)
{
    EXPECT_TRUE(save(document(QString(1000, u'x'))));
    const auto later = document(u"y"_s);
    EXPECT_TRUE(save(later));
    EXPECT_EQ(QJsonDocument::fromJson(content()).object(), later->toJson());
    EXPECT_EQ(files().size(), 1);
}

TEST_F(SavedDocument, file_isReadableByItsOwnerAlone)
{
    EXPECT_TRUE(save(document(u"x"_s)));
    const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    EXPECT_EQ(QFile::permissions(m_folder.filePath(u"receipt.json"_s)) & others, 0);
}

TEST_F(SavedDocument, null_isNotSavedAndShowsNoMessage)
{
    EXPECT_FALSE(save(nullptr));
    EXPECT_TRUE(files().isEmpty());
    EXPECT_TRUE(m_dialog.messages().isEmpty());
}

TEST_F(SavedDocument, diskFull_isShownAndFormerFileStays)
{
    EXPECT_TRUE(save(document(u"former"_s)));
    const QByteArray former = content();
    const LogCapture log;
    {
        const SmallDisk smallDisk(4096);
        EXPECT_FALSE(save(document(QString(100'000, u'x'))));
    }
    EXPECT_EQ(content(), former);
    EXPECT_EQ(files().size(), 1);
    expectTold(m_folder.path());
    EXPECT_TRUE(log.text().contains(u"ERROR document"_s)) << log.text().toStdString();
    EXPECT_FALSE(log.text().contains(u"xxx"_s));
}

TEST_F(SavedDocument, diskFullAtTheLastBytes_isShownAndFormerFileStays)
{
    EXPECT_TRUE(save(document(u"former"_s)));
    const QByteArray former = content();
    {
        const SmallDisk smallDisk(64); // less than what QSaveFile keeps back until it commits
        EXPECT_FALSE(save(document(u"later"_s)));
    }
    EXPECT_EQ(content(), former);
    EXPECT_EQ(files().size(), 1);
    expectTold(m_folder.path());
    EXPECT_TRUE(save(document(u"later"_s)));
}

TEST_F(SavedDocument, folderTakesNoFiles_isShown)
{
    const QString readOnly = u"/proc/self"_s; // refuses new files to everybody, root included
    m_config.set(u"Register:data"_s, readOnly);
    EXPECT_FALSE(save(document(u"x"_s)));
    expectTold(readOnly);
}

TEST_F(SavedDocument, folderMissing_isShownAndNotCreated)
{
    const QString missing = m_folder.filePath(u"missing"_s);
    m_config.set(u"Register:data"_s, missing);
    EXPECT_FALSE(save(document(u"x"_s)));
    expectTold(missing);
    EXPECT_FALSE(QDir(missing).exists());
}

TEST_F(SavedDocument, folderIsAFile_isShown)
{
    EXPECT_TRUE(save(document(u"x"_s)));
    m_config.set(u"Register:data"_s, m_folder.filePath(u"receipt.json"_s));
    EXPECT_FALSE(save(document(u"y"_s)));
    expectTold(u"receipt.json"_s);
}

TEST_F(SavedDocument, noFolderConfigured_isShownWithTheKey)
{
    m_config.set(u"Register:data"_s, QString());
    EXPECT_FALSE(save(document(u"x"_s)));
    expectTold(u"Register:data"_s);
}

TEST_F(SavedDocument, folderOfTheFilesName_isShownAndStays)
{
    ASSERT_TRUE(QDir(m_folder.path()).mkdir(u"receipt.json"_s));
    EXPECT_FALSE(save(document(u"x"_s)));
    expectTold(m_folder.path());
    EXPECT_TRUE(QDir(m_folder.filePath(u"receipt.json"_s)).exists());
}

TEST_F(SavedDocument, fileInASubfolder_isWrittenThereAndTheSubfolderMadeOnce)
{
    EXPECT_TRUE(save(document(u"a"_s), u"stored/a.json"_s));
    EXPECT_TRUE(save(document(u"b"_s), u"stored/b c.json"_s));
    EXPECT_EQ(QDir(m_folder.filePath(u"stored"_s)).entryList(QDir::Files | QDir::Hidden),
              (QStringList{u"a.json"_s, u"b c.json"_s}));
    EXPECT_TRUE(content(u"stored/b c.json"_s).contains("\"b\""));
    EXPECT_TRUE(files().isEmpty());
    const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    EXPECT_EQ(QFile::permissions(m_folder.filePath(u"stored/a.json"_s)) & others, 0);
}

TEST_F(SavedDocument, fileOfTheSubfoldersName_isShownAndStays)
{
    EXPECT_TRUE(save(document(u"x"_s), u"stored"_s));
    const QByteArray former = content(u"stored"_s);
    EXPECT_FALSE(save(document(u"y"_s), u"stored/a.json"_s));
    expectTold(m_folder.path());
    EXPECT_EQ(content(u"stored"_s), former);
}

TEST_F(SavedDocument, fileOutsideTheFolder_isNotWritten)
{
    const QTemporaryDir elsewhere;
    const QString outside[] = {
        elsewhere.filePath(u"a.json"_s),
        u"../a.json"_s,
        u"stored/../a.json"_s,
        u"./a.json"_s,
        u"stored/."_s,
        u"/a.json"_s,
        u"stored/"_s,
        u"stored//a.json"_s,
        u"stored/more/a.json"_s,
        u".."_s,
    };
    for (const QString& file : outside) {
        EXPECT_FALSE(save(document(u"x"_s), file)) << qPrintable(file);
    }
    EXPECT_EQ(m_dialog.messages().size(), std::ssize(outside));
    EXPECT_TRUE(QDir(elsewhere.path()).isEmpty());
    EXPECT_TRUE(QDir(m_folder.path()).isEmpty());
    EXPECT_FALSE(QFile::exists(m_folder.filePath(u"../a.json"_s)));
}
