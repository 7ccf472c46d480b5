// SPDX-License-Identifier: MIT
#include "pharmacydoubles.h"

#include "payingelectronicprescriptionorganization.h"

namespace
{

class PositionFilling : public PharmacyTest
{
protected:
    PositionFilling()
    {
        prescription->setTradeNameCode("t1");
        prescription->setPayingElectronicPrescriptionOrganization(
            QSharedPointer<PayingElectronicPrescriptionOrganization>(
                new PayingElectronicPrescriptionOrganization("o1", "Фонд")));
        prescription->setPayByPatientSumFactor(0.5);
        prescription->setPatientReference("Patient/p1");
        prescription->setSerialNumber("1201 №1");
        prescription->setDoseQuantity(30);
        service.patientCache.insert("active", QSharedPointer<Patient>(new Patient("Петров Пётр Петрович", QDate())));
        service.patientCache.insert("completed", QSharedPointer<Patient>(new Patient("Другой", QDate())));
    }

    QSharedPointer<ElectronicPrescription> prescription{prescriptionWithId("r1")};
    QSharedPointer<GoodsItem> position{addPosition(1)};
};

TEST_F(PositionFilling, completeDispense_isWrittenAsCompactJson)
{
    service.fillElectronicPrescriptionDataForPosition(prescription, position, true, 2);

    EXPECT_EQ(position->getExtendedOptions(),
              R"({"doseQuantity":2,"finalDispense":true,"id":"r1","organization":"Фонд","organizationId":"o1",)"
              R"("patient":"Петров Пётр Петрович","patientReference":"Patient/p1","serialNumber":"1201 №1",)"
              R"("sumFactor":0.5,"tradeNameCode":"t1"})");
    EXPECT_EQ(position->getSoftCheckId(), "r1");
    EXPECT_EQ(position->getTags(), QStringList{"prescription"});
}

TEST_F(PositionFilling, partialDispense_saysSo)
{
    service.fillElectronicPrescriptionDataForPosition(prescription, position, false, 0.25);

    EXPECT_EQ(optionsOf(*position)["finalDispense"], false);
    EXPECT_EQ(optionsOf(*position)["doseQuantity"], 0.25);
}

TEST_F(PositionFilling, noOrganization_writesEmptyTexts)
{
    prescription->setPayingElectronicPrescriptionOrganization({});

    service.fillElectronicPrescriptionDataForPosition(prescription, position, true, 2);

    EXPECT_EQ(optionsOf(*position)["organizationId"], QJsonValue(""));
    EXPECT_EQ(optionsOf(*position)["organization"], QJsonValue(""));
}

TEST_F(PositionFilling, noPatientUnderActive_writesAnEmptyText)
{
    service.patientCache.remove("active");

    service.fillElectronicPrescriptionDataForPosition(prescription, position, true, 2);

    EXPECT_EQ(optionsOf(*position)["patient"], QJsonValue(""));
}

TEST_F(PositionFilling, emptyRecord_writesEveryMember)
{
    service.fillElectronicPrescriptionDataForPosition(
        QSharedPointer<ElectronicPrescription>(new ElectronicPrescription), position, false, 0);

    EXPECT_EQ(position->getExtendedOptions(),
              R"({"doseQuantity":0,"finalDispense":false,"id":"","organization":"","organizationId":"",)"
              R"("patient":"Петров Пётр Петрович","patientReference":"","serialNumber":"","sumFactor":1,)"
              R"("tradeNameCode":""})");
}

TEST_F(PositionFilling, textsWithSpecialCharacters_areKeptUnchanged)
{
    prescription->setSerialNumber("\"%1\" \\ \n ✓");

    service.fillElectronicPrescriptionDataForPosition(prescription, position, true, 2);

    EXPECT_EQ(optionsOf(*position)["serialNumber"], "\"%1\" \\ \n ✓");
}

TEST_F(PositionFilling, filledAgain_nothingOfTheFormerOptionsStays)
{
    service.fillElectronicPrescriptionDataForPosition(prescription, position, true, 2);
    const QString fresh = position->getExtendedOptions();
    position->setExtendedOptions(
        R"({"id":"former","foreign":1,"medicationDispenseId":"d-5","status":"dispensed","patient":"Другой"})");
    position->setSoftCheckId("former");

    service.fillElectronicPrescriptionDataForPosition(prescription, position, true, 2);

    EXPECT_EQ(position->getExtendedOptions(), fresh);
    EXPECT_EQ(position->getSoftCheckId(), "r1");
}

TEST_F(PositionFilling, otherTags_stay)
{
    position->setTag("cold");

    service.fillElectronicPrescriptionDataForPosition(prescription, position, true, 2);

    EXPECT_EQ(position->getTags(), (QStringList{"cold", "prescription"}));
}

// The tag comes last: it makes the position a prescription's, which is then complete.
TEST_F(PositionFilling, position_isFilledInThisOrder)
{
    const QSharedPointer<JournallingPosition> journalling(new JournallingPosition);

    service.fillElectronicPrescriptionDataForPosition(prescription, journalling, true, 2);

    EXPECT_EQ(journalling->calls, (QStringList{"options", "soft check id", "tag"}));
}

struct PriceRow {
    const char* name;
    double factor;
    double price;
    double minRetailPrice;
    double expected;
};

class BenefitPrice : public PositionFilling, public ::testing::WithParamInterface<PriceRow>
{
};

TEST_P(BenefitPrice, isThePatientsShareAndNotBelowTheMinimum)
{
    const PriceRow& row = GetParam();
    prescription->setPayByPatientSumFactor(row.factor);
    position = addPosition(2, nullptr, row.price, row.minRetailPrice);

    service.setPriceForPosition(prescription, position);

    EXPECT_EQ(position->getPrice(), row.expected);
    EXPECT_EQ(recalculated, QList<QSharedPointer<AbstractDocument>>{receipt});
    EXPECT_EQ(recalculatedPrices, (QList<QList<double>>{{100.0, row.expected}})) << "the new price comes first";
}

const PriceRow priceRows[] = {
    {"half", 0.5, 100.0, 0.0, 50.0},
    {"halfAKopeckUp", 0.5, 10.01, 0.0, 5.01},
    // A library's rounding gives 1.00 and 5.64.
    {"halfOfAnOddPrice", 0.5, 2.01, 0.0, 1.01},
    {"justBelowHalfAKopeck", 0.251, 22.49, 0.0, 5.65},
    // A fused multiply-add gives 0.05.
    {"smallShare", 0.009, 6.11, 0.0, 0.06},
    {"free", 0.0, 10.01, 0.0, 0.0},
    {"freeWithMinimum", 0.0, 10.01, 1.20, 1.20},
    {"freeWithNegligibleMinimum", 0.0, 10.01, 0.004, 0.0},
    {"negligibleMinimumAtTheEdge", 0.0, 10.01, 0.005, 0.0},
    {"minimumNegligiblyAbove", 0.5, 10.0, 5.004, 5.0},
    {"minimumAbove", 0.5, 10.0, 5.01, 5.01},
    {"minimumBelow", 0.5, 10.0, 4.0, 5.0},
    {"minimumIsThePrice", 0.5, 10.0, 10.0, 10.0},
    {"nothingToPayAnyway", 0.5, 0.0, 0.0, 0.0},
    {"justABenefit", 0.994, 100.0, 0.0, 99.4},
    // In doubles 1.0 - 0.995 is 0.0050000000000000044, just above what counts as nothing.
    {"atTheThresholdInDoubles", 0.995, 10.01, 0.0, 9.96},
    {"negativePrice", 0.5, -10.01, 0.0, -5.01},
    {"negativePriceWithNegligibleMinimum", 0.5, -10.01, 0.004, -5.01},
    {"negativeFactor", -0.1, 10.0, 0.0, -1.0},
    {"thirds", 1.0 / 3, 10.0, 0.0, 3.33},
};

INSTANTIATE_TEST_SUITE_P(row, BenefitPrice, ::testing::ValuesIn(priceRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(PositionFilling, patientPaysAll_priceStaysWithoutRecalculation)
{
    for (const double factor : {1.0, 0.996, 1.2}) {
        SCOPED_TRACE(factor);
        prescription->setPayByPatientSumFactor(factor);
        position->setPrice(10.01);

        service.setPriceForPosition(prescription, position);

        EXPECT_EQ(position->getPrice(), 10.01);
        EXPECT_TRUE(journal.isEmpty());
    }
}

} // namespace
