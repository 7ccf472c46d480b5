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
class RestClient;

/// The registry client: the only one who talks to the electronic-prescription registry.
///
/// Settings are read when it is made and never change. Every request blocks until the answer is there or the time-out
/// has passed, and fetches a token of its own first. Nothing is retried here; below it RestClient sends a GET once more
/// when a kept connection turns out to be dead, and never a POST. Nothing is kept between requests.
/// docs/registry-protocol.md tells the protocol.
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

    // Settings: registry/requesttransport.cpp

    /// Reads the settings from the register's configuration, section "ElectronicPrescription".
    ElectronicPrescriptionInterface();
    virtual ~ElectronicPrescriptionInterface();
    ElectronicPrescriptionInterface(const ElectronicPrescriptionInterface&) = delete;
    ElectronicPrescriptionInterface& operator=(const ElectronicPrescriptionInterface&) = delete;

    // A card's prescriptions: registry/prescriptionsbycard.cpp

    /// Asks for the prescriptions of a card.
    ///
    /// @param cardNumber, status sent as they are
    /// @param prescriptions the nested Bundles, one for each prescription, are appended
    /// @param patient the "Patient" resource; stays as it is when the answer has none
    ///
    /// Throws ElectronicPrescriptionNoPrescriptionsException when the registry has none; what was appended or copied
    /// before an exception stays.
    virtual void getElectronicPrescriptionsByCardNumber(const QString& cardNumber, const QString& status,
                                                        QJsonArray& prescriptions, QJsonObject& patient) const;

    // Dispenses: registry/dispenseregistration.cpp

    /// Registers the dispense of a position and writes the registry's id of it into the position's options.
    ///
    /// When it throws, the options are unchanged. An answer that registers and tells no id leaves them unchanged too.
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

    /// Takes the answer of a client whose request is over; throws when the request failed: with the "details" of the
    /// answer's first "issue" of severity "error" that has them, otherwise with the client's own text.
    /// @param result the answer, also when an exception follows; null when it was no JSON
    virtual void getRequestResult(const QSharedPointer<RestClient>& client, QJsonDocument& result) const;

    /// True when the answer is a Bundle one of whose entries has `expectedStatus`, such as "POST:201", as the status of
    /// its "transactionResponse". Never throws.
    virtual bool checkRequestResultStatus(const QJsonObject& answer, const QString& expectedStatus) const;

    /// The URL of `path`, which is not encoded and begins with "/", under the base URL. Two slashes become one.
    QUrl formUrl(const QString& baseUrl, const QString& path) const;

    /// The headers of every request for a resource; fetches a token.
    void formHeaders(Headers& headers) const;

    /// The pharmacy's OAIS token as a bearer token under `headerName`; nothing when none is configured.
    void addOaisTokenToHeaders(const QString& headerName, Headers& headers) const;

    void addAcceptToHeaders(Headers& headers) const;

    // The bearer token: registry/authorization.cpp

    /// @param body form-encoded, in ASCII
    void formTokenRequest(QUrl& url, Headers& headers, QString& body) const;

    // The dispense document: registry/dispensebundle.cpp
    //
    // `options` are the position's, as positionformat.h names them; a missing member reads as "", false or 0.
    // Amounts are in roubles with two decimals. None of these throws. The resources are those of HL7 FHIR in the old
    // vocabulary of docs/registry-protocol.md.

    /// The "Parameters" document of a position's dispense: the MedicationDispense, and a Claim when the patient does
    /// not pay the full price.
    void formMedicationDispense(const QSharedPointer<GoodsItem>& position, QJsonDocument& document) const;

    void formMedicationDispenseResource(const QJsonDocument& options, QJsonObject& resource) const;

    /// What the paying organization owes.
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
};
