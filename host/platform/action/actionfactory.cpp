// SPDX-License-Identifier: MIT
#include "actionfactory.h"

template struct Singleton<control::ActionFactory>;

namespace control
{

ActionFactory::~ActionFactory() = default;

Action ActionFactory::create(EActionType type)
{
    return Action(type);
}

} // namespace control
