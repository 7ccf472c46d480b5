// SPDX-License-Identifier: MIT
#pragma once

#include "notice.h"
#include "obstacle.h"

#include <optional>

/// Shows the cashier what is in the way, when something is. @return true when something is
inline bool showIfObstacle(const std::optional<Obstacle>& obstacle)
{
    if (obstacle) {
        showNotice(obstacle->text);
    }
    return obstacle.has_value();
}
