// SPDX-License-Identifier: MIT
// The catalogue beside the plug-in's layouts against the texts in its sources.
#include "dialogforms.h"
#include "electronicprescriptionconfirmdispenseform.h"

#include <QCoreApplication>
#include <QDirIterator>
#include <QFile>
#include <QMap>
#include <QRegularExpression>
#include <QTranslator>
#include <QXmlStreamReader>

namespace
{

struct Message {
    QString source;
    QString translation;
};

/// The texts of the plug-in's sources by their keys: a key with a hump, then a default text in Cyrillic letters.
QMap<QString, QString> textsInSources()
{
    static const QRegularExpression keyAndText(R"__("([a-z]+[A-Z][A-Za-z0-9]*)",\s*((?:"(?:[^"\\]|\\.)*"\s*)+))__");
    static const QRegularExpression betweenLiterals(R"__("\s*")__");
    static const QRegularExpression cyrillic("[А-Яа-я]");
    QMap<QString, QString> texts;
    QDirIterator sources(PLUGIN_SOURCES, {"*.cpp", "*.h"}, QDir::Files, QDirIterator::Subdirectories);
    while (sources.hasNext()) {
        QFile source(sources.next());
        EXPECT_TRUE(source.open(QIODevice::ReadOnly));
        auto found = keyAndText.globalMatch(QString::fromUtf8(source.readAll()));
        while (found.hasNext()) {
            const auto match = found.next();
            auto text = match.captured(2).trimmed();
            if (!text.contains(cyrillic))
                continue;
            text = text.remove(betweenLiterals).mid(1).chopped(1).replace("\\n", "\n");
            texts.insert(match.captured(1), text);
        }
    }
    return texts;
}

QMap<QString, Message> messagesOfCatalogue()
{
    QFile file(QString(PLUGIN_SOURCES) + "/translations/electronicprescription_en.ts");
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    QMap<QString, Message> messages;
    QString id;
    QXmlStreamReader xml(&file);
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == u"message") {
            id = xml.attributes().value("id").toString();
        } else if (xml.name() == u"source") {
            messages[id].source = xml.readElementText();
        } else if (xml.name() == u"translation") {
            EXPECT_FALSE(xml.attributes().hasAttribute("type")) << id.toStdString() << " is unfinished";
            messages[id].translation = xml.readElementText();
        }
    }
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
    return messages;
}

QStringList placeholders(const QString& text)
{
    static const QRegularExpression placeholder("%\\d");
    QStringList found;
    auto matches = placeholder.globalMatch(text);
    while (matches.hasNext())
        found.append(matches.next().captured());
    found.sort();
    return found;
}

class Translations : public DialogForms
{
};

} // namespace

TEST_F(Translations, catalogue_hasEveryKeyOfTheSourcesAndNoOther)
{
    const auto texts = textsInSources();
    ASSERT_GT(texts.size(), 60);
    EXPECT_EQ(messagesOfCatalogue().keys(), texts.keys());
}

TEST_F(Translations, catalogue_quotesTheSourcesTextsAndTranslatesEach)
{
    const auto texts = textsInSources();
    const auto messages = messagesOfCatalogue();
    for (auto message = messages.cbegin(); message != messages.cend(); ++message) {
        EXPECT_EQ(message->source, texts.value(message.key())) << message.key().toStdString();
        EXPECT_FALSE(message->translation.isEmpty()) << message.key().toStdString();
        EXPECT_EQ(placeholders(message->translation), placeholders(message->source)) << message.key().toStdString();
        EXPECT_FALSE(message->translation.contains(QRegularExpression("[А-Яа-я]"))) << message.key().toStdString();
    }
}

TEST_F(Translations, catalogueInstalled_formSpeaksEnglish)
{
    QTranslator translator;
    ASSERT_TRUE(translator.load(PLUGIN_CATALOGUE)) << PLUGIN_CATALOGUE;
    QCoreApplication::installTranslator(&translator);
    const ElectronicPrescriptionConfirmDispenseForm form(
        ElectronicPrescriptionConfirmDispenseParams(prescription("Метформин")), nullptr);
    EXPECT_EQ(text(form, "completeDispenseButton"), "In full");
    EXPECT_EQ(text(form, "confirmDispenseLabel"), "The medicine prescribed as\n'Метформин'\nhas been dispensed");
    QCoreApplication::removeTranslator(&translator);
}
