// SPDX-License-Identifier: MIT
#include "askandanswer.h"

#include "actionfactory.h"
#include "actionqueuecontroller.h"
#include "basicdialog.h"

using namespace Qt::StringLiterals;

Event formEvent(EActivityListener::Event code, const QVariant& params)
{
    return Event(code).addArgument(u"params"_s, params);
}

QVariantMap askForm(const Event& event, QFlags<EInput::Source> sources)
{
    return core::BasicDialog().show(false, true, sources, event).getData().toMap();
}

void answerForm(const QVariantMap& answer)
{
    control::Action action = Singleton<control::ActionFactory>::get()->create(control::DialogAnswer);
    for (auto value = answer.cbegin(); value != answer.cend(); ++value) {
        action.appendArgument(*value, value.key());
    }
    Singleton<ActionQueueController>::get()->enqueue(action, true);
}

void answerForm(const QString& name, const QVariant& value)
{
    answerForm({{name, value}});
}
