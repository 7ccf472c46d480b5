// SPDX-License-Identifier: MIT
// The message catalogues against the texts in the sources.
#include "messagecatalogue.h"

#include <QDirIterator>
#include <QMap>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <ostream>

namespace
{

struct Catalogue {
    const char* name;
    const char* sources;    ///< a folder below the project's
    const char* file;       ///< below `sources`
    int fewestTexts;        ///< at least as many are in the sources
    QStringList namingKeys; ///< the texts that name a key; none of them is shown in touch mode
};

std::ostream& operator<<(std::ostream& stream, const Catalogue& catalogue)
{
    return stream << catalogue.name;
}

/// Matches what no English text has.
const QRegularExpression russian("[А-Яа-яЁё№]");

class MessageCatalogue : public ::testing::TestWithParam<Catalogue>
{
protected:
    static QString folder() { return QString::fromUtf8(SOURCES "/") + GetParam().sources; }

    /// The Russian default texts of the sources by their keys. In C++ a key in camel case comes before its text; in
    /// JSON they are the members "key" and "text".
    static QMap<QString, QString> textsInSources()
    {
        static const QRegularExpression keyAndText(
            R"__("([a-z]+[A-Z][A-Za-z0-9]*)"(?:_s)?,\s*(?:"text": )?u?((?:"(?:[^"\\]|\\.)*"\s*)+))__");
        static const QRegularExpression betweenLiterals(R"__("\s*")__");
        QMap<QString, QString> texts;
        QDirIterator sources(folder(), {"*.cpp", "*.h", "positionmarks.json"}, QDir::Files,
                             QDirIterator::Subdirectories);
        while (sources.hasNext()) {
            auto found = keyAndText.globalMatch(readText(sources.next()));
            while (found.hasNext()) {
                const auto match = found.next();
                QString text = match.captured(2).trimmed();
                if (!text.contains(russian)) {
                    continue;
                }
                text = text.remove(betweenLiterals).mid(1).chopped(1).replace("\\n", "\n");
                EXPECT_EQ(texts.value(match.captured(1), text), text) << match.captured(1).toStdString();
                texts.insert(match.captured(1), text);
            }
        }
        return texts;
    }

    static QMap<QString, Message> messages() { return readMessageCatalogue(folder() + u'/' + GetParam().file); }

    static QStringList placeholders(const QString& text)
    {
        static const QRegularExpression placeholder("%\\d");
        QStringList found;
        auto matches = placeholder.globalMatch(text);
        while (matches.hasNext()) {
            found.append(matches.next().captured());
        }
        found.sort();
        return found;
    }
};

} // namespace

TEST_P(MessageCatalogue, catalogue_hasExactlyTheKeysOfTheSources)
{
    const auto texts = textsInSources();
    ASSERT_GE(texts.size(), GetParam().fewestTexts);
    EXPECT_EQ(messages().keys(), texts.keys());
}

TEST_P(MessageCatalogue, catalogue_repeatsAndTranslatesEachTextOfTheSources)
{
    const auto texts = textsInSources();
    const auto all = messages();
    ASSERT_GE(all.size(), GetParam().fewestTexts);
    for (auto message = all.cbegin(); message != all.cend(); ++message) {
        EXPECT_EQ(message->source, texts.value(message.key())) << message.key().toStdString();
        EXPECT_FALSE(message->translation.isEmpty()) << message.key().toStdString();
        EXPECT_EQ(placeholders(message->translation), placeholders(message->source)) << message.key().toStdString();
        EXPECT_FALSE(message->translation.contains(russian)) << message.key().toStdString();
    }
}

/// A text that names a key misleads a cashier without a keyboard, and, but for the keys that cannot be configured, one
/// whose keys are configured otherwise.
TEST_P(MessageCatalogue, onlyTheHintsOfTheKeyboardMode_nameKeys)
{
    static const QRegularExpression key(
        "\\bF\\d+\\b|\\bEsc\\b|\\bCtrl\\b|\\bTab\\b|Ввод —|«Ввод»|также Ввод|Пробел —|стрелк");
    const auto all = messages();
    QStringList naming;
    for (auto message = all.cbegin(); message != all.cend(); ++message) {
        if (message->source.contains(key)) {
            naming.append(message.key());
        }
    }
    EXPECT_EQ(naming, GetParam().namingKeys);
}

/// One word a thing: those of docs/glossary.md.
TEST_P(MessageCatalogue, english_hasOneWordForAThing)
{
    static const QRegularExpression other(
        "\\b[Aa]nnul|\\b[Pp]ut aside\\b|\\b[Tt]ak(?:e|en) up\\b|\\b[Ii]tems?\\b|\\b[Bb]ar code|\\bno\\. |\\bNo\\.?\\d|"
        "[\"']|\\b[Ss]ettings\\b");
    const auto all = messages();
    for (auto message = all.cbegin(); message != all.cend(); ++message) {
        EXPECT_FALSE(message->translation.contains(other))
            << message.key().toStdString() << ": " << message->translation.toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(
    , MessageCatalogue,
    ::testing::Values(
        Catalogue{"platform", "host/platform", "translations/registerplatform_en.ts", 50, {}},
        Catalogue{"register",
                  "host/register",
                  "translations/pharmacyregister_en.ts",
                  60,
                  {"busyEscapeAsks", "busyEscapeStops", "helpDocumentsResume", "paymentCardHint", "paymentHint",
                   "paymentPayOutHint", "paymentRefundHint", "paymentSubtotalHint", "paymentSubtotalKeyHint",
                   "returnHint"}},
        Catalogue{"electronicPrescription",
                  "plugin",
                  "translations/electronicprescription_en.ts",
                  60,
                  {"electronicPrescriptionConfirmDispenseFormChoiceHint"}},
        Catalogue{"dispenseRecovery", "recovery", "translations/dispenserecovery_en.ts", 20, {"dispenseChoiceHint"}}),
    [](const auto& instance) { return std::string(instance.param.name); });
