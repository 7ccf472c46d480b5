// SPDX-License-Identifier: MIT
#include "config.h"
#include "logcapture.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

class ConfigFile : public ::testing::Test
{
protected:
    QString path() const { return m_folder.filePath(u"register.ini"_s); }

    QString written(const QByteArray& content)
    {
        QFile file(path());
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        EXPECT_EQ(file.write(content), content.size());
        return path();
    }

    QTemporaryDir m_folder;
};

QString key(const char* name)
{
    return QString::fromUtf8(name);
}

struct Value {
    const char* name;
    QByteArray line; ///< of section S, key k
    const char* read;
};

void PrintTo(const Value& row, std::ostream* out)
{
    *out << row.line.constData();
}

class ConfigValue : public ConfigFile, public ::testing::WithParamInterface<Value>
{
};

struct Flag {
    const char* name;
    const char* text;
    bool withFalseDefault;
    bool withTrueDefault;
    bool warns;
};

void PrintTo(const Flag& row, std::ostream* out)
{
    *out << row.text;
}

class ConfigFlag : public ::testing::TestWithParam<Flag>
{
};

struct Number {
    const char* name;
    const char* text;
    int read; ///< with the default -7
    bool warns;
};

void PrintTo(const Number& row, std::ostream* out)
{
    *out << row.text;
}

class ConfigNumber : public ::testing::TestWithParam<Number>
{
};

} // namespace

TEST_P(ConfigValue, inIniFile_isReadAsDocumented)
{
    const Config config(written("[S]\n" + GetParam().line + "\n"));
    EXPECT_TRUE(config.reading()) << config.reading().failure().detail.toStdString();
    EXPECT_EQ(config.getString(key("S:k"), key("absent")), QString::fromUtf8(GetParam().read));
}

INSTANTIATE_TEST_SUITE_P(
    Lines, ConfigValue,
    ::testing::Values(Value{"plain", "k=value", "value"}, //
                      Value{"blanksAround", "k =  value  ", "value"}, Value{"blanksInside", "k=one two", "one two"},
                      Value{"cyrillic", "k=Аптека № 1", "Аптека № 1"}, Value{"commas", "k=ru,en,,x,", "ru,en,,x,"},
                      Value{"commaWithBlankLosesIt", "k=a, b", "a,b"},
                      Value{"quotedCommaKeepsBlank", "k=\"a, b\"", "a, b"},
                      Value{"quotedSemicolon", "k=\"a;b\"", "a;b"}, Value{"semicolonBeginsComment", "k=a;b", "a"},
                      Value{"quotedBlanks", "k=\" a \"", " a "}, Value{"quotedQuote", "k=\"a\\\"b\"", "a\"b"},
                      Value{"equalsSign", "k=a=b", "a=b"},
                      Value{"colon", "k=https://registry.example:8443/api", "https://registry.example:8443/api"},
                      Value{"doubledBackslash", "k=a\\\\b", "a\\b"}, Value{"percent", "k=%41%1", "%41%1"}, //
                      Value{"empty", "k=", ""}, Value{"emptyQuotes", "k=\"\"", ""},
                      Value{"windowsLineEnd", "k=value\r", "value"}, Value{"lastOfTwoCounts", "k=1\nk=2", "2"},
                      Value{"commentedOut", ";k=1", "absent"}, Value{"otherCaseIsAnotherKey", "K=1", "absent"}),
    [](const auto& row) { return row.param.name; });

TEST_F(ConfigFile, sectionWithDots_andGeneralSection_andNoSection)
{
    const Config config(written("first=0\n[General]\nk=1\n[GUI.PrescriptionForm]\nk=2\n[Other]\nk=3\n"));
    EXPECT_EQ(config.getInt(key("General:first"), -1), 0);
    EXPECT_EQ(config.getInt(key("General:k")), 1);
    EXPECT_EQ(config.getInt(key("GUI.PrescriptionForm:k")), 2);
    EXPECT_EQ(config.getInt(key("Other:k")), 3);
    EXPECT_EQ(config.getInt(key("other:k"), -1), -1);
    EXPECT_EQ(config.getString(key("k"), key("absent")), key("absent"));
}

TEST_F(ConfigFile, byteOrderMark_isPassedOver)
{
    const Config config(written("\xEF\xBB\xBF[S]\nk=1\n"));
    EXPECT_TRUE(config.reading());
    EXPECT_EQ(config.getInt(key("S:k")), 1);
}

TEST_F(ConfigFile, emptyFile_isReadAndEmpty)
{
    const Config config(written(""));
    EXPECT_TRUE(config.reading());
}

