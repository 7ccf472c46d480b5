// SPDX-License-Identifier: MIT
#include "abstractdocument.h"
#include "electronicprescriptionservice.h"
#include "goodsitem.h"
#include "positionoptions.h"

#include <algorithm>

bool ElectronicPrescriptionService::hasPrescriptions() const
{
    const auto document = getDocument();
    if (!document) {
        return false;
    }

    const auto positions = document->getPositions();
    return std::any_of(positions.cbegin(), positions.cend(),
                       [](const QSharedPointer<GoodsItem>& position) { return isPrescriptionPosition(*position); });
}

bool ElectronicPrescriptionService::isCurrentDocumentOf(int type) const
{
    const auto document = getDocument();
    return document && document->getType() == type;
}
