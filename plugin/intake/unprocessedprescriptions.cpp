// SPDX-License-Identifier: MIT
#include "abstractdocument.h"
#include "cashiermessage.h"
#include "electronicprescription.h"
#include "electronicprescriptionservice.h"
#include "goodsitem.h"
#include "positionoptions.h"
#include "prescriptiontexts.h"

#include <QSet>

void ElectronicPrescriptionService::getUnprocessedElectronicPrescriptions(const QString& status,
                                                                          Prescriptions& prescriptions) const
{
    const auto cached = prescriptionCache.constFind(status);
    if (cached == prescriptionCache.constEnd()) {
        return;
    }

    prescriptions = cached->second;
    if (status != activeStatus) {
        return;
    }

    getUnprocessedElectronicPrescriptions(prescriptions);
    if (prescriptions.isEmpty()) {
        showNotice(prescriptiontexts::noPrescriptions());
    }
}

void ElectronicPrescriptionService::getUnprocessedElectronicPrescriptions(Prescriptions& prescriptions) const
{
    const auto document = getDocument();
    if (!document || document->getType() != AbstractDocument::Sale) {
        return;
    }

    QSet<QString> processedIds;
    const auto positions = document->getPositions();
    for (const auto& position : positions) {
        if (isPrescriptionPosition(*position)) {
            processedIds.insert(PositionOptions(*position).id());
        }
    }
    prescriptions.removeIf([&processedIds](const QSharedPointer<ElectronicPrescription>& prescription) {
        return processedIds.contains(prescription->getId());
    });
}
