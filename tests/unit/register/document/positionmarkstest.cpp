// SPDX-License-Identifier: MIT
#include "positionmarks.h"
#include "document.h"

#include <QCoreApplication>
#include <QDir>
#include <QTemporaryDir>
#include <QTranslator>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

class PositionMarksTest : public ::testing::Test
{
protected:
    void load(const QByteArray& json, const QString& plugin = u"papers"_s)
    {
        QDir(folder.path()).mkdir(plugin);
        const QString path = folder.filePath(plugin + u"/positionmarks.json"_s);
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(json);
        file.close();
        marks.load(path);
    }

    QTemporaryDir folder;
    PositionMarks marks;
    Position position{{}, {}};
};

namespace
{
const QByteArray paper = R"({"positions": [
    {"tag": "paper", "mark": "БР", "description": "Бумага", "states": [
        {"option": "status", "value": null, "text": "новый", "colour": "#8a5a00"},
        {"option": "status", "value": "done", "text": "готов", "colour": "#1b6e3c"}],
        "receiptLines": [{"option": "issuer", "label": "Кто"}, {"option": "number", "label": "Номер"}]}],
    "document": [{"plugin": "P", "key": "card", "label": "Карта"}]})";
} // namespace

TEST_F(PositionMarksTest, otherTag_positionIsNotMarked)
{
    load(paper);
    position.setTag(u"Paper"_s);
    const auto look = marks.look(position);
    EXPECT_TRUE(look.mark.isEmpty());
    EXPECT_TRUE(look.state.isEmpty());
}

TEST_F(PositionMarksTest, optionAbsent_nullStateFits)
{
    load(paper);
    position.setTag(u"paper"_s);
    for (const char* options : {"", "{}", "no json", "[1]", "{\"other\":1}"}) {
        position.setExtendedOptions(QString::fromLatin1(options));
        const auto look = marks.look(position);
        EXPECT_EQ(look.mark, u"БР"_s) << options;
        EXPECT_EQ(look.description, u"Бумага"_s) << options;
        EXPECT_EQ(look.state, u"новый"_s) << options;
        EXPECT_EQ(look.stateColour, QColor(0x8a, 0x5a, 0)) << options;
    }
}

TEST_F(PositionMarksTest, optionHasTheValue_itsStateFits)
{
    load(paper);
    position.setTag(u"paper"_s);
    position.setExtendedOptions(u"{\"status\":\"done\"}"_s);
    EXPECT_EQ(marks.look(position).state, u"готов"_s);
    position.setExtendedOptions(u"{\"status\":\"Done\"}"_s);
    EXPECT_TRUE(marks.look(position).state.isEmpty());
    position.setExtendedOptions(u"{\"status\":null}"_s);
    EXPECT_TRUE(marks.look(position).state.isEmpty());
}

TEST_F(PositionMarksTest, receiptLines_keepTheOrderOfTheFileAndEmptyOnesAreLeftOut)
{
    load(paper);
    position.setExtendedOptions(uR"({"number": "7%1", "issuer": "Поликлиника"})"_s);
    EXPECT_TRUE(marks.look(position).receiptLines.isEmpty()) << "no such tag";
    position.setTag(u"paper"_s);
    EXPECT_EQ(marks.look(position).receiptLines, (QStringList{u"Кто: Поликлиника"_s, u"Номер: 7%1"_s}));
    for (const char* issuer : {"\"\"", "null", "5", "{}"}) {
        position.setExtendedOptions(uR"({"number": "8", "issuer": )"_s + QLatin1StringView(issuer) + u'}');
        EXPECT_EQ(marks.look(position).receiptLines, QStringList{u"Номер: 8"_s}) << issuer;
    }
    position.setExtendedOptions({});
    EXPECT_TRUE(marks.look(position).receiptLines.isEmpty());
}

TEST_F(PositionMarksTest, documentValue_isShownWithItsLabel)
{
    load(paper);
    Document document(1, QDateTime::currentDateTime());
    EXPECT_TRUE(marks.documentText(document).isEmpty());
    document.setPluginValue(u"P"_s, u"card"_s, u"12%1"_s);
    EXPECT_EQ(marks.documentText(document), u"Карта: 12%1"_s);
}

TEST_F(PositionMarksTest, twoFiles_bothAreUsed)
{
    load(paper);
    load(R"({"positions": [{"tag": "other", "mark": "ДР"}]})");
    position.setTag(u"other"_s);
    EXPECT_EQ(marks.look(position).mark, u"ДР"_s);
}

