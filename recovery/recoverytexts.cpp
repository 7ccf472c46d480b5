// SPDX-License-Identifier: MIT
#include "recoverytexts.h"

#include "abstractdocument.h"
#include "dispenserequest.h"
#include "outcomemark.h"
#include "positionoptions.h"

#include <QLocale>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

/// True for the open document, when the cashier can suspend it: a return only while a position is marked.
bool canBeSuspended(const AbstractDocument& document)
{
    if (document.isClosed() || document.fileName() != AbstractDocument::openDocumentFile) {
        return false;
    }
    const auto positions = document.getPositions();
    return document.getType() != AbstractDocument::Return ||
           std::any_of(positions.cbegin(), positions.cend(),
                       [](const auto& position) { return outcomemark::isOn(*position); });
}

/// How the next customer can be served all the same.
tr::Tr wayOn(const AbstractDocument& document)
{
    if (!canBeSuspended(document)) {
        return {u"dispenseRecoveryWayOnStored"_s,
                u"Документ остался как был. Повторите команду, когда реестр снова отвечает."_s};
    }
    if (document.getType() == AbstractDocument::Return) {
        return {u"dispenseRecoveryWayOnReturn"_s,
                u"Возврат можно отложить и обслужить следующего покупателя; когда возврат возобновят, касса спросит "
                "реестр снова."_s};
    }
    return {
        u"dispenseRecoveryWayOnSale"_s,
        u"Чек можно отложить и обслужить следующего покупателя; когда чек возобновят, касса спросит реестр снова."_s};
}

/// What can be done until the operator has cancelled a dispense.
tr::Tr meanwhile(const AbstractDocument& document)
{
    if (!canBeSuspended(document)) {
        return {u"dispenseRecoveryMeanwhileStored"_s, u"До тех пор документ остаётся как был."_s};
    }
    return {u"dispenseRecoveryMeanwhile"_s, u"До тех пор документ можно отложить и обслужить следующего покупателя."_s};
}

QString idText(const QString& dispense)
{
    return dispense.isEmpty() ? tr::Tr(u"dispenseRecoveryIdNotShown"_s, u"реестр не сообщает"_s).ui() : dispense;
}

tr::Tr heldInVain(const QString& name, const QString& dispense)
{
    return tr::Tr(u"dispenseRecoveryHeldInVain"_s,
                  u"Отпуск записан в реестре, а по чеку ничего не выдано: %1, номер отпуска: %2. "
                  "Попросите оператора реестра отменить его и повторите сверку."_s)
        .arg(name)
        .arg(idText(dispense));
}

/// Prescription, doses and time of a registration.
QString nameOf(const DispenseRequest& request)
{
    return tr::Tr(u"dispenseRecoveryRequest"_s, u"рецепт %1, доз: %2, отправлено %3"_s)
        .arg(request.prescription)
        .arg(recoverytexts::dosesText(request.facts.doses))
        .arg(recoverytexts::timeText(request.sent))
        .ui();
}

} // namespace

