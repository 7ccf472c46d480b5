// SPDX-License-Identifier: MIT
// docs/errors.md and the pages below it, against the texts of the message catalogues and of the register's start.
#include "messagecatalogue.h"

#include <QDir>
#include <QDirIterator>
#include <QRegularExpression>
#include <QSet>

#include <gtest/gtest.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

const QString sources = QString::fromUtf8(SOURCES "/");
const QString pages = sources + u"docs/errors/"_s;

/// A statement whose texts only the log or --help has.
const QRegularExpression loggedOrHelp(
    uR"__((?:->(?:error|warn|info)\(|warnAbout\(|QCommandLineOption|setApplicationDescription)(?:[^;"]|"(?:[^"\\]|\\.)*")*;)__"_s);

const QRegularExpression comment(u"//[^\n]*"_s);

/// Where the English texts of the start and of the configuration's check are: files, and folders of sources.
const QStringList placesOfStartTexts{
    u"host/platform/config/config.cpp"_s, u"host/platform/hosting/jsonfile.cpp"_s,  u"host/register/application"_s,
    u"host/register/configuration"_s,     u"host/register/scenario/scenario.cpp"_s,
};

/// A row of a page.
struct Row {
    QString place;       ///< page and line
    QString text;        ///< its first cell
    QString key;         ///< of a message; empty: its texts are none of a catalogue
    QString status;      ///< only without a key
    QStringList helpers; ///< whom to call
};

/// The cells of a line of a table.
QStringList cellsOf(const QString& line)
{
    return line.mid(2).chopped(2).split(u" | "_s);
}

/// The texts in backticks of a cell.
QStringList codeIn(const QString& cell)
{
    static const QRegularExpression code(u"`([^`]+)`"_s);
    QStringList texts;
    for (const auto& match : code.globalMatch(cell)) {
        texts.append(match.captured(1));
    }
    return texts;
}

Row readRow(const QString& place, const QString& line)
{
    const QStringList cells = cellsOf(line);
    Row row;
    row.place = place;
    row.text = cells.constFirst();
    if (row.text.startsWith(u"**"_s)) {
        row.key = codeIn(row.text).value(0);
        EXPECT_EQ(cells.size(), 4) << place.toStdString();
        EXPECT_FALSE(row.key.isEmpty()) << place.toStdString();
    } else {
        row.status = cells.value(1);
        EXPECT_EQ(cells.size(), 5) << place.toStdString();
        EXPECT_EQ(codeIn(row.text).isEmpty(), row.text == u"—"_s) << place.toStdString();
    }
    row.helpers = cells.constLast().split(u", "_s);
    return row;
}

QStringList namesOfPages()
{
    return QDir(pages).entryList({u"*.md"_s}, QDir::Files);
}

/// The rows of all pages below docs/errors/.
QList<Row> rowsOfPages()
{
    QList<Row> rows;
    for (const QString& page : namesOfPages()) {
        const QStringList lines = readText(pages + page).split(u'\n');
        for (qsizetype number = 0; number < lines.size(); ++number) {
            const QString& line = lines.at(number);
            if (line.startsWith(u"| "_s) && !line.startsWith(u"| Text |"_s)) {
                rows.append(readRow(u"docs/errors/%1:%2"_s.arg(page).arg(number + 1), line));
            }
        }
    }
    return rows;
}

/// The messages of every program, from its English catalogue.
QMap<QString, Message> allMessages()
{
    QMap<QString, Message> all;
    for (const QString& folder : {u"host"_s, u"plugin"_s, u"recovery"_s}) {
        QDirIterator catalogues(sources + folder, {u"*_en.ts"_s}, QDir::Files, QDirIterator::Subdirectories);
        while (catalogues.hasNext()) {
            all.insert(readMessageCatalogue(catalogues.next()));
        }
    }
    return all;
}

/// A catalogue's text as a page has it.
QString asOnPage(QString text)
{
    static const QRegularExpression placeholder(u"%\\d"_s);
    return text.replace(placeholder, u"…"_s).replace(u'*', u"\\*"_s).replace(u'\n', u"<br>"_s);
}

/// The first cell of a message's row.
std::string cellFor(const QString& key, const Message& message)
{
    return u"**%1**<br>*%2*<br>`%3`"_s.arg(asOnPage(message.source), asOnPage(message.translation), key).toStdString();
}

/// A line of neutral-texts.txt as an expression for whole keys.
QRegularExpression expressionFor(QString pattern)
{
    return QRegularExpression(QRegularExpression::anchoredPattern(pattern.replace(u'*', u"[A-Za-z]*"_s)));
}

QStringList neutralPatterns()
{
    QStringList lines = readText(sources + u"tests/unit/translations/neutral-texts.txt"_s).split(u'\n');
    lines.removeIf([](const QString& line) { return line.isEmpty() || line.startsWith(u'#'); });
    return lines;
}

bool isNeutral(const QString& key)
{
    static const QStringList patterns = neutralPatterns();
    return std::any_of(patterns.cbegin(), patterns.cend(),
                       [&key](const QString& pattern) { return expressionFor(pattern).match(key).hasMatch(); });
}

/// The parts of a text between its placeholders that have two words at least, without punctuation around them.
QSet<QString> partsOf(const QString& text)
{
    static const QRegularExpression between(u"%\\d|…|\n"_s);
    static const QRegularExpression around(uR"__(^[\s"':;,.?()«»\[\]]+|[\s"':;,.?()«»\[\]]+$)__"_s);
    QSet<QString> parts;
    for (QString part : text.split(between)) {
        part.remove(around);
        if (part.contains(u' ')) {
            parts.insert(part);
        }
    }
    return parts;
}