TEST_F(PositionMarksTest, twoEntriesOfOneTag_eachTextIsOfTheFirstThatHasIt)
{
    load(R"({"positions": [{"tag": "paper", "mark": "", "origin": "по накладной", "receiptLines": []}]})");
    load(paper);
    load(R"({"positions": [{"tag": "paper", "mark": "ДР", "description": "Другая", "origin": "по другой",
        "receiptLines": [{"option": "issuer", "label": "Другой"}]}]})");
    position.setTag(u"paper"_s);
    position.setExtendedOptions(uR"({"issuer": "Поликлиника"})"_s);
    const auto look = marks.look(position);
    EXPECT_EQ(look.mark, u"БР"_s);
    EXPECT_EQ(look.description, u"Бумага"_s);
    EXPECT_EQ(look.receiptLines, QStringList(u"Кто: Поликлиника"_s));
    EXPECT_EQ(marks.origin(position), u"по накладной"_s);
}

TEST_F(PositionMarksTest, entriesOfTwoTagsOfThePosition_bothDescribeIt)
{
    load(paper);
    load(R"({"positions": [{"tag": "other", "origin": "по накладной", "states": [
        {"option": "other", "value": "open", "priority": -1, "text": "открыт"}]}]})");
    position.setTag(u"paper"_s);
    position.setTag(u"other"_s);
    position.setExtendedOptions(uR"({"other": "open"})"_s);
    EXPECT_EQ(marks.look(position).mark, u"БР"_s);
    EXPECT_EQ(marks.look(position).state, u"открыт"_s);
    EXPECT_EQ(marks.origin(position), u"по накладной"_s);
}

TEST_F(PositionMarksTest, severalStatesFit_smallestPriorityIsShownAndAmongEqualsTheFirst)
{
    load(R"({"positions": [{"tag": "paper", "states": [
        {"option": "no", "value": null, "text": "первый", "undoing": "Первый."},
        {"option": "no", "value": null, "text": "второй", "priority": 0},
        {"option": "no", "value": null, "text": "срочный?", "priority": "-5"}]}]})");
    position.setTag(u"paper"_s);
    EXPECT_EQ(marks.look(position).state, u"первый"_s) << "a priority that is no number is 0";
    load(R"({"positions": [{"tag": "paper", "states": [
        {"option": "no", "value": null, "text": "последний", "priority": 1},
        {"option": "no", "value": null, "text": "главный", "priority": -0.5, "colour": "#8a5a00"},
        {"option": "no", "value": "x", "text": "чужой", "priority": -9}]}]})");
    const auto look = marks.look(position);
    EXPECT_EQ(look.state, u"главный"_s);
    EXPECT_EQ(look.stateColour, QColor(0x8a, 0x5a, 0));
    EXPECT_TRUE(look.undoing.isEmpty()) << "of the state that is shown";
}

TEST_F(PositionMarksTest, unreadableFilesAndEntries_areLeftOut)
{
    marks.load(folder.filePath(u"absent.json"_s));
    marks.load(folder.path());
    for (const char* json : {"", "[]", "{\"positions\": 5}", "{\"positions\": [5, {}, {\"mark\": \"X\"}]}"}) {
        load(json);
    }
    position.setTag({});
    EXPECT_TRUE(marks.look(position).mark.isEmpty());
}

namespace
{

/// Has one translation for each key of a mark.
class EnglishCatalogue : public QTranslator
{
public:
    EnglishCatalogue() { QCoreApplication::installTranslator(this); }
    ~EnglishCatalogue() override { QCoreApplication::removeTranslator(this); }

    bool isEmpty() const override { return false; }
    QString translate(const char*, const char* key, const char*, int) const override
    {
        return u"English "_s + QString::fromLatin1(key);
    }
};

const QByteArray translatable = R"({"positions": [
    {"tag": "paper", "mark": {"key": "m", "text": "БР"}, "description": {"key": "paperKind", "text": "Бумага"},
        "states": [{"option": "status", "value": null, "text": {"key": "paperNew", "text": "новый"}}],
        "receiptLines": [{"option": "number", "label": {"key": "paperNumber", "text": "Номер"}}]}],
    "document": [{"plugin": "P", "key": "card", "label": {"key": "paperCard", "text": "Карта"}}]})";

} // namespace

