// SPDX-License-Identifier: MIT
#include "abstractdocument.h"
#include "electronicprescriptionservice.h"
#include "finally.h"
#include "goodsitem.h"
#include "prescriptiontexts.h"

#include <log4qt/logger.h>

#include <algorithm>

using namespace Qt::StringLiterals;

EContext::Result ElectronicPrescriptionService::beforeStornoAll(const control::Action&)
{
    return isCurrentDocumentOf(AbstractDocument::Sale) ? cancelDispensesOf(getDocument()) : EContext::GoOn;
}

EContext::Result ElectronicPrescriptionService::cancelElectronicPrescriptions(const control::Action& action)
{
    return cancelDispensesOf(action.value(u"document"_s).value<QSharedPointer<AbstractDocument>>());
}

EContext::Result ElectronicPrescriptionService::cancelElectronicPrescriptionByAction(const control::Action& action)
{
    if (!isCurrentDocumentOf(AbstractDocument::Sale)) {
        return EContext::GoOn;
    }

    const int number = action.value(u"positionNumber"_s).toInt();
    const auto position = getDocument()->getPosition(number);
    if (!position) {
        logger->error(u"Не удалось найти позицию с номером '%1'"_s.arg(number));
        return EContext::NotFound;
    }

    sendStartEvent(prescriptiontexts::processMessage());
    const Finally stop([this] { sendStopEvent(); });
    return cancelElectronicPrescription(position, true) ? EContext::GoOn : EContext::Stop;
}

EContext::Result
ElectronicPrescriptionService::cancelDispensesOf(const QSharedPointer<AbstractDocument>& document) const
{
    sendStartEvent(prescriptiontexts::processMessage());
    const Finally stop([this] { sendStopEvent(); });
    if (!document) {
        return EContext::GoOn;
    }

    const bool saveDocument = !document->isClosed();
    const auto positions = document->getPositions();
    const bool allCancelled =
        std::all_of(positions.cbegin(), positions.cend(), [&](const QSharedPointer<GoodsItem>& position) {
            return cancelElectronicPrescription(position, saveDocument);
        });
    return allCancelled ? EContext::GoOn : EContext::Stop;
}
