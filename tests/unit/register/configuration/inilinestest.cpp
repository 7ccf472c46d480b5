// SPDX-License-Identifier: MIT
#include "inilines.h"

#include "configurationfolder.h"

using namespace Qt::StringLiterals;

namespace
{

struct FaultRow {
    const char* name;
    QByteArray lines;
    int line;         ///< 0: none is wrong
    const char* says; ///< a part of what is said of it
};

void PrintTo(const FaultRow& row, std::ostream* out)
{
    *out << row.lines.constData();
}

class IniFaults : public ConfigurationFolder, public ::testing::WithParamInterface<FaultRow>
{
};

} // namespace

TEST_P(IniFaults, lineThatKeepsTheFileFromBeingRead_isNamed)
{
    const QString file = write("register.ini", GetParam().lines);
    const QList<IniFault> faults = readIniFaults(file);
    EXPECT_EQ(bool(Config(file).reading()), GetParam().line == 0);
    ASSERT_EQ(faults.size(), GetParam().line == 0 ? 0 : 1);
    if (!faults.isEmpty()) {
        EXPECT_EQ(faults.first().line, GetParam().line);
        EXPECT_TRUE(faults.first().text.contains(QLatin1StringView(GetParam().says)))
            << qPrintable(faults.first().text);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Rows, IniFaults,
    ::testing::Values(FaultRow{"right", "; a comment\n\n[A]\nb=c\n d = e\r\n", 0, ""},
                      FaultRow{"wordAlone", "[A]\nb=c\nthis is no entry\n", 3, "neither a section nor a key"},
                      FaultRow{"otherComment", "# a comment\n[A]\nb=c\n", 1, "; before a comment"},
                      FaultRow{"sectionNotClosed", "[A]\nb=c\n\n[D\ne=f\n", 4, "without its closing bracket"},
                      FaultRow{"valueGoesOn", "[A]\nb=c\\\nd\ne=f\n", 0, ""},
                      FaultRow{"backslashAtTheEnd", "[A]\nb=c\\\\\nd\n", 3, "neither a section"},
                      FaultRow{"noText", "[A]\nb=\xff\n", 2, "UTF-8"},
                      FaultRow{"nul", QByteArray("[A]\nb=\0\n", 8), 2, "UTF-8"},
                      FaultRow{"object", "[A]\nb=@Variant(x)\n", 2, "@Variant("}),
    [](const auto& row) { return row.param.name; });

TEST_F(ConfigurationFolder, fileThatIsNoConfiguration_hasTenFaultsAtMost)
{
    EXPECT_EQ(readIniFaults(write("picture", QByteArray(1000, '\n').replace('\n', "\xff\n"))).size(), 10);
}

TEST_F(ConfigurationFolder, fileThatIsNotThereOrHasNoEnd_hasNoFaults)
{
    EXPECT_TRUE(readIniFaults(u"/dev/zero"_s).isEmpty());
    EXPECT_TRUE(readIniLines(u"/dev/zero"_s).isEmpty());
    EXPECT_TRUE(readIniFaults(path("nowhere.ini")).isEmpty());
}
