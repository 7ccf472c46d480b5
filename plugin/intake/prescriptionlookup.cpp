// SPDX-License-Identifier: MIT
#include "connectionfactory.h"
#include "dialog.h"
#include "electronicprescription.h"
#include "electronicprescriptioninterface.h"
#include "electronicprescriptionnoprescriptionsexception.h"
#include "electronicprescriptionservice.h"
#include "finally.h"
#include "prescriptiontexts.h"
#include "singleton.h"

#include <log4qt/logger.h>

#include <QJsonArray>
#include <QSqlError>
#include <QSqlQuery>

using namespace Qt::StringLiterals;

void ElectronicPrescriptionService::getElectronicPrescriptionsByCardNumber(const QString& cardNumber,
                                                                           const QString& status,
                                                                           Prescriptions& prescriptions)
{
    // The guard lies inside the handlers: the long work is over before a message is shown.
    try {
        sendStartEvent(prescriptiontexts::processMessage());
        const Finally stop([this] { sendStopEvent(); });

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
        Dialog::create()->showMessage(exception.tr(), Dialog::Notice, 1, 0);
    } catch (const ElectronicPrescriptionException& exception) {
        Dialog::create()->showMessage(exception.tr(), Dialog::Error, 1, 0);
    }
}

/// One bundle always makes one prescription, also one without a "MedicationPrescription" resource.
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

void ElectronicPrescriptionService::fillDictionaryName(const QSharedPointer<ElectronicPrescription>& prescription) const
{
    if (!prescription->getDictName().isEmpty()) {
        return;
    }

    QSqlQuery query(Singleton<ConnectionFactory>::get()->getConnection(QString(), QString()));
    // Dictionary codes are numbers and stand in the statement as such. A column of text is compared with the number's
    // digits, so a code kept there with leading zeros is not found. The connection cannot write.
    const QString statement =
        u"SELECT dictname FROM medicine WHERE dictcode = "_s + prescription->getDictCode() + u" LIMIT 1"_s;
    if (!query.prepare(statement)) {
        logger->error(
            u"Ошибка выполнения prepare для запроса %1: %2"_s.arg(query.lastQuery(), query.lastError().text()));
        return;
    }
    if (!query.exec()) {
        logger->error(u"Ошибка выполнения запроса %1: %2"_s.arg(query.lastQuery(), query.lastError().text()));
        return;
    }
    prescription->setDictName(query.next() ? query.value(0).toString() : QString(""_L1));
}
