// SPDX-License-Identifier: MIT
#include "electronicprescriptioninterface.h"

#include "electronicprescriptionexception.h"
#include "electronicprescriptionnoprescriptionsexception.h"
#include "prescriptiontexts.h"

namespace
{

ElectronicPrescriptionException unusableAnswer()
{
    return ElectronicPrescriptionException(
        {"electronicPrescriptionGetPrescriptionsError", "Ошибка при получении списка рецептов"});
}

ElectronicPrescriptionNoPrescriptionsException noPrescriptions()
{
    return ElectronicPrescriptionNoPrescriptionsException(prescriptiontexts::noPrescriptions());
}

} // namespace

void ElectronicPrescriptionInterface::getElectronicPrescriptionsByCardNumber(const QString& cardNumber,
                                                                             const QString& status,
                                                                             QJsonArray& prescriptions,
                                                                             QJsonObject& patient) const
{
    Headers headers;
    formHeaders(headers);
    QUrl url = formUrl(requestsUrl, "/MedicationPrescription/$by-card");
    QJsonDocument document;
    sendGetRequest(url, headers, {{"patientIdentifier", cardNumber}, {"status", status}}, document);

    const QJsonObject answer = document.object();
    if (answer["resourceType"].toString() != "Bundle")
        throw unusableAnswer();
    if (!answer.contains("entry"))
        throw noPrescriptions();

    bool hasResource = false;
    bool hasPrescription = false;
    const QJsonArray entries = answer["entry"].toArray();
    for (const auto& element : entries) {
        const QJsonObject entry = element.toObject();
        if (!entry.contains("resource"))
            continue;
        hasResource = true;
        const QJsonObject resource = entry["resource"].toObject();
        const QString type = resource["resourceType"].toString();
        if (type == "Bundle") {
            prescriptions.append(resource);
            hasPrescription = true;
        } else if (type == "Patient") {
            patient = resource;
        }
    }
    if (hasResource && prescriptions.isEmpty())
        throw noPrescriptions();
    if (!hasPrescription)
        throw unusableAnswer();
}
