// SPDX-License-Identifier: MIT
#include "refusal.h"

#include <QFile>
#include <QMetaEnum>
#include <QRegularExpression>
#include <QSet>

#include <gtest/gtest.h>

#include <ostream>

using namespace Qt::StringLiterals;

using emulator::HttpAnswer;
using emulator::Refusal;
using emulator::RefusalCode;
using emulator::RefusalRow;

namespace
{
/// A refusal as docs/registry-protocol.md shows it.
struct DocumentedRefusal {
    QString code;
    int status = 0;
    QString text;  ///< with "…" for each value
    QString error; ///< of a token request; empty for the others

    bool operator==(const DocumentedRefusal&) const = default;
};

void PrintTo(const DocumentedRefusal& refusal, std::ostream* stream)
{
    *stream << qPrintable(refusal.code) << ' ' << refusal.status << ' ' << qPrintable(refusal.text) << ' '
            << qPrintable(refusal.error);
}

/// The rows "| `Code` | 400 | Text | `error` | …" of the document, the error only where there is one.
QList<DocumentedRefusal> documentedRefusals()
{
    QFile file(QString::fromUtf8(PROTOCOL_DOCUMENT));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    const QRegularExpression row(uR"(^\| `(\w+)` \| (\d+) \| ([^|]+) \| (?:`(\w+)` \| )?[^|]+ \|$)"_s,
                                 QRegularExpression::MultilineOption);
    QList<DocumentedRefusal> refusals;
    auto match = row.globalMatch(QString::fromUtf8(file.readAll()));
    while (match.hasNext()) {
        const QRegularExpressionMatch found = match.next();
        refusals.append({found.captured(1), found.captured(2).toInt(), found.captured(3), found.captured(4)});
    }
    return refusals;
}

QString nameOf(RefusalCode code)
{
    return QString::fromLatin1(QMetaEnum::fromType<RefusalCode>().valueToKey(int(code)));
}

/// How many values the text takes; every placeholder from %1 on has to be there.
int valueCount(const QString& text)
{
    int count = 0;
    while (text.contains(u'%' + QString::number(count + 1))) {
        ++count;
    }
    return count;
}
} // namespace

TEST(RefusalCatalogue, rows_areThoseOfTheProtocolDocument)
{
    QList<DocumentedRefusal> catalogued;
    for (const RefusalRow& row : emulator::refusalCatalogue()) {
        const QString text = QString::fromUtf16(row.text).replace(QRegularExpression(u"%\\d"_s), u"…"_s);
        catalogued.append({nameOf(row.code), row.status, text, QString::fromLatin1(row.oauth.error)});
    }
    EXPECT_EQ(documentedRefusals(), catalogued);
}

TEST(RefusalCatalogue, everyCode_hasARow)
{
    EXPECT_EQ(QMetaEnum::fromType<RefusalCode>().keyCount(), int(emulator::refusalCatalogue().size()));
}

TEST(RefusalCatalogue, texts_areDifferentFromEachOther)
{
    QSet<QString> texts;
    for (const RefusalRow& row : emulator::refusalCatalogue()) {
        const QString text = QString::fromUtf16(row.text);
        EXPECT_FALSE(texts.contains(text)) << qPrintable(nameOf(row.code));
        texts.insert(text);
    }
}

TEST(RefusalCatalogue, placeholders_areNumberedFromOne)
{
    for (const RefusalRow& row : emulator::refusalCatalogue()) {
        const QString text = QString::fromUtf16(row.text);
        EXPECT_EQ(text.count(u'%'), valueCount(text)) << qPrintable(nameOf(row.code));
        EXPECT_LE(QByteArray(row.oauth.description).count('%'), valueCount(text)) << qPrintable(nameOf(row.code));
    }
}

TEST(RefusalCatalogue, descriptionOfTokenRequest_isAsciiAndThereWithItsError)
{
    for (const RefusalRow& row : emulator::refusalCatalogue()) {
        const QByteArray description = row.oauth.description;
        EXPECT_EQ(description.isEmpty(), QByteArray(row.oauth.error).isEmpty()) << qPrintable(nameOf(row.code));
        EXPECT_TRUE(std::all_of(description.begin(), description.end(), [](char c) { return c >= ' ' && c <= '~'; }))
            << qPrintable(nameOf(row.code));
    }
}

TEST(Refusal, answer_isOperationOutcomeWithItsText)
{
    const HttpAnswer answer = Refusal(RefusalCode::CardUnknown).answer();
    EXPECT_EQ(answer.status, 404);
    EXPECT_EQ(answer.body, "{\"issue\":[{\"details\":\"Карта не найдена в реестре\",\"severity\":\"error\"}],"
                           "\"resourceType\":\"OperationOutcome\"}");
    EXPECT_TRUE(answer.headers.isEmpty());
}

TEST(Refusal, answerToTokenRequest_alsoHasOAuthErrorAndIsNotStored)
{
    const HttpAnswer answer = Refusal(RefusalCode::TokenParameterMissing, {u"scope"_s}).answer();
    EXPECT_EQ(answer.status, 400);
    EXPECT_EQ(answer.body,
              "{\"error\":\"invalid_request\",\"error_description\":\"scope is missing\","
              "\"issue\":[{\"details\":\"В запросе токена не указан параметр scope\",\"severity\":\"error\"}],"
              "\"resourceType\":\"OperationOutcome\"}");
    EXPECT_EQ(answer.headers, (emulator::HttpHeaders{{"Cache-Control", "no-store"}}));
}

TEST(Refusal, challenge_isSentAsHeader)
{
    EXPECT_EQ(Refusal(RefusalCode::ScopeMissing, {u"dispense"_s}).answer().headers,
              (emulator::HttpHeaders{{"WWW-Authenticate", "Bearer error=\"insufficient_scope\""}}));
}

TEST(Refusal, furtherHeader_comesLast)
{
    const HttpAnswer answer = Refusal(RefusalCode::TokenMissing).with("Allow", "GET").answer();
    EXPECT_EQ(answer.headers, (emulator::HttpHeaders{{"WWW-Authenticate", "Bearer"}, {"Allow", "GET"}}));
}

TEST(Refusal, valueThatLooksLikeAPlaceholder_staysAsItIs)
{
    EXPECT_EQ(Refusal(RefusalCode::MedicationNotPrescribed, {u"%2%1"_s, u"rx-%1"_s}).details(),
              u"Препарат с кодом %2%1 не назначен рецептом rx-%1"_s);
}

TEST(Demand, keptRule_throwsNothing)
{
    EXPECT_NO_THROW(emulator::demand(true, RefusalCode::CardMissing));
}

TEST(Demand, brokenRule_throwsItsRefusal)
{
    try {
        emulator::demand(false, RefusalCode::StatusUnknown, {u"x"_s});
        ADD_FAILURE() << "nothing was thrown";
    } catch (const Refusal& refusal) {
        EXPECT_EQ(refusal.code(), RefusalCode::StatusUnknown);
        EXPECT_EQ(refusal.details(), u"Неизвестный статус рецепта «x»"_s);
    }
}
