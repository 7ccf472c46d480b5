// SPDX-License-Identifier: MIT
#include "emulatortest.h"

#include <QJsonArray>
#include <QJsonDocument>

using namespace Qt::StringLiterals;

using emulator::RefusalCode;

namespace
{
/// Paths into a document of the fixture.
const QString dispenseAt = u"parameter.0.resource."_s;
const QString claimAt = u"parameter.1.resource."_s;

class DispenseRegistrationTest : public EmulatorTest
{
protected:
    /// Expects that the document is refused and nothing is booked.
    void expectRefused(const QJsonObject& document, RefusalCode code, const QStringList& values = {})
    {
        const qsizetype booked = m_emulator->store().dispenses().size();
        expectRefusal(registerDispense(document), code, values);
        EXPECT_EQ(m_emulator->store().dispenses().size(), booked);
    }

    static QJsonObject doses(const QJsonObject& document, double doses)
    {
        return with(document, dispenseAt + u"quantity.value"_s, doses);
    }

    static QJsonObject declaredFinal(const QJsonObject& document)
    {
        return with(document, dispenseAt + u"extension.0.valueBoolean"_s, true);
    }

    static QJsonObject ofPrescription(const QJsonObject& document, const QString& id, const QString& medication)
    {
        const QJsonObject other = with(document, dispenseAt + u"authorizingPrescription.0.reference"_s,
                                       QString(u"MedicationPrescription/"_s + id));
        return with(other, dispenseAt + u"contained.0.code.coding.0.code"_s, medication);
    }

    static QJsonObject amounts(double unitPrice, double factor, double net)
    {
        QJsonObject document = halfPriceDispense();
        document = with(document, claimAt + u"item.0.unitPrice.value"_s, unitPrice);
        document = with(document, claimAt + u"item.0.factor"_s, factor);
        return with(document, claimAt + u"item.0.net.value"_s, net);
    }
};
} // namespace

TEST_F(DispenseRegistrationTest, fullPriceDispense_isAnsweredWithItsIdAndBooked)
{
    const RawAnswer answer = registerDispense(fullPriceDispense());
    ASSERT_EQ(answer.status, 200) << qPrintable(answer.issue());
    EXPECT_EQ(answer.json().value(u"resourceType"_s).toString(), u"Bundle"_s);
    const QJsonArray entries = answer.json().value(u"entry"_s).toArray();
    ASSERT_EQ(entries.size(), 1);
    const QJsonObject entry = entries.at(0).toObject();
    EXPECT_EQ(entry.value(u"transactionResponse"_s).toObject().value(u"status"_s).toString(), u"POST:201"_s);
    const QJsonObject resource = entry.value(u"resource"_s).toObject();
    EXPECT_EQ(resource.value(u"resourceType"_s).toString(), u"MedicationDispense"_s);
    EXPECT_EQ(resource.value(u"quantity"_s).toObject().value(u"value"_s).toDouble(), 10);

    const auto booked = m_emulator->store().dispense(resource.value(u"id"_s).toString());
    ASSERT_TRUE(booked.has_value());
    EXPECT_EQ(booked->prescriptionId, u"rx-full"_s);
    EXPECT_EQ(booked->quantity, 10);
    EXPECT_EQ(booked->handedOver, QDate(2024, 3, 20));
    EXPECT_EQ(booked->pharmacy, u"17"_s);
    EXPECT_FALSE(booked->isFinal);
    EXPECT_FALSE(booked->isCancelled);
    EXPECT_TRUE(booked->claim.isEmpty());
}

TEST_F(DispenseRegistrationTest, benefitDispense_isAnsweredWithItsClaim)
{
    const RawAnswer answer = registerDispense(halfPriceDispense());
    ASSERT_EQ(answer.status, 200) << qPrintable(answer.issue());
    const QJsonArray entries = answer.json().value(u"entry"_s).toArray();
    ASSERT_EQ(entries.size(), 2);
    const QJsonObject claim = entries.at(1).toObject();
    EXPECT_EQ(claim.value(u"transactionResponse"_s).toObject().value(u"status"_s).toString(), u"POST:201"_s);
    EXPECT_EQ(claim.value(u"resource"_s).toObject().value(u"resourceType"_s).toString(), u"Claim"_s);
    EXPECT_FALSE(claim.value(u"resource"_s).toObject().value(u"id"_s).toString().isEmpty());
    EXPECT_FALSE(m_emulator->store().dispense(idOfDispense(answer))->claim.isEmpty());
}

