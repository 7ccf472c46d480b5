// SPDX-License-Identifier: MIT
#include "cashiersteps.h"
#include "pharmacy.h"
#include "request.h"

using namespace Qt::StringLiterals;

namespace
{

const QString tokenPath = u"/connect/token"_s;
const QString byCardPath = u"/MedicationPrescription/$by-card"_s;

} // namespace

class PrescriptionServing : public Pharmacy
{
};

TEST_F(PrescriptionServing, servedByKeyboard_goodsAreInTheDocumentAtTheBenefitPrice)
{
    expectPlayed(play("served-by-keyboard.json"));

    const QJsonArray positions = savedPositions();
    ASSERT_EQ(positions.size(), 1);
    const QJsonObject position = positions[0].toObject();
    const QJsonObject options = optionsOf(position);
    EXPECT_EQ(options.value("id").toString(), position.value("softCheckId").toString());
    EXPECT_FALSE(options.value("id").toString().isEmpty());
    EXPECT_EQ(options.value("patient").toString(), u"Берёзкин Антон Олегович"_s);
    EXPECT_FALSE(options.contains("status"));
    EXPECT_NEAR(position.value("price").toDouble(),
                position.value("initialPrice").toDouble() * options.value("sumFactor").toDouble(), 0.0051);
    EXPECT_LT(position.value("price").toDouble(), position.value("initialPrice").toDouble());
    const QJsonValue ofThePlugin = savedDocument().value("plugins")["ElectronicPrescriptionService"];
    EXPECT_EQ(ofThePlugin["cardNumber"].toString(), u"1100000000000001"_s);
}

TEST_F(PrescriptionServing, servedByKeyboard_registryIsAskedForATokenAndTheCard)
{
    configure("ElectronicPrescription:oais", "oais token");
    expectPlayed(play("served-by-keyboard.json"));

    const QJsonArray requests = registry.journal();
    ASSERT_EQ(requests.size(), 2);
    const QJsonObject token = requests[0].toObject();
    EXPECT_EQ(token.value("method").toString(), u"POST"_s);
    EXPECT_EQ(token.value("path").toString(), tokenPath);
    EXPECT_EQ(header(token, "Content-Type"), u"application/x-www-form-urlencoded"_s);
    EXPECT_EQ(header(token, "Authorization"), u"Bearer oais token"_s);
    EXPECT_EQ(token.value("body").toString(),
              u"grant_type=client_credentials&client_id=pharmacy-17&client_secret=secret%2617"
              "&scope=dispense&organization_identifier=100000017"_s);
    const QJsonObject byCard = requests[1].toObject();
    EXPECT_EQ(byCard.value("method").toString(), u"GET"_s);
    EXPECT_EQ(byCard.value("target").toString(), byCardPath + u"?patientIdentifier=1100000000000001&status=active"_s);
    EXPECT_TRUE(header(byCard, "Authorization").startsWith("Bearer "_L1));
    EXPECT_EQ(header(byCard, "OAIS"), u"Bearer oais token"_s);
    EXPECT_EQ(header(byCard, "Accept"), u"application/json"_s);
}

TEST_F(PrescriptionServing, servedByTouch_goodsAreInTheDocument)
{
    expectPlayed(play("served-by-touch.json", {"--touch"}));
    EXPECT_EQ(savedPositions().size(), 1);
}

TEST_F(PrescriptionServing, backFromEveryStep_nothingIsLeftBehindAndServingGoesOn)
{
    expectPlayed(play("back-from-every-step.json"));
    EXPECT_EQ(savedPositions().size(), 1);
}

TEST_F(PrescriptionServing, backByTouchFromEveryStep_leadsToTheStepBeforeWithTheDocumentAsItWas)
{
    expectPlayed(play("back-by-touch-from-every-step.json", {"--touch"}));
    EXPECT_EQ(savedPositions().size(), 2);
    EXPECT_EQ(registry.dispenses().size(), 0);
}

TEST_F(PrescriptionServing, returnPressedAheadOfTheConfirmation_choosesNothing)
{
    expectPlayed(play("hasty-return-at-the-confirmation.json"));
    EXPECT_EQ(savedPositions().size(), 1);
}

