// SPDX-License-Identifier: MIT
#include "dialoganswer.h"

#include "actionfactory.h"
#include "actionqueuecontroller.h"

void sendDialogAnswer(const QString& key, const QVariant& answer)
{
    auto action = Singleton<control::ActionFactory>::get()->create(control::DialogAnswer);
    action.appendArgument(answer, key);
    Singleton<ActionQueueController>::get()->enqueue(action, true);
}
