// SPDX-License-Identifier: MIT
#include "cashiermessage.h"
#include "electronicprescription.h"
#include "electronicprescriptioninterface.h"
#include "electronicprescriptionnoprescriptionsexception.h"
#include "electronicprescriptionservice.h"
#include "finally.h"
#include "prescriptiontexts.h"
#include "unsettledrequestexception.h"
#include "workstep.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;

namespace
{

/// A look-up that the cashier stopped is no error.
void showLookUpFailure(const ElectronicPrescriptionException& failure)
{
    if (outcomeOf(failure) == RestClient::Outcome::Stopped) {
        showNotice({u"electronicPrescriptionLookUpStopped"_s,
                    u"Поиск рецептов прекращён кассиром. В реестре ничего не изменено. Чтобы начать поиск снова, дайте "
                    "команду ещё раз."_s});
    } else {
        showError(failure.tr());
    }
}

} // namespace

void ElectronicPrescriptionService::getElectronicPrescriptionsByCardNumber(const QString& cardNumber,
                                                                           const QString& status,
                                                                           Prescriptions& prescriptions)
{
    // The guard is inside the try block: the long work is over before a message is shown.
    try {
        sendStartEvent(prescriptiontexts::processMessage());
        const Finally stop([this] { sendStopEvent(); });
        const WorkStep step({u"electronicPrescriptionLookUpStep"_s, u"Поиск рецептов по карте"_s});

        QJsonArray bundles;
        QJsonObject patient;
        registryClient->getElectronicPrescriptionsByCardNumber(cardNumber, status, bundles, patient);

        fillPatient(status, patient);
        appendPrescriptions(bundles, prescriptions);
        prescriptionCache.insert(status, {cardNumber, prescriptions});

        getUnprocessedElectronicPrescriptions(prescriptions);
        if (prescriptions.isEmpty()) {
            throw ElectronicPrescriptionNoPrescriptionsException(prescriptiontexts::noPrescriptions());
        }
    } catch (const ElectronicPrescriptionNoPrescriptionsException& exception) {
        showNotice(exception.tr());
    } catch (const ElectronicPrescriptionException& exception) {
        showLookUpFailure(exception);
    }
}

void ElectronicPrescriptionService::appendPrescriptions(const QJsonArray& bundles, Prescriptions& prescriptions) const
{
    prescriptions.reserve(prescriptions.size() + bundles.size());
    for (const auto& bundle : bundles) {
        const auto prescription = QSharedPointer<ElectronicPrescription>(new ElectronicPrescription);
        const QJsonArray entries = bundle.toObject().value("entry"_L1).toArray();
        for (const auto& entry : entries) {
            fillElectronicPrescription(entry.toObject().value("resource"_L1).toObject(), prescription);
        }
        prescriptions.append(prescription);
    }
}
