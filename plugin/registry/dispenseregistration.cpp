// SPDX-License-Identifier: MIT
#include "electronicprescriptioninterface.h"

#include "goodsitem.h"
#include "positionoptions.h"
#include "unsettledrequestexception.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

// What the registry's transaction reports. A cancellation is sent as a POST and reported as a PUT.
const QString registeredStatus = u"POST:201"_s;
const QString cancelledStatus = u"PUT:200"_s;

void declareJsonBody(ElectronicPrescriptionInterface::Headers& headers)
{
    headers.insert(u"Content-Type"_s, u"application/json; charset=utf-8"_s);
}

/// Without the registry's own word, nobody knows what became of a request that was answered.
RestClient::Outcome outcomeOfAnswer(const QJsonObject& answer)
{
    const QJsonArray entries = answer["entry"_L1].toArray();
    const bool hasStatus = std::any_of(entries.begin(), entries.end(), [](const QJsonValue& entry) {
        return entry["transactionResponse"_L1]["status"_L1].isString();
    });
    return hasStatus ? RestClient::Outcome::Settled : RestClient::Outcome::Unknown;
}

/// Each dispense in the answer writes its id; that of the last one stays.
void keepDispenseIds(const QJsonObject& answer, GoodsItem& position)
{
    const QJsonArray entries = answer["entry"_L1].toArray();
    for (const auto& entry : entries) {
        const QJsonObject resource = entry.toObject()["resource"_L1].toObject();
        if (resource["resourceType"_L1] != QJsonValue("MedicationDispense"_L1)) {
            continue;
        }
        PositionOptions options(position);
        options.setMedicationDispenseId(resource["id"_L1].toString());
        options.writeTo(position);
    }
}

} // namespace

void ElectronicPrescriptionInterface::sendMedicationDispense(const QSharedPointer<GoodsItem>& position) const
{
    QJsonDocument dispense;
    formMedicationDispense(position, dispense);

    Headers headers;
    formHeaders(headers);
    declareJsonBody(headers);
    const QUrl url = formUrl(requestsUrl, u"/MedicationDispense/$register"_s);
    QJsonDocument answer;
    sendPostRequest(url, headers, dispense.toJson(QJsonDocument::Indented), answer);

    if (!checkRequestResultStatus(answer.object(), registeredStatus)) {
        throwRequestFailure(
            {u"electronicPrescriptionDispenseError"_s, u"Ошибка при отпуске лекарственного препарата по рецепту"_s},
            outcomeOfAnswer(answer.object()));
    }
    keepDispenseIds(answer.object(), *position);
}

void ElectronicPrescriptionInterface::sendCancelMedicationDispense(const QSharedPointer<GoodsItem>& position) const
{
    Headers headers;
    formHeaders(headers);
    declareJsonBody(headers);
    const QString id = PositionOptions(*position).medicationDispenseId();
    const QUrl url = formUrl(requestsUrl, "/MedicationDispense/"_L1 + id + "/$set-as-error"_L1);
    QJsonDocument answer;
    sendPostRequest(url, headers, QJsonDocument(QJsonObject()).toJson(QJsonDocument::Indented), answer);

    if (!checkRequestResultStatus(answer.object(), cancelledStatus)) {
        throwRequestFailure({u"electronicPrescriptionCancelError"_s,
                             u"Ошибка при отмене отпуска лекарственного препарата по рецепту"_s},
                            outcomeOfAnswer(answer.object()));
    }
}
