// SPDX-License-Identifier: MIT
#include "documentwords.h"

#include "tr.h"

namespace
{

tr::Tr closing(const Receipt& document)
{
    if (document.isCancelling())
        return tr::Tr(QStringLiteral("takeBackClosed"), QStringLiteral("Возврат № %1 закрыт. Выдано покупателю %2"))
            .arg(QString::number(document.getNumber()))
            .arg(amountText(document.getReceived()));
    return tr::Tr(QStringLiteral("receiptClosed"), QStringLiteral("Чек № %1 закрыт. Сдача %2"))
        .arg(QString::number(document.getNumber()))
        .arg(amountText(document.getChange()));
}

tr::Tr cancellation(const Receipt& document)
{
    return (document.isCancelling()
                ? tr::Tr(QStringLiteral("takeBackCancelled"), QStringLiteral("Возврат № %1 отменён"))
                : tr::Tr(QStringLiteral("receiptCancelled"), QStringLiteral("Чек № %1 отменён")))
        .arg(QString::number(document.getNumber()));
}

tr::Tr closedState(const Receipt& document, bool takenBack)
{
    if (document.isCancelling())
        return tr::Tr(QStringLiteral("documentTakeBack"), QStringLiteral("Возврат чека № %1"))
            .arg(QString::number(document.getTakesBack()));
    if (takenBack)
        return tr::Tr(QStringLiteral("documentTakenBack"), QStringLiteral("Продажа, возвращена документом № %1"))
            .arg(QString::number(document.getTakenBackBy()));
    return {QStringLiteral("documentSale"), QStringLiteral("Продажа")};
}

tr::Tr stateWord(const Receipt& document, bool takenBack)
{
    switch (document.getState()) {
    case Receipt::State::Open:
        return {QStringLiteral("documentOpen"), QStringLiteral("Открыт")};
    case Receipt::State::PutAside:
        return {QStringLiteral("documentPutAside"), QStringLiteral("Отложен")};
    case Receipt::State::Closed:
        return closedState(document, takenBack);
    case Receipt::State::Cancelled:
        return document.isCancelling()
                   ? tr::Tr(QStringLiteral("documentTakeBackCancelled"), QStringLiteral("Возврат отменён"))
                   : tr::Tr(QStringLiteral("documentCancelled"), QStringLiteral("Отменён"));
    case Receipt::State::Annulled:
        return {QStringLiteral("documentAnnulled"), QStringLiteral("Аннулирован")};
    }
    return {};
}

} // namespace

namespace documentwords
{

QString title(const Receipt& document)
{
    const QString number = QString::number(document.getNumber());
    if (document.isCancelling())
        return tr::Tr(QStringLiteral("takeBackNumber"), QStringLiteral("Возврат № %1 (чек № %2)"))
            .arg(number)
            .arg(QString::number(document.getTakesBack()))
            .ui();
    return tr::Tr(QStringLiteral("receiptNumber"), QStringLiteral("Чек № %1")).arg(number).ui();
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
        return tr::Tr(QStringLiteral("receiptPutAside"), QStringLiteral("Чек № %1 отложен"))
            .arg(QString::number(document.getNumber()))
            .ui();
    default:
        return {};
    }
}

QString annulment(const Receipt& document, Receipt::State before)
{
    const QString number = QString::number(document.getNumber());
    if (before == Receipt::State::PutAside)
        return tr::Tr(QStringLiteral("putAsideAnnulled"), QStringLiteral("Отложенный чек № %1 аннулирован"))
            .arg(number)
            .ui();
    if (document.getSum() == 0)
        return tr::Tr(QStringLiteral("saleWithoutMoneyAnnulled"), QStringLiteral("Чек № %1 аннулирован"))
            .arg(number)
            .ui();
    return tr::Tr(QStringLiteral("saleAnnulled"), QStringLiteral("Чек № %1 аннулирован. Верните покупателю %2"))
        .arg(number)
        .arg(amountText(document.getSum()))
        .ui();
}

QString restored(const Receipt& document)
{
    return (document.isCancelling()
                ? tr::Tr(
                      QStringLiteral("takeBackRestored"),
                      QStringLiteral("Возврат № %1 восстановлен после перезапуска. Проверьте позиции и продолжайте."))
                : tr::Tr(QStringLiteral("receiptRestored"),
                         QStringLiteral("Чек № %1 восстановлен после перезапуска. Проверьте позиции и продолжайте.")))
        .arg(QString::number(document.getNumber()))
        .ui();
}

} // namespace documentwords