TEST_F(PositionMarksTest, wordsWithAKey_areShownInTheLanguageOfTheInterface)
{
    load(translatable);
    position.setTag(u"paper"_s);
    position.setExtendedOptions(uR"({"number": "7"})"_s);
    Document document(1, QDateTime::currentDateTime());
    document.setPluginValue(u"P"_s, u"card"_s, u"12"_s);

    auto look = marks.look(position);
    EXPECT_EQ(look.mark, u"БР"_s) << "without a catalogue";
    EXPECT_EQ(look.description, u"Бумага"_s);
    EXPECT_EQ(look.state, u"новый"_s);
    EXPECT_EQ(look.receiptLines, QStringList(u"Номер: 7"_s));
    EXPECT_EQ(marks.documentText(document), u"Карта: 12"_s);

    const EnglishCatalogue catalogue;
    look = marks.look(position);
    EXPECT_EQ(look.mark, u"Engl"_s) << "four characters at most";
    EXPECT_EQ(look.description, u"English paperKind"_s);
    EXPECT_EQ(look.state, u"English paperNew"_s);
    EXPECT_EQ(look.receiptLines, QStringList(u"English paperNumber: 7"_s));
    EXPECT_EQ(marks.documentText(document), u"English paperCard: 12"_s);
}

TEST_F(PositionMarksTest, wordsWithoutAKey_stayAsWrittenInEveryLanguage)
{
    load(paper);
    load(R"({"positions": [{"tag": "other", "description": {"text": "Другая"}}]})");
    const EnglishCatalogue catalogue;
    position.setTag(u"paper"_s);
    EXPECT_EQ(marks.look(position).description, u"Бумага"_s);
    Position other{{}, {}};
    other.setTag(u"other"_s);
    EXPECT_EQ(marks.look(other).description, u"Другая"_s);
}

TEST_F(PositionMarksTest, origin_isThePluginsWordOrADocument)
{
    load(R"({"positions": [{"tag": "paper", "origin": "по накладной"}, {"tag": "other"}]})");
    EXPECT_EQ(marks.origin(position), u"по документу"_s);
    position.setTag(u"other"_s);
    EXPECT_EQ(marks.origin(position), u"по документу"_s);
    Position invoiced{{}, {}};
    invoiced.setTag(u"paper"_s);
    EXPECT_EQ(marks.origin(invoiced), u"по накладной"_s);
}

TEST_F(PositionMarksTest, undoings_areThoseOfThePositionsStatesEachOnce)
{
    load(R"({"positions": [{"tag": "paper", "states": [
        {"option": "status", "value": null, "text": "новый"},
        {"option": "status", "value": "done", "text": "готов", "undoing": "Выдача будет отменена."},
        {"option": "status", "value": "sent", "text": "отправлен", "undoing": "Отправка будет отменена."}]}]})");
    QList<QSharedPointer<Position>> positions;
    const auto add = [&positions](const QString& status) {
        positions.append(QSharedPointer<Position>::create(GoodsItem::Goods{}, QString()));
        positions.last()->setTag(u"paper"_s);
        positions.last()->setExtendedOptions(status.isEmpty() ? QString() : u"{\"status\": \"%1\"}"_s.arg(status));
    };
    EXPECT_TRUE(marks.undoings(positions).isEmpty());
    add({});
    add(u"other"_s);
    EXPECT_TRUE(marks.undoings(positions).isEmpty());
    for (const QString& status : {u"done"_s, u"sent"_s, u"done"_s}) {
        add(status);
    }
    EXPECT_EQ(marks.undoings(positions), (QStringList{u"Выдача будет отменена."_s, u"Отправка будет отменена."_s}));
}

TEST_F(PositionMarksTest, numberLine_isShownWithADecimalComma)
{
    load(R"({"positions": [{"tag": "paper", "receiptLines": [
        {"option": "doses", "label": "Доз", "form": "number"}]}]})");
    position.setTag(u"paper"_s);
    const std::pair<const char*, const char*> rows[] = {
        {"30", "Доз: 30"}, {"2.5", "Доз: 2,5"}, {"0.25", "Доз: 0,25"}, {"\"30\"", nullptr}, {"null", nullptr},
    };
    for (const auto& [doses, shown] : rows) {
        position.setExtendedOptions(u"{\"doses\": %1}"_s.arg(QLatin1StringView(doses)));
        EXPECT_EQ(marks.look(position).receiptLines, shown ? QStringList(QString::fromUtf8(shown)) : QStringList())
            << doses;
    }
}

/// A share of the price that a plug-in notes, and the price that it sets.
struct NotedShare {
    const char* name;
    const char* share;
    double before;
    double price;
    const char* discount; ///< null: none is shown
};

class DiscountLine : public PositionMarksTest, public ::testing::WithParamInterface<NotedShare>
{
};

