// SPDX-License-Identifier: MIT
#include "tilldocuments.h"
#include "clockdouble.h"
#include "documentarchive.h"
#include "documentdouble.h"
#include "inplace.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

const QDate monday(2026, 3, 2);

/// Reads each document again, as from the disk: number 1 of Monday, number 2 of Monday and Tuesday, number 3 of no day.
class Disk : public DocumentArchive
{
public:
    QList<QSharedPointer<AbstractDocument>> documentsOf(const QDate& day) const override
    {
        if (day == monday) {
            return {read(u"1"_s), read(u"2"_s)};
        }
        return day == monday.addDays(1) ? QList{read(u"2"_s)} : QList<QSharedPointer<AbstractDocument>>();
    }
    QSharedPointer<AbstractDocument> document(const QString& identifier) const override
    {
        return identifier == "4"_L1 ? nullptr : read(identifier);
    }

private:
    static QSharedPointer<AbstractDocument> read(const QString& name)
    {
        const auto document = QSharedPointer<DocumentDouble>::create();
        document->name = name;
        return document;
    }
};

class TillDocumentsTest : public ::testing::Test
{
protected:
    ClockDouble clock{QDateTime(monday.addDays(2), {12, 0})};
    Own<DocumentArchive, Disk> archive;
    TillDocuments documents;
};

TEST_F(TillDocumentsTest, document_isOneObjectHoweverItIsFound)
{
    const auto second = documents.ofDay(monday.addDays(1)).value(0);
    ASSERT_TRUE(second);
    EXPECT_EQ(documents.ofDay(monday).value(1), second);
    EXPECT_EQ(documents.find(u"2"_s), second);
    const auto third = documents.find(u"3"_s);
    ASSERT_TRUE(third);
    EXPECT_EQ(documents.find(u"3"_s), third);
    EXPECT_FALSE(documents.find(u"4"_s));
}

TEST_F(TillDocumentsTest, sinceADay_areThoseOfAllDaysUntilTodayEachOnce)
{
    EXPECT_EQ(documents.since(monday).size(), 2);
    EXPECT_EQ(documents.since(monday.addDays(1)).size(), 1);
    EXPECT_EQ(documents.since(monday.addDays(2)).size(), 0);
}

TEST_F(TillDocumentsTest, clockWasSetBack_theDayItselfCounts)
{
    clock.now = clock.now.addDays(-9);
    EXPECT_EQ(documents.since(monday).size(), 2);
}

TEST_F(TillDocumentsTest, invalidDay_isToday)
{
    clock.now = QDateTime(monday, {12, 0});
    EXPECT_EQ(documents.ofDay({}).size(), 2);
    EXPECT_EQ(documents.since({}).size(), 2);
}

} // namespace
