// SPDX-License-Identifier: MIT
#pragma once

#include "positionmarks.h"
#include "tr.h"

/// The question, and below it what plug-ins say that taking the positions away undoes: "Отпуск будет отменён."
tr::Tr withUndoings(const tr::Tr& question, const PositionMarks& marks,
                    const QList<QSharedPointer<Position>>& positions);