TEST_P(DiscountLine, discount_isShownWhereItIsTheOneThatWasGiven)
{
    load(R"({"positions": [{"tag": "paper", "receiptLines": [
        {"option": "share", "label": "Скидка", "form": "discount"}]}]})");
    const NotedShare& row = GetParam();
    GoodsItem::Goods goods;
    goods.price = Kopecks::fromRoubles(row.before).value();
    Position sold(goods, {});
    sold.setTag(u"paper"_s);
    sold.setExtendedOptions(u"{\"share\": %1}"_s.arg(QLatin1StringView(row.share)));
    sold.setPrice(row.price);
    const QStringList shown = row.discount
                                  ? QStringList(u"Скидка: "_s + QString::fromUtf8(row.discount) + QChar::Nbsp + u'%')
                                  : QStringList();
    EXPECT_EQ(marks.look(sold).receiptLines, shown);
}

INSTANTIATE_TEST_SUITE_P(
    , DiscountLine,
    ::testing::Values(
        NotedShare{"half", "0.5", 10.01, 5.01, "50"}, NotedShare{"all", "0", 12.4, 0.0, "100"},
        NotedShare{"third", "0.6667", 100.0, 66.67, "33,33"}, NotedShare{"oneDecimal", "0.945", 10.0, 9.45, "5,5"},
        NotedShare{"smallest", "0.9999", 10'000.0, 9'999.0, "0,01"},
        NotedShare{"lowestPriceInstead", "0", 12.4, 1.2, nullptr},
        NotedShare{"lowestPriceAboveHalf", "0.5", 10.0, 6.0, nullptr},
        NotedShare{"notApplied", "0.9951", 12.4, 12.4, nullptr},
        NotedShare{"lostInRounding", "0.99", 0.3, 0.3, nullptr}, NotedShare{"priceRaised", "0.5", 10.0, 11.0, nullptr},
        NotedShare{"tooSmallToShow", "0.99999", 100'000.0, 99'999.0, nullptr},
        NotedShare{"none", "1", 10.0, 9.0, nullptr}, NotedShare{"surcharge", "1.5", 10.0, 15.0, nullptr},
        NotedShare{"belowZero", "-0.5", 10.0, -5.0, nullptr}, NotedShare{"endless", "1e300", 10.0, 9.0, nullptr},
        NotedShare{"text", "\"0.5\"", 10.0, 5.0, nullptr}, NotedShare{"nothing", "null", 10.0, 5.0, nullptr}),
    [](const auto& instance) { return std::string(instance.param.name); });

TEST_F(PositionMarksTest, undecidedState_countsAlsoWhenAnotherOneIsShown)
{
    load(R"({"positions": [{"tag": "paper", "states": [
        {"option": "status", "value": "done", "priority": -1, "text": "готов"},
        {"option": "outcome", "value": "unknown", "text": "неизвестно", "undecided": true}]}]})");
    position.setExtendedOptions(uR"({"status": "done", "outcome": "unknown"})"_s);
    EXPECT_EQ(marks.undecidedPlugins(position), QStringList()) << "it has no such tag";
    position.setTag(u"paper"_s);
    EXPECT_EQ(marks.look(position).state, u"готов"_s);
    EXPECT_EQ(marks.undecidedPlugins(position), QStringList(u"papers"_s));
    for (const QString& options : {u"{}"_s, u""_s, uR"({"status": "done"})"_s, uR"({"outcome": "known"})"_s}) {
        position.setExtendedOptions(options);
        EXPECT_EQ(marks.undecidedPlugins(position), QStringList()) << qPrintable(options);
    }
}

TEST_F(PositionMarksTest, undecidedStatesOfSeveralPlugins_nameEachOnce)
{
    const QByteArray unknown = R"({"option": "outcome", "value": "unknown", "undecided": true})";
    const QByteArray mark = R"({"tag": "paper", "states": [)" + unknown + "," + unknown + "]}";
    load(R"({"positions": [)" + mark + "," + mark + "]}", u"papers"_s);
    load(R"({"positions": [)" + mark + "]}", u"stamps"_s);
    position.setTag(u"paper"_s);
    position.setExtendedOptions(uR"({"outcome": "unknown"})"_s);
    EXPECT_EQ(marks.undecidedPlugins(position), (QStringList{u"papers"_s, u"stamps"_s}));
}

TEST_F(PositionMarksTest, savedUndecided_holdsWhileThePluginsFileIsNotLoaded)
{
    position.noteUndecidedPlugins({u"stamps"_s, u"papers"_s});
    EXPECT_EQ(marks.undecidedPlugins(position), (QStringList{u"stamps"_s, u"papers"_s}));
    load(paper, u"papers"_s);
    EXPECT_EQ(marks.undecidedPlugins(position), QStringList(u"stamps"_s)) << "the other one says that it is decided";
}
