// SPDX-License-Identifier: MIT
#include "registrysteps.h"

#include "goodsitem.h"
#include "positionoptions.h"
#include "requestjournal.h"

using namespace Qt::StringLiterals;

namespace
{

using Outcome = RestClient::Outcome;

/// The number on the patient's paper, or the registry's id where the paper has none.
QString prescriptionNumber(const GoodsItem& position)
{
    const PositionOptions options(position);
    const QString number = options.serialNumber();
    return number.isEmpty() ? options.id() : number;
}

/// True when the command, repeated, finds out first what became of the request.
bool isSettledByTheTill()
{
    return Singleton<RequestJournal>::get()->isSettledByPlugin();
}

tr::Tr registrationUnknown()
{
    if (isSettledByTheTill()) {
        return {u"electronicPrescriptionRegistrationToBeSettled"_s,
                u"Неизвестно, записан ли в реестре этот отпуск; чек не закрыт. Записано до него: %1 из %2. Повторите "
                "команду: касса сначала спросит реестр и не запишет отпуск второй раз."_s};
    }
    return {u"electronicPrescriptionRegistrationUnknown"_s,
            u"Неизвестно, записан ли в реестре этот отпуск; чек не закрыт. Записано до него: %1 из %2. "
            "Не повторяйте подытог, пока администратор не проверит этот рецепт в реестре: повтор может "
            "записать отпуск второй раз."_s};
}

tr::Tr registrationNotDone()
{
    return {u"electronicPrescriptionRegistrationNotDone"_s,
            u"Реестр не подтвердил этот отпуск; чек не закрыт. Записано до него: %1 из %2, повторно они "
            "не отправляются. Когда причина устранена, повторите подытог."_s};
}

} // namespace

namespace registrysteps
{

tr::Tr registration(const GoodsItem& position, int number, int count)
{
    return tr::Tr(u"electronicPrescriptionRegistrationStep"_s, u"Регистрация отпуска %1 из %2. Рецепт %3, товар: %4"_s)
        .arg(QString::number(number))
        .arg(QString::number(count))
        .arg(prescriptionNumber(position))
        .arg(position.getName());
}

tr::Tr cancellation(const GoodsItem& position)
{
    return tr::Tr(u"electronicPrescriptionCancellationStep"_s, u"Отмена отпуска. Рецепт %1, товар: %2"_s)
        .arg(prescriptionNumber(position))
        .arg(position.getName());
}

tr::Tr adviceAfterRegistration(Outcome outcome, int registered, int count)
{
    return (outcome == Outcome::Unknown ? registrationUnknown() : registrationNotDone())
        .arg(QString::number(registered))
        .arg(QString::number(count));
}

tr::Tr adviceAfterCancellation(Outcome outcome)
{
    if (isSettledByTheTill()) {
        return {u"electronicPrescriptionCancellationToBeSettled"_s,
                u"Реестр не подтвердил отмену. Когда причина устранена, повторите команду: касса сначала спросит "
                "реестр, отменён ли этот отпуск."_s};
    }
    if (outcome == Outcome::Unknown) {
        return {u"electronicPrescriptionCancellationUnknown"_s,
                u"Неизвестно, отменён ли этот отпуск в реестре. Прежде чем повторять, попросите администратора "
                "проверить этот рецепт в реестре."_s};
    }
    return {u"electronicPrescriptionCancellationNotDone"_s,
            u"Реестр не подтвердил отмену; касса по-прежнему считает отпуск записанным. Если реестр пишет, что отпуск "
            "уже отменён, позовите администратора; иначе повторите, когда причина устранена."_s};
}

} // namespace registrysteps
