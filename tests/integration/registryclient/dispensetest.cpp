// SPDX-License-Identifier: MIT
#include "positionformat.h"
#include "registryclienttest.h"

using emulator::Endpoint;

namespace
{

using DispenseTest = RegistryClientTest;

TEST_P(DispenseTest, registration_isBookedOnceWithItsClaimAndThePositionGetsItsId)
{
    const RequestFailure failure = registerDispense();
    EXPECT_FALSE(failure) << failure.text.toStdString();

    const auto dispenses = registry->store().dispensesOf("rx-half");
    ASSERT_EQ(dispenses.size(), 1);
    EXPECT_EQ(dispenses[0].quantity, 10.0);
    EXPECT_FALSE(dispenses[0].isFinal);
    EXPECT_FALSE(dispenses[0].claim.isEmpty());
    EXPECT_EQ(dispenseId(), dispenses[0].id);
    EXPECT_FALSE(dispenseId().isEmpty());
    QJsonObject options = QJsonDocument::fromJson(position->getExtendedOptions().toUtf8()).object();
    options.remove(positionformat::medicationDispenseId);
    EXPECT_EQ(options, QJsonDocument::fromJson(dueOptions.toUtf8()).object());

    const auto request = lastOf(Endpoint::DispenseRegistration);
    EXPECT_EQ(request.method, "POST");
    EXPECT_EQ(request.target, "/MedicationDispense/$register");
    EXPECT_EQ(request.header("Content-Type"), "application/json; charset=utf-8");
    EXPECT_EQ(request.header("Accept"), "application/json");
    EXPECT_EQ(asked(Endpoint::DispenseRegistration), 1);
}

TEST_P(DispenseTest, patientPaysAll_isRegisteredWithoutAClaim)
{
    position->setExtendedOptions(R"({"id": "rx-full", "tradeNameCode": "1001", "organizationId": "", "sumFactor": 1,
        "doseQuantity": 20, "finalDispense": true, "patientReference": "Patient/p-1"})");
    const RequestFailure failure = registerDispense();
    EXPECT_FALSE(failure) << failure.text.toStdString();
    const auto dispenses = registry->store().dispensesOf("rx-full");
    ASSERT_EQ(dispenses.size(), 1);
    EXPECT_TRUE(dispenses[0].isFinal);
    EXPECT_TRUE(dispenses[0].claim.isEmpty());
}

TEST_P(DispenseTest, refusedDispense_raisesTheRegistrysTextAndLeavesTheOptions)
{
    const QString options = QString(dueOptions).replace("rx-half", "rx-unknown");
    position->setExtendedOptions(options);
    const RequestFailure failure = registerDispense();
    EXPECT_EQ(failure.key, tr::undefined);
    EXPECT_EQ(failure.text, "Рецепт rx-unknown не найден в реестре");
    EXPECT_EQ(position->getExtendedOptions(), options);
}

TEST_P(DispenseTest, cancellation_cancelsTheDispenseAndKeepsTheId)
{
    EXPECT_FALSE(registerDispense());
    const QString registered = position->getExtendedOptions();
    const QString id = dispenseId();
    const RequestFailure failure = cancelDispense();
    EXPECT_FALSE(failure) << failure.text.toStdString();

    const auto dispense = registry->store().dispense(id);
    ASSERT_TRUE(dispense.has_value());
    EXPECT_TRUE(dispense->isCancelled);
    EXPECT_EQ(position->getExtendedOptions(), registered);

    const auto request = lastOf(Endpoint::DispenseCancellation);
    EXPECT_EQ(request.method, "POST");
    EXPECT_EQ(request.target, "/MedicationDispense/" + id.toUtf8() + "/$set-as-error");
    EXPECT_EQ(request.header("Content-Type"), "application/json; charset=utf-8");
    EXPECT_EQ(QJsonDocument::fromJson(request.body), QJsonDocument(QJsonObject()));
    EXPECT_EQ(asked(Endpoint::DispenseCancellation), 1);
}

TEST_P(DispenseTest, secondCancellation_raisesTheRegistrysText)
{
    EXPECT_FALSE(registerDispense());
    EXPECT_FALSE(cancelDispense());
    EXPECT_EQ(cancelDispense().text, "Отпуск " + dispenseId() + " уже отменён");
}

TEST_P(DispenseTest, cancelledPosition_isRegisteredAgainUnderANewId)
{
    EXPECT_FALSE(registerDispense());
    const QString former = dispenseId();
    EXPECT_FALSE(cancelDispense());
    EXPECT_FALSE(registerDispense());
    EXPECT_NE(dispenseId(), former);
    ASSERT_TRUE(registry->store().dispense(dispenseId()).has_value());
    EXPECT_FALSE(registry->store().dispense(dispenseId())->isCancelled);
}

TEST_P(DispenseTest, positionWithoutAnId_usesTheShortPathAndIsRefused)
{
    EXPECT_TRUE(cancelDispense());
    ASSERT_FALSE(registry->journal().entries().isEmpty());
    EXPECT_EQ(registry->journal().entries().last().target, "/MedicationDispense/$set-as-error");
}

OVER_HTTP_AND_HTTPS(DispenseTest);

} // namespace
