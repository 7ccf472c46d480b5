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
#include "registrysteps.h"
#include "savetofilelogic.h"
#include "unsettledrequestexception.h"
#include "workstep.h"

#include <algorithm>
#include <optional>

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
    // Outlives the try block: the message about a failure says which step it was.
    std::optional<WorkStep> step;
    int registered = 0;
    int due = 0;
    try {
        const auto document = getDocument();
        if (!document || !hasPrescriptions()) {
            return EContext::GoOn;
        }

        sendStartEvent(prescriptiontexts::processMessage());
        const Finally stop([this] { sendStopEvent(); });

        const auto positions = document->getPositions();
        due = int(std::count_if(positions.cbegin(), positions.cend(), [](const QSharedPointer<GoodsItem>& position) {
            return isDueForRegistration(*position);
        }));
        for (const auto& position : positions) {
            if (!isDueForRegistration(*position)) {
                continue;
            }
            step.emplace(registrysteps::registration(*position, registered + 1, due));
            registryClient->sendMedicationDispense(position);
            markRegistered(*position);
            ++registered;
            step.reset(); // a failed save is no failed registration
            // Saved at once: what the registry knows must not be lost with the receipt.
            SaveToFileLogic::create()->save(document, QString());
        }
        return EContext::GoOn;
    } catch (const ElectronicPrescriptionException& exception) {
        if (step) {
            step->setAdvice(registrysteps::adviceAfterRegistration(outcomeOf(exception), registered, due));
        }
        showError(exception.tr());
        return EContext::Stop;
    }
}

bool ElectronicPrescriptionService::cancelElectronicPrescription(const QSharedPointer<GoodsItem>& position,
                                                                 bool saveDocument) const
{
    std::optional<WorkStep> step;
    try {
        if (!isRegistered(*position)) {
            return true;
        }

        step.emplace(registrysteps::cancellation(*position));
        registryClient->sendCancelMedicationDispense(position);
        markCancelled(*position);
        step.reset();
        if (saveDocument) {
            SaveToFileLogic::create()->save(getDocument(), QString());
        }
        return true;
    } catch (const ElectronicPrescriptionException& exception) {
        if (step) {
            step->setAdvice(registrysteps::adviceAfterCancellation(outcomeOf(exception)));
        }
        showError(exception.tr());
        return false;
    }
}
