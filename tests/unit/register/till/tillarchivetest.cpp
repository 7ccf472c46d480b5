// SPDX-License-Identifier: MIT
#include "clockdouble.h"
#include "documentarchive.h"
#include "logcapture.h"
#include "pluginscope.h"
#include "savetofilelogic.h"
#include "tillfixture.h"

#include <QDir>

using namespace Qt::StringLiterals;

/// Documents of 28 and 29 February, as a plug-in finds them.
class TillArchiveTest : public TillFixture
{
protected:
    using Documents = QList<QSharedPointer<AbstractDocument>>;

    static Documents documents(QDate day) { return Singleton<DocumentArchive>::get()->documentsOf(day); }
    static QStringList names(const Documents& documents)
    {
        QStringList all;
        for (const auto& one : documents) {
            all.append(one->identifier());
        }
        return all;
    }
    static QSharedPointer<AbstractDocument> ofNumber(const Documents& documents, int number)
    {
        for (const auto& one : documents) {
            if (one->identifier() == QString::number(number)) {
                return one;
            }
        }
        return nullptr;
    }
    int open()
    {
        till->add(article(amoxidar, 2));
        return till->document()->getNumber();
    }
    int sell()
    {
        const int number = open();
        EXPECT_TRUE(till->close({Payment::cash(Kopecks{5000})}));
        return number;
    }
    int suspend()
    {
        const int number = open();
        EXPECT_TRUE(till->suspend());
        return number;
    }
    int cancel()
    {
        const int number = open();
        EXPECT_TRUE(till->cancel());
        return number;
    }
    QJsonObject content(const QString& file) const
    {
        QFile saved(folder.filePath(file));
        return saved.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(saved.readAll()).object() : QJsonObject();
    }
    QStringList files() const
    {
        QStringList all = QDir(folder.path()).entryList({u"*.json"_s}, QDir::Files);
        for (const QString& place : {u"finished"_s, u"putaside"_s}) {
            for (const QString& file : QDir(folder.filePath(place)).entryList(QDir::Files | QDir::Hidden)) {
                all.append(place + u'/' + file);
            }
        }
        return all;
    }

    const QDate before{2024, 2, 28};
    const QDate day{2024, 2, 29};
    ClockDouble clock{QDateTime(before, {18, 0})};
};

TEST_F(TillArchiveTest, documentsOfADay_areTheOpenOneAllSuspendedOnesAndThoseClosedThen)
{
    sell();    // 1
    suspend(); // 2
    clock.now = QDateTime(day, {9, 0});
    const int sale = sell();                                          // 3
    cancel();                                                         // 4
    ASSERT_TRUE(till->voidDocument(till->archive().find(sell())));    // 5
    ASSERT_TRUE(till->voidDocument(till->archive().find(suspend()))); // 6
    ASSERT_TRUE(till->returnSale(till->archive().find(sale)));        // 7
    ASSERT_TRUE(till->close({Payment::cash(till->due())}));
    open(); // 8
    EXPECT_EQ(names(documents(day)), (QStringList{u"8"_s, u"7"_s, u"3"_s, u"2"_s}));
    EXPECT_EQ(names(documents(before)), (QStringList{u"8"_s, u"2"_s, u"1"_s}));
    EXPECT_EQ(names(documents(day.addDays(1))), (QStringList{u"8"_s, u"2"_s}));
    EXPECT_EQ(documents(day).at(1)->getType(), int(AbstractDocument::Return));
}

TEST_F(TillArchiveTest, noDocuments_isEmpty)
{
    EXPECT_TRUE(documents(day).isEmpty());
}

TEST_F(TillArchiveTest, openDocument_isTheCurrentObject)
{
    open();
    EXPECT_EQ(documents(day), Documents{till->document()});
}

TEST_F(TillArchiveTest, documentThatIsBeingVoided_isTheCurrentObject)
{
    const auto sale = till->archive().find(sell());
    till->withCurrentDocument(sale, [&] { EXPECT_EQ(documents(before), Documents{sale}); });
    EXPECT_NE(documents(before), Documents{sale}) << "read again";
    till->withCurrentDocument(sale, [&] { EXPECT_TRUE(documents(day).isEmpty()) << "it is of another day"; });
}

TEST_F(TillArchiveTest, documentByItsName_isFoundWhateverBecameOfIt)
{
    sell();                                                        // 1
    suspend();                                                     // 2
    cancel();                                                      // 3
    ASSERT_TRUE(till->voidDocument(till->archive().find(sell()))); // 4
    open();                                                        // 5
    clock.now = QDateTime(day.addYears(1), {9, 0});
    const DocumentArchive* archive = Singleton<DocumentArchive>::get();
    for (const bool isUndone : {false, true}) {
        for (const QString& name : isUndone ? QStringList{u"3"_s, u"4"_s} : QStringList{u"1"_s, u"2"_s, u"5"_s}) {
            const auto found = archive->document(name);
            ASSERT_TRUE(found) << qPrintable(name);
            EXPECT_EQ(found->identifier(), name);
            EXPECT_EQ(found->isUndone(), isUndone) << qPrintable(name);
        }
    }
    EXPECT_EQ(archive->document(u"5"_s), till->document());
    for (const QString& name : {u"6"_s, u""_s, u"x"_s, u"-1"_s}) {
        EXPECT_FALSE(archive->document(name)) << qPrintable(name);
    }
}

