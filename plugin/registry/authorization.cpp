// SPDX-License-Identifier: MIT
#include "electronicprescriptioninterface.h"

#include "electronicprescriptionexception.h"
#include "formquery.h"

void ElectronicPrescriptionInterface::getAuthorizationToken(QString& token) const
{
    QUrl url;
    Headers headers;
    QString body;
    formTokenRequest(url, headers, body);

    QJsonDocument answer;
    sendPostRequest(url, headers, body.toUtf8(), answer);
    const QJsonObject grant = answer.object();
    if (!grant.contains("access_token")) {
        throw ElectronicPrescriptionException(
            {"electronicPrescriptionAuthorizationTokenError", "Ошибка при получении токена для авторизации"});
    }
    token = grant["access_token"].toString();
}

void ElectronicPrescriptionInterface::formTokenRequest(QUrl& url, Headers& headers, QString& body) const
{
    headers.insert("Content-Type", "application/x-www-form-urlencoded");
    addOaisTokenToHeaders("Authorization", headers);
    addAcceptToHeaders(headers);

    url = formUrl(authorizationUrl, "/connect/token");

    body = formQuery({
                         {"grant_type", "client_credentials"},
                         {"client_id", clientId},
                         {"client_secret", clientSecret},
                         {"scope", scope},
                         {"organization_identifier", organizationIdentifier},
                     })
               .toString(QUrl::FullyEncoded);
}
