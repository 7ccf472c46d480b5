// SPDX-License-Identifier: MIT
#include "doctorcommandline.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using doctor::CommandLine;

namespace
{

CommandLine parsed(const QStringList& options)
{
    return CommandLine::parse(QStringList{u"prescription-doctor"_s} + options);
}

} // namespace

TEST(DoctorCommandLine, allOptions_areTaken)
{
    const CommandLine line =
        parsed({u"--config"_s, u"till.ini"_s, u"--card"_s, u"1100"_s, u"--json"_s, u"--time-limit=7"_s});
    EXPECT_EQ(line.outcome, CommandLine::Outcome::Run);
    EXPECT_EQ(line.request.configFile, u"till.ini"_s);
    EXPECT_EQ(line.request.card, u"1100"_s);
    EXPECT_EQ(line.request.limits.whole, std::chrono::seconds(7));
    EXPECT_TRUE(line.wantsJson);
}

TEST(DoctorCommandLine, noOptions_theTillsConfigurationAndTextWithoutACard)
{
    const CommandLine line = parsed({});
    EXPECT_EQ(line.outcome, CommandLine::Outcome::Run);
    EXPECT_TRUE(line.request.configFile.endsWith(u"/pharmacy-register/register.ini"_s));
    EXPECT_EQ(line.request.card, QString());
    EXPECT_EQ(line.request.limits.whole, std::chrono::seconds(240));
    EXPECT_FALSE(line.wantsJson);
}

TEST(DoctorCommandLine, whatCannotBeUsed_isNamed)
{
    const std::pair<QStringList, QString> mistakes[] = {
        {{u"--confg"_s}, u"confg"_s},
        {{u"till.ini"_s}, u"till.ini"_s},
        {{u"--time-limit"_s, u"0"_s}, u"--time-limit"_s},
        {{u"--time-limit"_s, u"3601"_s}, u"--time-limit"_s},
        {{u"--time-limit"_s, u"soon"_s}, u"--time-limit"_s},
        {{u"--card"_s}, u"card"_s},
    };
    for (const auto& [options, named] : mistakes) {
        const CommandLine line = parsed(options);
        EXPECT_EQ(line.outcome, CommandLine::Outcome::Wrong) << options.join(u' ').toStdString();
        EXPECT_TRUE(line.message.contains(named)) << line.message.toStdString();
    }
}

TEST(DoctorCommandLine, help_namesEachOption)
{
    const CommandLine line = parsed({u"--help"_s});
    EXPECT_EQ(line.outcome, CommandLine::Outcome::Shown);
    for (const auto& option : {u"--config"_s, u"--card"_s, u"--json"_s, u"--time-limit"_s, u"--version"_s}) {
        EXPECT_TRUE(line.message.contains(option)) << option.toStdString();
    }
}
