// SPDX-License-Identifier: MIT
#include "abstractdocument.h"
#include "electronicprescriptionservice.h"

EContext::Result ElectronicPrescriptionService::beforeSubtotal(const control::Action& action)
{
    if (isCurrentDocumentOf(AbstractDocument::Sale)) {
        return dispenseElectronicPrescriptions(action);
    }
    if (isCurrentDocumentOf(AbstractDocument::Return)) {
        return cancelDispensesOf(getDocument());
    }
    return EContext::GoOn;
}
