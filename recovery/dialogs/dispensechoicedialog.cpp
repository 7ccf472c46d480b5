// SPDX-License-Identifier: MIT
#include "dispensechoicedialog.h"

#include "askform.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

/// The last row says that none of them is the one. Without a dispense the row above it says that there is one all the
/// same. Whatever is no row decides nothing.
DispenseChoice choiceOf(const QVariant& answer, qsizetype dispenses)
{
    bool isNumber = false;
    const int row = answer.toInt(&isNumber);
    const qsizetype last = std::max(dispenses, qsizetype(1));
    if (!isNumber || row < 0 || row > last) {
        return {};
    }
    if (row == last) {
        return {DispenseChoice::NoneOfThem, -1};
    }
    return dispenses == 0 ? DispenseChoice{DispenseChoice::HeldUnseen, -1}
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
