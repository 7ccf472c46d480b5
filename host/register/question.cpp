// SPDX-License-Identifier: MIT
#include "question.h"

#include "basicdialog.h"

bool Question::ask() const
{
    Event event(eventCode);
    event.addArgument(QStringLiteral("params"), QVariant::fromValue(*this));
    const QVariant answer = core::BasicDialog().show(true, true, {EInput::Keyboard}, event).getData();
    return answer.toMap().value(QStringLiteral("yes")).toBool();
}
