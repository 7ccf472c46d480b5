// SPDX-License-Identifier: MIT
#include "electronicprescriptioninterface.h"

#include "dispenseanswer.h"
#include "formquery.h"
#include "restclient.h"
#include "unsettledrequestexception.h"

using namespace Qt::StringLiterals;

namespace
{

QString bearer(const QString& token)
{
    return "Bearer "_L1 + token;
}

/// An OperationOutcome's issue that explains an error.
bool explainsError(const QJsonObject& issue)
{
    return issue["severity"_L1].toString() == "error"_L1 && issue.contains("details"_L1);
}

} // namespace

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

    const QJsonArray issues = result.object()["issue"_L1].toArray();
    for (const auto& element : issues) {
        const QJsonObject issue = element.toObject();
        if (explainsError(issue)) {
            throwRequestFailure(tr::Tr(tr::undefined, issue["details"_L1].toString()), client->outcome());
        }
    }
    throwRequestFailure(client->errorText(), client->outcome());
}

bool ElectronicPrescriptionInterface::checkRequestResultStatus(const QJsonObject& answer,
                                                               const QString& expectedStatus) const
{
    return dispenseanswer::reports(answer, expectedStatus);
}

QUrl ElectronicPrescriptionInterface::formUrl(const QString& baseUrl, const QString& path) const
{
    QUrl url(baseUrl, QUrl::TolerantMode);
    if (!url.isValid()) {
        return {}; // setPath() would make it valid, without the part that was wrong: its port, for example
    }
    QString joinedPath = url.path(QUrl::FullyDecoded) + path;
    joinedPath.replace("//"_L1, "/"_L1);
    url.setPath(joinedPath, QUrl::DecodedMode);
    return url;
}

void ElectronicPrescriptionInterface::formHeaders(Headers& headers) const
{
    QString token;
    getAuthorizationToken(token);
    headers.insert(u"Authorization"_s, bearer(token));
    addOaisTokenToHeaders(u"OAIS"_s, headers);
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
    headers.insert(u"Accept"_s, u"application/json"_s);
}
