// SPDX-License-Identifier: MIT
#include "electronicprescription.h"
#include "patient.h"

#include <QWeakPointer>

#include <gtest/gtest.h>

#include <type_traits>

namespace
{

using Organization = PayingElectronicPrescriptionOrganization;

TEST(Prescription, newOne_hasTheDefaultsOfEveryField)
{
    const ElectronicPrescription prescription;
    EXPECT_EQ(prescription.getId(), QString());
    EXPECT_EQ(prescription.getInn(), QString());
    EXPECT_EQ(prescription.getInnCode(), QString());
    EXPECT_EQ(prescription.getTradeName(), QString());
    EXPECT_EQ(prescription.getTradeNameCode(), QString());
    EXPECT_FALSE(prescription.isPrescribedByInn());
    EXPECT_EQ(prescription.getDoseQuantity(), 0.0);
    EXPECT_EQ(prescription.getDispensedDoseQuantity(), 0.0);
    EXPECT_TRUE(prescription.getPrescriptionDate().isNull());
    EXPECT_FALSE(prescription.getPrescriptionDate().isValid());
    EXPECT_TRUE(prescription.getExpirationDate().isNull());
    EXPECT_FALSE(prescription.getExpirationDate().isValid());
    EXPECT_FALSE(prescription.hasDigitalSignature());
    EXPECT_EQ(prescription.getInstructions(), QString());
    EXPECT_EQ(prescription.getPayByPatientSumFactor(), 1.0);
    EXPECT_EQ(prescription.getDiscountPercent(), 0.0);
    EXPECT_TRUE(prescription.getPayingElectronicPrescriptionOrganization().isNull());
    QList<QDate> dates{QDate(2024, 1, 1)};
    prescription.getMedicationDispenseDates(dates);
    EXPECT_TRUE(dates.isEmpty());
    EXPECT_EQ(prescription.getPatientReference(), QString());
    EXPECT_EQ(prescription.getPractitionerName(), QString());
    EXPECT_EQ(prescription.getSerialNumber(), QString());
    EXPECT_EQ(prescription.getDictName(), QString());
    EXPECT_EQ(prescription.getDictCode(), QString());
}

TEST(Prescription, everyText_isKeptInAFieldOfItsOwn)
{
    ElectronicPrescription prescription;
    prescription.setId("p-1");
    prescription.setInn("Ибупрофен");
    prescription.setInnCode("100");
    prescription.setTradeName("Ибуфен");
    prescription.setTradeNameCode("200");
    prescription.setInstructions("по 1 таблетке");
    prescription.setPatientReference("Patient/7");
    prescription.setPractitionerName("Врачова Вера Викторовна");
    prescription.setSerialNumber("АБ 1");
    prescription.setDictName("Ибуфен 200 мг");
    prescription.setDictCode("300");

    EXPECT_EQ(prescription.getId(), "p-1");
    EXPECT_EQ(prescription.getInn(), "Ибупрофен");
    EXPECT_EQ(prescription.getInnCode(), "100");
    EXPECT_EQ(prescription.getTradeName(), "Ибуфен");
    EXPECT_EQ(prescription.getTradeNameCode(), "200");
    EXPECT_EQ(prescription.getInstructions(), "по 1 таблетке");
    EXPECT_EQ(prescription.getPatientReference(), "Patient/7");
    EXPECT_EQ(prescription.getPractitionerName(), "Врачова Вера Викторовна");
    EXPECT_EQ(prescription.getSerialNumber(), "АБ 1");
    EXPECT_EQ(prescription.getDictName(), "Ибуфен 200 мг");
    EXPECT_EQ(prescription.getDictCode(), "300");
}

TEST(Prescription, everyNumberAndDate_isKeptInAFieldOfItsOwn)
{
    ElectronicPrescription prescription;
    prescription.setDoseQuantity(30.0);
    prescription.setPayByPatientSumFactor(0.25);
    prescription.setPrescriptionDate(QDate(2024, 3, 1));
    prescription.setExpirationDate(QDate(2024, 4, 30));

    EXPECT_EQ(prescription.getDoseQuantity(), 30.0);
    EXPECT_EQ(prescription.getDispensedDoseQuantity(), 0.0);
    EXPECT_EQ(prescription.getPayByPatientSumFactor(), 0.25);
    EXPECT_EQ(prescription.getPrescriptionDate(), QDate(2024, 3, 1));
    EXPECT_EQ(prescription.getExpirationDate(), QDate(2024, 4, 30));
}

TEST(Prescription, flagSetTwice_staysSetAndLeavesTheOtherOne)
{
    ElectronicPrescription byInn;
    byInn.setPrescribedByInn();
    byInn.setPrescribedByInn();
    EXPECT_TRUE(byInn.isPrescribedByInn());
    EXPECT_FALSE(byInn.hasDigitalSignature());

    ElectronicPrescription isSigned;
    isSigned.setDigitalSignature();
    isSigned.setDigitalSignature();
    EXPECT_TRUE(isSigned.hasDigitalSignature());
    EXPECT_FALSE(isSigned.isPrescribedByInn());
}

TEST(Prescription, dispensedDoses_addUpWithoutAnyBound)
{
    ElectronicPrescription prescription;
    prescription.setDoseQuantity(10.0);
    prescription.addDispensedDoseQuantity(10.0);
    prescription.addDispensedDoseQuantity(20.0);
    EXPECT_EQ(prescription.getDispensedDoseQuantity(), 30.0);
    EXPECT_EQ(prescription.getDoseQuantity(), 10.0);

    prescription.addDispensedDoseQuantity(-35.5);
    EXPECT_EQ(prescription.getDispensedDoseQuantity(), -5.5);
}

TEST(Prescription, dispenseDates_stayInTheirOrderTwiceAndInvalid)
{
    ElectronicPrescription prescription;
    prescription.addMedicationDispenseDate(QDate(2024, 3, 2));
    prescription.addMedicationDispenseDate(QDate(2024, 3, 1));
    prescription.addMedicationDispenseDate(QDate());
    prescription.addMedicationDispenseDate(QDate(2024, 3, 2));

    QList<QDate> dates;
    prescription.getMedicationDispenseDates(dates);
    EXPECT_EQ(dates, QList<QDate>({QDate(2024, 3, 2), QDate(2024, 3, 1), QDate(), QDate(2024, 3, 2)}));
}

TEST(Prescription, listForDispenseDates_losesItsFormerContentAndIsACopy)
{
    ElectronicPrescription prescription;
    prescription.addMedicationDispenseDate(QDate(2024, 3, 2));
    QList<QDate> dates{QDate(1999, 1, 1), QDate(2000, 1, 1)};
    prescription.getMedicationDispenseDates(dates);
    EXPECT_EQ(dates, QList<QDate>({QDate(2024, 3, 2)}));

    dates.clear();
    QList<QDate> again;
    prescription.getMedicationDispenseDates(again);
    EXPECT_EQ(again, QList<QDate>({QDate(2024, 3, 2)}));
}

TEST(Prescription, payingOrganization_isSharedAndTheFormerOneReleased)
{
    QWeakPointer<Organization> former;
    QWeakPointer<Organization> latter;
    {
        ElectronicPrescription prescription;
        auto first = QSharedPointer<Organization>::create("1", "Первая");
        former = first;
        prescription.setPayingElectronicPrescriptionOrganization(first);
        EXPECT_EQ(prescription.getPayingElectronicPrescriptionOrganization(), first);
        first.reset();
        EXPECT_FALSE(former.isNull());

        const auto second = QSharedPointer<Organization>::create("2", "Вторая");
        latter = second;
        prescription.setPayingElectronicPrescriptionOrganization(second);
        EXPECT_TRUE(former.isNull());
        EXPECT_EQ(prescription.getPayingElectronicPrescriptionOrganization(), second);
    }
    EXPECT_TRUE(latter.isNull());
}

struct Discount {
    const char* name;
    double factor;
    double percent;
};

class PrescriptionDiscount : public ::testing::TestWithParam<Discount>
{
};

TEST_P(PrescriptionDiscount, factor_givesTheComplementOfTheRoundedShare)
{
    ElectronicPrescription prescription;
    prescription.setPayByPatientSumFactor(GetParam().factor);
    EXPECT_EQ(prescription.getDiscountPercent(), GetParam().percent);
}

INSTANTIATE_TEST_SUITE_P(Factors, PrescriptionDiscount,
                         ::testing::Values(Discount{"all", 1.0, 0.0}, Discount{"half", 0.5, 50.0},
                                           Discount{"nothing", 0.0, 100.0}, Discount{"manyDigits", 0.123456, 87.65},
                                           Discount{"tie", 0.12345, 87.65}, Discount{"belowTie", 0.123449, 87.66},
                                           // A library's rounding gives 87.66.
                                           Discount{"justBelowTie", 0.1234499, 87.65},
                                           Discount{"tieShortInBinary", 0.01005, 98.99},
                                           Discount{"aboveOne", 1.2, -20.0}, Discount{"negative", -0.1, 110.0},
                                           Discount{"negativeTie", -0.12345, 112.35}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(PatientRecord, nameAndBirthday_areTheOnesGiven)
{
    const Patient patient("Иванов Иван Иванович", QDate(1980, 5, 17));
    EXPECT_EQ(patient.getName(), "Иванов Иван Иванович");
    EXPECT_EQ(patient.getBirthday(), QDate(1980, 5, 17));
    EXPECT_FALSE(std::is_default_constructible_v<Patient>);
}

TEST(PayingOrganizationRecord, idAndName_areTheOnesGivenInThatOrder)
{
    const Organization organization("42", "Фонд");
    EXPECT_EQ(organization.getId(), "42");
    EXPECT_EQ(organization.getName(), "Фонд");
    EXPECT_FALSE(std::is_default_constructible_v<Organization>);
}

} // namespace
