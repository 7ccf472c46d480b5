// SPDX-License-Identifier: MIT
#include "question.h"

#include "basicdialog.h"

using namespace Qt::StringLiterals;

bool Question::ask() const
{
    Event event(eventCode);
    event.addArgument(u"params"_s, QVariant::fromValue(*this));
    const QVariant answer = core::BasicDialog().show(true, true, {EInput::Keyboard}, event).getData();
    return answer.toMap().value(u"yes"_s).toBool();
}
