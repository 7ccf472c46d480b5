// SPDX-License-Identifier: MIT
#include "abstractdocument.h"
#include "dialog.h"
#include "electronicprescriptionservice.h"
#include "prescriptiontexts.h"

#include <log4qt/logger.h>

using namespace Qt::StringLiterals;

namespace
{

TextInputParams cardInput()
{
    TextInputParams params;
    params.title = {u"inputCardTitle"_s, u"Ввод карты"_s};
    params.message = {u"electronicPrescriptionInputCard"_s, u"Введите номер карты"_s};
    params.scanError = prescriptiontexts::scanError();
    params.okText = prescriptiontexts::ok();
    params.cancelText = prescriptiontexts::cancel();
    params.inputName = u"inputCard"_s;
    params.required = true;
    return params;
}

} // namespace

EContext::Result ElectronicPrescriptionService::processElectronicPrescriptionsByAction(const control::Action& action)
{
    if (!isCurrentDocumentOf(AbstractDocument::Sale)) {
        return EContext::GoOn;
    }

    const QString status = action.value(u"status"_s).toString();
    QString cardNumber = lastCardNumber;
    if (cardNumber.isEmpty()) {
        auto answer = Dialog::create()->showTextInput(cardInput());
        if (answer.isEmpty()) {
            answer.setCanceled();
            logger->warn(u"Отменено пользователем"_s);
            return EContext::Stop;
        }
        cardNumber = answer.getData().toString();
    }

    Prescriptions prescriptions;
    const auto cached = prescriptionCache.constFind(status);
    if (cached != prescriptionCache.constEnd() && cached->first == cardNumber) {
        getUnprocessedElectronicPrescriptions(status, prescriptions);
    } else {
        getElectronicPrescriptionsByCardNumber(cardNumber, status, prescriptions);
    }
    if (prescriptions.isEmpty()) {
        return EContext::Stop;
    }

    processElectronicPrescriptions(cardNumber, status, prescriptions);
    return EContext::GoOn;
}
