// SPDX-License-Identifier: MIT
#pragma once

#include "action.h"
#include "export.h"
#include "singleton.h"

namespace control
{

/// Makes actions.
class REGISTERPLATFORM_EXPORT ActionFactory
{
public:
    ActionFactory() = default;
    virtual ~ActionFactory();
    Q_DISABLE_COPY_MOVE(ActionFactory)

    /// An action of that type without arguments, allowed in every context.
    virtual Action create(EActionType type);
};

} // namespace control

extern template struct REGISTERPLATFORM_EXPORT Singleton<control::ActionFactory>;