TEST_F(DispenseRegistrationTest, partialDispense_leavesPrescriptionActive)
{
    ASSERT_EQ(registerDispense(fullPriceDispense()).status, 200);
    EXPECT_EQ(statusOf(u"rx-full"_s), u"active"_s);
}

TEST_F(DispenseRegistrationTest, finalDispense_completesPrescription)
{
    ASSERT_EQ(registerDispense(declaredFinal(fullPriceDispense())).status, 200);
    EXPECT_EQ(statusOf(u"rx-full"_s), u"completed"_s);
}

TEST_F(DispenseRegistrationTest, lastDoses_completePrescription)
{
    ASSERT_EQ(registerDispense(fullPriceDispense()).status, 200);
    ASSERT_EQ(registerDispense(fullPriceDispense()).status, 200);
    EXPECT_EQ(statusOf(u"rx-full"_s), u"completed"_s);
}

TEST_F(DispenseRegistrationTest, lastDosesAfterSeededDispenses_completePrescription)
{
    ASSERT_EQ(registerDispense(doses(halfPriceDispense(), 30)).status, 200);
    EXPECT_EQ(statusOf(u"rx-half"_s), u"completed"_s);
}

TEST_F(DispenseRegistrationTest, fractionsOfDoses_addUpToWhole)
{
    QJsonObject document = ofPrescription(fullPriceDispense(), u"rx-inn"_s, QString());
    ASSERT_EQ(registerDispense(doses(document, 3.3)).status, 200);
    ASSERT_EQ(registerDispense(doses(document, 3.3)).status, 200);
    expectRefused(doses(document, 3.41), RefusalCode::QuantityAboveRest, {u"rx-inn"_s, u"3.40"_s, u"3.41"_s});
    ASSERT_EQ(registerDispense(doses(document, 3.4)).status, 200);
    EXPECT_EQ(statusOf(u"rx-inn"_s), u"completed"_s);
}

TEST_F(DispenseRegistrationTest, unknownPrescription_isRefused)
{
    expectRefused(ofPrescription(fullPriceDispense(), u"rx-%1"_s, u"1001"_s), RefusalCode::PrescriptionUnknown,
                  {u"rx-%1"_s});
}

TEST_F(DispenseRegistrationTest, wrongPatient_isRefused)
{
    expectRefused(with(fullPriceDispense(), dispenseAt + u"patient.reference"_s, u"Patient/x"_s),
                  RefusalCode::PatientWrong, {u"rx-full"_s});
}

TEST_F(DispenseRegistrationTest, completedPrescription_isRefused)
{
    ASSERT_EQ(registerDispense(declaredFinal(fullPriceDispense())).status, 200);
    expectRefused(fullPriceDispense(), RefusalCode::PrescriptionCompleted, {u"rx-full"_s});
}

TEST_F(DispenseRegistrationTest, prescriptionThatIsNotActive_isRefused)
{
    expectRefused(ofPrescription(fullPriceDispense(), u"rx-stopped"_s, u"1013"_s), RefusalCode::PrescriptionNotActive,
                  {u"rx-stopped"_s, u"stopped"_s});
}

TEST_F(DispenseRegistrationTest, expiredPrescription_isRefused)
{
    expectRefused(ofPrescription(fullPriceDispense(), u"rx-expired"_s, u"1011"_s), RefusalCode::PrescriptionExpired,
                  {u"rx-expired"_s, u"10.03.2024"_s});
}

TEST_F(DispenseRegistrationTest, dispenseOnLastDayOfValidity_isAccepted)
{
    m_now = QDateTime(QDate(2024, 4, 14), QTime(23, 59, 59));
    EXPECT_EQ(registerDispense(fullPriceDispense()).status, 200);
    m_now = m_now.addSecs(1);
    expectRefused(fullPriceDispense(), RefusalCode::PrescriptionExpired, {u"rx-full"_s, u"14.04.2024"_s});
}

