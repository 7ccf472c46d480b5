// SPDX-License-Identifier: MIT
#include "electronicprescriptioninterface.h"

#include "electronicprescriptionexception.h"
#include "electronicprescriptionnoprescriptionsexception.h"
#include "prescriptiontexts.h"

using namespace Qt::StringLiterals;

namespace
{

ElectronicPrescriptionException unusableAnswer()
{
    return ElectronicPrescriptionException(
        {u"electronicPrescriptionGetPrescriptionsError"_s, u"Ошибка при получении списка рецептов"_s});
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
    QUrl url = formUrl(requestsUrl, u"/MedicationPrescription/$by-card"_s);
    QJsonDocument document;
    sendGetRequest(url, headers, {{u"patientIdentifier"_s, cardNumber}, {u"status"_s, status}}, document);

    const QJsonObject answer = document.object();
    if (answer["resourceType"_L1].toString() != "Bundle"_L1) {
        throw unusableAnswer();
    }
    if (!answer.contains("entry"_L1)) {
        throw noPrescriptions();
    }

    bool hasResource = false;
    bool hasPrescription = false;
    const QJsonArray entries = answer["entry"_L1].toArray();
    for (const auto& element : entries) {
        const QJsonObject entry = element.toObject();
        const auto member = entry.constFind("resource"_L1);
        if (member == entry.constEnd()) {
            continue;
        }
        hasResource = true;
        const QJsonObject resource = member->toObject();
        const QString type = resource["resourceType"_L1].toString();
        if (type == "Bundle"_L1) {
            prescriptions.append(resource);
            hasPrescription = true;
        } else if (type == "Patient"_L1) {
            patient = resource;
        }
    }
    if (hasResource && prescriptions.isEmpty()) {
        throw noPrescriptions();
    }
    if (!hasPrescription) {
        throw unusableAnswer();
    }
}
