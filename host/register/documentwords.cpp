// SPDX-License-Identifier: MIT
#include "documentwords.h"

#include "tr.h"

using namespace Qt::StringLiterals;

namespace
{

tr::Tr closing(const Receipt& document)
{
    if (document.isCancelling()) {
        return tr::Tr(u"takeBackClosed"_s, u"Возврат № %1 закрыт. Выдано покупателю %2"_s)
            .arg(QString::number(document.getNumber()))
            .arg(amountText(document.getReceived()));
    }
    return tr::Tr(u"receiptClosed"_s, u"Чек № %1 закрыт. Сдача %2"_s)
        .arg(QString::number(document.getNumber()))
        .arg(amountText(document.getChange()));
}

tr::Tr cancellation(const Receipt& document)
{
    return (document.isCancelling() ? tr::Tr(u"takeBackCancelled"_s, u"Возврат № %1 отменён"_s)
                                    : tr::Tr(u"receiptCancelled"_s, u"Чек № %1 отменён"_s))
        .arg(QString::number(document.getNumber()));
}

tr::Tr closedState(const Receipt& document, bool takenBack)
{
    if (document.isCancelling()) {
        return tr::Tr(u"documentTakeBack"_s, u"Возврат чека № %1"_s).arg(QString::number(document.getTakesBack()));
    }
    if (takenBack) {
        return tr::Tr(u"documentTakenBack"_s, u"Продажа, возвращена документом № %1"_s)
            .arg(QString::number(document.getTakenBackBy()));
    }
    return {u"documentSale"_s, u"Продажа"_s};
}

tr::Tr stateWord(const Receipt& document, bool takenBack)
{
    switch (document.getState()) {
    case Receipt::State::Open:
        return {u"documentOpen"_s, u"Открыт"_s};
    case Receipt::State::PutAside:
        return {u"documentPutAside"_s, u"Отложен"_s};
    case Receipt::State::Closed:
        return closedState(document, takenBack);
    case Receipt::State::Cancelled:
        return document.isCancelling() ? tr::Tr(u"documentTakeBackCancelled"_s, u"Возврат отменён"_s)
                                       : tr::Tr(u"documentCancelled"_s, u"Отменён"_s);
    case Receipt::State::Annulled:
        return {u"documentAnnulled"_s, u"Аннулирован"_s};
    }
    return {};
}

} // namespace

namespace documentwords
{

QString title(const Receipt& document)
{
    const QString number = QString::number(document.getNumber());
    if (document.isCancelling()) {
        return tr::Tr(u"takeBackNumber"_s, u"Возврат № %1 (чек № %2)"_s)
            .arg(number)
            .arg(QString::number(document.getTakesBack()))
            .ui();
    }
    return tr::Tr(u"receiptNumber"_s, u"Чек № %1"_s).arg(number).ui();
}

QString state(const Receipt& document, bool takenBack)
{
    return stateWord(document, takenBack).ui();
}

QString ending(const Receipt& document)
{
    switch (document.getState()) {
    case Receipt::State::Closed:
        return closing(document).ui();
    case Receipt::State::Cancelled:
        return cancellation(document).ui();
    case Receipt::State::PutAside:
        return tr::Tr(u"receiptPutAside"_s, u"Чек № %1 отложен"_s).arg(QString::number(document.getNumber())).ui();
    default:
        return {};
    }
}

QString annulment(const Receipt& document, Receipt::State before)
{
    const QString number = QString::number(document.getNumber());
    if (before == Receipt::State::PutAside) {
        return tr::Tr(u"putAsideAnnulled"_s, u"Отложенный чек № %1 аннулирован"_s).arg(number).ui();
    }
    if (document.getSum() == 0) {
        return tr::Tr(u"saleWithoutMoneyAnnulled"_s, u"Чек № %1 аннулирован"_s).arg(number).ui();
    }
    return tr::Tr(u"saleAnnulled"_s, u"Чек № %1 аннулирован. Верните покупателю %2"_s)
        .arg(number)
        .arg(amountText(document.getSum()))
        .ui();
}

QString restored(const Receipt& document)
{
    return (document.isCancelling()
                ? tr::Tr(u"takeBackRestored"_s,
                         u"Возврат № %1 восстановлен после перезапуска. Проверьте позиции и продолжайте."_s)
                : tr::Tr(u"receiptRestored"_s,
                         u"Чек № %1 восстановлен после перезапуска. Проверьте позиции и продолжайте."_s))
        .arg(QString::number(document.getNumber()))
        .ui();
}

} // namespace documentwords
