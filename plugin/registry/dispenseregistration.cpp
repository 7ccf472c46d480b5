// SPDX-License-Identifier: MIT
#include "electronicprescriptioninterface.h"

#include "electronicprescriptionexception.h"
#include "goodsitem.h"
#include "positionformat.h"
#include "prescriptionposition.h"

using namespace Qt::StringLiterals;

namespace
{

// What the registry's transaction reports. A cancellation goes out as a POST and is reported as the PUT that it causes.
const QString registeredStatus = u"POST:201"_s;
const QString cancelledStatus = u"PUT:200"_s;

void declareJsonBody(ElectronicPrescriptionInterface::Headers& headers)
{
    headers.insert("Content-Type", "application/json; charset=utf-8");
}

/// Reads the options anew for each dispense: the last one of an answer stays.
void keepDispenseIds(const QJsonObject& answer, GoodsItem& position)
{
    const QJsonArray entries = answer["entry"].toArray();
    for (const auto& entry : entries) {
        const QJsonObject resource = entry.toObject()["resource"].toObject();
        if (resource["resourceType"] != QJsonValue("MedicationDispense")) {
            continue;
        }
        QJsonObject options = readPositionOptions(position);
        options[positionformat::medicationDispenseId] = resource["id"].toString();
        writePositionOptions(position, options);
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
    const QUrl url = formUrl(requestsUrl, "/MedicationDispense/$register");
    QJsonDocument answer;
    sendPostRequest(url, headers, dispense.toJson(QJsonDocument::Indented), answer);

    if (!checkRequestResultStatus(answer.object(), registeredStatus)) {
        throw ElectronicPrescriptionException(
            {"electronicPrescriptionDispenseError", "Ошибка при отпуске лекарственного препарата по рецепту"});
    }
    keepDispenseIds(answer.object(), *position);
}

void ElectronicPrescriptionInterface::sendCancelMedicationDispense(const QSharedPointer<GoodsItem>& position) const
{
    Headers headers;
    formHeaders(headers);
    declareJsonBody(headers);
    const QString id = readPositionOptions(*position)[positionformat::medicationDispenseId].toString();
    const QUrl url = formUrl(requestsUrl, "/MedicationDispense/" + id + "/$set-as-error");
    QJsonDocument answer;
    sendPostRequest(url, headers, QJsonDocument(QJsonObject()).toJson(QJsonDocument::Indented), answer);

    if (!checkRequestResultStatus(answer.object(), cancelledStatus)) {
        throw ElectronicPrescriptionException(
            {"electronicPrescriptionCancelError", "Ошибка при отмене отпуска лекарственного препарата по рецепту"});
    }
}
