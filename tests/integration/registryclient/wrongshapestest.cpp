// SPDX-License-Identifier: MIT
#include "registryclienttest.h"

using emulator::Endpoint;

namespace
{

using WrongShapesTest = RegistryClientTest;

/// Valid JSON that is no list of prescriptions. Each is wrong at one level, the outermost first.
constexpr const char* noPrescriptionList[] = {
    "[]",
    "[[[]]]",
    R"("text")",
    "null",
    "{}",
    R"({"resourceType": null})",
    R"({"resourceType": "Patient"})",
    R"({"resourceType": ["Bundle"], "entry": []})",
    R"({"resourceType": "Bundle", "entry": null})",
    R"({"resourceType": "Bundle", "entry": {"resource": {"resourceType": "Bundle"}}})",
    R"({"resourceType": "Bundle", "entry": [1, "a", null, []]})",
    R"({"resourceType": "Bundle", "entry": [{"Resource": {"resourceType": "Bundle"}}]})",
};

TEST_P(WrongShapesTest, noPrescriptionList_raisesTheErrorOfTheList)
{
    for (const char* body : noPrescriptionList) {
        registry->faults().answerBody(Endpoint::PrescriptionsByCard, body);
        const RequestFailure failure = askForCard("1100");
        EXPECT_EQ(failure.key, "electronicPrescriptionGetPrescriptionsError") << body;
        EXPECT_EQ(failure.text, "Ошибка при получении списка рецептов") << body;
        EXPECT_TRUE(prescriptions.isEmpty()) << body;
        EXPECT_TRUE(patient.isEmpty()) << body;
    }
}

TEST_P(WrongShapesTest, listWithoutAnyPrescription_raisesNoPrescriptions)
{
    for (const char* body :
         {R"({"resourceType": "Bundle"})", R"({"resourceType": "Bundle", "entry": [{"resource": "Bundle"}]})",
          R"({"resourceType": "Bundle", "entry": [{"resource": {"resourceType": 5}}]})"}) {
        registry->faults().answerBody(Endpoint::PrescriptionsByCard, body);
        const RequestFailure failure = askForCard("1100");
        EXPECT_TRUE(failure.isNoPrescriptions) << body;
        EXPECT_EQ(failure.text, "Рецепты не найдены") << body;
    }
}

TEST_P(WrongShapesTest, tokenAnswerOfAnotherShape_raisesTheTokenError)
{
    for (const char* body : {"[]", "{}", R"("token")", R"([{"access_token": "a"}])", R"({"token": "a"})"}) {
        registry->faults().answerBody(Endpoint::Token, body);
        EXPECT_EQ(askForCard("1100").text, "Ошибка при получении токена для авторизации") << body;
    }
    EXPECT_EQ(asked(Endpoint::PrescriptionsByCard), 0);
}

TEST_P(WrongShapesTest, tokenIsNoText_emptyTokenIsSentAndRefused)
{
    registry->faults().answerBody(Endpoint::Token, R"({"access_token": {"value": "a"}})");
    EXPECT_EQ(askForCard("1100").text, "Запрос без токена авторизации");
    EXPECT_EQ(lastOf(Endpoint::PrescriptionsByCard).status, 401);
}

TEST_P(WrongShapesTest, transactionAnswerOfAnotherShape_raisesTheOperationsError)
{
    for (const char* body :
         {"[]", "{}", R"({"resourceType": "Bundle", "entry": {}})", R"({"resourceType": "Bundle", "entry": [[]]})",
          R"({"resourceType": "Bundle", "entry": [{"transactionResponse": "POST:201"}]})",
          R"({"resourceType": "Bundle", "entry": [{"transactionResponse": {"status": ["POST:201"]}}]})"}) {
        registry->faults().answerBody(Endpoint::DispenseRegistration, body);
        EXPECT_EQ(registerDispense().key, "electronicPrescriptionDispenseError") << body;
        EXPECT_EQ(position->getExtendedOptions(), dueOptions) << body;

        registry->faults().answerBody(Endpoint::DispenseCancellation, body);
        EXPECT_EQ(cancelDispense().key, "electronicPrescriptionCancelError") << body;
    }
}

TEST_P(WrongShapesTest, textOfTenThousandLetters_arrivesWhole)
{
    const QByteArray name = QString(10'000, u'Ж').toUtf8();
    registry->faults().answerBody(Endpoint::PrescriptionsByCard,
                                  R"({"resourceType": "Bundle", "entry": [{"resource": {"resourceType": "Bundle"}},
                                      {"resource": {"resourceType": "Patient", "name": [{"family": [")" +
                                      name + R"("]}]}}]})");
    EXPECT_FALSE(askForCard("1100"));
    EXPECT_EQ(patient["name"][0]["family"][0].toString().toUtf8(), name);
}

OVER_HTTP_AND_HTTPS(WrongShapesTest);

} // namespace