/// The parts of the English literals in a source.
QSet<QString> partsInSource(const QString& file)
{
    static const QRegularExpression literal(uR"__(u((?:"(?:[^"\\]|\\.)*"\s*)+)_s)__"_s);
    static const QRegularExpression seam(uR"__("\s*")__"_s);
    static const QRegularExpression russian(u"[А-Яа-яЁё]"_s);
    QString source = readText(file);
    source.remove(comment).remove(loggedOrHelp);
    QSet<QString> parts;
    for (const auto& match : literal.globalMatch(source)) {
        QString text = match.captured(1).trimmed();
        text.remove(seam);
        text = text.mid(1).chopped(1).replace(u"\\n"_s, u"\n"_s).replace(u"\\\""_s, u"\""_s);
        if (!text.contains(russian)) {
            parts.unite(partsOf(text));
        }
    }
    return parts;
}

QStringList filesOfStartTexts()
{
    QStringList files;
    for (const QString& place : placesOfStartTexts) {
        const QDir folder(sources + place);
        const QStringList names = folder.entryList({u"*.cpp"_s}, QDir::Files);
        for (const QString& name : names) {
            files.append(folder.filePath(name));
        }
        if (names.isEmpty()) {
            files.append(sources + place);
        }
    }
    return files;
}

QSet<QString> partsInSources()
{
    QSet<QString> parts;
    for (const QString& file : filesOfStartTexts()) {
        parts.unite(partsInSource(file));
    }
    return parts;
}

/// The numbers of the register's exit statuses that are failures.
QSet<QString> failingStatuses()
{
    static const QRegularExpression constant(u"constexpr int \\w+ = ([1-9]\\d*);"_s);
    QSet<QString> statuses;
    for (const auto& match :
         constant.globalMatch(readText(sources + u"host/register/application/startupfailure.h"_s))) {
        statuses.insert(match.captured(1));
    }
    return statuses;
}

} // namespace

TEST(ErrorPages, aMessageThatIsNotNeutral_hasARow)
{
    QSet<QString> onPages;
    for (const Row& row : rowsOfPages()) {
        onPages.insert(row.key);
    }
    const auto messages = allMessages();
    ASSERT_GE(messages.size(), 500);
    for (auto message = messages.cbegin(); message != messages.cend(); ++message) {
        EXPECT_TRUE(onPages.contains(message.key()) || isNeutral(message.key()))
            << "Put the key into neutral-texts.txt, or a row on a page of docs/errors/:\n| "
            << cellFor(message.key(), *message) << " | cause | what to do | whom to call |";
    }
}

TEST(ErrorPages, aRowWithAKey_hasTheTextsThatTheCashierSees)
{
    const auto messages = allMessages();
    int compared = 0;
    for (const Row& row : rowsOfPages()) {
        if (row.key.isEmpty()) {
            continue;
        }
        const std::string place = row.place.toStdString();
        ASSERT_TRUE(messages.contains(row.key)) << place << ": no source has " << row.key.toStdString();
        EXPECT_EQ(row.text.toStdString(), cellFor(row.key, messages.value(row.key))) << place;
        EXPECT_FALSE(isNeutral(row.key)) << place << ": neutral-texts.txt has " << row.key.toStdString();
        ++compared;
    }
    EXPECT_GE(compared, 200);
}

TEST(ErrorPages, aKey_hasOneRow)
{
    QSet<QString> seen;
    for (const Row& row : rowsOfPages()) {
        EXPECT_FALSE(!row.key.isEmpty() && seen.contains(row.key)) << row.place.toStdString();
        seen.insert(row.key);
    }
}

TEST(ErrorPages, aRowOfTheNeutralTexts_fitsAText)
{
    const QStringList keys = allMessages().keys();
    for (const QString& pattern : neutralPatterns()) {
        EXPECT_FALSE(keys.filter(expressionFor(pattern)).isEmpty()) << pattern.toStdString();
    }
}

TEST(ErrorPages, theTextsOfTheStart_areThoseOfTheSources)
{
    QSet<QString> onPages;
    for (const Row& row : rowsOfPages()) {
        for (const QString& text : row.key.isEmpty() ? codeIn(row.text) : QStringList()) {
            onPages.unite(partsOf(text));
        }
    }
    const QSet<QString> inSources = partsInSources();
    ASSERT_GE(inSources.size(), 60);
    for (const QString& part : inSources - onPages) {
        ADD_FAILURE() << "no row below docs/errors/ has: " << part.toStdString();
    }
    for (const QString& part : onPages - inSources) {
        ADD_FAILURE() << "no source has: " << part.toStdString();
    }
}

TEST(ErrorPages, anExitStatusOfAFailure_hasARow)
{
    QSet<QString> onPages;
    for (const Row& row : rowsOfPages()) {
        onPages.insert(row.status);
    }
    ASSERT_GE(failingStatuses().size(), 9);
    for (const QString& status : failingStatuses()) {
        EXPECT_TRUE(onPages.contains(status)) << status.toStdString();
    }
}

TEST(ErrorPages, aRow_saysWhomToCall)
{
    const QStringList helpers{u"nobody"_s, u"administrator"_s, u"integrator"_s, u"registry's operator"_s};
    for (const Row& row : rowsOfPages()) {
        for (const QString& helper : row.helpers) {
            EXPECT_TRUE(helpers.contains(helper)) << row.place.toStdString() << ": " << helper.toStdString();
        }
    }
}

TEST(ErrorPages, aPage_isInTheIndex)
{
    const QString index = readText(sources + u"docs/errors.md"_s);
    ASSERT_GE(namesOfPages().size(), 5);
    for (const QString& page : namesOfPages()) {
        EXPECT_TRUE(index.contains(u"](errors/%1)"_s.arg(page))) << page.toStdString();
    }
}
