// SPDX-License-Identifier: MIT
#include "cashpayment.h"

#include <optional>

using namespace Qt::StringLiterals;

namespace
{

constexpr Kopecks greatestBanknote{500'000};

Expected<Kopecks, Obstacle> read(const QString& typed)
{
    const std::optional<Kopecks> amount = typedAmount(typed);
    if (!amount) {
        return Obstacle{
            tr::Tr(u"receivedUnreadable"_s, u"«%1» — не сумма.\nВведите полученные деньги, например 50 или 12,40."_s)
                .arg(typed),
            {u"paymentNoAmount"_s, u"Не сумма"_s}};
    }
    return *amount;
}

} // namespace

namespace cashpayment
{

Expected<Payment, Obstacle> received(Kopecks due, const QString& typed)
{
    if (typed.trimmed().isEmpty()) {
        return Payment::cash(due);
    }
    const Expected<Kopecks, Obstacle> amount = read(typed);
    if (!amount) {
        return amount.failure();
    }
    if (*amount < due) {
        return Obstacle{tr::Tr(u"receivedTooLittle"_s, u"Получено %1, а к оплате %2.\nНе хватает %3."_s)
                            .arg(amountText(*amount))
                            .arg(amountText(due))
                            .arg(amountText(due - *amount)),
                        tr::Tr(u"paymentMissing"_s, u"Не хватает %1"_s).arg(amountText(due - *amount))};
    }
    return Payment::cash(*amount);
}

Expected<Kopecks, Obstacle> besideCard(Kopecks due, const QString& typed)
{
    if (typed.trimmed().isEmpty()) {
        return Kopecks{0};
    }
    Expected<Kopecks, Obstacle> amount = read(typed);
    if (amount && *amount >= due) {
        return Obstacle{tr::Tr(u"cashIsEnough"_s, u"Получено наличными %1, к оплате %2: карта не нужна.\n"
                                                  "Закройте чек наличными или исправьте сумму наличных."_s)
                            .arg(amountText(*amount))
                            .arg(amountText(due))};
    }
    return amount;
}

bool isAbsurd(Kopecks due, Kopecks received)
{
    return received - due >= greatestBanknote;
}

} // namespace cashpayment
