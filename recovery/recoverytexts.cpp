// SPDX-License-Identifier: MIT
#include "recoverytexts.h"

#include "abstractdocument.h"
#include "positionoptions.h"

#include <QLocale>

using namespace Qt::StringLiterals;

namespace
{

/// How the next customer can be served all the same.
tr::Tr wayOn(const AbstractDocument& document)
{
    if (document.isClosed() || document.fileName() != AbstractDocument::openDocumentFile) {
        return {u"dispenseRecoveryWayOnStored"_s,
                u"Документ остался как был. Повторите команду, когда реестр снова отвечает."_s};
    }
    if (document.getType() == AbstractDocument::Return) {
        return {u"dispenseRecoveryWayOnReturn"_s,
                u"Повторите подытог, когда реестр снова отвечает, или отмените возврат: продажа останется закрытой."_s};
    }
    return {
        u"dispenseRecoveryWayOnSale"_s,
        u"Чек можно отложить и обслужить следующего покупателя; когда чек возобновят, касса спросит реестр снова."_s};
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

tr::Tr notCancelled(const GoodsItem& position)
{
    return tr::Tr(u"dispenseRecoveryNotCancelled"_s, u"Отпуск в реестре не отменён: %1."_s).arg(nameOf(position));
}

tr::Tr undecided(const GoodsItem& position)
{
    return tr::Tr(u"dispenseRecoveryUndecided"_s, u"Не решено: %1."_s).arg(nameOf(position));
}

tr::Tr unclaimed(const GoodsItem& position, const QString& dispense, double doses)
{
    return tr::Tr(u"dispenseRecoveryUnclaimed"_s,
                  u"В реестре есть отпуск этой аптеки, которого нет в документах кассы: %1, номер отпуска %2, доз: %3. "
                  "Проверьте другие кассы; лишний отпуск отменяет оператор реестра."_s)
        .arg(nameOf(position))
        .arg(dispense)
        .arg(QLocale(QLocale::Russian).toString(doses, 'f', QLocale::FloatingPointShortest));
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

} // namespace recoverytexts
