// SPDX-License-Identifier: MIT
#include "abstractdocument.h"
#include "cashiermessage.h"
#include "electronicprescriptionexception.h"
#include "electronicprescriptioninterface.h"
#include "electronicprescriptionservice.h"
#include "finally.h"
#include "goodsitem.h"
#include "positionoptions.h"
#include "prescriptiontexts.h"
#include "savetofilelogic.h"

namespace
{

bool isDueForRegistration(const GoodsItem& position)
{
    return isPrescriptionPosition(position) && PositionOptions(position).isDueForRegistration();
}

bool isRegistered(const GoodsItem& position)
{
    return isPrescriptionPosition(position) && PositionOptions(position).isRegistered();
}

// The registry client writes options too, so each change begins with those that the position has now.

void markRegistered(GoodsItem& position)
{
    PositionOptions options(position);
    options.setRegistered();
    options.writeTo(position);
}

void markCancelled(GoodsItem& position)
{
    PositionOptions options(position);
    options.setCancelled();
    options.writeTo(position);
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
            markRegistered(*position);
            // Saved at once: what the registry knows must not be lost with the receipt.
            SaveToFileLogic::create()->save(document, QString());
        }
        return EContext::GoOn;
    } catch (const ElectronicPrescriptionException& exception) {
        showError(exception.tr());
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
        markCancelled(*position);
        if (saveDocument) {
            SaveToFileLogic::create()->save(getDocument(), QString());
        }
        return true;
    } catch (const ElectronicPrescriptionException& exception) {
        showError(exception.tr());
        return false;
    }
}
