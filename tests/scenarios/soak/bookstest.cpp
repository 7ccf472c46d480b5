// SPDX-License-Identifier: MIT
#include "books.h"
#include "qtprinting.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

using soak::BookedDispense;
using soak::Books;

QJsonObject sale(double price, double share)
{
    const QString options =
        uR"({"status": "dispensed", "medicationDispenseId": "d", "id": "rx", "doseQuantity": 2.5, "sumFactor": %1})"_s
            .arg(share);
    return {{u"type"_s, 1},
            {u"state"_s, u"closed"_s},
            {u"positions"_s,
             QJsonArray{QJsonObject{
                 {u"extendedOptions"_s, options}, {u"quantity"_s, 1}, {u"sum"_s, price}, {u"tmcPrice"_s, 15.5}}}}};
}

TEST(SoakBooks, dispenseInBoth_agrees)
{
    const Books books{{u"d"_s, {u"rx"_s, 250, 1490, 1341}}};
    const soak::Disagreement found = soak::compare(books, soak::documentBooks({sale(1.49, 0.1)}));
    EXPECT_EQ(found.differing, QStringList());
    EXPECT_EQ(found.onlyInRegistry, QStringList());
    EXPECT_EQ(found.onlyInDocuments, QStringList());
}

TEST(SoakBooks, oneKopeckOrOneHundredthOfADose_differs)
{
    const Books documents = soak::documentBooks({sale(1.49, 0.1)});
    for (const BookedDispense& other :
         {BookedDispense{u"rx"_s, 251, 1490, 1341}, BookedDispense{u"rx"_s, 250, 1490, 1340},
          BookedDispense{u"rx"_s, 250, 1491, 1341}}) {
        EXPECT_EQ(soak::compare({{u"d"_s, other}}, documents).differing.size(), 1);
    }
}

TEST(SoakBooks, dispenseInOneOnly_isNamed)
{
    const Books books{{u"d"_s, {u"rx"_s, 250, 0, 0}}};
    EXPECT_EQ(soak::compare(books, {}).onlyInRegistry, QStringList(u"d"_s));
    EXPECT_EQ(soak::compare({}, books).onlyInDocuments, QStringList(u"d"_s));
}

TEST(SoakBooks, patientPaysAllOrNothing_claimIsEmptyOrTheCataloguePrice)
{
    EXPECT_EQ(soak::documentBooks({sale(14.9, 1)})[u"d"_s], (BookedDispense{u"rx"_s, 250, 0, 0}));
    EXPECT_EQ(soak::documentBooks({sale(0, 0)})[u"d"_s], (BookedDispense{u"rx"_s, 250, 1550, 1550}));
}

TEST(SoakBooks, cancelledDispense_isNotInTheRegistrysBooks)
{
    const QJsonObject valid{{u"id"_s, u"d1"_s}, {u"quantity"_s, 3}};
    QJsonObject cancelled = valid;
    cancelled.insert(u"id"_s, u"d2"_s);
    cancelled.insert(u"cancelled"_s, true);
    const QJsonArray prescriptions{QJsonObject{{u"id"_s, u"rx"_s}, {u"dispenses"_s, QJsonArray{valid, cancelled}}}};
    EXPECT_EQ(soak::registryBooks(prescriptions), (Books{{u"d1"_s, {u"rx"_s, 300, 0, 0}}}));
}

TEST(SoakBooks, journal_namesWhatIsNotSettled)
{
    const QByteArray journal = R"({"id": 1, "method": "POST", "url": "http://registry/register"}
{"id": 2, "method": "POST", "url": "http://registry/d1/cancel"}
{"id": 1, "status": 200, "answer": ""}
{"id": 1, "settled": true}
{"id": 2, "status": 503, "answer": ""}
)";
    EXPECT_EQ(soak::openRequests(journal), QStringList(u"2: http://registry/d1/cancel"_s));
    EXPECT_EQ(soak::openRequests({}), QStringList());
}

} // namespace
