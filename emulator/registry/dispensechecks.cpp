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
constexpr double representation = 1e-6; // room for numbers that have no exact binary form

void demand(bool isSo, const QString& details)
{
    if (!isSo) {
        throw Refusal(422, details);
    }
}

void checkPatient(const DispenseDocument& document, const Prescription& prescription)
{
    demand(document.patientReference == "Patient/"_L1 + prescription.patientId,
           u"Рецепт "_s + prescription.id + u" выписан другому пациенту"_s);
}

void checkValidity(const DispenseDocument& document, const Prescription& prescription, const QDate& today)
{
    demand(prescription.status != prescriptionstatus::completed,
           u"Рецепт "_s + prescription.id + u" уже отпущен полностью"_s);
    demand(prescription.status == prescriptionstatus::active,
           u"Рецепт "_s + prescription.id + u" не действует, его статус «"_s + prescription.status + u"»"_s);
    demand(today <= prescription.validUntil, u"Срок действия рецепта "_s + prescription.id + u" истёк "_s +
                                                 prescription.validUntil.toString(u"dd.MM.yyyy"_s));
    demand(document.handedOver >= prescription.written, u"Дата отпуска раньше даты выписки рецепта"_s);
    demand(document.handedOver <= today, u"Дата отпуска ещё не наступила"_s);
}

void checkQuantity(const DispenseDocument& document, const Prescription& prescription, double dispensed)
{
    demand(document.quantity > 0, u"Количество отпускаемых доз должно быть больше нуля"_s);
    const double left = prescription.quantity - dispensed;
    demand(document.quantity <= left + doses::tolerance, u"По рецепту "_s + prescription.id + u" осталось доз: "_s +
                                                             QString::number(left, 'f', 2) + u", отпускается: "_s +
                                                             QString::number(document.quantity, 'f', 2));
}

/// The code of any of the prescription's codings will do, and none at all where it names no trade name.
void checkMedication(const DispenseDocument& document, const Prescription& prescription)
{
    const QString& code = document.medicationCode;
    if (code.isEmpty()) {
        demand(prescription.tradeName.isEmpty(), u"В документе отпуска не указан код препарата"_s);
        return;
    }
    const QStringList codes{prescription.innCode, prescription.tradeNameCode, prescription.dosageCode};
    demand(codes.contains(code), u"Препарат с кодом "_s + code + u" не назначен рецептом "_s + prescription.id);
}

void checkAmount(double amount, const QString& currency)
{
    demand(currency == "BYN"_L1, u"Суммы счёта должны быть в белорусских рублях"_s);
    demand(amount >= 0, u"Суммы счёта не могут быть отрицательными"_s);
    demand(std::abs(amount * 100 - std::round(amount * 100)) < representation * 100,
           u"Суммы счёта должны быть в целых копейках"_s);
}

/// The net amount is the payer's share of the price. Both were rounded to the cent, so they may differ by what the two
/// roundings allow, and for a payer of the whole price by nothing.
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
    demand(!document.claim || isDue, u"Рецепт отпускается за полную стоимость, счёт не нужен"_s);
    demand(document.claim || !isDue, u"К отпуску льготного рецепта не приложен счёт"_s);
    if (!document.claim) {
        return;
    }

    const Claim& claim = *document.claim;
    demand(claim.prescriptionId == document.prescriptionId, u"Счёт относится к другому рецепту"_s);
    demand(claim.patientReference == document.patientReference, u"Счёт относится к другому пациенту"_s);
    demand(payers.contains(claim.payerId), u"Организация-плательщик неизвестна"_s);
    demand(claim.payerId == prescription.payerId, u"Льготу по рецепту оплачивает другая организация"_s);
    checkAmount(claim.unitPrice, claim.unitPriceCurrency);
    checkAmount(claim.net, claim.netCurrency);
    demand(std::abs(claim.factor - payersShare) < halfCent + representation,
           u"Доля плательщика в счёте не соответствует рецепту"_s);
    demand(fitTogether(claim), u"Сумма счёта не соответствует цене и доле плательщика"_s);
}
} // namespace

void checkDispense(const DispenseDocument& document, const Prescription& prescription, double dispensed,
                   const QSet<QString>& payers, const QDate& today)
{
    checkPatient(document, prescription);
    checkValidity(document, prescription, today);
    checkQuantity(document, prescription, dispensed);
    checkMedication(document, prescription);
    checkClaim(document, prescription, payers);
}
} // namespace emulator
