// SPDX-License-Identifier: MIT
#include "electronicprescriptioninterface.h"

#include "electronicprescriptionexception.h"
#include "formquery.h"
#include "workstep.h"

using namespace Qt::StringLiterals;

void ElectronicPrescriptionInterface::getAuthorizationToken(QString& token) const
{
    const WorkStep step({u"electronicPrescriptionTokenStep"_s, u"Вход в сервис электронных рецептов"_s},
                        WorkStep::Effect::None);
    QUrl url;
    Headers headers;
    QString body;
    formTokenRequest(url, headers, body);

    QJsonDocument answer;
    sendPostRequest(url, headers, body.toUtf8(), answer);
    const QJsonObject grant = answer.object();
    if (!grant.contains("access_token"_L1)) {
        throw ElectronicPrescriptionException(
            {u"electronicPrescriptionAuthorizationTokenError"_s, u"Ошибка при получении токена для авторизации"_s});
    }
    token = grant["access_token"_L1].toString();
}

void ElectronicPrescriptionInterface::formTokenRequest(QUrl& url, Headers& headers, QString& body) const
{
    headers.insert(u"Content-Type"_s, u"application/x-www-form-urlencoded"_s);
    addOaisTokenToHeaders(u"Authorization"_s, headers);
    addAcceptToHeaders(headers);

    url = formUrl(authorizationUrl, u"/connect/token"_s);

    body = formQuery({
                         {u"grant_type"_s, u"client_credentials"_s},
                         {u"client_id"_s, clientId},
                         {u"client_secret"_s, clientSecret},
                         {u"scope"_s, scope},
                         {u"organization_identifier"_s, organizationIdentifier},
                     })
               .toString(QUrl::FullyEncoded);
}
