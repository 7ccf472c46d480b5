// SPDX-License-Identifier: MIT
#include "dispensechecks.h"

#include "doses.h"
#include "prescriptionstatus.h"
#include "refusal.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace emulator
{
namespace
{
constexpr double halfCent = 0.005;
constexpr double representation = 1e-6; // decimal numbers have no exact binary form

void checkPatient(const DispenseDocument& document, const Prescription& prescription)
{
    demand(document.patientReference == "Patient/"_L1 + prescription.patientId, RefusalCode::PatientWrong,
           {prescription.id});
}

/// The code of any of the prescription's codings is enough. A prescription without a trade name needs none.
void checkMedication(const DispenseDocument& document, const Prescription& prescription)
{
    const QString& code = document.medicationCode;
    if (code.isEmpty()) {
        demand(prescription.tradeName.isEmpty(), RefusalCode::MedicationCodeMissing);
        return;
    }
    const QStringList codes{prescription.innCode, prescription.tradeNameCode, prescription.dosageCode};
    demand(codes.contains(code), RefusalCode::MedicationNotPrescribed, {code, prescription.id});
}

void checkAmount(double amount, const QString& currency)
{
    demand(currency == "BYN"_L1, RefusalCode::CurrencyWrong);
    demand(amount >= 0, RefusalCode::AmountNegative);
    demand(std::abs(amount * 100 - std::round(amount * 100)) < representation * 100, RefusalCode::AmountNotInCents);
}

/// The net amount is the payer's share of the price. Both are rounded to the cent, so they may differ by the two
/// roundings. A payer of the whole price pays it exactly.
bool fitTogether(const Claim& claim)
{
    const double difference = std::abs(claim.net - claim.unitPrice * claim.factor);
    const bool paysAll = claim.factor > 1 - halfCent;
    return difference < (paysAll ? halfCent : halfCent * (1 + claim.factor)) + representation;
}

void checkClaim(const DispenseDocument& document, const Prescription& prescription, const QSet<QString>& payers)
{
    const double payersShare = 1 - prescription.patientShare.value_or(1);
    const bool isDue = payersShare > halfCent;
    demand(!document.claim || isDue, RefusalCode::ClaimNotDue);
    demand(document.claim || !isDue, RefusalCode::ClaimDue);
    if (!document.claim) {
        return;
    }

    const Claim& claim = *document.claim;
    demand(claim.prescriptionId == document.prescriptionId, RefusalCode::ClaimPrescriptionWrong);
    demand(claim.patientReference == document.patientReference, RefusalCode::ClaimPatientWrong);
    demand(payers.contains(claim.payerId), RefusalCode::PayerUnknown);
    demand(claim.payerId == prescription.payerId, RefusalCode::PayerWrong);
    checkAmount(claim.unitPrice, claim.unitPriceCurrency);
    checkAmount(claim.net, claim.netCurrency);
    demand(std::abs(claim.factor - payersShare) < halfCent + representation, RefusalCode::FactorWrong);
    demand(fitTogether(claim), RefusalCode::NetWrong);
}
} // namespace

void checkValidity(const Prescription& prescription, const QDate& handedOver, const QDate& today)
{
    demand(prescription.status != prescriptionstatus::completed, RefusalCode::PrescriptionCompleted, {prescription.id});
    demand(prescription.status == prescriptionstatus::active, RefusalCode::PrescriptionNotActive,
           {prescription.id, prescription.status});
    demand(today <= prescription.validUntil, RefusalCode::PrescriptionExpired,
           {prescription.id, prescription.validUntil.toString(u"dd.MM.yyyy"_s)});
    demand(handedOver >= prescription.written, RefusalCode::HandedOverBeforeWritten);
    demand(handedOver <= today, RefusalCode::HandedOverInFuture);
}

void checkQuantity(double quantity, const Prescription& prescription, double dispensed)
{
    demand(quantity > 0, RefusalCode::QuantityNotPositive);
    const double left = prescription.quantity - dispensed;
    demand(quantity <= left + doses::tolerance, RefusalCode::QuantityAboveRest,
           {prescription.id, QString::number(left, 'f', 2), QString::number(quantity, 'f', 2)});
}

void checkDispense(const DispenseDocument& document, const Prescription& prescription, double dispensed,
                   const QSet<QString>& payers, const QDate& today)
{
    checkPatient(document, prescription);
    checkValidity(prescription, document.handedOver, today);
    checkQuantity(document.quantity, prescription, dispensed);
    checkMedication(document, prescription);
    checkClaim(document, prescription, payers);
}
} // namespace emulator
