// SPDX-License-Identifier: MIT
#include "abstractdocument.h"
#include "cashiermessage.h"
#include "electronicprescription.h"
#include "electronicprescriptiondialog.h"
#include "electronicprescriptionexception.h"
#include "electronicprescriptionservice.h"
#include "goodsitem.h"
#include "savetofilelogic.h"

using namespace Qt::StringLiterals;

namespace
{

/// What the details form and the confirmation answer under "status".
enum Answer : int {
    Back = -1,
    Continue = 0,
    FinalDispense = 1,
};

int statusOf(const core::BasicDialog::Result& result)
{
    return result.getData().toMap().value(u"status"_s).toInt();
}

} // namespace

void ElectronicPrescriptionService::processElectronicPrescriptions(const QString& cardNumber, const QString& status,
                                                                   const Prescriptions& prescriptions)
{
    try {
        bool repeated = false;
        while (const auto prescription = choosePrescription(status, prescriptions, repeated)) {
            fillDictionaryName(prescription);
            if (servePrescription(cardNumber, status, prescription)) {
                return;
            }
            repeated = true;
        }
    } catch (const ElectronicPrescriptionException& exception) {
        showError(exception.tr());
    }
}

QSharedPointer<ElectronicPrescription>
ElectronicPrescriptionService::choosePrescription(const QString& status, const Prescriptions& prescriptions,
                                                  bool repeated) const
{
    const ElectronicPrescriptionChoiceParams params(prescriptions, status, patientCache.value(status), repeated);
    const int row = ElectronicPrescriptionDialog::create()->choiceElectronicPrescription(params);
    if (row < 0 || row >= prescriptions.size()) {
        return {};
    }
    return prescriptions[row];
}

bool ElectronicPrescriptionService::servePrescription(const QString& cardNumber, const QString& status,
                                                      const QSharedPointer<ElectronicPrescription>& prescription)
{
    while (isServingConfirmed(status, prescription)) {
        QVariant selected;
        if (!selectMedicineForElectronicPrescription(prescription, selected)) {
            continue;
        }

        double doses = 0.0;
        if (!inputDispensedDoseQuantity(prescription, doses)) {
            continue;
        }

        const ElectronicPrescriptionConfirmDispenseParams params(prescription);
        const int confirmation =
            statusOf(ElectronicPrescriptionDialog::create()->confirmDispenseForElectronicPrescription(params));
        if (confirmation == Back) {
            continue;
        }

        const int number = addSelectedMedicine(selected);
        const auto document = getDocument();
        const auto position = document ? document->getPosition(number) : QSharedPointer<GoodsItem>();
        if (!position) {
            continue;
        }

        fillElectronicPrescriptionDataForPosition(prescription, position, confirmation == FinalDispense, doses);
        setPriceForPosition(prescription, position);
        rememberCardNumber(cardNumber, document);
        return true;
    }
    return false;
}

bool ElectronicPrescriptionService::isServingConfirmed(const QString& status,
                                                       const QSharedPointer<ElectronicPrescription>& prescription) const
{
    const ElectronicPrescriptionParams params(prescription, status, patientCache.value(status));
    return statusOf(ElectronicPrescriptionDialog::create()->showElectronicPrescription(params)) == Continue;
}

void ElectronicPrescriptionService::rememberCardNumber(const QString& cardNumber,
                                                       const QSharedPointer<AbstractDocument>& document)
{
    lastCardNumber = cardNumber;
    document->setPluginValue(QLatin1StringView(metaObject()->className()), cardNumberKey, cardNumber);
    SaveToFileLogic::create()->save(document, QString());
}
