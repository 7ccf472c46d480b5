// SPDX-License-Identifier: MIT
#include "prescriptionhelp.h"

using namespace Qt::StringLiterals;

namespace
{

FormHelp::Key back()
{
    return {u"Esc"_s, {u"electronicPrescriptionHelpBack"_s, u"назад"_s}};
}

} // namespace

FormHelp prescriptionhelp::choice()
{
    return {{{FormHelp::arrowKeys(), {u"electronicPrescriptionHelpChoiceRow"_s, u"выбрать рецепт"_s}},
             {FormHelp::enterKey(), {u"electronicPrescriptionHelpChoiceEnter"_s, u"открыть выбранный рецепт"_s}},
             back()},
            {u"electronicPrescriptionHelpChoiceNext"_s,
             u"Выберите рецепт; чтобы сузить список, введите часть МНН. Затем касса покажет сведения о рецепте."_s}};
}

FormHelp prescriptionhelp::details(bool canPick)
{
    const FormHelp::Key scroll{FormHelp::arrowKeys(),
                               {u"electronicPrescriptionHelpDetailsScroll"_s, u"прокрутить сведения"_s}};
    if (!canPick) {
        return {{scroll, back()},
                {u"electronicPrescriptionHelpDetailsReadOnly"_s,
                 u"Этот рецепт можно только посмотреть: товар по нему не подбирают."_s}};
    }
    return {{{FormHelp::enterKey(), {u"electronicPrescriptionHelpDetailsEnter"_s, u"подобрать товар по рецепту"_s}},
             scroll,
             back()},
            {u"electronicPrescriptionHelpDetailsNext"_s,
             u"Сверьте рецепт с пациентом. Затем подберите товар и введите отпущенные дозы."_s}};
}

FormHelp prescriptionhelp::confirmation()
{
    return {{{u"← →"_s, {u"electronicPrescriptionHelpConfirmationArrows"_s, u"выбрать «Частично» или «Полностью»"_s}},
             {FormHelp::enterKey(), {u"electronicPrescriptionHelpConfirmationEnter"_s, u"подтвердить выбранное"_s}},
             back()},
            {u"electronicPrescriptionHelpConfirmationNext"_s,
             u"«Полностью» закрывает рецепт: остаток доз больше не отпустить. «Частично» оставляет его открытым."_s}};
}
