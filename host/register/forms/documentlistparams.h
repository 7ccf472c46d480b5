// SPDX-License-Identifier: MIT
#pragma once

#include "document.h"
#include "event.h"
#include "obstacle.h"
#include "positionmarks.h"

#include <QList>
#include <QMetaType>
#include <QSharedPointer>

#include <functional>
#include <optional>

/// What the list of documents shows and does.
///
/// Answers with "resume" or "returnSale", the number of the document; without either when the cashier leaves.
struct DocumentListParams {
    using Pointer = QSharedPointer<Document>;

    std::function<QList<Pointer>()> documents;       ///< asked again after each change
    std::function<bool(const Document&)> isReturned; ///< also true while the sale is being returned
    /// Why something cannot be done with a document now; nothing: it can.
    using Rule = std::function<std::optional<Obstacle>(const Document&)>;
    Rule obstacleToResuming;
    Rule obstacleToReturning;
    Rule obstacleToVoiding;
    /// Does something with a document while the list is on top. @return what was done; empty: nothing
    using Act = std::function<QString(const Pointer&)>;
    Act voidDocument;
    Act print;                            ///< of a closed document
    int openDocument = 0;                 ///< the number of the document in the way of another; 0: none is open
    const PositionMarks* marks = nullptr; ///< not owned

    /// The code of the event that shows the list; it carries these as "params".
    static constexpr auto eventCode = static_cast<EActivityListener::Event>(1012);
};

Q_DECLARE_METATYPE(DocumentListParams)
