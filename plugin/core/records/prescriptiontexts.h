// SPDX-License-Identifier: MIT
#pragma once

#include "tr.h"

/// The texts that more than one step of the workflow shows to the cashier.
namespace prescriptiontexts
{

/// Shown during a request to the registry.
inline tr::Tr processMessage()
{
    return {"electronicPrescriptionProcessMessage", "Обращение к сервису электронных рецептов"};
}

inline tr::Tr noPrescriptions()
{
    return {"electronicPrescriptionNoPrescriptionsError", "Рецепты не найдены"};
}

// The texts of every text input.

inline tr::Tr scanError()
{
    return {"inputTextFormScanError", "Ошибка разбора введенных данных, повторите сканирование"};
}

/// In Cyrillic letters, as in the register's own forms.
inline tr::Tr ok()
{
    return {"inputTextFormOkBtn", "ОК"};
}

inline tr::Tr cancel()
{
    return {"inputTextFormCancelBtn", "Отмена"};
}

} // namespace prescriptiontexts
