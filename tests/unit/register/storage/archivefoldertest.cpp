// SPDX-License-Identifier: MIT
#include "archivefolder.h"
#include "configured.h"
#include "logcapture.h"
#include "savingdouble.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using State = Document::State;

class ArchiveFolderTest : public ::testing::Test
{
protected:
    ArchiveFolderTest() { config.set(u"Register:data"_s, folder.path()); }

    static QSharedPointer<Document> document(int number, State state = State::Open)
    {
        const QDateTime noon({2024, 2, 29}, {12, 0});
        auto document = QSharedPointer<Document>::create(number, noon);
        document->add({}, {});
        Document::Ending ending{.state = state};
        if (state != State::Open && state != State::Suspended) {
            ending.finished = noon;
        }
        if (state == State::Voided) {
            ending.voided = noon;
        }
        document->setEnding(ending);
        return document;
    }
    /// A document that is saved in the file for its state.
    QSharedPointer<Document> saved(int number, State state = State::Open) const
    {
        auto unsaved = document(number, state);
        EXPECT_TRUE(archive.saveOrShow(unsaved));
        return unsaved;
    }
    /// A return of the sale, saved unless it is open.
    QSharedPointer<Document> returnOf(const Document& sale, int number, State state) const
    {
        auto returned = Document::returnOf(sale, number, sale.getOpened());
        returned->setEnding({.state = state, .finished = sale.getOpened()});
        EXPECT_TRUE(state == State::Open || archive.saveOrShow(returned));
        return returned;
    }
    void write(const QString& file, const QByteArray& content) const
    {
        QDir(folder.path()).mkpath(QFileInfo(file).path());
        QFile opened(folder.filePath(file));
        ASSERT_TRUE(opened.open(QIODevice::WriteOnly));
        opened.write(content);
    }
    /// All files of the data folder.
    QStringList files() const
    {
        QStringList found;
        const QDir root(folder.path());
        for (const char* place : {"", "finished/", "putaside/"}) {
            for (const QString& file :
                 QDir(root.filePath(QLatin1StringView(place))).entryList(QDir::Files | QDir::Hidden)) {
                found.append(QLatin1StringView(place) + file);
            }
        }
        return found;
    }
    static QList<int> numbers(const QList<QSharedPointer<Document>>& documents)
    {
        QList<int> all;
        for (const auto& one : documents) {
            all.append(one->getNumber());
        }
        return all;
    }

    const QString openFile = u"receipt.json"_s;
    const QString suspendedFile = u"putaside/00000003.json"_s;
    const QString finishedFile = u"finished/00000003.json"_s;
    QTemporaryDir folder;
    Configured config;
    ArchiveFolder archive{folder.path()};
};

TEST_F(ArchiveFolderTest, moved_isInItsNewPlaceOnly)
{
    const auto document = saved(3);
    EXPECT_EQ(files(), QStringList{openFile});
    EXPECT_TRUE(archive.moveOrShow(document, {.state = State::Suspended}));
    EXPECT_EQ(files(), QStringList{suspendedFile});
    EXPECT_TRUE(archive.moveOrShow(document, {.state = State::Open}));
    EXPECT_EQ(files(), QStringList{openFile});
    const QDateTime time({2024, 2, 29}, {13, 0});
    EXPECT_TRUE(archive.moveOrShow(
        document, {.state = State::Closed, .finished = time, .payments = {Payment::cash(Kopecks{700})}}));
    EXPECT_EQ(files(), QStringList{finishedFile});
    EXPECT_EQ(archive.find(3)->toJson(), document->toJson());
    EXPECT_EQ(archive.find(3)->getReceived(), Kopecks{700});
    EXPECT_TRUE(archive.moveOrShow(document, {.state = State::Voided, .finished = time, .voided = time}));
    EXPECT_EQ(files(), QStringList{finishedFile}) << "the place is the same";
    EXPECT_EQ(archive.find(3)->getState(), State::Voided);
}

