// SPDX-License-Identifier: MIT
#include "dispensechoicedialog.h"

#include "askform.h"

using namespace Qt::StringLiterals;

namespace
{

/// The row after the dispenses says that none of them is the one. Whatever is no row decides nothing.
DispenseChoice choiceOf(const QVariant& answer, qsizetype dispenses)
{
    bool isNumber = false;
    const int row = answer.toInt(&isNumber);
    if (!isNumber || row < 0 || row > dispenses) {
        return {};
    }
    return row == dispenses ? DispenseChoice{DispenseChoice::NoneOfThem, -1}
                            : DispenseChoice{DispenseChoice::Chosen, row};
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
