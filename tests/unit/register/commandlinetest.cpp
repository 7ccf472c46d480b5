// SPDX-License-Identifier: MIT
#include "commandline.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

#include <utility>

namespace
{

CommandLine parse(const QStringList& options)
{
    return CommandLine::parse(QStringList{QStringLiteral("pharmacy-register")} + options);
}

} // namespace

TEST(CommandLine, everyOption_isTaken)
{
    const CommandLine line = parse(
        QStringLiteral("--config a.ini --data d --plugins p --layouts l1:l2 --touch --demo-data --size 1024x600 --play "
                       "s.json --screenshots out")
            .split(QLatin1Char(' ')));
    EXPECT_EQ(line.outcome, CommandLine::Outcome::Run);
    EXPECT_EQ(line.config, QStringLiteral("a.ini"));
    EXPECT_EQ(line.dataFolder, QStringLiteral("d"));
    EXPECT_EQ(line.pluginFolder, QStringLiteral("p"));
    EXPECT_EQ(line.layoutFolders, QStringLiteral("l1:l2"));
    EXPECT_TRUE(line.touch);
    EXPECT_TRUE(line.demoData);
    EXPECT_EQ(line.windowSize, QSize(1024, 600));
    EXPECT_EQ(line.scenario, QStringLiteral("s.json"));
    EXPECT_EQ(line.screenshots, QStringLiteral("out"));
}

TEST(CommandLine, withoutOptions_theWholeScreenAndNoScenario)
{
    const CommandLine line = parse({});
    EXPECT_EQ(line.outcome, CommandLine::Outcome::Run);
    EXPECT_FALSE(line.windowSize.isValid());
    EXPECT_TRUE(line.scenario.isEmpty());
    EXPECT_FALSE(line.touch);
    EXPECT_TRUE(line.config.endsWith(QStringLiteral("register.ini")));
}

TEST(CommandLine, scenarioWithoutASize_isPlayedAt1280x800)
{
    EXPECT_EQ(parse({QStringLiteral("--play"), QStringLiteral("s.json")}).windowSize, QSize(1280, 800));
}

TEST(CommandLine, wrongOptions_areToldByName)
{
    const std::pair<const char*, const char*> mistakes[] = {
        {"--nonsense", "nonsense"},        {"--config", "config"},  {"stray", "'stray'"},
        {"--size big", "1280x800"},        {"--size=", "1280x800"}, {"--size 99x600", "1280x800"},
        {"--size 1280x800x2", "1280x800"},
    };
    for (const auto& [options, named] : mistakes) {
        const CommandLine line = parse(QString::fromLatin1(options).split(QLatin1Char(' ')));
        EXPECT_EQ(line.outcome, CommandLine::Outcome::Wrong) << options;
        EXPECT_TRUE(line.message.contains(QLatin1String(named))) << options << ": " << qPrintable(line.message);
    }
}

TEST(CommandLine, helpAndVersion_areTold)
{
    const CommandLine help = parse({QStringLiteral("--help")});
    EXPECT_EQ(help.outcome, CommandLine::Outcome::Told);
    for (const char* option : {"--config", "--data", "--plugins", "--layouts", "--touch", "--play", "--screenshots"})
        EXPECT_TRUE(help.message.contains(QLatin1String(option))) << option;
    EXPECT_EQ(parse({QStringLiteral("--help"), QStringLiteral("stray")}).message, help.message) << "before mistakes";
    const CommandLine version = parse({QStringLiteral("--version")});
    EXPECT_EQ(version.outcome, CommandLine::Outcome::Told);
    EXPECT_EQ(version.message, QCoreApplication::applicationName() + QLatin1Char(' ') +
                                   QCoreApplication::applicationVersion() + QLatin1Char('\n'));
}
