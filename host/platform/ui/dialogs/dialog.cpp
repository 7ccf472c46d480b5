// SPDX-License-Identifier: MIT
#include "dialog.h"

#include "askform.h"
#include "workstep.h"

#include <QVariantMap>

using namespace Qt::StringLiterals;

template struct MockFactory<Dialog>;

Dialog::~Dialog() = default;

void Dialog::showMessage(const tr::Tr& text, int kind, int sound, int seconds)
{
    Event event(EActivityListener::ShowMessage);
    event.addArgument(u"message"_s, QVariant::fromValue(text))
        .addArgument(u"kind"_s, kind)
        .addArgument(u"seconds"_s, seconds)
        .addArgument(u"about"_s, WorkStep::currentText())
        .addArgument(u"advice"_s, WorkStep::currentAdvice());
    core::BasicDialog().show(false, sound == 0, EInput::Keyboard, event);
}

core::BasicDialog::Result Dialog::showTextInput(const TextInputParams& params)
{
    const Event event = formEvent(EActivityListener::ShowTextInput, QVariant::fromValue(params));
    const core::BasicDialog::Result result =
        core::BasicDialog().show(false, false, {EInput::Keyboard, EInput::Scanner}, event);
    if (result.canceled()) {
        return {{}, true};
    }
    return {result.getData().toMap().value(u"data"_s).toString()};
}
