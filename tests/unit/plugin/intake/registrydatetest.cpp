// SPDX-License-Identifier: MIT
#include "registrydate.h"
#include "qtprinting.h"

#include <QString>

#include <gtest/gtest.h>

#include <random>

namespace
{

QDate readByQt(const QString& text)
{
    return QDate::fromString(text, "yyyy-MM-dd");
}

QString dateText(int year, int month, int day)
{
    const QChar zero = u'0';
    return (year < 0 ? "-" : "") +
           QString("%1-%2-%3").arg(qAbs(year), 4, 10, zero).arg(month, 2, 10, zero).arg(day, 2, 10, zero);
}

struct DateRow {
    const char* name;
    QString text;
    QDate expected;
};

class RegistryDate : public ::testing::TestWithParam<DateRow>
{
};

TEST_P(RegistryDate, isReadAsQtReadsIt)
{
    const DateRow& row = GetParam();
    EXPECT_EQ(readRegistryDate(row.text), row.expected) << qPrintable(row.text);
    EXPECT_EQ(readByQt(row.text), row.expected) << qPrintable(row.text);
}

const DateRow rows[] = {
    {"plain", "2024-03-01", QDate(2024, 3, 1)},
    {"leapDay", "2024-02-29", QDate(2024, 2, 29)},
    {"leapDayInAnotherYear", "2023-02-29", {}},
    {"noSuchDay", "2024-02-30", {}},
    {"dayZero", "2024-03-00", {}},
    {"monthZero", "2024-00-01", {}},
    {"month13", "2024-13-01", {}},
    {"yearZero", "0000-01-01", {}},
    {"yearOne", "0001-01-01", QDate(1, 1, 1)},
    {"lastYear", "9999-12-31", QDate(9999, 12, 31)},
    {"fiveDigits", "10000-01-01", {}},
    {"beforeChrist", "-2024-01-01", QDate(-2024, 1, 1)},
    {"leapDayBeforeChrist", "-0005-02-29", QDate(-5, 2, 29)},
    {"plusSign", "+2024-01-01", {}},
    {"minusInsteadOfDigit", "-024-01-01", {}},
    {"oneDigitMonth", "2024-3-01", {}},
    {"oneDigitDay", "2024-03-1", {}},
    {"blankForDigit", "2024- 3-01", {}},
    {"signForDigit", "2024-+3-01", {}},
    {"leadingBlank", " 2024-03-01", {}},
    {"trailingBlank", "2024-03-01 ", {}},
    {"trailingNul", QString("2024-03-01") + QChar(0), {}},
    {"timeOfDay", "2024-03-01T10:00:00", {}},
    {"zone", "2024-03-01Z", {}},
    {"slashes", "2024/03/01", {}},
    {"dayFirst", "01-03-2024", {}},
    {"fullWidthDigits", QString::fromUtf8("２０２４-03-01"), {}},
    {"arabicDigits", QString::fromUtf8("٢٠٢٤-٠٣-٠١"), {}},
    {"minusSignForHyphen", QString::fromUtf8("2024\u221203\u221201"), {}},
    {"noText", QString(), {}},
    {"letters", "yyyy-MM-dd", {}},
};

INSTANTIATE_TEST_SUITE_P(row, RegistryDate, ::testing::ValuesIn(rows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(RegistryDates, everyDayOfLeapAndCommonYears_isReadAsQtReadsIt)
{
    for (const int year : {-400, -101, -5, -4, -1, 0, 1, 4, 100, 400, 1582, 1900, 2000, 2023, 2024, 9999}) {
        for (int month = 0; month <= 13; ++month) {
            for (int day = 0; day <= 32; ++day) {
                const QString text = dateText(year, month, day);
                ASSERT_EQ(readRegistryDate(text), readByQt(text)) << qPrintable(text);
            }
        }
    }
}

/// Dates with up to three characters changed, put in or left out. The generator starts the same way every time.
TEST(RegistryDates, damagedDates_areReadAsQtReadsThem)
{
    const QString characters = QString::fromUtf8("0123456789-+ /.:TZ\t\u0661\u0969\uFF12\u2212\u2011\u00A0\u0301aMyd") +
                               QChar(0) + QChar(0xD800);
    std::mt19937 generator(20240301);
    const auto below = [&generator](qsizetype bound) { return qsizetype(generator() % std::size_t(bound)); };

    for (int attempt = 0; attempt < 100000; ++attempt) {
        QString text = attempt % 3 ? "2024-03-01" : "-0004-12-29";
        const qsizetype changes = 1 + below(3);
        for (qsizetype change = 0; change < changes; ++change) {
            const QChar character = characters[below(characters.size())];
            const qsizetype place = below(text.size());
            switch (below(3)) {
            case 0:
                text[place] = character;
                break;
            case 1:
                text.insert(place + below(2), character);
                break;
            default:
                text.remove(place, 1);
            }
        }
        ASSERT_EQ(readRegistryDate(text), readByQt(text)) << qPrintable(text);
    }
}

} // namespace
