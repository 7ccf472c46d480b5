// SPDX-License-Identifier: MIT
#include "dispensechoiceformcreator.h"

#include "askform.h"
#include "dispensechoiceform.h"

QSharedPointer<BasicForm> DispenseChoiceFormCreator::create(const Event& event)
{
    if (event.getCode() != DispenseChoiceParams::eventCode) {
        return nullptr;
    }
    return QSharedPointer<DispenseChoiceForm>::create(formParams<DispenseChoiceParams>(event));
}

QSharedPointer<BasicForm> DispenseChoiceFormCreator::create(EContext::Code)
{
    return nullptr;
}
