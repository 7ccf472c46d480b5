// SPDX-License-Identifier: MIT
#include "electronicprescriptionchoiceparams.h"
#include "electronicprescriptionconfirmdispenseparams.h"
#include "electronicprescriptionparams.h"

#include <gtest/gtest.h>

namespace
{

using Prescriptions = QList<QSharedPointer<ElectronicPrescription>>;

QSharedPointer<ElectronicPrescription> prescription()
{
    return QSharedPointer<ElectronicPrescription>::create();
}

QSharedPointer<Patient> patient(const QString& name)
{
    return QSharedPointer<Patient>::create(name, QDate(1961, 5, 4));
}

template <typename Record>
Prescriptions prescriptions(const Record& record)
{
    Prescriptions out{prescription()};
    record.getElectronicPrescriptions(out);
    return out;
}

template <typename Record>
QSharedPointer<ElectronicPrescription> onePrescription(const Record& record)
{
    auto out = prescription();
    record.getElectronicPrescription(out);
    return out;
}

template <typename Record>
QSharedPointer<Patient> patientOf(const Record& record)
{
    auto out = patient("somebody else");
    record.getPatient(out);
    return out;
}

} // namespace

TEST(ChoiceParams, defaultConstructed_isEmptyWithoutPatientAndForgets)
{
    const ElectronicPrescriptionChoiceParams params;
    EXPECT_TRUE(prescriptions(params).isEmpty());
    EXPECT_EQ(params.getStatus(), QString());
    EXPECT_TRUE(patientOf(params).isNull());
    EXPECT_FALSE(params.isUseLast());
}

TEST(ChoiceParams, fourValuesGiven_getterYieldsEach)
{
    const Prescriptions given{prescription(), prescription()};
    const auto olga = patient("Рябинина Ольга Петровна");
    const ElectronicPrescriptionChoiceParams params(given, "active", olga, true);
    EXPECT_EQ(prescriptions(params), given);
    EXPECT_EQ(params.getStatus(), "active");
    EXPECT_EQ(patientOf(params), olga);
    EXPECT_TRUE(params.isUseLast());
}

TEST(ChoiceParams, equalLookingButDistinctPrescriptions_areUnequal)
{
    EXPECT_FALSE(ElectronicPrescriptionChoiceParams({prescription()}, "active", {}, false) ==
                 ElectronicPrescriptionChoiceParams({prescription()}, "active", {}, false));
}

TEST(ChoiceParams, sameObjectsAnotherPatient_areEqual)
{
    const Prescriptions shared{prescription(), prescription()};
    EXPECT_TRUE(ElectronicPrescriptionChoiceParams(shared, "active", patient("Иволгин Павел Ильич"), false) ==
                ElectronicPrescriptionChoiceParams(shared, "active", patient("Рябинина Ольга Петровна"), false));
}

TEST(ChoiceParams, orderLengthStatusOrUseLastDiffer_areUnequal)
{
    const auto first = prescription();
    const auto second = prescription();
    const ElectronicPrescriptionChoiceParams params({first, second}, "active", {}, false);
    EXPECT_FALSE(params == ElectronicPrescriptionChoiceParams({second, first}, "active", {}, false));
    EXPECT_FALSE(params == ElectronicPrescriptionChoiceParams({first}, "active", {}, false));
    EXPECT_FALSE(params == ElectronicPrescriptionChoiceParams({first, second}, "Active", {}, false));
    EXPECT_FALSE(params == ElectronicPrescriptionChoiceParams({first, second}, "active", {}, true));
}

TEST(ChoiceParams, event_is196AndCarriesTheRecord)
{
    const ElectronicPrescriptionChoiceParams params({prescription()}, "active", patient("Иволгин Павел Ильич"), true);
    const auto event = params.getEvent();
    EXPECT_EQ(event.getCode(), 196);
    const auto carried = event.value("params");
    ASSERT_EQ(carried.metaType(), QMetaType::fromType<ElectronicPrescriptionChoiceParams>());
    EXPECT_TRUE(carried.value<ElectronicPrescriptionChoiceParams>() == params);
    EXPECT_EQ(patientOf(carried.value<ElectronicPrescriptionChoiceParams>()), patientOf(params));
}

TEST(DetailsParams, defaultConstructed_isNullAndEmpty)
{
    const ElectronicPrescriptionParams params;
    EXPECT_TRUE(onePrescription(params).isNull());
    EXPECT_EQ(params.getStatus(), QString());
    EXPECT_TRUE(patientOf(params).isNull());
}

