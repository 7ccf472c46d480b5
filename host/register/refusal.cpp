// SPDX-License-Identifier: MIT
#include "refusal.h"

namespace
{

tr::Tr nameOf(control::EActionType type)
{
    switch (type) {
    case control::Subtotal:
        return {QStringLiteral("actionSubtotal"), QStringLiteral("Подытог")};
    case control::SubtotalAndPayment:
        return {QStringLiteral("actionPayment"), QStringLiteral("Оплата")};
    case control::StornoPosition:
        return {QStringLiteral("actionStornoPosition"), QStringLiteral("Удаление позиции")};
    case control::StornoAll:
    case control::StornoAllFromMenu:
        return {QStringLiteral("actionStornoAll"), QStringLiteral("Отмена чека")};
    case control::AnnulDocument:
        return {QStringLiteral("actionAnnulDocument"), QStringLiteral("Аннулирование")};
    default:
        return {QStringLiteral("actionUnnamed"), QStringLiteral("Действие")};
    }
}

} // namespace

namespace refusal
{

tr::Tr stopped(const control::Action& action)
{
    return tr::Tr(QStringLiteral("actionStopped"),
                  QStringLiteral("«%1» не выполнено: модуль остановил действие. Чек не изменён, исправьте причину и "
                                 "повторите."))
        .arg(nameOf(action.getType()).ui());
}

tr::Tr notFound(const control::Action& action)
{
    return tr::Tr(QStringLiteral("actionNotFound"),
                  QStringLiteral("«%1» не выполнено: модуль не нашёл у себя эту позицию или этот чек. Чек не изменён.\n"
                                 "Проверьте, что выбрана нужная строка, и повторите. Если не поможет, позовите "
                                 "администратора."))
        .arg(nameOf(action.getType()).ui());
}

} // namespace refusal
