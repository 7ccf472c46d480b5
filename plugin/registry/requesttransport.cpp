// SPDX-License-Identifier: MIT
#include "electronicprescriptioninterface.h"

#include "config.h"
#include "electronicprescriptionexception.h"
#include "formquery.h"
#include "restclient.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

/// Where requests go as long as nothing is configured.
const QString localRegistry = u"http://localhost"_s;

constexpr int defaultTimeout = 60;

QString textSetting(const QString& name, const QString& whenAbsent = {})
{
    return Singleton<Config>::get()->getString("ElectronicPrescription:" + name, whenAbsent);
}

int numberSetting(const QString& name, int whenAbsent)
{
    return Singleton<Config>::get()->getInt("ElectronicPrescription:" + name, whenAbsent);
}

QString bearer(const QString& token)
{
    return "Bearer " + token;
}

/// An OperationOutcome's issue that explains an error.
bool explainsError(const QJsonObject& issue)
{
    return issue["severity"].toString() == "error" && issue.contains("details");
}

} // namespace

ElectronicPrescriptionInterface::ElectronicPrescriptionInterface()
    : requestsUrl(textSetting("requestsUrl", localRegistry))
    , authorizationUrl(textSetting("authorizationUrl", localRegistry))
    , timeout(numberSetting("timeout", defaultTimeout))
    , clientId(textSetting("clientId"))
    , clientSecret(textSetting("clientSecret"))
    , scope(textSetting("scope"))
    , organizationIdentifier(textSetting("organizationIdentifier"))
    , organizationName(textSetting("organizationName"))
    , organizationAddress(textSetting("organizationAddress"))
    , oais(textSetting("oais"))
{
}

ElectronicPrescriptionInterface::~ElectronicPrescriptionInterface() = default;

void ElectronicPrescriptionInterface::sendGetRequest(QUrl& url, const Headers& headers, const QueryItems& queryItems,
                                                     QJsonDocument& result) const
{
    const auto client = RestClient::create();
    client->setTimeout(timeout);
    url.setQuery(formQuery(queryItems));
    client->get(url, QJsonDocument(), headers);
    getRequestResult(client, result);
}

void ElectronicPrescriptionInterface::sendPostRequest(const QUrl& url, const Headers& headers, const QByteArray& body,
                                                      QJsonDocument& result) const
{
    const auto client = RestClient::create();
    client->setTimeout(timeout);
    client->post(url, body, headers);
    getRequestResult(client, result);
}

void ElectronicPrescriptionInterface::getRequestResult(const QSharedPointer<RestClient>& client,
                                                       QJsonDocument& result) const
{
    result = client->answer();
    if (client->errorCode() <= 0) {
        return;
    }

    const QJsonArray issues = result.object()["issue"].toArray();
    for (const auto& element : issues) {
        const QJsonObject issue = element.toObject();
        if (explainsError(issue)) {
            throw ElectronicPrescriptionException(tr::Tr(tr::undefined, issue["details"].toString()));
        }
    }
    throw ElectronicPrescriptionException(client->errorText());
}

bool ElectronicPrescriptionInterface::checkRequestResultStatus(const QJsonObject& answer,
                                                               const QString& expectedStatus) const
{
    if (answer["resourceType"].toString() != "Bundle") {
        return false;
    }
    const QJsonArray entries = answer["entry"].toArray();
    return std::any_of(entries.begin(), entries.end(), [&](const QJsonValue& entry) {
        return entry["transactionResponse"]["status"] == QJsonValue(expectedStatus);
    });
}

QUrl ElectronicPrescriptionInterface::formUrl(const QString& baseUrl, const QString& path) const
{
    QUrl url(baseUrl, QUrl::TolerantMode);
    QString joinedPath = url.path(QUrl::FullyDecoded) + path;
    joinedPath.replace("//", "/");
    url.setPath(joinedPath, QUrl::DecodedMode);
    return url;
}

void ElectronicPrescriptionInterface::formHeaders(Headers& headers) const
{
    QString token;
    getAuthorizationToken(token);
    headers.insert("Authorization", bearer(token));
    addOaisTokenToHeaders("OAIS", headers);
    addAcceptToHeaders(headers);
}

void ElectronicPrescriptionInterface::addOaisTokenToHeaders(const QString& headerName, Headers& headers) const
{
    if (!oais.isEmpty()) {
        headers.insert(headerName, bearer(oais));
    }
}

void ElectronicPrescriptionInterface::addAcceptToHeaders(Headers& headers) const
{
    headers.insert("Accept", "application/json");
}