namespace recoverytexts
{

tr::Tr asking()
{
    return {u"dispenseRecoveryAsking"_s, u"Сверка с реестром электронных рецептов"_s};
}

QString nameOf(const GoodsItem& position)
{
    const PositionOptions options(position);
    const QString number = options.serialNumber();
    return tr::Tr(u"dispenseRecoveryPosition"_s, u"рецепт %1, %2"_s)
        .arg(number.isEmpty() ? options.id() : number)
        .arg(position.getName())
        .ui();
}

QString dosesText(double doses)
{
    return doses > 0 ? QLocale(QLocale::Russian).toString(doses, 'f', QLocale::FloatingPointShortest) : QString();
}

QString timeText(const QDateTime& time)
{
    return time.toLocalTime().toString(u"dd.MM.yyyy HH:mm"_s);
}

tr::Tr registered(const GoodsItem& position, const QString& dispense)
{
    if (dispense.isEmpty()) {
        return tr::Tr(u"dispenseRecoveryRegisteredWithoutId"_s, u"Отпуск записан в реестре: %1."_s)
            .arg(nameOf(position));
    }
    return tr::Tr(u"dispenseRecoveryRegistered"_s, u"Отпуск записан в реестре под номером %2: %1."_s)
        .arg(nameOf(position))
        .arg(dispense);
}

tr::Tr notRegistered(const GoodsItem& position)
{
    return tr::Tr(u"dispenseRecoveryNotRegistered"_s, u"Отпуска в реестре нет: %1."_s).arg(nameOf(position));
}

tr::Tr cancelled(const GoodsItem& position)
{
    return tr::Tr(u"dispenseRecoveryCancelled"_s, u"Отпуск в реестре отменён: %1."_s).arg(nameOf(position));
}

tr::Tr cancelledButSold(const GoodsItem& position)
{
    return tr::Tr(u"dispenseRecoveryCancelledButSold"_s,
                  u"Отпуск в реестре отменён, а продажа закрыта: %1. Аннулируйте продажу или оформите возврат."_s)
        .arg(nameOf(position));
}

tr::Tr notCancelled(const GoodsItem& position)
{
    return tr::Tr(u"dispenseRecoveryNotCancelled"_s, u"Отпуск в реестре не отменён: %1."_s).arg(nameOf(position));
}

tr::Tr undecided(const GoodsItem& position)
{
    return tr::Tr(u"dispenseRecoveryUndecided"_s, u"Не решено: %1."_s).arg(nameOf(position));
}

tr::Tr heldInVain(const GoodsItem& position, const QString& dispense)
{
    return ::heldInVain(nameOf(position), dispense);
}

tr::Tr unclaimed(const GoodsItem& position, const QString& dispense, double doses)
{
    return tr::Tr(u"dispenseRecoveryUnclaimed"_s,
                  u"В реестре есть отпуск этой аптеки, которого нет в документах кассы: %1, номер отпуска %2, доз: %3. "
                  "Проверьте другие кассы; лишний отпуск отменяет оператор реестра."_s)
        .arg(nameOf(position))
        .arg(dispense)
        .arg(dosesText(doses));
}

tr::Tr notRegistered(const DispenseRequest& request)
{
    return tr::Tr(u"dispenseRecoveryNotRegistered"_s, u"Отпуска в реестре нет: %1."_s).arg(::nameOf(request));
}

tr::Tr undecided(const DispenseRequest& request)
{
    if (request.kind == DispenseRequest::Kind::Cancellation) {
        return tr::Tr(u"dispenseRecoveryCancellationUndecided"_s,
                      u"Запрос не решён: отмена отпуска %1, отправлено %2. "
                      "Спросите оператора реестра, отменён ли этот отпуск, и повторите сверку."_s)
            .arg(request.dispense)
            .arg(timeText(request.sent));
    }
    return tr::Tr(u"dispenseRecoveryRegistrationUndecided"_s,
                  u"Запрос не решён: %1. Спросите оператора реестра, записан ли этот отпуск, и повторите сверку."_s)
        .arg(::nameOf(request));
}

tr::Tr heldInVain(const DispenseRequest& request, const QString& dispense)
{
    return ::heldInVain(::nameOf(request), dispense);
}

tr::Tr withoutPosition()
{
    return {u"dispenseRecoveryPositionMissing"_s, u"Позиции этого отпуска в чеке нет"_s};
}

tr::Tr withoutDocument(const DispenseRequest& request)
{
    if (request.document.isEmpty()) {
        return {u"dispenseRecoveryRequestWithoutDocument"_s, u"Запрос был без документа."_s};
    }
    return tr::Tr(u"dispenseRecoveryDocumentMissing"_s, u"Документа %1 на кассе нет."_s).arg(request.document);
}

tr::Tr doneWithoutDocument(const DispenseRequest& request)
{
    if (request.kind == DispenseRequest::Kind::Cancellation) {
        return tr::Tr(u"dispenseRecoveryCancelledWithoutDocument"_s,
                      u"Отпуск %1 отменён в реестре. Если товар не возвращён, сообщите администратору."_s)
            .arg(request.dispense);
    }
    return tr::Tr(u"dispenseRecoveryRegisteredWithoutDocument"_s,
                  u"Отпуск записан в реестре: %1, номер отпуска: %2. Если товар не выдан, попросите оператора реестра "
                  "отменить его."_s)
        .arg(::nameOf(request))
        .arg(idText(request.dispense));
}

tr::Tr reconciliationTitle()
{
    return {u"dispenseRecoveryReconciliation"_s, u"Сверка с реестром"_s};
}

tr::Tr ofDocument(const QString& document, const QString& finding)
{
    return tr::Tr(u"dispenseRecoveryOfDocument"_s, u"Документ %1. %2"_s).arg(document).arg(finding);
}

tr::Tr summary(int compared, int undecided)
{
    if (undecided > 0) {
        return tr::Tr(
                   u"dispenseRecoveryReconciledInPart"_s,
                   u"Сверка закончена. Сверено документов: %1, не решено: %2. Повторите её, когда решение известно."_s)
            .arg(QString::number(compared))
            .arg(QString::number(undecided));
    }
    return tr::Tr(u"dispenseRecoveryReconciled"_s, u"Сверка закончена. Сверено документов: %1."_s)
        .arg(QString::number(compared));
}

tr::Tr brokenOff(int compared)
{
    return tr::Tr(u"dispenseRecoveryBrokenOff"_s,
                  u"Сверка прервана. Сверено документов: %1. Повторите её, когда причина устранена."_s)
        .arg(QString::number(compared));
}

tr::Tr cannotAsk(const tr::Tr& reason, const QStringList& positions, const AbstractDocument& document)
{
    return tr::Tr(u"dispenseRecoveryCannotAsk"_s,
                  u"%1\n\nКасса не знает, что записано в реестре: %2.\nНичего не отправлено. %3"_s)
        .arg(reason.ui())
        .arg(positions.join(u"; "_s))
        .arg(wayOn(document).ui());
}

tr::Tr cardRefused(const tr::Tr& reason)
{
    return tr::Tr(u"dispenseRecoveryCardRefused"_s,
                  u"%1\n\nРеестр не знает карту этого документа и не показывает её рецепты: карту могли заменить или "
                  "закрыть. Спросите оператора реестра, что записано, и выберите его ответ."_s)
        .arg(reason.ui());
}

tr::Tr cardNotCompared(const tr::Tr& reason)
{
    return tr::Tr(u"dispenseRecoveryCardNotCompared"_s,
                  u"Реестр не знает карту этого документа (%1): другие отпуска по ней не сверены."_s)
        .arg(reason.ui());
}

tr::Tr withoutIds(const QStringList& positions, const AbstractDocument& document)
{
    return tr::Tr(u"dispenseRecoveryWithoutIds"_s,
                  u"Касса не может отменить отпуск, номер которого реестр не сообщил: %1.\nНичего не отправлено. "
                  "Попросите оператора реестра отменить этот отпуск. Когда он отменён, повторите команду и выберите "
                  "последнюю строку списка. %2"_s)
        .arg(positions.join(u"; "_s))
        .arg(meanwhile(document).ui());
}

tr::Tr undecidedDocuments(const QStringList& documents)
{
    QStringList numbers = documents;
    numbers.removeAll(QString());
    if (numbers.isEmpty()) {
        return {u"dispenseRecoveryUndecidedRequests"_s,
                u"Не решено, что записано в реестре по запросам без документа. Дайте команду «Сверка с реестром»."_s};
    }
    return tr::Tr(u"dispenseRecoveryUndecidedDocuments"_s,
                  u"Не решено, что записано в реестре. Документы: %1. Дайте команду «Сверка с реестром»."_s)
        .arg(numbers.join(u", "_s));
}

tr::Tr journalDamaged()
{
    return {
        u"dispenseRecoveryJournalDamaged"_s,
        u"Журнал запросов был повреждён: касса могла забыть запросы без ответа. Дайте команду «Сверка с реестром» и "
        "сообщите администратору."_s};
}

tr::Tr journalMissing()
{
    return {u"dispenseRecoveryJournalMissing"_s,
            u"в настройке RestClient:journal нет */MedicationDispense/*, поэтому потерянные ответы реестра не "
            "сверяются"_s};
}

} // namespace recoverytexts