TEST_F(ArchiveFolderTest, moved_newFileIsSavedBeforeTheFormerIsRemoved)
{
    const auto document = saved(3);
    SavingDouble saving;
    saving.onSave = [this](const auto&, const QString&, const SavingDouble::Write& write) {
        EXPECT_EQ(files(), QStringList{openFile});
        return write();
    };
    EXPECT_TRUE(archive.moveOrShow(document, {.state = State::Suspended}));
    EXPECT_EQ(saving.files, QStringList{suspendedFile});
}

TEST_F(ArchiveFolderTest, moveThatCannotBeSaved_changesNeitherDocumentNorFiles)
{
    for (const bool isWritten : {false, true}) {
        const auto document = saved(3);
        const QJsonObject before = document->toJson();
        SavingDouble saving;
        saving.onSave = [isWritten](const auto&, const QString&, const SavingDouble::Write& write) {
            EXPECT_TRUE(!isWritten || write());
            return false;
        };
        EXPECT_FALSE(archive.moveOrShow(
            document,
            {.state = State::Closed, .finished = document->getOpened(), .payments = {Payment::cash(Kopecks{5})}}));
        EXPECT_EQ(document->toJson(), before);
        EXPECT_EQ(files(), QStringList{openFile});
    }
}

TEST_F(ArchiveFolderTest, voidedSaleThatCannotBeSaved_staysClosedInItsFile)
{
    const auto document = saved(3, State::Closed);
    SavingDouble saving;
    saving.failAll();
    EXPECT_FALSE(archive.moveOrShow(
        document, {.state = State::Voided, .finished = document->getOpened(), .voided = document->getOpened()}));
    EXPECT_EQ(document->getState(), State::Closed);
    EXPECT_EQ(archive.find(3)->getState(), State::Closed);
}

TEST_F(ArchiveFolderTest, find_prefersTheFinishedCopy)
{
    EXPECT_FALSE(archive.find(3));
    saved(3, State::Suspended);
    EXPECT_EQ(archive.find(3)->getState(), State::Suspended);
    EXPECT_FALSE(archive.isFinished(3));
    saved(3, State::Voided);
    EXPECT_EQ(archive.find(3)->getState(), State::Voided);
    EXPECT_TRUE(archive.isFinished(3));
    EXPECT_FALSE(archive.find(4));
}

TEST_F(ArchiveFolderTest, openDocument_isNotFound)
{
    saved(3);
    EXPECT_FALSE(archive.find(3));
    EXPECT_TRUE(archive.latest(10).isEmpty());
}

TEST_F(ArchiveFolderTest, damagedFile_isLoggedAndLeftOut)
{
    saved(2, State::Closed);
    write(finishedFile, "{\"format\": 1, ");
    const LogCapture log;
    EXPECT_FALSE(archive.find(3));
    EXPECT_FALSE(archive.isFinished(3));
    EXPECT_EQ(numbers(archive.latest(10)), QList<int>{2});
    EXPECT_EQ(log.lines().filter(u"ERROR register A saved document cannot be read: "_s).size(), 3)
        << qPrintable(log.text());
    EXPECT_TRUE(log.text().contains(finishedFile)) << qPrintable(log.text());
    EXPECT_EQ(archive.greatestNumber(), 3) << "its number is in use";
}

TEST_F(ArchiveFolderTest, copyUnderAnotherNumber_isLeftOut)
{
    saved(2, State::Closed);
    ASSERT_TRUE(QFile::copy(folder.filePath(u"finished/00000002.json"_s), folder.filePath(finishedFile)));
    EXPECT_FALSE(archive.find(3));
    EXPECT_EQ(numbers(archive.latest(10)), QList<int>{2});
}

TEST_F(ArchiveFolderTest, finishedDocumentInTheFileOfTheOpenOne_onlyTheFinishedFileStays)
{
    const auto document = saved(3, State::Closed);
    write(openFile, QJsonDocument(document->toJson()).toJson());
    EXPECT_FALSE(archive.tidyUp(document));
    EXPECT_EQ(files(), QStringList{finishedFile});
}

