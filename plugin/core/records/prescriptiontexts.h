// SPDX-License-Identifier: MIT
#pragma once

#include "tr.h"

/// The texts that more than one step of the workflow shows to the cashier.
namespace prescriptiontexts
{

/// Shown during a request to the registry.
inline tr::Tr processMessage()
{
    using namespace Qt::StringLiterals;
    return {u"electronicPrescriptionProcessMessage"_s, u"Обращение к сервису электронных рецептов"_s};
}

inline tr::Tr noPrescriptions()
{
    using namespace Qt::StringLiterals;
    return {u"electronicPrescriptionNoPrescriptionsError"_s, u"Рецепты не найдены"_s};
}

// The texts of every text input.

inline tr::Tr scanError()
{
    using namespace Qt::StringLiterals;
    return {u"inputTextFormScanError"_s, u"Ошибка разбора введенных данных, повторите сканирование"_s};
}

/// In Cyrillic letters, as in the register's own forms.
inline tr::Tr ok()
{
    using namespace Qt::StringLiterals;
    return {u"inputTextFormOkBtn"_s, u"ОК"_s};
}

inline tr::Tr cancel()
{
    using namespace Qt::StringLiterals;
    return {u"inputTextFormCancelBtn"_s, u"Отмена"_s};
}

} // namespace prescriptiontexts
