// SPDX-License-Identifier: MIT
#include "refusal.h"

namespace
{

tr::Tr notDone(control::EActionType type)
{
    switch (type) {
    case control::Subtotal:
        return {QStringLiteral("actionSubtotal"), QStringLiteral("Подытог не выполнен")};
    case control::SubtotalAndPayment:
        return {QStringLiteral("actionPayment"), QStringLiteral("Оплата не выполнена")};
    case control::StornoPosition:
        return {QStringLiteral("actionStornoPosition"), QStringLiteral("Удаление позиции не выполнено")};
    case control::StornoAll:
    case control::StornoAllFromMenu:
        return {QStringLiteral("actionStornoAll"), QStringLiteral("Отмена не выполнена")};
    case control::AnnulDocument:
        return {QStringLiteral("actionAnnulDocument"), QStringLiteral("Аннулирование не выполнено")};
    default:
        return {QStringLiteral("actionUnnamed"), QStringLiteral("Действие не выполнено")};
    }
}

} // namespace

namespace refusal
{

tr::Tr stopped(const control::Action& action)
{
    return tr::Tr(QStringLiteral("actionStopped"),
                  QStringLiteral("%1. Устраните причину, названную в сообщении, и повторите."))
        .arg(notDone(action.getType()).ui());
}

tr::Tr notFound(const control::Action& action)
{
    return tr::Tr(QStringLiteral("actionNotFound"),
                  QStringLiteral("%1: модуль не нашёл у себя эту позицию или этот чек. Чек не изменён.\n"
                                 "Проверьте, что выбрана нужная строка, и повторите. Если не поможет, позовите "
                                 "администратора."))
        .arg(notDone(action.getType()).ui());
}

} // namespace refusal
