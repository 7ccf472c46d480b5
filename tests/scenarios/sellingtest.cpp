// SPDX-License-Identifier: MIT
// Prescriptions are sold: from the serving to the closed document and its printed receipt, with every request.

#include "cashiersteps.h"
#include "pharmacy.h"
#include "request.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace
{

using ::testing::HasSubstr;

const QString tokenPath = u"/connect/token"_s;
const QString registerPath = u"/MedicationDispense/$register"_s;

class Selling : public Pharmacy
{
protected:
    /// The resource of that name in the document of a dispense request.
    static QJsonObject resource(const QJsonObject& request, const char* name)
    {
        const QJsonDocument body = QJsonDocument::fromJson(request["body"].toString().toUtf8());
        for (const QJsonValue& parameter : body["parameter"].toArray()) {
            if (parameter["name"].toString() == QLatin1StringView(name)) {
                return parameter["resource"].toObject();
            }
        }
        return {};
    }
};

TEST_F(Selling, twoPrescriptionsByKeyboardAlone_areRegisteredPaidAndPrinted)
{
    expectPlayed(play("sold-by-keyboard.json"));

    const QJsonObject closed = finished(1);
    EXPECT_EQ(closed["state"].toString(), "closed");
    EXPECT_EQ(closed["received"].toDouble(), 5.0);
    EXPECT_EQ(registeredBy(closed).size(), 2);
    EXPECT_EQ(validDispenses(), registeredBy(closed));
    EXPECT_TRUE(savedDocument().isEmpty());

    const auto complete = registry.dispensesOf("rx-2001");
    ASSERT_EQ(complete.size(), 1);
    EXPECT_EQ(complete[0].quantity, 60);
    EXPECT_TRUE(complete[0].final);
    EXPECT_EQ(registry.statusOf("rx-2001"), "completed");
    const auto part = registry.dispensesOf("rx-2002");
    ASSERT_EQ(part.size(), 1);
    EXPECT_EQ(part[0].quantity, 10);
    EXPECT_FALSE(part[0].final);
    EXPECT_EQ(registry.statusOf("rx-2002"), "active");

    EXPECT_THAT(printed(1), HasSubstr("ЧЕК № 1"));
    EXPECT_THAT(printed(1), HasSubstr("Сумма без льготы 19,52 Льгота всего −17,57 ИТОГО, BYN 1,95"));
    EXPECT_THAT(printed(1), HasSubstr("Получено наличными 5,00"));
    EXPECT_THAT(printed(1), HasSubstr("Сдача 3,05"));
    EXPECT_THAT(printed(1), HasSubstr("Сумма без льготы 14,90"));
    EXPECT_THAT(printed(1), HasSubstr("Льгота −13,41"));
    EXPECT_THAT(printed(1), HasSubstr("Отпущено доз: 60"));
    EXPECT_THAT(printed(1), HasSubstr("Отпущено доз: 10"));
    EXPECT_THAT(printed(1), HasSubstr("Организация: Городская поликлиника № 12"));
    EXPECT_THAT(printed(1), HasSubstr("Рецепт: БД 4100074"));
}

TEST_F(Selling, onePrescriptionByTouchAlone_isRegisteredAndPaid)
{
    expectPlayed(play("sold-by-touch.json", {"--touch"}));
    EXPECT_EQ(finished(1)["state"].toString(), "closed");
    EXPECT_EQ(finished(1)["received"].toDouble(), 10.0);
    EXPECT_EQ(registeredBy(finished(1)).size(), 1);
    EXPECT_EQ(validDispenses(), registeredBy(finished(1)));
    EXPECT_EQ(registry.statusOf("rx-1001"), "completed");
}

TEST_F(Selling, threePrescriptionsServed_giveTheDocumentThatOtherTestsBeginWith)
{
    expectPlayed(play("three-prescriptions-served.json"));
    QJsonObject served = savedDocument();
    leaveOpen("three-prescriptions.json");
    QJsonObject fixture = savedDocument();
    served.remove("opened");
    fixture.remove("opened");
    EXPECT_EQ(served, fixture);
}

class Subtotal : public Selling
{
protected:
    void SetUp() override
    {
        Selling::SetUp();
        leaveOpen("three-prescriptions.json");
    }
};

TEST_F(Subtotal, threePrescriptions_areEachSentOnceWithTheirDocument)
{
    configure("ElectronicPrescription:oais", "oais token");
    expectPlayed(playSteps({cashier::findsTheDocument, cashier::subtotal}));

    const QJsonArray requests = registry.journal();
    EXPECT_EQ(registry.requestedPaths(),
              (QStringList{tokenPath, registerPath, tokenPath, registerPath, tokenPath, registerPath}));
    const struct {
        QString prescription;
        double doses;
        bool final;
        double price;
        double net;
    } expected[] = {
        {"rx-2001", 60, true, 14.9, 13.41}, {"rx-2002", 10, false, 4.6, 4.14}, {"rx-2003", 5, false, 6.8, 6.12}};
    for (int position = 0; position < 3; ++position) {
        SCOPED_TRACE(position);
        const QJsonObject request = requests[2 * position + 1].toObject();
        EXPECT_EQ(request["method"].toString(), "POST");
        EXPECT_TRUE(header(request, "Authorization").startsWith("Bearer "));
        EXPECT_EQ(header(request, "OAIS"), "Bearer oais token");
        EXPECT_EQ(header(request, "Content-Type"), "application/json; charset=utf-8");

        const auto& line = expected[position];
        const QJsonValue dispense = resource(request, "medicationDispense");
        EXPECT_EQ(dispense["authorizingPrescription"][0]["reference"].toString(),
                  "MedicationPrescription/" + line.prescription);
        EXPECT_EQ(dispense["patient"]["reference"].toString(), "Patient/patient-2");
        EXPECT_EQ(dispense["quantity"]["value"].toDouble(), line.doses);
        EXPECT_EQ(dispense["extension"][0]["valueBoolean"].toBool(), line.final);
        const QJsonValue claim = resource(request, "claim");
        EXPECT_EQ(claim["originalPrescription"]["reference"].toString(), "MedicationPrescription/" + line.prescription);
        EXPECT_EQ(claim["organization"]["reference"].toString(), "Organization/payer-1");
        EXPECT_EQ(claim["item"][0]["factor"].toDouble(), 0.9);
        EXPECT_EQ(claim["item"][0]["unitPrice"]["value"].toDouble(), line.price);
        EXPECT_EQ(claim["item"][0]["net"]["value"].toDouble(), line.net);
    }
    EXPECT_EQ(registeredBy(savedDocument()).size(), 3);
    EXPECT_EQ(validDispenses(), registeredBy(savedDocument()));
}

TEST_F(Subtotal, repeated_sendsNothing)
{
    expectPlayed(playSteps({cashier::findsTheDocument, cashier::subtotal, cashier::backToThePositions,
                            cashier::subtotal, cashier::backToThePositions, cashier::toThePayment}));
    EXPECT_EQ(registry.requestsTo("register"), 3);
    EXPECT_EQ(registry.requestsTo("token"), 3);
    EXPECT_EQ(validDispenses(), registeredBy(savedDocument()));
}

TEST_F(Subtotal, straightToThePayment_registersAsWell)
{
    expectPlayed(playSteps({cashier::findsTheDocument, cashier::toThePayment}));
    EXPECT_EQ(registeredBy(savedDocument()).size(), 3);
    EXPECT_EQ(validDispenses(), registeredBy(savedDocument()));
}

TEST_F(Subtotal, prescriptionAddedAfterwards_isTheOnlyOneSentNext)
{
    expectPlayed(playSteps({cashier::findsTheDocument, cashier::subtotal, cashier::servesTheNext, cashier::subtotal}));
    EXPECT_EQ(registry.requestsTo("register"), 4);
    const auto added = registry.dispensesOf("rx-2004");
    ASSERT_EQ(added.size(), 1);
    EXPECT_EQ(added[0].quantity, 3);
    EXPECT_EQ(registeredBy(savedDocument()).size(), 4);
    EXPECT_EQ(validDispenses(), registeredBy(savedDocument()));
}

TEST_F(Subtotal, registryFailsAtTheSecond_isShownAndTheNextSubtotalSendsTheRest)
{
    registry.orderFault(
        {{"endpoint", "register"}, {"nth", 2}, {"fault", "status"}, {"status", 503}, {"issue", "Идут работы"}});
    expectPlayed(playSteps({cashier::findsTheDocument, cashier::tries(R"({"key": "F6"})", "Идут работы"),
                            R"({"visible": false, "in": "paymentPanel"},
                             {"contains": "Подытог не выполнен", "in": "statusMessageLabel"},
                             {"contains": "1,49 | зарегистрирован", "in": "receiptTable"},
                             {"contains": "0,46 | не зарегистрирован", "in": "receiptTable"},
                             {"contains": "0,68 | не зарегистрирован", "in": "receiptTable"})"}));
    EXPECT_EQ(registry.requestsTo("register"), 2);
    EXPECT_EQ(registeredBy(savedDocument()).size(), 1);
    EXPECT_EQ(validDispenses(), registeredBy(savedDocument()));

    expectPlayed(playSteps({cashier::findsTheDocument, cashier::subtotal, cashier::pays}));
    EXPECT_EQ(registry.requestsTo("register"), 4);
    EXPECT_EQ(registry.dispenses().size(), 3);
    EXPECT_EQ(registeredBy(finished(1)).size(), 3);
    EXPECT_EQ(validDispenses(), registeredBy(finished(1)));
}

TEST_F(Subtotal, registryFailsOnTheWayToThePayment_paymentIsNotShownAndNothingIsPaid)
{
    registry.orderFault({{"endpoint", "register"}, {"fault", "status"}, {"status", 503}, {"issue", "Идут работы"}});
    expectPlayed(playSteps({cashier::findsTheDocument, cashier::tries(R"({"key": "F12"})", "Идут работы"),
                            R"({"visible": false, "in": "paymentPanel"},
                             {"contains": "Оплата не выполнена", "in": "statusMessageLabel"})"}));
    EXPECT_EQ(registeredBy(savedDocument()), QStringList());
    EXPECT_EQ(files("finished"), QStringList());
}

TEST_F(Subtotal, answerLost_isShownAsUncertainAndNotSentAgainByItself)
{
    registry.orderFault({{"endpoint", "register"}, {"nth", 2}, {"fault", "cut"}});
    expectPlayed(
        playSteps({cashier::findsTheDocument, cashier::tries(R"({"key": "F6"})", "Запрос мог быть выполнен")}));
    EXPECT_EQ(registry.requestsTo("register"), 2);
    EXPECT_EQ(registeredBy(savedDocument()).size(), 1);
    EXPECT_EQ(validDispenses().size(), 2);
}

TEST_F(Subtotal, registeredPosition_keepsItsQuantity)
{
    expectPlayed(playSteps({cashier::findsTheDocument, cashier::subtotal, cashier::backToThePositions,
                            cashier::tries(R"({"row": 0, "in": "receiptTable"}, {"key": "F4"})", "не меняются")}));
    EXPECT_EQ(savedPositions().first().toObject()["quantity"].toDouble(), 1.0);
}

TEST_F(Subtotal, windowClosedDuringADispense_answerIsWaitedForAndKept)
{
    registry.orderFault({{"endpoint", "register"}, {"nth", 2}, {"fault", "delay"}, {"delay", 800}});
    expectPlayed(playSteps({cashier::findsTheDocument, R"({"key": "F6"}, {"wait": "busyScreen"}, {"close": true})"}));
    EXPECT_EQ(registeredBy(savedDocument()).size(), 3);
    EXPECT_EQ(validDispenses(), registeredBy(savedDocument()));
    EXPECT_EQ(registry.dispenses().size(), 3);
}

TEST_F(Subtotal, screenLockedDuringThePayment_amountAndDocumentStay)
{
    configure("GUI:inactivityLockSeconds", "1");
    expectPlayed(playSteps({cashier::findsTheDocument, cashier::toThePayment,
                            R"({"type": "50"}, {"wait": "lockScreen"}, {"key": "Space"},
                             {"visible": false, "in": "lockScreen"}, {"expect": "50", "in": "receivedLineEdit"},
                             {"expect": "Сдача 47,37 BYN", "in": "changeLabel"}, {"key": "Return"})",
                            cashier::isIdle}));
    EXPECT_EQ(finished(1)["received"].toDouble(), 50.0);
    EXPECT_EQ(registeredBy(finished(1)).size(), 3);
    EXPECT_EQ(validDispenses(), registeredBy(finished(1)));
}

} // namespace
