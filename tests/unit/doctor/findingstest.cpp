// SPDX-License-Identifier: MIT
#include "findings.h"

#include <QFile>
#include <QRegularExpression>
#include <QSet>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace doctor;

namespace
{

constexpr int findingCount = int(FindingCode::RegistryUnavailable) + 1;

QStringList placeholders(const QString& text)
{
    static const QRegularExpression placeholder(u"%\\d"_s);
    QStringList found;
    auto matches = placeholder.globalMatch(text);
    while (matches.hasNext()) {
        found.append(matches.next().captured());
    }
    return found;
}

} // namespace

TEST(Findings, everyCode_hasOneRowInTheOrderOfTheCodes)
{
    const QList<Finding> all = allFindings();
    ASSERT_EQ(all.size(), findingCount);
    for (int number = 0; number < findingCount; ++number) {
        EXPECT_EQ(int(all.at(number).code), number) << all.at(number).name.toStdString();
    }
}

TEST(Findings, names_areDifferentAndInCamelCase)
{
    QSet<QString> names;
    for (const Finding& found : allFindings()) {
        EXPECT_TRUE(found.name.contains(QRegularExpression(u"^[a-z][A-Za-z0-9]+$"_s))) << found.name.toStdString();
        names.insert(found.name);
    }
    EXPECT_EQ(names.size(), findingCount);
}

TEST(Findings, whatIsWrongOrAWarning_hasAKindAndSaysWhomToAskForWhat)
{
    for (const Finding& found : allFindings()) {
        const bool isForSomeone = found.state == State::Wrong || found.state == State::Warning;
        EXPECT_EQ(found.kind != Kind::None, isForSomeone) << found.name.toStdString();
        EXPECT_EQ(found.adviser != Adviser::Nobody, isForSomeone) << found.name.toStdString();
        EXPECT_EQ(!found.advice.ui().isEmpty(), isForSomeone) << found.name.toStdString();
        EXPECT_FALSE(found.text.ui().isEmpty()) << found.name.toStdString();
    }
}

TEST(Findings, value_isPutIntoTextAndAdvice)
{
    const Finding found = finding(FindingCode::NameNotFound, {u"registry.test"_s});
    EXPECT_EQ(found.text.ui(), u"the name registry.test is not found"_s);
    EXPECT_TRUE(found.advice.ui().contains(u"registry.test"_s));
    EXPECT_TRUE(placeholders(found.text.ui() + found.advice.ui()).isEmpty());
}

TEST(Findings, valueThatCommandsATerminal_isHarmless)
{
    const Finding found =
        finding(FindingCode::CertificateUnknownAuthority, {u"registry.test"_s, u"443"_s, u"a\u001b[2Jb\nc\u202ed"_s});
    EXPECT_TRUE(found.text.ui().endsWith(u": a [2Jb c d"_s)) << found.text.ui().toStdString();
    EXPECT_TRUE(found.advice.ui().contains(u"a [2Jb c d"_s)) << found.advice.ui().toStdString();
}

TEST(Findings, eachStatusAndFinding_isInTheGuide)
{
    QFile file(QString::fromUtf8(SOURCES "/docs/doctor.md"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QString guide = QString::fromUtf8(file.readAll());
    for (const Finding& found : allFindings()) {
        EXPECT_TRUE(guide.contains(u'`' + found.name + u'`')) << found.name.toStdString();
        if (found.kind != Kind::None) {
            EXPECT_TRUE(guide.contains(u"| %1 |"_s.arg(int(found.kind)))) << int(found.kind);
        }
    }
}
