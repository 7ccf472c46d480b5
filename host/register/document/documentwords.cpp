// SPDX-License-Identifier: MIT
#include "documentwords.h"

#include "tr.h"

using namespace Qt::StringLiterals;

namespace
{

/// The final message asked the cashier to pay out what the terminal did not give back; cash was paid out before.
tr::Tr closingOfReturn(const Document& document)
{
    const QString number = QString::number(document.getNumber());
    const Kopecks toCard = document.getRefunded();
    const Kopecks inCash = document.getSum() - toCard;
    if (toCard > Kopecks{0} && inCash == Kopecks{0}) {
        return tr::Tr(u"takeBackClosedWhollyToCard"_s, u"Возврат № %1 закрыт. На карту возвращено %2"_s)
            .arg(number)
            .arg(amountText(toCard));
    }
    if (toCard > Kopecks{0}) {
        return tr::Tr(u"takeBackClosedToCard"_s, u"Возврат № %1 закрыт. На карту %2, верните наличными %3"_s)
            .arg(number)
            .arg(amountText(toCard))
            .arg(amountText(inCash));
    }
    return (document.getRefundedInCash() > Kopecks{0}
                ? tr::Tr(u"takeBackClosedPaidBack"_s, u"Возврат № %1 закрыт. Верните покупателю наличными %2"_s)
                : tr::Tr(u"takeBackClosed"_s, u"Возврат № %1 закрыт. Выдано покупателю %2"_s))
        .arg(number)
        .arg(amountText(document.getReceived()));
}

tr::Tr closing(const Document& document)
{
    if (document.isReturn()) {
        return closingOfReturn(document);
    }
    if (document.getCharged() > Kopecks{0} && document.getCharged() == document.getSum()) {
        return tr::Tr(u"receiptClosedByCard"_s, u"Чек № %1 закрыт. Картой оплачено %2"_s)
            .arg(QString::number(document.getNumber()))
            .arg(amountText(document.getCharged()));
    }
    return tr::Tr(u"receiptClosed"_s, u"Чек № %1 закрыт. Сдача %2"_s)
        .arg(QString::number(document.getNumber()))
        .arg(amountText(document.getChange()));
}

/// Texts about a sale that was given up; which one, its refunds decide. The first argument is its number.
struct GivenUp {
    tr::Tr withoutMoney;
    tr::Tr inCash; ///< then the amount
    tr::Tr toCard; ///< then the amount
    tr::Tr both;   ///< then the amount on the card, and that in cash
};

tr::Tr givenUp(const GivenUp& texts, const Document& sale)
{
    const QString number = QString::number(sale.getNumber());
    const Kopecks toCard = sale.getRefunded();
    const Kopecks inCash = sale.getRefundedInCash();
    if (toCard > Kopecks{0} && inCash > Kopecks{0}) {
        return texts.both.arg(number).arg(amountText(toCard)).arg(amountText(inCash));
    }
    if (toCard > Kopecks{0}) {
        return texts.toCard.arg(number).arg(amountText(toCard));
    }
    if (inCash > Kopecks{0}) {
        return texts.inCash.arg(number).arg(amountText(inCash));
    }
    return texts.withoutMoney.arg(number);
}

tr::Tr cancellation(const Document& document)
{
    if (document.isReturn()) {
        return tr::Tr(u"takeBackCancelled"_s, u"Возврат № %1 отменён"_s).arg(QString::number(document.getNumber()));
    }
    return givenUp({.withoutMoney = {u"receiptCancelled"_s, u"Чек № %1 отменён"_s},
                    .inCash = {u"receiptCancelledPaidBack"_s, u"Чек № %1 отменён. Верните покупателю наличными %2"_s},
                    .toCard = {u"receiptCancelledRefunded"_s, u"Чек № %1 отменён. На карту возвращено %2"_s},
                    .both = {u"receiptCancelledPaidBackBoth"_s,
                             u"Чек № %1 отменён. На карту возвращено %2, верните наличными %3"_s}},
                   document);
}

tr::Tr voidingOfSuspended(const Document& document)
{
    return givenUp(
        {.withoutMoney = {u"putAsideAnnulled"_s, u"Отложенный чек № %1 аннулирован"_s},
         .inCash = {u"putAsideAnnulledPaidBack"_s,
                    u"Отложенный чек № %1 аннулирован. Верните покупателю наличными %2"_s},
         .toCard = {u"putAsideAnnulledRefunded"_s, u"Отложенный чек № %1 аннулирован. На карту возвращено %2"_s},
         .both = {u"putAsideAnnulledPaidBackBoth"_s,
                  u"Отложенный чек № %1 аннулирован. На карту возвращено %2, верните наличными %3"_s}},
        document);
}

tr::Tr closedState(const Document& document, Document::Returned returned)
{
    if (document.isReturn()) {
        return tr::Tr(u"documentTakeBack"_s, u"Возврат чека № %1"_s).arg(QString::number(document.getReturnedSale()));
    }
    switch (returned) {
    case Document::Returned::Nothing:
        if (document.isVoidingBegun()) {
            return {u"documentAnnulmentBegun"_s, u"Продажа, аннулирование не завершено"_s};
        }
        break;
    case Document::Returned::Partly:
        return {u"documentPartlyTakenBack"_s, u"Продажа, возвращена частично"_s};
    case Document::Returned::Wholly:
        return tr::Tr(u"documentTakenBack"_s, u"Продажа, возвращена документом № %1"_s)
            .arg(QString::number(document.getReturnedBy()));
    }
    return {u"documentSale"_s, u"Продажа"_s};
}

tr::Tr suspendedState(const Document& document)
{
    if (document.unsettledCardOperation()) {
        return document.isReturn()
                   ? tr::Tr(u"documentTakeBackPutAsideUnsettled"_s, u"Возврат отложен, исход по карте неизвестен"_s)
                   : tr::Tr(u"documentPutAsideUnsettled"_s, u"Отложен, исход по карте неизвестен"_s);
    }
    if (document.isReturn()) {
        return {u"documentTakeBackPutAside"_s, u"Возврат отложен"_s};
    }
    return document.getCharged() > Kopecks{0} ? tr::Tr(u"documentPutAsideCharged"_s, u"Отложен, есть оплата картой"_s)
                                              : tr::Tr(u"documentPutAside"_s, u"Отложен"_s);
}

tr::Tr stateWord(const Document& document, Document::Returned returned)
{
    switch (document.getState()) {
    case Document::State::Open:
        return {u"documentOpen"_s, u"Открыт"_s};
    case Document::State::Suspended:
        return suspendedState(document);
    case Document::State::Closed:
        return closedState(document, returned);
    case Document::State::Cancelled:
        return document.isReturn() ? tr::Tr(u"documentTakeBackCancelled"_s, u"Возврат отменён"_s)
                                   : tr::Tr(u"documentCancelled"_s, u"Отменён"_s);
    case Document::State::Voided:
        return {u"documentAnnulled"_s, u"Аннулирован"_s};
    }
    return {};
}

} // namespace

