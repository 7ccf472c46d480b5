// SPDX-License-Identifier: MIT
#pragma once

#include "document.h"
#include "event.h"
#include "obstacle.h"
#include "positionmarks.h"

#include <QDate>
#include <QList>
#include <QMetaType>
#include <QSharedPointer>

#include <functional>
#include <optional>

/// What the list of documents shows and does.
///
/// The form answers with "resume" or "returnSale", the number of that document; with neither when the cashier
/// leaves.
struct DocumentListParams {
    using Pointer = QSharedPointer<Document>;

    std::function<QList<Pointer>()> documents;                   ///< the latest; called again after each change
    std::function<Pointer(int)> byNumber;                        ///< however old; null: there is none
    std::function<QList<Pointer>(QDate)> ofDay;                  ///< opened or finished on that day, however old
    std::function<Document::Returned(const Document&)> returned; ///< of a sale; what is being returned counts
    /// Why something cannot be done with a document now; nothing: it can.
    using Rule = std::function<std::optional<Obstacle>(const Document&)>;
    Rule obstacleToResuming;
    Rule obstacleToReturning;
    Rule obstacleToVoiding;
    Rule obstacleToPrinting;
    Rule warning; ///< what else the cashier has to know of a document; shown as a hint
    /// Does something with a document while the list is shown. @return a hint about what was done; nothing when it was
    /// not done, and the cashier has seen why
    using Act = std::function<std::optional<QString>(const Pointer&)>;
    Act voidDocument;
    Act print;                                 ///< prints the receipt of a closed document again
    std::optional<Obstacle> obstacleToAnother; ///< why none can be opened now; nothing: one can
    const PositionMarks* marks = nullptr;      ///< not owned

    /// The event that shows the list; it carries this struct as "params".
    static constexpr auto eventCode = static_cast<EActivityListener::Event>(1012);
};

Q_DECLARE_METATYPE(DocumentListParams)
