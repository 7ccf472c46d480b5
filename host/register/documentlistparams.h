// SPDX-License-Identifier: MIT
#pragma once

#include "event.h"
#include "positionmarks.h"
#include "receipt.h"

#include <QList>
#include <QMetaType>
#include <QSharedPointer>

#include <functional>

/// What the list of documents shows and does.
///
/// Answers with "takeUp" or "takeBack", the number of the document; without either when the cashier leaves.
struct DocumentListParams {
    using Document = QSharedPointer<Receipt>;

    std::function<QList<Document>()> documents;      ///< asked again after each change
    std::function<bool(const Receipt&)> isTakenBack; ///< also true while the sale is being taken back
    /// Does something with a document while the list is on top. @return what was done; empty: nothing
    using Act = std::function<QString(const Document&)>;
    Act annul;
    Act print;                            ///< of a closed document
    int openReceipt = 0;                  ///< the receipt that stands in the way of another; 0: none is open
    const PositionMarks* marks = nullptr; ///< not owned

    /// The code of the event that shows the list; it carries these as "params".
    static constexpr auto eventCode = static_cast<EActivityListener::Event>(1012);
};

Q_DECLARE_METATYPE(DocumentListParams)