TEST_F(ArchiveFolderTest, latest_areAllSuspendedAndTheLastFinishedOnesLatestFirst)
{
    for (const int number : {1, 4, 6, 7, 10}) {
        saved(number, State::Closed);
    }
    for (const int number : {2, 8}) {
        saved(number, State::Suspended);
    }
    EXPECT_EQ(numbers(archive.latest(3)), (QList<int>{10, 8, 7, 6, 2}));
    EXPECT_EQ(numbers(archive.latest(100)), (QList<int>{10, 8, 7, 6, 4, 2, 1}));
    EXPECT_EQ(numbers(archive.latest(0)), (QList<int>{8, 2}));
    EXPECT_EQ(archive.greatestNumber(), 10);
}

/// Documents 1 to 40: ten a day from 1 March on.
class DocumentsOfManyDays : public ArchiveFolderTest
{
protected:
    DocumentsOfManyDays()
    {
        for (int number = 1; number <= 40; ++number) {
            finishOn(number, firstDay.addDays((number - 1) / 10), firstDay.addDays((number - 1) / 10));
        }
    }
    void finishOn(int number, QDate opened, QDate finished) const
    {
        auto document = QSharedPointer<Document>::create(number, QDateTime(opened, {9, 0}));
        document->setEnding({.state = State::Closed, .finished = QDateTime(finished, {9, 5})});
        EXPECT_TRUE(archive.saveOrShow(document));
    }
    /// From a number down to another one.
    static QList<int> down(int from, int to)
    {
        QList<int> all;
        for (int number = from; number >= to; --number) {
            all.append(number);
        }
        return all;
    }

    const QDate firstDay{2024, 3, 1};
};

TEST_F(DocumentsOfManyDays, dayAskedFor_itsDocumentsAreFoundLatestFirst)
{
    EXPECT_EQ(numbers(archive.ofDay(firstDay, 100)), down(10, 1));
    EXPECT_EQ(numbers(archive.ofDay(firstDay.addDays(1), 100)), down(20, 11));
    EXPECT_EQ(numbers(archive.ofDay(firstDay.addDays(3), 100)), down(40, 31));
    EXPECT_EQ(numbers(archive.ofDay(firstDay.addDays(1), 3)), down(20, 18));
    EXPECT_TRUE(archive.ofDay(firstDay.addDays(-1), 100).isEmpty());
    EXPECT_TRUE(archive.ofDay(firstDay.addDays(4), 100).isEmpty());
}

TEST_F(DocumentsOfManyDays, finishedOnALaterDay_isFoundByBothDays)
{
    finishOn(9, firstDay, firstDay.addDays(1));
    EXPECT_EQ(numbers(archive.ofDay(firstDay, 100)), down(10, 1));
    EXPECT_EQ(numbers(archive.ofDay(firstDay.addDays(1), 100)), down(20, 11) + QList<int>{9});
}

TEST_F(DocumentsOfManyDays, suspended_isFoundByTheDayOfItsOpening)
{
    auto document = QSharedPointer<Document>::create(50, QDateTime(firstDay.addDays(1), {9, 0}));
    document->setEnding({.state = State::Suspended});
    ASSERT_TRUE(archive.saveOrShow(document));
    EXPECT_EQ(numbers(archive.ofDay(firstDay.addDays(1), 100)), QList<int>{50} + down(20, 11));
}

TEST_F(DocumentsOfManyDays, damagedFiles_theOthersAreFound)
{
    for (int number = 11; number <= 25; ++number) {
        write(u"finished/000000%1.json"_s.arg(number), "{");
    }
    EXPECT_EQ(numbers(archive.ofDay(firstDay.addDays(2), 100)), down(30, 26));
    EXPECT_EQ(numbers(archive.ofDay(firstDay, 100)), down(10, 1));
}

