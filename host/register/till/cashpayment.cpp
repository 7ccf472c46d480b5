// SPDX-License-Identifier: MIT
#include "cashpayment.h"

#include <optional>

using namespace Qt::StringLiterals;

namespace cashpayment
{

Expected<Payment, Obstacle> received(Kopecks due, const QString& typed)
{
    if (typed.trimmed().isEmpty()) {
        return Payment::cash(due);
    }
    const std::optional<Kopecks> amount = typedAmount(typed);
    if (!amount) {
        return Obstacle{
            tr::Tr(u"receivedUnreadable"_s, u"«%1» — не сумма.\nВведите полученные деньги, например 50 или 12,40."_s)
                .arg(typed),
            {u"paymentNoAmount"_s, u"Не сумма"_s}};
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

} // namespace cashpayment