TEST_F(DispenseRegistrationTest, dispenseBeforePrescriptionOrInFuture_isRefused)
{
    const QString date = dispenseAt + u"whenHandedOver"_s;
    expectRefused(with(fullPriceDispense(), date, u"2024-03-14"_s), RefusalCode::HandedOverBeforeWritten);
    expectRefused(with(fullPriceDispense(), date, u"2024-03-21"_s), RefusalCode::HandedOverInFuture);
    EXPECT_EQ(registerDispense(with(fullPriceDispense(), date, u"2024-03-15"_s)).status, 200);
}

TEST_F(DispenseRegistrationTest, quantityThatIsNotPositive_isRefused)
{
    expectRefused(doses(fullPriceDispense(), 0), RefusalCode::QuantityNotPositive);
    expectRefused(doses(fullPriceDispense(), -1), RefusalCode::QuantityNotPositive);
}

TEST_F(DispenseRegistrationTest, moreThanIsLeft_isRefused)
{
    expectRefused(doses(fullPriceDispense(), 20.01), RefusalCode::QuantityAboveRest,
                  {u"rx-full"_s, u"20.00"_s, u"20.01"_s});
    expectRefused(doses(halfPriceDispense(), 31), RefusalCode::QuantityAboveRest,
                  {u"rx-half"_s, u"30.00"_s, u"31.00"_s});
}

TEST_F(DispenseRegistrationTest, codeOfAnyCodingOfMedicine_isAccepted)
{
    for (const char* code : {"1001", "TN-1", "J01CA04"}) {
        const QJsonObject document =
            ofPrescription(doses(fullPriceDispense(), 1), u"rx-full"_s, QLatin1StringView(code));
        EXPECT_EQ(registerDispense(document).status, 200) << code;
    }
}

TEST_F(DispenseRegistrationTest, medicineThatIsNotPrescribed_isRefused)
{
    expectRefused(ofPrescription(fullPriceDispense(), u"rx-full"_s, u"1003"_s), RefusalCode::MedicationNotPrescribed,
                  {u"1003"_s, u"rx-full"_s});
}

TEST_F(DispenseRegistrationTest, emptyMedicineCode_isRefusedWhereTradeNameIsPrescribed)
{
    expectRefused(ofPrescription(fullPriceDispense(), u"rx-full"_s, QString()), RefusalCode::MedicationCodeMissing);
}

TEST_F(DispenseRegistrationTest, emptyMedicineCode_isAcceptedWhereNoTradeNameIsPrescribed)
{
    EXPECT_EQ(registerDispense(ofPrescription(fullPriceDispense(), u"rx-inn"_s, QString())).status, 200);
}

TEST_F(DispenseRegistrationTest, benefitWithoutClaim_isRefused)
{
    expectRefused(with(halfPriceDispense(), u"parameter.1"_s, QJsonValue::Undefined), RefusalCode::ClaimDue);
}

TEST_F(DispenseRegistrationTest, fullPriceWithClaim_isRefused)
{
    QJsonObject document = ofPrescription(halfPriceDispense(), u"rx-full"_s, u"1001"_s);
    expectRefused(document, RefusalCode::ClaimNotDue);
}

TEST_F(DispenseRegistrationTest, claimOfOtherPrescriptionOrPatient_isRefused)
{
    expectRefused(
        with(halfPriceDispense(), claimAt + u"originalPrescription.reference"_s, u"MedicationPrescription/rx-full"_s),
        RefusalCode::ClaimPrescriptionWrong);
    expectRefused(with(halfPriceDispense(), claimAt + u"patient.reference"_s, u"Patient/x"_s),
                  RefusalCode::ClaimPatientWrong);
}

TEST_F(DispenseRegistrationTest, unknownOrOtherPayer_isRefused)
{
    const QString payer = claimAt + u"organization.reference"_s;
    expectRefused(with(halfPriceDispense(), payer, u"Organization/"_s), RefusalCode::PayerUnknown);
    expectRefused(with(halfPriceDispense(), payer, u"Organization/payer-2"_s), RefusalCode::PayerWrong);
}

TEST_F(DispenseRegistrationTest, amountsThatFit_areAccepted)
{
    for (const auto& [unitPrice, net] : {std::pair(20.0, 10.0), std::pair(0.02, 0.01), std::pair(12345.68, 6172.84),
                                         std::pair(20.01, 10.0), std::pair(20.01, 10.01), std::pair(0.0, 0.0)}) {
        const QJsonObject document = doses(amounts(unitPrice, 0.5, net), 1);
        EXPECT_EQ(registerDispense(document).status, 200) << unitPrice << " " << net;
    }
}

