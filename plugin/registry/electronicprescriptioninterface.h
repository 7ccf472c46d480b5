// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QList>
#include <QSharedPointer>
#include <QString>
#include <QUrl>

#include <utility>

class GoodsItem;
class PositionOptions;
class RestClient;

/// The registry client. Nothing else in the plug-in talks to the electronic-prescription registry.
///
/// The constructor reads the settings; they never change. Every request fetches a token of its own first, and blocks
/// until the answer is there or the time-out has passed. Nothing is kept between requests, and nothing is repeated
/// here: below it RestClient repeats a GET once when a kept connection turns out to be dead, and never a POST.
/// docs/registry-protocol.md describes the protocol.
///
/// The virtual operations call one another through the object, so that a double can replace a single one. The order of
/// the virtual members is part of the class: integrators' doubles are compiled against it.
///
/// Errors: ElectronicPrescriptionException with a text for the cashier, the registry's own where it sent one.
/// Main thread only.
class ElectronicPrescriptionInterface
{
public:
    /// Header names and their values.
    using Headers = QHash<QString, QString>;
    /// Names and values of a query, in the order in which they are sent; the values as they are, not encoded.
    using QueryItems = QList<std::pair<QString, QString>>;

    // Settings: registry/settings.cpp

    /// Reads the settings from the register's configuration, section "ElectronicPrescription".
    ElectronicPrescriptionInterface();
    virtual ~ElectronicPrescriptionInterface();
    Q_DISABLE_COPY_MOVE(ElectronicPrescriptionInterface)

    // A card's prescriptions: registry/prescriptionsbycard.cpp

    /// Asks for the prescriptions of a card.
    ///
    /// @param cardNumber, status sent unchanged
    /// @param prescriptions the nested Bundles are appended, one for each prescription
    /// @param patient the "Patient" resource; unchanged when the answer has none
    ///
    /// Throws ElectronicPrescriptionNoPrescriptionsException when the registry has none. What was appended or copied
    /// before an exception stays.
    virtual void getElectronicPrescriptionsByCardNumber(const QString& cardNumber, const QString& status,
                                                        QJsonArray& prescriptions, QJsonObject& patient) const;

    // Dispenses: registry/dispenseregistration.cpp

    /// Registers the dispense of a position and writes the registry's id of it into the position's options.
    ///
    /// The options are unchanged when it throws, and when the answer registers without a MedicationDispense.
    virtual void sendMedicationDispense(const QSharedPointer<GoodsItem>& position) const;

    /// Declares the position's registered dispense erroneous. The id stays in the position's options.
    virtual void sendCancelMedicationDispense(const QSharedPointer<GoodsItem>& position) const;

    // The bearer token: registry/authorization.cpp

    /// Asks the authorization server for a token: OAuth2 client credentials, RFC 6749, 4.4.
    virtual void getAuthorizationToken(QString& token) const;

    // Requests: registry/requesttransport.cpp

    /// Sends a GET.
    /// @param url gets the query items as its query, in place of the one it has
    /// @param result the answer, also when an exception follows
    virtual void sendGetRequest(QUrl& url, const Headers& headers, const QueryItems& queryItems,
                                QJsonDocument& result) const;

    /// Sends a POST.
    /// @param result the answer, also when an exception follows
    virtual void sendPostRequest(const QUrl& url, const Headers& headers, const QByteArray& body,
                                 QJsonDocument& result) const;

    /// Takes the answer of a client whose request is over. When the request failed it throws, with the "details" of the
    /// first "issue" of severity "error" in the answer that has them (HL7 FHIR, OperationOutcome), otherwise with the
    /// client's own text.
    /// @param result the answer, also when an exception follows; null when it was no JSON
    virtual void getRequestResult(const QSharedPointer<RestClient>& client, QJsonDocument& result) const;

    /// True when the answer is a Bundle one of whose entries has `expectedStatus`, such as "POST:201", as the status of
    /// its "transactionResponse". Never throws.
    virtual bool checkRequestResultStatus(const QJsonObject& answer, const QString& expectedStatus) const;

    /// The URL of a path under the base URL. Two slashes become one.
    /// @param path begins with "/"; not percent-encoded
    QUrl formUrl(const QString& baseUrl, const QString& path) const;

    /// Sets the headers of every request for a resource. Fetches a token.
    void formHeaders(Headers& headers) const;

    /// Sets the header of that name to the pharmacy's OAIS token, as a bearer token. Without such a token it sets
    /// nothing.
    void addOaisTokenToHeaders(const QString& headerName, Headers& headers) const;

    /// Asks for an answer in JSON.
    void addAcceptToHeaders(Headers& headers) const;

    // The bearer token: registry/authorization.cpp

    /// The request for a token, RFC 6749, 4.4.2.
    /// @param body form-encoded, in ASCII
    void formTokenRequest(QUrl& url, Headers& headers, QString& body) const;

    // The dispense document, a resource "Parameters": registry/dispenseparameters.cpp
    //
    // `options` are those of a position, see PositionOptions; a missing member reads as "", false or 0. Amounts are in
    // roubles with two decimals. Each builder dates its resource today. None of them throws. The resources are those of
    // HL7 FHIR in the old vocabulary of docs/registry-protocol.md.

    /// The whole document of a position's dispense: the MedicationDispense, and a Claim when the patient does not pay
    /// the full price. Both have the same date.
    void formMedicationDispense(const QSharedPointer<GoodsItem>& position, QJsonDocument& document) const;

    /// The doses handed out, for which prescription, and where.
    void formMedicationDispenseResource(const QJsonDocument& options, QJsonObject& resource) const;

    /// What the paying organization owes for the patient's benefit.
    /// @param sum the position's sum, which the patient pays
    /// @param fullPrice the goods' catalogue price times the quantity; claimed when the patient pays nothing
    void formClaimResource(const QJsonDocument& options, double sum, double fullPrice, QJsonObject& resource) const;

    /// The medicine handed out, by its code in the dosage dictionary.
    void formMedicationResource(const QJsonDocument& options, QJsonObject& resource) const;

    /// The pharmacy, from the settings.
    QJsonObject formLocationResource() const;

    /// Sets the member "coding" of `target` to the one coding given.
    void formCoding(const QString& system, const QString& code, QJsonObject& target) const;

protected:
    // Settings, each named like its key, and read in this order.

    const QString requestsUrl;            ///< base of every request for a resource
    const QString authorizationUrl;       ///< base of the token request
    const int timeout;                    ///< of one request, in seconds
    const QString clientId;               ///< OAuth2 client
    const QString clientSecret;           ///< never logged
    const QString scope;                  ///< OAuth2 scopes asked for, separated by blanks
    const QString organizationIdentifier; ///< the pharmacy, for the token request
    const QString organizationName;       ///< the pharmacy, for the dispense document
    const QString organizationAddress;    ///< the pharmacy, for the dispense document
    const QString oais;                   ///< token of the pharmacy's own system; empty: none

private:
    // The dispense document: registry/dispenseparameters.cpp

    /// @param date the day of the dispense, "yyyy-MM-dd"
    QJsonObject medicationDispenseOf(const PositionOptions& options, const QString& date) const;
};
