// SPDX-License-Identifier: MIT
#include "configurationkeys.h"

#include "configurationfolder.h"

#include <QDir>

using namespace Qt::StringLiterals;

class ConfigurationKeysTest : public ConfigurationFolder
{
};

TEST_F(ConfigurationKeysTest, keysOfPlugins_areKnownOnceTheirFolderIsRead)
{
    EXPECT_FALSE(m_keys.find(u"Weather:token"_s));
    ASSERT_TRUE(QDir(m_folder.path()).mkdir(u"weather"_s));
    ASSERT_TRUE(QDir(m_folder.path()).mkdir(u"withoutkeys"_s));
    write("weather/configuration.json", R"({"keys": [
        {"key": "Weather:token", "type": "text", "secret": true},
        {"key": "Weather:pause", "type": "number", "default": "5", "least": 1, "most": 9}]})");
    EXPECT_TRUE(m_keys.loadPlugins(m_folder.path()).isEmpty());

    EXPECT_TRUE(m_keys.find(u"Weather:token"_s)->isSecret);
    EXPECT_EQ(m_keys.secretOf(u"Weather:tokenFile"_s), u"Weather:token"_s);
    const auto pause = m_keys.find(u"Weather:pause"_s);
    ASSERT_TRUE(pause);
    EXPECT_EQ(pause->type, ConfigurationKey::Type::Number);
    EXPECT_EQ(pause->defaultValue, u"5"_s);
    EXPECT_EQ(pause->least, 1);
    EXPECT_EQ(pause->most, 9);
    EXPECT_FALSE(m_keys.secretOf(u"Weather:pauseFile"_s));
}

TEST_F(ConfigurationKeysTest, folderThatIsNotThere_hasNoKeys)
{
    const qsizetype known = m_keys.all().size();
    EXPECT_TRUE(m_keys.loadPlugins(path("nowhere")).isEmpty());
    EXPECT_EQ(m_keys.all().size(), known);
    EXPECT_GT(known, 0);
}

TEST_F(ConfigurationKeysTest, listThatCannotBeRead_isNamed)
{
    ASSERT_TRUE(QDir(m_folder.path()).mkdir(u"weather"_s));
    for (const auto& [content, reason] : {std::pair("{", "byte 1"), std::pair("[]", "not a JSON object"),
                                          std::pair(R"({"keys": [{"key": "A:b", "type": "text"}, {"key": "A:c"}]})",
                                                    "keys[1] has no key, or a type that is unknown"),
                                          std::pair(R"({"keys": [{"key": "A:b", "type": "colour"}]})", "keys[0]"),
                                          std::pair(R"({"keys": [{"key": "b", "type": "text"}]})", "keys[0]")}) {
        write("weather/configuration.json", content);
        const QList<Failure> failures = m_keys.loadPlugins(m_folder.path());
        ASSERT_EQ(failures.size(), 1) << content;
        EXPECT_TRUE(failures.first().detail.contains(path("weather/configuration.json"))) << content;
        EXPECT_TRUE(failures.first().detail.contains(QLatin1StringView(reason))) << qPrintable(failures.first().detail);
    }
}
