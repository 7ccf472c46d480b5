// SPDX-License-Identifier: MIT
#include "notice.h"
#include "registercommands.h"

using namespace Qt::StringLiterals;

EContext::Result RegisterCommands::subtotal(control::Action&)
{
    if (!hasPositions()) {
        return EContext::Stop;
    }
    m_sale.setPhase(Sale::Phase::Subtotal);
    return EContext::GoOn;
}

EContext::Result RegisterCommands::subtotalAndPayment(control::Action&)
{
    if (!hasPositions()) {
        return EContext::Stop;
    }
    m_sale.setPhase(Sale::Phase::Payment);
    return EContext::GoOn;
}

EContext::Result RegisterCommands::backToPositions(control::Action&)
{
    m_sale.setPhase(Sale::Phase::Positions);
    return EContext::GoOn;
}

EContext::Result RegisterCommands::pay(control::Action& action)
{
    if (m_sale.phase() != Sale::Phase::Payment) {
        return EContext::Stop;
    }
    const Receipt& receipt = *m_sale.receipt();
    const QString typed = action.value(u"received"_s).toString();
    const std::optional<Kopecks> received =
        receipt.isCancelling() || typed.trimmed().isEmpty() ? receipt.getSum() : typedAmount(typed);
    if (!received) {
        showNotice(
            tr::Tr(u"receivedUnreadable"_s, u"«%1» — не сумма.\nВведите полученные деньги, например 50 или 12,40."_s)
                .arg(typed));
        return EContext::Stop;
    }
    if (*received < receipt.getSum()) {
        showNotice(tr::Tr(u"receivedTooLittle"_s, u"Получено %1, а к оплате %2.\nНе хватает %3."_s)
                       .arg(amountText(*received))
                       .arg(amountText(receipt.getSum()))
                       .arg(amountText(receipt.getSum() - *received)));
        return EContext::Stop;
    }
    return m_sale.close(*received) ? EContext::GoOn : EContext::Stop;
}

bool RegisterCommands::hasPositions() const
{
    if (!m_sale.receipt()->positions().isEmpty()) {
        return true;
    }
    showNotice({u"receiptEmpty"_s, u"В чеке нет позиций.\nДобавьте товар или отмените чек."_s});
    return false;
}
