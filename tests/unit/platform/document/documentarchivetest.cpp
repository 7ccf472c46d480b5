// SPDX-License-Identifier: MIT
#include "documentarchive.h"
#include "documentdouble.h"
#include "inplace.h"

#include <gtest/gtest.h>

namespace
{

class OneDocument : public DocumentArchive
{
public:
    QList<QSharedPointer<AbstractDocument>> documentsOf(const QDate& day) const override
    {
        return day == QDate(2024, 2, 29) ? QList<QSharedPointer<AbstractDocument>>{document}
                                         : QList<QSharedPointer<AbstractDocument>>();
    }

    const QSharedPointer<AbstractDocument> document = QSharedPointer<DocumentDouble>::create();
};

} // namespace

TEST(DocumentArchive, withoutAHost_isEmpty)
{
    const DocumentArchive archive;
    EXPECT_TRUE(archive.documentsOf({2024, 2, 29}).isEmpty());
    EXPECT_FALSE(archive.document(QString::fromLatin1("1")));
}

TEST(DocumentArchive, thatOfTheHost_isAskedForItsDay)
{
    const Own<DocumentArchive, OneDocument> host;
    const DocumentArchive* archive = Singleton<DocumentArchive>::get();
    EXPECT_EQ(archive->documentsOf({2024, 2, 29}), QList<QSharedPointer<AbstractDocument>>{host.object.document});
    EXPECT_TRUE(archive->documentsOf({2024, 3, 1}).isEmpty());
}
