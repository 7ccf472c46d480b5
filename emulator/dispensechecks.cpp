// SPDX-License-Identifier: MIT
#include "dispensechecks.h"

#include "doses.h"
#include "prescriptionstatus.h"
#include "refusal.h"

#include <cmath>

namespace emulator
{
namespace
{
constexpr double halfCent = 0.005;
constexpr double representation = 1e-6; // room for numbers that have no exact binary form

void demand(bool isSo, const QString& details)
{
    if (!isSo)
        throw Refusal(422, details);
}

void checkPatient(const DispenseDocument& document, const Prescription& prescription)
{
    demand(document.patientReference == QLatin1String("Patient/") + prescription.patientId,
           QStringLiteral("Рецепт ") + prescription.id + QStringLiteral(" выписан другому пациенту"));
}

void checkValidity(const DispenseDocument& document, const Prescription& prescription, const QDate& today)
{
    demand(prescription.status != prescriptionstatus::completed,
           QStringLiteral("Рецепт ") + prescription.id + QStringLiteral(" уже отпущен полностью"));
    demand(prescription.status == prescriptionstatus::active, QStringLiteral("Рецепт ") + prescription.id +
                                                                  QStringLiteral(" не действует, его статус «") +
                                                                  prescription.status + QStringLiteral("»"));
    demand(today <= prescription.validUntil, QStringLiteral("Срок действия рецепта ") + prescription.id +
                                                 QStringLiteral(" истёк ") +
                                                 prescription.validUntil.toString(QStringLiteral("dd.MM.yyyy")));
    demand(document.handedOver >= prescription.written, QStringLiteral("Дата отпуска раньше даты выписки рецепта"));
    demand(document.handedOver <= today, QStringLiteral("Дата отпуска ещё не наступила"));
}

void checkQuantity(const DispenseDocument& document, const Prescription& prescription, double dispensed)
{
    demand(document.quantity > 0, QStringLiteral("Количество отпускаемых доз должно быть больше нуля"));
    const double left = prescription.quantity - dispensed;
    demand(document.quantity <= left + doses::tolerance,
           QStringLiteral("По рецепту ") + prescription.id + QStringLiteral(" осталось доз: ") +
               QString::number(left, 'f', 2) + QStringLiteral(", отпускается: ") +
               QString::number(document.quantity, 'f', 2));
}

/// The code of any of the prescription's codings will do, and none at all where it names no trade name.
void checkMedication(const DispenseDocument& document, const Prescription& prescription)
{
    const QString& code = document.medicationCode;
    if (code.isEmpty()) {
        demand(prescription.tradeName.isEmpty(), QStringLiteral("В документе отпуска не указан код препарата"));
        return;
    }
    const QStringList codes{prescription.innCode, prescription.tradeNameCode, prescription.dosageCode};
    demand(codes.contains(code),
           QStringLiteral("Препарат с кодом ") + code + QStringLiteral(" не назначен рецептом ") + prescription.id);
}

void checkAmount(double amount, const QString& currency)
{
    demand(currency == QLatin1String("BYN"), QStringLiteral("Суммы счёта должны быть в белорусских рублях"));
    demand(amount >= 0, QStringLiteral("Суммы счёта не могут быть отрицательными"));
    demand(std::abs(amount * 100 - std::round(amount * 100)) < representation * 100,
           QStringLiteral("Суммы счёта должны быть в целых копейках"));
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
    demand(!document.claim || isDue, QStringLiteral("Рецепт отпускается за полную стоимость, счёт не нужен"));
    demand(document.claim || !isDue, QStringLiteral("К отпуску льготного рецепта не приложен счёт"));
    if (!document.claim)
        return;

    const Claim& claim = *document.claim;
    demand(claim.prescriptionId == document.prescriptionId, QStringLiteral("Счёт относится к другому рецепту"));
    demand(claim.patientReference == document.patientReference, QStringLiteral("Счёт относится к другому пациенту"));
    demand(payers.contains(claim.payerId), QStringLiteral("Организация-плательщик неизвестна"));
    demand(claim.payerId == prescription.payerId, QStringLiteral("Льготу по рецепту оплачивает другая организация"));
    checkAmount(claim.unitPrice, claim.unitPriceCurrency);
    checkAmount(claim.net, claim.netCurrency);
    demand(std::abs(claim.factor - payersShare) < halfCent + representation,
           QStringLiteral("Доля плательщика в счёте не соответствует рецепту"));
    demand(fitTogether(claim), QStringLiteral("Сумма счёта не соответствует цене и доле плательщика"));
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