TEST_F(TillArchiveTest, documentThatIsBeingVoided_isFoundAsTheCurrentObject)
{
    const auto sale = till->archive().find(sell());
    till->withCurrentDocument(sale, [&] { EXPECT_EQ(Singleton<DocumentArchive>::get()->document(u"1"_s), sale); });
}

TEST_F(TillArchiveTest, documentInTwoPlaces_isThereOnce)
{
    const int number = suspend();
    ASSERT_TRUE(QFile::copy(folder.filePath(u"putaside/00000001.json"_s), folder.filePath(u"copy"_s)));
    ASSERT_TRUE(till->resume(till->archive().find(number)));
    ASSERT_TRUE(QFile::copy(folder.filePath(u"copy"_s), folder.filePath(u"putaside/00000001.json"_s)));
    EXPECT_EQ(documents(before), Documents{till->document()});

    ASSERT_TRUE(till->close({Payment::cash(Kopecks{5000})}));
    ASSERT_EQ(names(documents(before)), QStringList{u"1"_s});
    EXPECT_TRUE(documents(before).first()->isClosed());
}

TEST_F(TillArchiveTest, damagedFiles_areLoggedAndPassedOver)
{
    sell();
    suspend();
    const int sound = sell();
    for (const QString& file : {u"finished/00000001.json"_s, u"putaside/00000002.json"_s}) {
        QFile damaged(folder.filePath(file));
        ASSERT_TRUE(damaged.open(QIODevice::WriteOnly));
        damaged.write("{");
    }
    const LogCapture log;
    EXPECT_EQ(names(documents(before)), QStringList{QString::number(sound)});
    for (const char* file : {"finished/00000001.json", "putaside/00000002.json"}) {
        EXPECT_FALSE(log.lines().filter(QLatin1StringView(file)).isEmpty()) << file;
    }
}

TEST_F(TillArchiveTest, pluginChangesWhatIsNotOpen_eachFileIsWrittenWholeAndNothingElse)
{
    const QStringList kept{u"finished/00000001.json"_s, u"putaside/00000002.json"_s};
    sell();
    suspend();
    open();
    const QStringList filesBefore = files();
    const QJsonObject openBefore = savedDocument();
    const QList<QJsonObject> former{content(kept[0]), content(kept[1])};

    const PluginScope scope(u"testplugin"_s);
    for (const int number : {1, 2}) {
        const auto document = ofNumber(documents(before), number);
        ASSERT_TRUE(document);
        document->setPluginValue(u"testplugin"_s, u"asked"_s, u"rx-%1"_s.arg(number));
        document->getPosition(1)->setExtendedOptions(uR"({"status": "found"})"_s);
        EXPECT_TRUE(SaveToFileLogic::create()->save(document, {}));
    }

    EXPECT_EQ(files(), filesBefore);
    EXPECT_EQ(savedDocument(), openBefore);
    for (const int number : {1, 2}) {
        const auto read = ofNumber(documents(before), number);
        ASSERT_TRUE(read);
        EXPECT_EQ(read->getPluginValue(u"testplugin"_s, u"asked"_s, {}), u"rx-%1"_s.arg(number));
        EXPECT_EQ(read->getPosition(1)->getExtendedOptions(), uR"({"status": "found"})"_s);
        EXPECT_EQ(till->archive().find(number)->toJson(), content(kept[number - 1])) << "as the list shows it";

        const auto asBefore = read.dynamicCast<Document>();
        asBefore->setPluginValue(u"testplugin"_s, u"asked"_s, {});
        QJsonObject saved = asBefore->toJson();
        QJsonObject formerly = former[number - 1];
        saved.remove(u"positions"_s);
        formerly.remove(u"positions"_s);
        EXPECT_EQ(saved, formerly) << "money, state and times stay";
    }
}

TEST_F(TillArchiveTest, closedSaleThatAPluginChanged_canBeReturnedWithWhatItChanged)
{
    const int number = sell();
    const auto sale = ofNumber(documents(before), number);
    ASSERT_TRUE(sale);
    sale->getPosition(1)->setExtendedOptions(uR"({"status": "found"})"_s);
    ASSERT_TRUE(SaveToFileLogic::create()->save(sale, {}));
    ASSERT_TRUE(till->returnSale(till->archive().find(1)));
    EXPECT_EQ(till->document()->getPosition(1)->getExtendedOptions(), uR"({"status": "found"})"_s);
}

TEST_F(TillArchiveTest, tillGone_theFormerArchiveIsBack)
{
    sell();
    EXPECT_FALSE(documents(before).isEmpty());
    till.reset();
    EXPECT_TRUE(documents(before).isEmpty());
}
