// SPDX-License-Identifier: MIT
#pragma once

#include "event.h"
#include "obstacle.h"
#include "position.h"
#include "positionmarks.h"

#include <QHash>
#include <QList>
#include <QMetaType>
#include <QSharedPointer>
#include <QString>

/// The positions of a sale from which the cashier chooses those that come back.
///
/// The form answers with "positions", a list of the numbers of the chosen ones; without it when the cashier leaves.
struct ReturnParams {
    QString title;                             ///< of the sale
    QList<QSharedPointer<Position>> positions; ///< those that have not come back yet
    const PositionMarks* marks = nullptr;      ///< not owned
    QList<int> places = {};                    ///< of these positions on the receipt, from 1
    QHash<int, Obstacle> obstacles = {};       ///< by number: why a position cannot come back now

    /// The event that shows the form; it carries this struct as "params".
    static constexpr auto eventCode = static_cast<EActivityListener::Event>(1014);
};

Q_DECLARE_METATYPE(ReturnParams)
