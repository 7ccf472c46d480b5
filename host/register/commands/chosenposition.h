// SPDX-License-Identifier: MIT
#pragma once

#include "action.h"
#include "obstaclenotice.h"
#include "till.h"

#include <QSharedPointer>

/// The position of the open document that a command is for, by its "positionNumber". Null when it cannot be changed or
/// none is chosen, which has been shown.
inline QSharedPointer<Position> chosenPositionOrShow(const Till& till, const control::Action& action)
{
    using namespace Qt::StringLiterals;
    if (showIfObstacle(till.obstacleToChangingDocument()) || showIfObstacle(till.obstacleToChangingPositions())) {
        return nullptr;
    }
    auto position = till.document()->position(action.value(u"positionNumber"_s).toInt());
    if (!position) {
        showNotice({u"positionNotChosen"_s, u"Сначала выберите позицию чека."_s});
    }
    return position;
}

/// False when a plug-in removed the position while the cashier was asked.
inline bool isStillThere(const Till& till, const QSharedPointer<Position>& position)
{
    return till.document() && till.document()->position(position->getNumber()) == position;
}
