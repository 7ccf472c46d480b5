// SPDX-License-Identifier: MIT
#pragma once

#include "electronicprescriptioninterface.h"

#include <QJsonDocument>
#include <QString>

namespace doctor
{

/// What became of a request of the plug-in's registry client.
struct RequestOutcome {
    int code = 0;         ///< RestClient::errorCode(): 0, a status from 300 on, or the transport's own code below 100
    QJsonDocument answer; ///< null when it was no JSON
    QString words;        ///< what the till would show, without secrets, in one line; empty when nothing failed

    bool isTransportFailure() const { return 0 < code && code < 100; }
};

/// The plug-in's registry client, which also keeps what its last request came to. It asks for one token, and uses that
/// for every request.
class ObservedRegistry : public ElectronicPrescriptionInterface
{
public:
    /// Reads the settings of "ElectronicPrescription".
    ObservedRegistry() = default;

    bool hasCredentials() const { return !clientId.isEmpty() && !clientSecret.isEmpty(); }
    bool hasOais() const { return !oais.isEmpty(); }
    QStringList scopes() const { return scope.split(u' ', Qt::SkipEmptyParts); }

    /// URLs of the operations that are asked for.
    QUrl tokenOperation() const { return formUrl(authorizationUrl, QString::fromLatin1("/connect/token")); }
    QUrl cardOperation() const { return formUrl(requestsUrl, QString::fromLatin1("/MedicationPrescription/$by-card")); }

    /// Asks for a token.
    RequestOutcome askForToken();

    /// What a card's look-up came to.
    struct CardOutcome {
        RequestOutcome request;
        bool isEmpty = false;    ///< the card has no prescriptions
        bool isUnusable = false; ///< the request succeeded, and its answer is no Bundle of prescriptions
        qsizetype prescriptions = 0;
    };
    /// Asks for the active prescriptions of a card. Nothing of the patient is kept.
    /// @param card empty: none is named, which a registry refuses
    CardOutcome askForCard(const QString& card);

    void getAuthorizationToken(QString& token) const override;
    void getRequestResult(const QSharedPointer<RestClient>& client, QJsonDocument& result) const override;

private:
    QString withoutSecrets(QString words) const;

    mutable QString m_token;
    mutable RequestOutcome m_last;
};

} // namespace doctor