namespace documentwords
{

QString title(const Document& document)
{
    const QString number = QString::number(document.getNumber());
    if (document.isReturn()) {
        return tr::Tr(u"takeBackNumber"_s, u"Возврат № %1 (чек № %2)"_s)
            .arg(number)
            .arg(QString::number(document.getReturnedSale()))
            .ui();
    }
    return tr::Tr(u"receiptNumber"_s, u"Чек № %1"_s).arg(number).ui();
}

QString state(const Document& document, Document::Returned returned)
{
    return stateWord(document, returned).ui();
}

QString ending(const Document& document)
{
    switch (document.getState()) {
    case Document::State::Closed:
        return closing(document).ui();
    case Document::State::Cancelled:
        return cancellation(document).ui();
    case Document::State::Suspended:
        return (document.isReturn() ? tr::Tr(u"takeBackPutAside"_s, u"Возврат № %1 отложен"_s)
                                    : tr::Tr(u"receiptPutAside"_s, u"Чек № %1 отложен"_s))
            .arg(QString::number(document.getNumber()))
            .ui();
    default:
        return {};
    }
}

QString voiding(const Document& document, Document::State before)
{
    const QString number = QString::number(document.getNumber());
    if (before == Document::State::Suspended) {
        return voidingOfSuspended(document).ui();
    }
    if (document.getSum() == Kopecks{}) {
        return tr::Tr(u"saleWithoutMoneyAnnulled"_s, u"Чек № %1 аннулирован"_s).arg(number).ui();
    }
    if (document.getRefunded() == document.getSum()) {
        return tr::Tr(u"saleAnnulledWhollyToCard"_s, u"Чек № %1 аннулирован. На карту возвращено %2"_s)
            .arg(number)
            .arg(amountText(document.getRefunded()))
            .ui();
    }
    if (document.getRefunded() > Kopecks{0}) {
        return tr::Tr(u"saleAnnulledToCard"_s, u"Чек № %1 аннулирован. На карту возвращено %2, верните наличными %3"_s)
            .arg(number)
            .arg(amountText(document.getRefunded()))
            .arg(amountText(document.getSum() - document.getRefunded()))
            .ui();
    }
    return tr::Tr(u"saleAnnulled"_s, u"Чек № %1 аннулирован. Верните покупателю %2"_s)
        .arg(number)
        .arg(amountText(document.getSum()))
        .ui();
}

QString restored(const Document& document)
{
    return (document.isReturn()
                ? tr::Tr(u"takeBackRestored"_s,
                         u"Возврат № %1 восстановлен после перезапуска. Проверьте позиции и продолжайте."_s)
                : tr::Tr(u"receiptRestored"_s,
                         u"Чек № %1 восстановлен после перезапуска. Проверьте позиции и продолжайте."_s))
        .arg(QString::number(document.getNumber()))
        .ui();
}

} // namespace documentwords