/// Each tenth file is damaged, so that the log tells how many were read.
TEST_F(DocumentsOfManyDays, dayAskedFor_mostFilesAreNotRead)
{
    for (int number = 41; number <= 2000; ++number) {
        auto document =
            QSharedPointer<Document>::create(number, QDateTime(firstDay.addDays((number - 1) / 10), {9, 0}));
        document->setEnding({.state = State::Closed, .finished = document->getOpened()});
        write(document->fileName(), number % 10 == 0 ? "{" : QJsonDocument(document->toJson()).toJson());
    }
    const LogCapture log;
    EXPECT_EQ(numbers(archive.ofDay(firstDay.addDays(100), 100)), down(1009, 1001));
    EXPECT_EQ(numbers(archive.ofDay(firstDay, 100)), down(10, 1));
    EXPECT_LT(log.lines().size(), 40) << "200 are damaged";
}

TEST_F(ArchiveFolderTest, filesOfOtherNames_areLeftOut)
{
    for (const char* name :
         {"7.json", "x0000007.json", "00000007.json.tmp", "00000000.json", "-0000007.json", ".json"}) {
        write(u"finished/"_s + QLatin1StringView(name), "{}");
    }
    const LogCapture log;
    EXPECT_TRUE(archive.latest(10).isEmpty());
    EXPECT_EQ(archive.greatestNumber(), 0);
    EXPECT_TRUE(log.lines().isEmpty()) << qPrintable(log.text());
}

TEST_F(ArchiveFolderTest, sale_isReturnedByAClosedASuspendedOrTheOpenReturn)
{
    const auto sale = saved(3, State::Closed);
    EXPECT_EQ(archive.returned(*sale, nullptr), Document::Returned::Nothing) << "no return was begun";
    sale->addReturn(9);
    EXPECT_EQ(archive.returned(*sale, nullptr), Document::Returned::Nothing) << "the return was never saved";

    const auto open = returnOf(*sale, 9, State::Open);
    EXPECT_EQ(archive.returned(*sale, open), Document::Returned::Wholly);
    EXPECT_EQ(archive.returned(*sale, returnOf(*sale, 10, State::Open)), Document::Returned::Nothing)
        << "another return is open";
    EXPECT_EQ(archive.returned(*sale, document(9)), Document::Returned::Nothing)
        << "the open document with that number is a sale";

    returnOf(*sale, 9, State::Cancelled);
    EXPECT_EQ(archive.returned(*sale, nullptr), Document::Returned::Nothing) << "the return was cancelled";
    returnOf(*document(4), 9, State::Closed);
    EXPECT_EQ(archive.returned(*sale, nullptr), Document::Returned::Nothing) << "another sale was returned";
    returnOf(*sale, 9, State::Closed);
    EXPECT_EQ(archive.returned(*sale, nullptr), Document::Returned::Wholly);
    EXPECT_EQ(archive.returned(*sale, document(10)), Document::Returned::Wholly);

    write(u"finished/00000009.json"_s, "{");
    EXPECT_EQ(archive.returned(*sale, nullptr), Document::Returned::Wholly)
        << "damaged: the money may have been paid out";

    sale->addReturn(10);
    returnOf(*sale, 9, State::Cancelled);
    returnOf(*sale, 10, State::Suspended);
    EXPECT_EQ(archive.returned(*sale, nullptr), Document::Returned::Wholly) << "the return is suspended";
    EXPECT_EQ(archive.returned(*sale, document(11)), Document::Returned::Wholly);
}