TEST_F(ConfigFile, longValue_isReadWhole)
{
    const QByteArray text(100'000, 'x');
    EXPECT_EQ(Config(written("[S]\nk=" + text + "\n")).getString(key("S:k")).size(), text.size());
}

TEST_F(ConfigFile, missing_readsAsEmptyAndSaysSo)
{
    const Config config(path());
    EXPECT_FALSE(config.reading());
    EXPECT_TRUE(config.reading().failure().detail.contains(path()));
    EXPECT_EQ(config.getString(key("S:k"), key("default")), key("default"));
    EXPECT_FALSE(QFile::exists(path()));
}

TEST_F(ConfigFile, directory_readsAsEmptyAndSaysSo)
{
    const Config config(m_folder.path());
    EXPECT_FALSE(config.reading());
    EXPECT_TRUE(config.reading().failure().detail.contains(m_folder.path()));
    EXPECT_EQ(config.getInt(key("S:k"), 3), 3);
}

TEST_F(ConfigFile, device_isNotRead)
{
    EXPECT_FALSE(Config(u"/dev/zero"_s).reading());
}

TEST_F(ConfigFile, binaryGarbage_readsAsEmptyAndSaysSo)
{
    const Config notText(written(QByteArray("[S]\nk=1\n\xFF\xFE\x01\x02", 12)));
    EXPECT_FALSE(notText.reading());
    EXPECT_FALSE(notText.reading().failure().detail.isEmpty());
    EXPECT_EQ(notText.getInt(key("S:k"), 3), 3);

    const Config withNull(written(QByteArray("[S]\nk=\0\n", 8)));
    EXPECT_FALSE(withNull.reading());
}

TEST_F(ConfigFile, linesThatAreNoEntries_areAFailureAndTheOthersAreRead)
{
    const Config config(written("[S]\nk=1\nthis is no entry\n[S2]\nk=2\n"));
    EXPECT_FALSE(config.reading());
    EXPECT_TRUE(config.reading().failure().detail.contains(path()));
    EXPECT_EQ(config.getInt(key("S:k")), 1);
    EXPECT_EQ(config.getInt(key("S2:k")), 2);
}

TEST_F(ConfigFile, valueForThisRun_winsAndIsNeverWritten)
{
    const QByteArray content = "[S]\nk=file\n";
    {
        Config config(written(content));
        config.setForThisRun(key("S:k"), key("run, now"));
        config.setForThisRun(key("New:k"), key("x"));
        EXPECT_EQ(config.getString(key("S:k")), key("run, now"));
        EXPECT_EQ(config.getString(key("New:k")), key("x"));
    }
    QFile file(path());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), content);
    EXPECT_EQ(Config(path()).getString(key("S:k")), key("file"));
}

TEST_P(ConfigFlag, text_isReadOrGivesTheDefaultWithAWarning)
{
    Config config;
    config.setForThisRun(key("S:k"), QString::fromUtf8(GetParam().text));
    const LogCapture log;
    EXPECT_EQ(config.getBool(key("S:k")), GetParam().withFalseDefault);
    EXPECT_EQ(config.getBool(key("S:k"), true), GetParam().withTrueDefault);
    const QString warning = u"WARN config S:k is not true or false; the default is taken"_s;
    EXPECT_EQ(log.lines(), GetParam().warns ? QStringList({warning, warning}) : QStringList());
}

INSTANTIATE_TEST_SUITE_P(
    Texts, ConfigFlag,
    ::testing::Values(Flag{"trueWord", "true", true, true, false},                                        //
                      Flag{"capitals", "TRUE", true, true, false}, Flag{"yes", "Yes", true, true, false}, //
                      Flag{"on", "on", true, true, false}, Flag{"one", " 1 ", true, true, false},
                      Flag{"falseWord", "False", false, false, false}, Flag{"no", "no", false, false, false}, //
                      Flag{"off", "OFF", false, false, false}, Flag{"zero", "0", false, false, false},        //
                      Flag{"empty", "", false, false, false}, Flag{"otherNumber", "2", false, true, true},
                      Flag{"otherWord", "да", false, true, true}),
    [](const auto& row) { return row.param.name; });

TEST_P(ConfigNumber, text_isReadOrGivesTheDefaultWithAWarning)
{
    Config config;
    config.setForThisRun(key("S:k"), QString::fromUtf8(GetParam().text));
    const LogCapture log;
    EXPECT_EQ(config.getInt(key("S:k"), -7), GetParam().read);
    EXPECT_EQ(log.lines().size(), GetParam().warns ? 1 : 0);
    EXPECT_EQ(log.text().startsWith(u"WARN config S:k"_s), GetParam().warns);
}

INSTANTIATE_TEST_SUITE_P(Texts, ConfigNumber,
                         ::testing::Values(Number{"plain", "15", 15, false},                                        //
                                           Number{"negative", "-1", -1, false}, Number{"plusSign", "+5", 5, false}, //
                                           Number{"blanks", " 15 ", 15, false}, Number{"leadingZero", "010", 10, false},
                                           Number{"largest", "2147483647", 2147483647, false},
                                           Number{"smallest", "-2147483648", -2147483647 - 1, false},
                                           Number{"overflow", "2147483648", -7, true},
                                           Number{"longOverflow", "99999999999999999999", -7, true},
                                           Number{"fraction", "1.5", -7, true},                               //
                                           Number{"unit", "15s", -7, true}, Number{"word", "fast", -7, true}, //
                                           Number{"hexadecimal", "0x10", -7, true}, Number{"empty", "", -7, true}),
                         [](const auto& row) { return row.param.name; });

TEST(Config, absentKey_givesDefaultsWithoutWarning)
{
    const Config config;
    const LogCapture log;
    EXPECT_TRUE(config.getBool(key("S:k"), true));
    EXPECT_FALSE(config.getBool(key("S:k")));
    EXPECT_EQ(config.getInt(key("S:k"), 60), 60);
    EXPECT_EQ(config.getInt(key("S:k")), 0);
    EXPECT_EQ(config.getString(key("S:k"), key("x")), key("x"));
    EXPECT_EQ(config.getString(key("S:k")), QString());
    EXPECT_TRUE(config.reading());
    EXPECT_TRUE(log.lines().isEmpty());
}

TEST(Config, emptyValue_isATextNotTheDefault)
{
    Config config;
    config.setForThisRun(key("S:k"), QString());
    EXPECT_EQ(config.getString(key("S:k"), key("default")), QString());
}

TEST(Config, wrongValue_isNotLogged)
{
    Config config;
    config.setForThisRun(key("S:k"), key("secret"));
    const LogCapture log;
    config.getInt(key("S:k"));
    config.getBool(key("S:k"));
    EXPECT_FALSE(log.text().contains(key("secret")));
}
