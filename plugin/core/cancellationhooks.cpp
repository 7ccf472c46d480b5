// SPDX-License-Identifier: MIT
#include "abstractdocument.h"
#include "electronicprescriptionservice.h"
#include "finally.h"
#include "goodsitem.h"
#include "prescriptiontexts.h"

#include <log4qt/logger.h>

#include <algorithm>

using namespace Qt::StringLiterals;

EContext::Result ElectronicPrescriptionService::beforeSubtotal(const control::Action& action)
{
    if (isCurrentDocumentOf(AbstractDocument::Sale)) {
        return dispenseElectronicPrescriptions(action);
    }
    if (isCurrentDocumentOf(AbstractDocument::Return)) {
        control::Action cancelling = action;
        cancelling.insert("document", QVariant::fromValue(getDocument()));
        return cancelElectronicPrescriptions(cancelling);
    }
    return EContext::GoOn;
}

EContext::Result ElectronicPrescriptionService::beforeStornoAll(const control::Action& action)
{
    if (!isCurrentDocumentOf(AbstractDocument::Sale)) {
        return EContext::GoOn;
    }

    control::Action cancelling = action;
    cancelling.appendArgument(QVariant::fromValue(getDocument()), "document");
    return cancelElectronicPrescriptions(cancelling);
}

EContext::Result ElectronicPrescriptionService::cancelElectronicPrescriptions(const control::Action& action)
{
    sendStartEvent(prescriptiontexts::processMessage());
    const Finally stop([this] { sendStopEvent(); });

    const auto document = action.value("document").value<QSharedPointer<AbstractDocument>>();
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

EContext::Result ElectronicPrescriptionService::cancelElectronicPrescriptionByAction(const control::Action& action)
{
    if (!isCurrentDocumentOf(AbstractDocument::Sale)) {
        return EContext::GoOn;
    }

    const int number = action.value("positionNumber").toInt();
    const auto position = getDocument()->getPosition(number);
    if (!position) {
        logger->error(u"Не удалось найти позицию с номером '%1'"_s.arg(number));
        return EContext::NotFound;
    }

    sendStartEvent(prescriptiontexts::processMessage());
    const Finally stop([this] { sendStopEvent(); });
    return cancelElectronicPrescription(position, true) ? EContext::GoOn : EContext::Stop;
}

/// False between receipts too.
bool ElectronicPrescriptionService::isCurrentDocumentOf(int type) const
{
    const auto document = getDocument();
    return document && document->getType() == type;
}