TEST(DetailsParams, threeValuesGiven_getterYieldsEach)
{
    const auto given = prescription();
    const auto pavel = patient("Иволгин Павел Ильич");
    const ElectronicPrescriptionParams params(given, "completed", pavel);
    EXPECT_EQ(onePrescription(params), given);
    EXPECT_EQ(params.getStatus(), "completed");
    EXPECT_EQ(patientOf(params), pavel);
}

TEST(DetailsParams, onlyThePrescriptionObjectCountsForEquality)
{
    const auto given = prescription();
    const ElectronicPrescriptionParams params(given, "active", patient("Иволгин Павел Ильич"));
    EXPECT_TRUE(params == ElectronicPrescriptionParams(given, "completed", {}));
    EXPECT_FALSE(params == ElectronicPrescriptionParams(prescription(), "active", patientOf(params)));
}

TEST(DetailsParams, event_is197AndCarriesTheRecord)
{
    const ElectronicPrescriptionParams params(prescription(), "active", patient("Иволгин Павел Ильич"));
    const auto event = params.getEvent();
    EXPECT_EQ(event.getCode(), 197);
    const auto carried = event.value("params").value<ElectronicPrescriptionParams>();
    EXPECT_EQ(onePrescription(carried), onePrescription(params));
    EXPECT_EQ(carried.getStatus(), "active");
    EXPECT_EQ(patientOf(carried), patientOf(params));
}

TEST(ConfirmDispenseParams, defaultConstructed_holdsNoPrescription)
{
    EXPECT_TRUE(onePrescription(ElectronicPrescriptionConfirmDispenseParams()).isNull());
}

TEST(ConfirmDispenseParams, equality_isThatOfThePrescriptionObject)
{
    const auto given = prescription();
    const ElectronicPrescriptionConfirmDispenseParams params(given);
    EXPECT_EQ(onePrescription(params), given);
    EXPECT_TRUE(params == ElectronicPrescriptionConfirmDispenseParams(given));
    EXPECT_FALSE(params == ElectronicPrescriptionConfirmDispenseParams(prescription()));
}

TEST(ConfirmDispenseParams, event_is198AndCarriesTheRecord)
{
    const ElectronicPrescriptionConfirmDispenseParams params(prescription());
    const auto event = params.getEvent();
    EXPECT_EQ(event.getCode(), 198);
    const auto carried = event.value("params").value<ElectronicPrescriptionConfirmDispenseParams>();
    EXPECT_EQ(onePrescription(carried), onePrescription(params));
}

TEST(ParameterRecords, metaTypes_haveTheClassNamesAndCompareByTheRecordsEquality)
{
    EXPECT_STREQ(QMetaType::fromType<ElectronicPrescriptionChoiceParams>().name(),
                 "ElectronicPrescriptionChoiceParams");
    EXPECT_STREQ(QMetaType::fromType<ElectronicPrescriptionParams>().name(), "ElectronicPrescriptionParams");
    EXPECT_STREQ(QMetaType::fromType<ElectronicPrescriptionConfirmDispenseParams>().name(),
                 "ElectronicPrescriptionConfirmDispenseParams");

    const auto given = prescription();
    const auto variant = [](const auto& record) { return QVariant::fromValue(record); };
    EXPECT_EQ(variant(ElectronicPrescriptionChoiceParams({given}, "active", patient("Иволгин Павел Ильич"), true)),
              variant(ElectronicPrescriptionChoiceParams({given}, "active", {}, true)));
    EXPECT_NE(variant(ElectronicPrescriptionChoiceParams({given}, "active", {}, true)),
              variant(ElectronicPrescriptionChoiceParams({given}, "active", {}, false)));
    EXPECT_EQ(variant(ElectronicPrescriptionParams(given, "active", {})),
              variant(ElectronicPrescriptionParams(given, "", {})));
    EXPECT_NE(variant(ElectronicPrescriptionParams(given, "", {})),
              variant(ElectronicPrescriptionParams(prescription(), "", {})));
    EXPECT_EQ(variant(ElectronicPrescriptionConfirmDispenseParams(given)),
              variant(ElectronicPrescriptionConfirmDispenseParams(given)));
    EXPECT_NE(variant(ElectronicPrescriptionConfirmDispenseParams(given)),
              variant(ElectronicPrescriptionConfirmDispenseParams(prescription())));
}
