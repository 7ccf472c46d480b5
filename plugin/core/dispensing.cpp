// SPDX-License-Identifier: MIT
#include "abstractdocument.h"
#include "dialog.h"
#include "electronicprescriptionexception.h"
#include "electronicprescriptioninterface.h"
#include "electronicprescriptionservice.h"
#include "finally.h"
#include "goodsitem.h"
#include "positionformat.h"
#include "prescriptionposition.h"
#include "prescriptiontexts.h"
#include "savetofilelogic.h"

namespace
{

/// A dispense that was cancelled is registered again.
bool isDueForRegistration(const GoodsItem& position)
{
    if (!isPrescriptionPosition(position)) {
        return false;
    }
    const QJsonValue status = readPositionOptions(position).value(positionformat::status);
    return status.isUndefined() || status.toString() == positionformat::canceled;
}

bool isRegistered(const GoodsItem& position)
{
    return isPrescriptionPosition(position) &&
           readPositionOptions(position).value(positionformat::status).toString() == positionformat::dispensed;
}

/// Changes the state and nothing else. Reads the options anew: the registry client writes into them as well.
void setState(GoodsItem& position, QLatin1StringView state)
{
    QJsonObject options = readPositionOptions(position);
    options[positionformat::status] = state;
    writePositionOptions(position, options);
}

} // namespace

EContext::Result ElectronicPrescriptionService::dispenseElectronicPrescriptions(const control::Action&)
{
    try {
        const auto document = getDocument();
        if (!document || !hasPrescriptions()) {
            return EContext::GoOn;
        }

        sendStartEvent(prescriptiontexts::processMessage());
        const Finally stop([this] { sendStopEvent(); });

        const auto positions = document->getPositions();
        for (const auto& position : positions) {
            if (!isDueForRegistration(*position)) {
                continue;
            }
            registryClient->sendMedicationDispense(position);
            setState(*position, positionformat::dispensed);
            // Saved at once: what the registry knows must not be lost with the receipt.
            SaveToFileLogic::create()->save(document, QString());
        }
        return EContext::GoOn;
    } catch (const ElectronicPrescriptionException& exception) {
        Dialog::create()->showMessage(exception.tr(), Dialog::Error, 1, 0);
        return EContext::Stop;
    }
}

bool ElectronicPrescriptionService::cancelElectronicPrescription(const QSharedPointer<GoodsItem>& position,
                                                                 bool saveDocument) const
{
    try {
        if (!isRegistered(*position)) {
            return true;
        }

        registryClient->sendCancelMedicationDispense(position);
        setState(*position, positionformat::canceled);
        if (saveDocument) {
            SaveToFileLogic::create()->save(getDocument(), QString());
        }
        return true;
    } catch (const ElectronicPrescriptionException& exception) {
        Dialog::create()->showMessage(exception.tr(), Dialog::Error, 1, 0);
        return false;
    }
}
