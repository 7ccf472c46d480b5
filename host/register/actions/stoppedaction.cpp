// SPDX-License-Identifier: MIT
#include "stoppedaction.h"

#include "formhost.h"
#include "graphicaluserinterface.h"

using namespace Qt::StringLiterals;

namespace
{

tr::Tr notDone(control::EActionType type)
{
    switch (type) {
    case control::Subtotal:
        return {u"actionSubtotal"_s, u"Подытог не выполнен"_s};
    case control::SubtotalAndPayment:
        return {u"actionPayment"_s, u"Оплата не выполнена"_s};
    case control::RemovePosition:
        return {u"actionStornoPosition"_s, u"Удаление позиции не выполнено"_s};
    case control::CancelDocument:
    case control::CancelDocumentFromMenu:
        return {u"actionStornoAll"_s, u"Отмена не выполнена"_s};
    case control::VoidDocument:
        return {u"actionAnnulDocument"_s, u"Аннулирование не выполнено"_s};
    default:
        return {u"actionUnnamed"_s, u"Действие не выполнено"_s};
    }
}

} // namespace

namespace stoppedaction
{

tr::Tr stopped(const control::Action& action)
{
    const QString message = Singleton<GraphicalUserInterface>::get()->host().lastMessage.simplified();
    const QString what = notDone(action.getType()).ui();
    if (message.isEmpty()) {
        return tr::Tr(u"actionStoppedSilently"_s,
                      u"%1: модуль остановил это действие. Если остановили не вы, повторите."_s)
            .arg(what);
    }
    return tr::Tr(u"actionStopped"_s, u"%1. Сообщение: %2"_s).arg(what).arg(message);
}

tr::Tr notFound(const control::Action& action)
{
    return tr::Tr(u"actionNotFound"_s, u"%1: модуль не нашёл у себя эту позицию или этот чек. Чек не изменён.\n"
                                       "Проверьте, что выбрана нужная строка, и повторите. Если не поможет, позовите "
                                       "администратора."_s)
        .arg(notDone(action.getType()).ui());
}

} // namespace stoppedaction