TEST_F(PrescriptionServing, screenLockedWhileTheDosesAreTyped_servingGoesOnWhereItWas)
{
    configure("GUI:inactivityLockSeconds", "1");
    configure("Register:unlockCode", "2468");
    expectPlayed(playSteps({cashier::opensADocument,
                            R"({"key": "F5"}, {"wait": "inputLineEdit"}, {"scan": "1100000000000001"},
                               {"wait": "electronicPrescriptionsTableView"}, {"key": "Return"},
                               {"wait": "chooseButton"}, {"key": "Return"}, {"wait": "goodsTable"}, {"key": "Return"},
                               {"wait": "inputLineEdit"}, {"type": "4"}, {"wait": "lockScreen"},
                               {"visible": false, "in": "inputLineEdit"}, {"type": "2468", "into": "unlockLineEdit"},
                               {"key": "Return"}, {"visible": false, "in": "lockScreen"},
                               {"expect": "4", "in": "inputLineEdit"}, {"key": "Return"},
                               {"click": "partDispenseButton"}, {"visible": false, "in": "partDispenseButton"})"}));
    ASSERT_EQ(savedPositions().size(), 1);
}

TEST_F(PrescriptionServing, filterTypedAndChosen_staysOnTheWayBackAndIsEmptyAtTheNextCommand)
{
    expectPlayed(play("filter-kept-on-the-way-back.json"));
}

TEST_F(PrescriptionServing, secondPrescriptionOfTheCard_comesFromTheCacheWithoutTheFirst)
{
    expectPlayed(play("two-from-one-card.json"));
    EXPECT_EQ(registry.requestedPaths(), (QStringList{tokenPath, byCardPath}));
    ASSERT_EQ(savedPositions().size(), 2);
    EXPECT_NE(optionsOf(savedPositions()[0].toObject()).value("id"),
              optionsOf(savedPositions()[1].toObject()).value("id"));
}

TEST_F(PrescriptionServing, cardWithoutPrescriptions_isShownAndTheNextCommandAsksForACard)
{
    expectPlayed(play("card-without-prescriptions.json"));
}

TEST_F(PrescriptionServing, enterPressedTenTimesWhileTheRegistryIsSlow_choosesNothing)
{
    registry.orderFault({{"fault", "delay"}, {"endpoint", "by-card"}, {"delay", 3000}});
    expectPlayed(play("enter-pressed-while-waiting.json"));
    EXPECT_EQ(registry.requestedPaths(), (QStringList{tokenPath, byCardPath}));
}

namespace
{

/// A step of serving, and how the cashier gets there from the step before.
struct ServingStep {
    const char* name;
    QByteArray way;
};

const ServingStep servingSteps[] = {
    {"card", R"({"key": "F5"}, {"wait": "inputLineEdit"})"},
    {"list", R"({"scan": "1100000000000001"}, {"wait": "electronicPrescriptionsTableView"})"},
    {"details", R"({"key": "Return"}, {"wait": "chooseButton"})"},
    {"goods", R"({"key": "Return"}, {"wait": "goodsTable"})"},
    {"doses", R"({"key": "Return"}, {"wait": "inputLineEdit"})"},
    {"confirmation", R"({"type": "5"}, {"key": "Return"}, {"wait": "completeDispenseButton"})"},
};

} // namespace

class WindowClosed : public Pharmacy, public ::testing::WithParamInterface<int>
{
};

TEST_P(WindowClosed, whileServing_registerEndsAndTheNextStartHasTheDocumentAsItWas)
{
    const QByteArray untouched = R"({"receipt": {"positions": [{"price": 12.4, "quantity": 1, "tags": []}]}})";
    QByteArrayList steps{R"({"key": "F2"}, {"scan": "2990000000019"})", untouched};
    for (int step = 0; step <= GetParam(); ++step) {
        steps += servingSteps[step].way;
    }
    expectPlayed(playSteps(steps + QByteArrayList{R"({"close": true})"}));
    ASSERT_EQ(savedPositions().size(), 1);

    expectPlayed(playSteps({R"({"contains": "Амоксидар", "in": "receiptTable"})", untouched,
                            R"({"key": "F5"}, {"wait": "inputLineEdit"}, {"expect": "", "in": "inputLineEdit"})"}));
    EXPECT_EQ(registry.dispenses().size(), 0);
}

INSTANTIATE_TEST_SUITE_P(At, WindowClosed, ::testing::Range(0, int(std::size(servingSteps))),
                         [](const auto& step) { return std::string(servingSteps[step.param].name); });
