// SPDX-License-Identifier: MIT
#include "commandline.h"

#include <gtest/gtest.h>

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
    EXPECT_EQ(parse({QStringLiteral("--nonsense")}).outcome, CommandLine::Outcome::Wrong);
    EXPECT_TRUE(parse({QStringLiteral("--nonsense")}).message.contains(QStringLiteral("nonsense")));
    EXPECT_EQ(parse({QStringLiteral("--size"), QStringLiteral("big")}).outcome, CommandLine::Outcome::Wrong);
    EXPECT_EQ(parse({QStringLiteral("stray")}).outcome, CommandLine::Outcome::Wrong);
    EXPECT_EQ(parse({QStringLiteral("--config")}).outcome, CommandLine::Outcome::Wrong);
}

TEST(CommandLine, helpAndVersion_areTold)
{
    const CommandLine help = parse({QStringLiteral("--help")});
    EXPECT_EQ(help.outcome, CommandLine::Outcome::Told);
    for (const char* option : {"--config", "--data", "--plugins", "--layouts", "--touch", "--play", "--screenshots"})
        EXPECT_TRUE(help.message.contains(QLatin1String(option))) << option;
    EXPECT_EQ(parse({QStringLiteral("--version")}).outcome, CommandLine::Outcome::Told);
}
