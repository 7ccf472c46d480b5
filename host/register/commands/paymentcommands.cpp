// SPDX-License-Identifier: MIT
#include "notice.h"
#include "registercommands.h"

using namespace Qt::StringLiterals;

EContext::Result RegisterCommands::subtotal(control::Action&)
{
    if (!hasPositions()) {
        return EContext::Stop;
    }
    m_till.setPhase(Till::Phase::Subtotal);
    return EContext::GoOn;
}

EContext::Result RegisterCommands::subtotalAndPayment(control::Action&)
{
    if (!hasPositions()) {
        return EContext::Stop;
    }
    m_till.setPhase(Till::Phase::Payment);
    return EContext::GoOn;
}

EContext::Result RegisterCommands::backToPositions(control::Action&)
{
    m_till.setPhase(Till::Phase::Positions);
    return EContext::GoOn;
}

EContext::Result RegisterCommands::pay(control::Action& action)
{
    if (m_till.phase() != Till::Phase::Payment) {
        return EContext::Stop;
    }
    const Document& document = *m_till.document();
    const QString typed = action.value(u"received"_s).toString();
    const std::optional<Kopecks> received =
        document.isReturn() || typed.trimmed().isEmpty() ? document.getSum() : typedAmount(typed);
    if (!received) {
        showNotice(
            tr::Tr(u"receivedUnreadable"_s, u"«%1» — не сумма.\nВведите полученные деньги, например 50 или 12,40."_s)
                .arg(typed));
        return EContext::Stop;
    }
    if (*received < document.getSum()) {
        showNotice(tr::Tr(u"receivedTooLittle"_s, u"Получено %1, а к оплате %2.\nНе хватает %3."_s)
                       .arg(amountText(*received))
                       .arg(amountText(document.getSum()))
                       .arg(amountText(document.getSum() - *received)));
        return EContext::Stop;
    }
    return m_till.close(*received) ? EContext::GoOn : EContext::Stop;
}

bool RegisterCommands::hasPositions() const
{
    if (!m_till.document()->positions().isEmpty()) {
        return true;
    }
    showNotice({u"receiptEmpty"_s, u"В чеке нет позиций.\nДобавьте товар или отмените чек."_s});
    return false;
}