TEST_F(DispenseRegistrationTest, netOneCentOff_isRefused)
{
    expectRefused(amounts(20.00, 0.5, 10.01), RefusalCode::NetWrong);
    expectRefused(amounts(20.00, 0.5, 9.99), RefusalCode::NetWrong);
    expectRefused(amounts(20.01, 0.5, 10.02), RefusalCode::NetWrong);
}

TEST_F(DispenseRegistrationTest, payerOfAll_paysPriceToTheCent)
{
    const auto free = [](double unitPrice, double net) {
        QJsonObject document = ofPrescription(amounts(unitPrice, 1, net), u"rx-free"_s, u"1010"_s);
        return with(document, claimAt + u"originalPrescription.reference"_s, u"MedicationPrescription/rx-free"_s);
    };
    expectRefused(free(7.35, 7.34), RefusalCode::NetWrong);
    expectRefused(free(7.35, 7.36), RefusalCode::NetWrong);
    EXPECT_EQ(registerDispense(free(7.35, 7.35)).status, 200);
}

TEST_F(DispenseRegistrationTest, shareOtherThanPrescribed_isRefused)
{
    expectRefused(amounts(20, 0.51, 10.2), RefusalCode::FactorWrong);
    expectRefused(amounts(20, 1, 20), RefusalCode::FactorWrong);
}

TEST_F(DispenseRegistrationTest, amountsInPartsOfCentOrNegativeOrForeign_areRefused)
{
    expectRefused(amounts(20.001, 0.5, 10), RefusalCode::AmountNotInCents);
    expectRefused(amounts(20, 0.5, 10.004), RefusalCode::AmountNotInCents);
    expectRefused(amounts(-20, 0.5, -10), RefusalCode::AmountNegative);
    expectRefused(with(halfPriceDispense(), claimAt + u"item.0.net.code"_s, u"RUB"_s), RefusalCode::CurrencyWrong);
}

TEST_F(DispenseRegistrationTest, bodyOfOtherContentType_isRefused)
{
    emulator::HttpHeaders headers = admitted();
    headers.last().second = "text/plain";
    const RawAnswer answer =
        ask("POST", "/MedicationDispense/$register", headers, QJsonDocument(fullPriceDispense()).toJson());
    expectRefusal(answer, RefusalCode::BodyNotJson);
    EXPECT_EQ(m_emulator->store().dispensesOf(u"rx-full"_s).size(), 0);
}

TEST_F(DispenseRegistrationTest, bodyThatIsNoJsonObject_isRefused)
{
    for (const QByteArray& body :
         {QByteArray("x"), QByteArray("{"), QByteArray("[]"), QByteArray("\"a\""), QByteArray()}) {
        const RawAnswer answer = ask("POST", "/MedicationDispense/$register", admitted(), body);
        expectRefusal(answer, RefusalCode::DocumentNoObject);
    }
}

struct WrongShape {
    const char* path;
    QJsonValue value;
    RefusalCode code;
    QStringList values = {};
};

void PrintTo(const WrongShape& shape, std::ostream* stream)
{
    *stream << shape.path << " = " << QJsonDocument(QJsonArray{shape.value}).toJson(QJsonDocument::Compact).constData();
}

class MisshapenDispense : public DispenseRegistrationTest, public ::testing::WithParamInterface<WrongShape>
{
};

TEST_P(MisshapenDispense, isRefusedByItsOwnCode)
{
    expectRefused(with(halfPriceDispense(), QLatin1StringView(GetParam().path), GetParam().value), GetParam().code,
                  GetParam().values);
}

