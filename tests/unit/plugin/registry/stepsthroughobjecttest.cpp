// SPDX-License-Identifier: MIT
#include "electronicprescriptionexception.h"
#include "registrydoubles.h"

namespace
{

/// Every step that the operations go through is replaced; each writes down that it was called.
class Replaced : public ElectronicPrescriptionInterface
{
public:
    mutable QStringList steps;
    bool statusReported = true;
    QJsonDocument reply;

    void getAuthorizationToken(QString& token) const override
    {
        steps.append("token");
        token = "replaced";
    }
    void sendGetRequest(QUrl& url, const Headers& headers, const QueryItems&, QJsonDocument& result) const override
    {
        steps.append("get " + url.path() + ' ' + headers["Authorization"]);
        result = reply;
    }
    void sendPostRequest(const QUrl& url, const Headers& headers, const QByteArray&,
                         QJsonDocument& result) const override
    {
        steps.append("post " + url.path() + ' ' + headers["Authorization"]);
        result = reply;
    }
    bool checkRequestResultStatus(const QJsonObject&, const QString& expected) const override
    {
        steps.append("status " + expected);
        return statusReported;
    }
};

/// While the token is fetched, something else writes the position's options.
class WritesWithTheToken : public Replaced
{
public:
    QSharedPointer<PositionDouble> position;
    QString options;
    mutable QByteArray sent;

    void getAuthorizationToken(QString& token) const override
    {
        Replaced::getAuthorizationToken(token);
        position->setExtendedOptions(options);
    }
    void sendPostRequest(const QUrl& url, const Headers& headers, const QByteArray& body,
                         QJsonDocument& result) const override
    {
        sent = body;
        Replaced::sendPostRequest(url, headers, body, result);
    }
};

/// Only the last step is replaced.
class ResultReplaced : public ElectronicPrescriptionInterface
{
public:
    mutable int asked = 0;

    void getRequestResult(const QSharedPointer<RestClient>& client, QJsonDocument& result) const override
    {
        ++asked;
        EXPECT_FALSE(client.isNull());
        result = QJsonDocument(QJsonObject{{"access_token", "from the double"}});
    }
};

using StepsTest = RegistryTest;

TEST_F(StepsTest, prescriptionsByCard_goThroughTokenAndGet)
{
    Replaced interface;
    interface.reply = json(R"({"resourceType": "Bundle", "entry": [{"resource": {"resourceType": "Bundle"}}]})");
    QJsonArray prescriptions;
    QJsonObject patient;
    interface.getElectronicPrescriptionsByCardNumber("1", "active", prescriptions, patient);
    EXPECT_EQ(interface.steps, QStringList({"token", "get /MedicationPrescription/$by-card Bearer replaced"}));
    EXPECT_EQ(prescriptions.size(), 1);
}

TEST_F(StepsTest, cancellation_readsTheDispenseIdAfterTheTokenWasFetched)
{
    WritesWithTheToken interface;
    interface.position = QSharedPointer<PositionDouble>::create(R"({"medicationDispenseId": "before"})");
    interface.options = R"({"medicationDispenseId": "after"})";

    interface.sendCancelMedicationDispense(interface.position);

    EXPECT_EQ(interface.steps,
              QStringList({"token", "post /MedicationDispense/after/$set-as-error Bearer replaced", "status PUT:200"}));
}

TEST_F(StepsTest, registration_buildsItsDocumentBeforeTheTokenIsFetched)
{
    WritesWithTheToken interface;
    interface.position = QSharedPointer<PositionDouble>::create(R"({"id": "before", "sumFactor": 1})");
    interface.options = R"({"id": "after", "sumFactor": 1})";

    interface.sendMedicationDispense(interface.position);

    EXPECT_TRUE(interface.sent.contains("MedicationPrescription/before")) << interface.sent.toStdString();
}

TEST_F(StepsTest, registration_goesThroughTokenPostAndStatus)
{
    Replaced interface;
    interface.sendMedicationDispense(QSharedPointer<PositionDouble>::create());
    EXPECT_EQ(interface.steps,
              QStringList({"token", "post /MedicationDispense/$register Bearer replaced", "status POST:201"}));

    interface.statusReported = false;
    EXPECT_THROW(interface.sendMedicationDispense(QSharedPointer<PositionDouble>::create()),
                 ElectronicPrescriptionException);
}

TEST_F(StepsTest, cancellation_goesThroughTokenPostAndStatus)
{
    Replaced interface;
    const auto position = QSharedPointer<PositionDouble>::create(R"({"medicationDispenseId": "5"})");
    interface.sendCancelMedicationDispense(position);
    EXPECT_EQ(interface.steps,
              QStringList({"token", "post /MedicationDispense/5/$set-as-error Bearer replaced", "status PUT:200"}));

    interface.statusReported = false;
    EXPECT_THROW(interface.sendCancelMedicationDispense(position), ElectronicPrescriptionException);
}

TEST_F(StepsTest, token_goesThroughPostAndResult)
{
    const ResultReplaced interface;
    QString token;
    interface.getAuthorizationToken(token);
    EXPECT_EQ(token, "from the double");
    EXPECT_EQ(interface.asked, 1);
    EXPECT_EQ(requests.size(), 1);
}

TEST_F(StepsTest, get_goesThroughResult)
{
    const ResultReplaced interface;
    QUrl url("http://r.example");
    QJsonDocument result;
    interface.sendGetRequest(url, {}, {}, result);
    EXPECT_EQ(result.object()["access_token"].toString(), "from the double");
    EXPECT_EQ(interface.asked, 1);
}

} // namespace
