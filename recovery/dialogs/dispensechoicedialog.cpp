// SPDX-License-Identifier: MIT
#include "dispensechoicedialog.h"

#include "askform.h"

using namespace Qt::StringLiterals;

namespace
{

/// What the rows after the dispenses say, in their order: none of them; and where there are none, that there is one
/// all the same. Whatever is no row decides nothing.
DispenseChoice choiceOf(const QVariant& answer, qsizetype dispenses)
{
    bool isNumber = false;
    const int row = answer.toInt(&isNumber);
    if (!isNumber || row < 0) {
        return {};
    }
    if (row < dispenses) {
        return {DispenseChoice::Chosen, row};
    }
    if (row == dispenses) {
        return {DispenseChoice::NoneOfThem, -1};
    }
    return dispenses == 0 && row == 1 ? DispenseChoice{DispenseChoice::HeldUnseen, -1} : DispenseChoice{};
}

} // namespace

DispenseChoiceDialog::DispenseChoiceDialog(QObject* parent)
    : core::BasicDialog(parent)
{
}

DispenseChoice DispenseChoiceDialog::ask(const DispenseChoiceParams& params)
{
    const Event event = formEvent(DispenseChoiceParams::eventCode, QVariant::fromValue(params));
    const Result result = show(false, false, EInput::Keyboard, event);
    if (result.canceled()) {
        return {};
    }
    return choiceOf(result.getData().toMap().value(u"data"_s), params.dispenses.size());
}
