// SPDX-License-Identifier: MIT
// The doctor's Russian catalogue against the English texts of its sources.
#include "findings.h"

#include <QDirIterator>
#include <QFile>
#include <QMap>
#include <QRegularExpression>
#include <QXmlStreamReader>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

constexpr int fewestTexts = 100;

struct Message {
    QString source;
    QString translation;
};

QString read(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return QString::fromUtf8(file.readAll());
}

/// The texts of the table by their keys.
QMap<QString, QString> textsOfFindings()
{
    QMap<QString, QString> texts;
    for (const doctor::Finding& found : doctor::allFindings()) {
        texts.insert(found.text.key(), found.text.text());
        if (!found.advice.key().isEmpty()) {
            texts.insert(found.advice.key(), found.advice.text());
        }
    }
    return texts;
}

/// Those of the table, and those of the sources, where a key comes before its text.
QMap<QString, QString> textsInSources()
{
    static const QRegularExpression keyAndText(u"\"(doctor[A-Z]\\w*)\"(?:_s)?, u?\"([^\"]*)\""_s);
    QMap<QString, QString> texts = textsOfFindings();
    QDirIterator sources(QString::fromUtf8(SOURCES "/doctor"), {u"*.cpp"_s}, QDir::Files, QDirIterator::Subdirectories);
    while (sources.hasNext()) {
        if (sources.next().endsWith(u"/findings.cpp"_s)) {
            continue;
        }
        auto found = keyAndText.globalMatch(read(sources.filePath()).replace(QRegularExpression(u",\\s+"_s), u", "_s));
        while (found.hasNext()) {
            const auto match = found.next();
            EXPECT_FALSE(texts.contains(match.captured(1))) << match.captured(1).toStdString();
            texts.insert(match.captured(1), match.captured(2));
        }
    }
    return texts;
}

QMap<QString, Message> messages()
{
    QMap<QString, Message> all;
    QString id;
    QXmlStreamReader xml(read(QString::fromUtf8(SOURCES "/doctor/translations/prescriptiondoctor_ru.ts")));
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement) {
            continue;
        }
        if (xml.name() == u"message") {
            id = xml.attributes().value("id").toString();
            EXPECT_FALSE(all.contains(id)) << id.toStdString() << " comes twice";
        } else if (xml.name() == u"source") {
            all[id].source = xml.readElementText();
        } else if (xml.name() == u"translation") {
            EXPECT_FALSE(xml.attributes().hasAttribute("type")) << id.toStdString() << " is unfinished";
            all[id].translation = xml.readElementText();
        }
    }
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
    return all;
}

QSet<QString> placeholders(const QString& text)
{
    static const QRegularExpression placeholder(u"%\\d"_s);
    QSet<QString> found;
    auto matches = placeholder.globalMatch(text);
    while (matches.hasNext()) {
        found.insert(matches.next().captured());
    }
    return found;
}

} // namespace

TEST(DoctorCatalogue, catalogue_hasExactlyTheKeysOfTheSources)
{
    const auto texts = textsInSources();
    ASSERT_GE(texts.size(), fewestTexts);
    EXPECT_EQ(messages().keys(), texts.keys());
}

TEST(DoctorCatalogue, catalogue_repeatsAndTranslatesEachTextOfTheSources)
{
    const auto texts = textsInSources();
    const auto all = messages();
    ASSERT_GE(all.size(), fewestTexts);
    for (auto message = all.cbegin(); message != all.cend(); ++message) {
        EXPECT_EQ(message->source, texts.value(message.key())) << message.key().toStdString();
        EXPECT_FALSE(message->translation.isEmpty()) << message.key().toStdString();
        EXPECT_EQ(placeholders(message->translation), placeholders(message->source)) << message.key().toStdString();
    }
}