TEST_F(ArchiveFolderTest, lastClosed_isDecidedByTheCountOfClosingsThenByTheNumber)
{
    EXPECT_FALSE(archive.lastClosed());
    saved(2, State::Closed);
    saved(4, State::Closed);
    saved(5, State::Cancelled);
    saved(6, State::Suspended);
    EXPECT_EQ(archive.lastClosed()->getNumber(), 4) << "none is counted";
    const auto counted = [this](int number, int closing) {
        const auto closed = document(number, State::Closed);
        Document::Ending ending = closed->ending();
        ending.closing = closing;
        ending.finished = ending.finished.addDays(-closing); // the clock was set back each time
        closed->setEnding(ending);
        EXPECT_TRUE(archive.saveOrShow(closed));
    };
    counted(3, 8);
    counted(7, 7);
    EXPECT_EQ(archive.lastClosed()->getNumber(), 3);
    EXPECT_EQ(archive.lastClosed()->ending().closing, 8);
}

TEST_F(ArchiveFolderTest, lastClosedBeforeManyOthersWithoutANote_isFoundAmongAll)
{
    const auto closed = document(1, State::Closed);
    Document::Ending ending = closed->ending();
    ending.closing = 7;
    closed->setEnding(ending);
    EXPECT_TRUE(archive.saveOrShow(closed));
    for (int number = 2; number <= 102; ++number) {
        write(u"finished/%1.json"_s.arg(number, 8, 10, QChar(u'0')),
              QJsonDocument(document(number, State::Cancelled)->toJson()).toJson());
    }
    ASSERT_TRUE(archive.lastClosed());
    EXPECT_EQ(archive.lastClosed()->ending().closing, 7);
}

TEST_F(ArchiveFolderTest, closingNoted_isCountedEvenWhenItsDocumentWasNotSaved)
{
    EXPECT_EQ(archive.closings(), 0);
    archive.noteClosing({.count = 7, .document = 3});
    EXPECT_EQ(archive.closings(), 7);
    EXPECT_FALSE(archive.lastClosed());

    write(u"lastclosing"_s, "{");
    const LogCapture log;
    EXPECT_EQ(archive.closings(), 0);
    EXPECT_TRUE(log.text().contains(u"The last closing is looked for among all documents: "_s))
        << log.text().toStdString();
}

TEST_F(ArchiveFolderTest, closingInterrupted_openCopyIsRemoved)
{
    const auto open = saved(3);
    saved(3, State::Closed);
    EXPECT_FALSE(archive.tidyUp(open));
    EXPECT_EQ(files(), QStringList{finishedFile});
}

TEST_F(ArchiveFolderTest, suspendingOrResumingInterrupted_suspendedCopyIsRemoved)
{
    const auto document = saved(3);
    saved(3, State::Suspended);
    EXPECT_EQ(archive.tidyUp(document), document);
    EXPECT_EQ(files(), QStringList{openFile});
}

TEST_F(ArchiveFolderTest, voidingInterrupted_suspendedCopyIsRemoved)
{
    saved(3, State::Suspended);
    saved(3, State::Voided);
    EXPECT_FALSE(archive.tidyUp(nullptr));
    EXPECT_EQ(files(), QStringList{finishedFile});
    EXPECT_EQ(archive.find(3)->getState(), State::Voided);
}

TEST_F(ArchiveFolderTest, nothingInterrupted_everythingStays)
{
    const auto document = saved(3);
    saved(1, State::Suspended);
    saved(2, State::Closed);
    const QStringList before = files();
    EXPECT_EQ(before.size(), 3);
    EXPECT_EQ(archive.tidyUp(document), document);
    EXPECT_EQ(files(), before);
    EXPECT_FALSE(archive.tidyUp(nullptr));
    EXPECT_EQ(files(), before);
}

TEST_F(ArchiveFolderTest, finishedCopyDamaged_theOtherCopyStays)
{
    write(finishedFile, "half");
    saved(3, State::Suspended);
    EXPECT_FALSE(archive.tidyUp(nullptr));
    EXPECT_EQ(files(), (QStringList{finishedFile, suspendedFile}));
    const auto document = saved(3);
    EXPECT_EQ(archive.tidyUp(document), document);
    EXPECT_EQ(files(), (QStringList{openFile, finishedFile}));
}