namespace
{
const QJsonValue none = QJsonValue::Undefined;

INSTANTIATE_TEST_SUITE_P(
    DispenseRegistration, MisshapenDispense,
    ::testing::Values(
        WrongShape{"resourceType", u"Bundle"_s, RefusalCode::DocumentNoParametersResource},
        WrongShape{"parameter", QJsonObject(), RefusalCode::DocumentWithoutParameters},
        WrongShape{"parameter.0.name", u"x"_s, RefusalCode::DocumentParameterUnknown, {u"x"_s}},
        WrongShape{"parameter.0", 1, RefusalCode::DocumentParameterUnknown, {u""_s}},
        WrongShape{"parameter.0.name", u"claim"_s, RefusalCode::DocumentParameterTwice, {u"claim"_s}},
        WrongShape{"parameter", QJsonArray(), RefusalCode::DispenseMissing},
        WrongShape{"parameter.0.resource", 1, RefusalCode::DispenseMissing},
        WrongShape{"parameter.0.resource.resourceType", u"medicationDispense"_s, RefusalCode::DispenseMissing},
        WrongShape{"parameter.0.resource.status", u"in-progress"_s, RefusalCode::DispenseNotCompleted},
        WrongShape{"parameter.0.resource.authorizingPrescription", QJsonArray(), RefusalCode::PrescriptionNotOne},
        WrongShape{"parameter.0.resource.authorizingPrescription.1", QJsonObject(), RefusalCode::PrescriptionNotOne},
        WrongShape{"parameter.0.resource.authorizingPrescription.0.reference", u"Patient/1"_s,
                   RefusalCode::PrescriptionMissing},
        WrongShape{"parameter.0.resource.patient.reference", 5, RefusalCode::PatientMissing},
        WrongShape{"parameter.0.resource.contained", none, RefusalCode::MedicationMissing},
        WrongShape{"parameter.0.resource.contained.0", none, RefusalCode::MedicationMissing},
        WrongShape{"parameter.0.resource.contained.1", none, RefusalCode::LocationMissing},
        WrongShape{"parameter.0.resource.contained.1.address.text", none, RefusalCode::LocationIncomplete},
        WrongShape{"parameter.0.resource.medication.reference", u"#other"_s, RefusalCode::MedicationReferenceWrong},
        WrongShape{"parameter.0.resource.contained.0.isBrand", u"true"_s, RefusalCode::MedicationBrandMissing},
        WrongShape{"parameter.0.resource.contained.0.code.coding", QJsonArray(), RefusalCode::MedicationCodeNotOne},
        WrongShape{"parameter.0.resource.contained.0.code.coding.0.code", 1001, RefusalCode::MedicationCodeNoText},
        WrongShape{"parameter.0.resource.extension", none, RefusalCode::FinalMissing},
        WrongShape{"parameter.0.resource.extension.0.valueBoolean", 1, RefusalCode::FinalMissing},
        WrongShape{"parameter.0.resource.quantity.value", u"10"_s, RefusalCode::QuantityMissing},
        WrongShape{"parameter.0.resource.whenHandedOver", u"20.03.2024"_s, RefusalCode::HandedOverMissing},
        WrongShape{"parameter.1.resource", QJsonArray(), RefusalCode::ClaimMissing},
        WrongShape{"parameter.1.resource.type", u"vision"_s, RefusalCode::ClaimTypeWrong},
        WrongShape{"parameter.1.resource.created", none, RefusalCode::ClaimDateMissing},
        WrongShape{"parameter.1.resource.organization", none, RefusalCode::ClaimPayerMissing},
        WrongShape{"parameter.1.resource.originalPrescription", none, RefusalCode::ClaimPrescriptionMissing},
        WrongShape{"parameter.1.resource.patient", none, RefusalCode::ClaimPatientMissing},
        WrongShape{"parameter.1.resource.item.1", QJsonObject(), RefusalCode::ClaimItemNotOne},
        WrongShape{"parameter.1.resource.item.0.sequence", 2, RefusalCode::ClaimItemNumberWrong},
        WrongShape{"parameter.1.resource.item.0.type.code", none, RefusalCode::ClaimItemTypeUnknown},
        WrongShape{"parameter.1.resource.item.0.service.code", 2102, RefusalCode::ClaimServiceUnknown},
        WrongShape{"parameter.1.resource.item.0.unitPrice", none, RefusalCode::ClaimPriceMissing},
        WrongShape{"parameter.1.resource.item.0.factor", u"0.5"_s, RefusalCode::ClaimFactorMissing},
        WrongShape{"parameter.1.resource.item.0.net.value", none, RefusalCode::ClaimNetMissing}));
} // namespace
