// SPDX-License-Identifier: MIT
#include "electronicprescriptionformcreator.h"

#include "askform.h"
#include "electronicprescriptionchoiceform.h"
#include "electronicprescriptionchoiceparams.h"
#include "electronicprescriptionconfirmdispenseform.h"
#include "electronicprescriptionconfirmdispenseparams.h"
#include "electronicprescriptionform.h"
#include "electronicprescriptionparams.h"
#include "prescriptionevents.h"

namespace
{

template <typename Form, typename Params>
QSharedPointer<BasicForm> createForm(const Event& event)
{
    return QSharedPointer<Form>(new Form(formParams<Params>(event), nullptr));
}

} // namespace

QSharedPointer<BasicForm> ElectronicPrescriptionFormCreator::create(const Event& event)
{
    const auto code = event.getCode();
    if (code == prescriptionevents::confirmDispense) {
        return createForm<ElectronicPrescriptionConfirmDispenseForm, ElectronicPrescriptionConfirmDispenseParams>(
            event);
    }
    if (code == prescriptionevents::showPrescription) {
        return createForm<ElectronicPrescriptionForm, ElectronicPrescriptionParams>(event);
    }
    if (code == prescriptionevents::choosePrescription) {
        return createForm<ElectronicPrescriptionChoiceForm, ElectronicPrescriptionChoiceParams>(event);
    }
    return {};
}

QSharedPointer<BasicForm> ElectronicPrescriptionFormCreator::create(EContext::Code)
{
    return {};
}
