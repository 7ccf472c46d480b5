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
    if (showIfObstacle(till.obstacleToChangingPositions())) {
        return nullptr;
    }
    const QSharedPointer<Document> document = till.document();
    auto position = document ? document->position(action.value(u"positionNumber"_s).toInt()) : nullptr;
    if (!position) {
        showNotice({u"positionNotChosen"_s, u"Сначала выберите позицию чека."_s});
    }
    return position;
}
