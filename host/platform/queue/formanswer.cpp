// SPDX-License-Identifier: MIT
#include "formanswer.h"

#include "actionfactory.h"
#include "actionqueuecontroller.h"

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
