// SPDX-License-Identifier: MIT
#include "commandline.h"
#include "defaultconfiguration.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <utility>

using namespace Qt::StringLiterals;

namespace
{

CommandLine parse(const QStringList& options)
{
    return CommandLine::parse(QStringList{u"pharmacy-register"_s} + options);
}

} // namespace

TEST(CommandLine, everyOption_isRead)
{
    const CommandLine line =
        parse(u"--config a.ini --data d --plugins p --layouts l1:l2 --touch --demo-data --size 1024x600 --play "
              "s.json --screenshots out"_s.split(u' '));
    EXPECT_EQ(line.outcome, CommandLine::Outcome::Run);
    EXPECT_EQ(line.config, u"a.ini"_s);
    EXPECT_EQ(line.dataFolder, u"d"_s);
    EXPECT_EQ(line.pluginFolder, u"p"_s);
    EXPECT_EQ(line.layoutFolders, u"l1:l2"_s);
    EXPECT_TRUE(line.touch);
    EXPECT_TRUE(line.demoData);
    EXPECT_EQ(line.windowSize, QSize(1024, 600));
    EXPECT_EQ(line.scenario, u"s.json"_s);
    EXPECT_EQ(line.screenshots, u"out"_s);
}

TEST(CommandLine, foldersThatOptionsName_areUnusableWhenTheyAreNotThere)
{
    const QTemporaryDir there;
    const auto unusable = [](const QStringList& options) {
        QStringList folders;
        for (const NamedFolder& folder : parse(options).unusableFolders()) {
            folders.append(folder.option + u' ' + folder.path);
        }
        return folders;
    };
    EXPECT_EQ(unusable({}), QStringList());
    EXPECT_EQ(unusable({u"--plugins"_s, there.path(), u"--layouts"_s, there.path() + u":/etc"_s, u"--screenshots"_s,
                        there.path()}),
              QStringList());
    EXPECT_EQ(unusable({u"--plugins"_s, u"/nowhere"_s}), QStringList(u"--plugins /nowhere"_s));
    EXPECT_EQ(unusable({u"--plugins="_s}), QStringList(u"--plugins "_s));
    EXPECT_EQ(unusable({u"--layouts"_s, u"/etc:/nowhere"_s}), QStringList(u"--layouts /nowhere"_s));
    EXPECT_EQ(unusable({u"--screenshots"_s, u"/etc/hostname"_s}), QStringList(u"--screenshots /etc/hostname"_s));
}

TEST(CommandLine, noOptions_theWholeScreenIsUsedAndNoScenarioIsPlayed)
{
    const CommandLine line = parse({});
    EXPECT_EQ(line.outcome, CommandLine::Outcome::Run);
    EXPECT_FALSE(line.windowSize.isValid());
    EXPECT_TRUE(line.scenario.isEmpty());
    EXPECT_FALSE(line.touch);
    EXPECT_TRUE(line.config.endsWith(u"register.ini"_s));
}

TEST(CommandLine, noConfigurationNamed_theUsersOwnWinsOverTheMachines)
{
    const QTemporaryDir there;
    const auto put = [&there](const QString& name) { QFile(there.filePath(name)).open(QIODevice::WriteOnly); };
    const QString ofUser = there.filePath(u"own.ini"_s);
    const QString ofMachine = there.filePath(u"machine.ini"_s);
    EXPECT_EQ(defaultConfiguration(ofUser, ofMachine), ofUser) << "neither is there";
    put(u"machine.ini"_s);
    EXPECT_EQ(defaultConfiguration(ofUser, ofMachine), ofMachine);
    put(u"own.ini"_s);
    EXPECT_EQ(defaultConfiguration(ofUser, ofMachine), ofUser);
}

TEST(CommandLine, dataFolderNamed_isNotTheUsersOwn)
{
    EXPECT_TRUE(parse({}).usesOwnDataFolder);
    EXPECT_FALSE(parse({u"--data"_s, u"d"_s}).usesOwnDataFolder);
}

TEST(CommandLine, checkConfig_checksInsteadOfRunning)
{
    const CommandLine line = parse(u"--check-config --config a.ini --plugins p"_s.split(u' '));
    EXPECT_EQ(line.outcome, CommandLine::Outcome::Check);
    EXPECT_EQ(line.config, u"a.ini"_s);
    EXPECT_EQ(line.pluginFolder, u"p"_s);
}

TEST(CommandLine, scenarioWithoutASize_isPlayedAt1280x800)
{
    EXPECT_EQ(parse({u"--play"_s, u"s.json"_s}).windowSize, QSize(1280, 800));
}

TEST(CommandLine, wrongOptions_areReportedByName)
{
    const std::pair<const char*, const char*> mistakes[] = {
        {"--nonsense", "nonsense"},        {"--config", "config"},  {"stray", "'stray'"},
        {"--size big", "1280x800"},        {"--size=", "1280x800"}, {"--size 99x600", "1280x800"},
        {"--size 1280x800x2", "1280x800"},
    };
    for (const auto& [options, named] : mistakes) {
        const CommandLine line = parse(QString::fromLatin1(options).split(u' '));
        EXPECT_EQ(line.outcome, CommandLine::Outcome::Wrong) << options;
        EXPECT_TRUE(line.message.contains(QLatin1StringView(named))) << options << ": " << qPrintable(line.message);
    }
}

TEST(CommandLine, helpAndVersion_areShown)
{
    const CommandLine help = parse({u"--help"_s});
    EXPECT_EQ(help.outcome, CommandLine::Outcome::Shown);
    for (const char* option : {"--config", "--data", "--plugins", "--layouts", "--touch", "--play", "--screenshots"}) {
        EXPECT_TRUE(help.message.contains(QLatin1StringView(option))) << option;
    }
    EXPECT_EQ(parse({u"--help"_s, u"stray"_s}).message, help.message) << "before mistakes";
    const CommandLine version = parse({u"--version"_s});
    EXPECT_EQ(version.outcome, CommandLine::Outcome::Shown);
    EXPECT_EQ(version.message,
              QCoreApplication::applicationName() + u' ' + QCoreApplication::applicationVersion() + u'\n');
}
