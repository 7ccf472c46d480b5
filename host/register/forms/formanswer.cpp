// SPDX-License-Identifier: MIT
#include "formanswer.h"

#include "actionfactory.h"
#include "actionqueuecontroller.h"

void answerForm(const QString& name, const QVariant& value)
{
    control::Action answer = Singleton<control::ActionFactory>::get()->create(control::DialogAnswer);
    answer.appendArgument(value, name);
    Singleton<ActionQueueController>::get()->enqueue(answer, true);
}
