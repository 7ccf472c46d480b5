// SPDX-License-Identifier: MIT
#include "undoingquestion.h"

using namespace Qt::StringLiterals;

tr::Tr withUndoings(const tr::Tr& question, const PositionMarks& marks,
                    const QList<QSharedPointer<Position>>& positions)
{
    const QStringList undoings = marks.undoings(positions);
    if (undoings.isEmpty()) {
        return question;
    }
    return tr::Tr(tr::undefined, u"%1\n%2"_s).arg(question.ui()).arg(undoings.join(u'\n'));
}
