// SPDX-License-Identifier: MIT
#pragma once

#include "dispensefacts.h"
#include "journalledrequest.h"

#include <QList>

#include <optional>

/// A request of the journal that registers or cancels a dispense. A value type.
struct DispenseRequest {
    enum class Kind {
        Registration,
        Cancellation,
    };
    enum class Outcome {
        Done,    ///< the registry confirmed it
        Refused, ///< the registry answered, and did not do it
        NotSent, ///< it never reached the registry
        Open,    ///< there is no answer of the registry, or one that says nothing of the dispense
    };

    qint64 id = 0; ///< in the journal
    QDateTime sent;
    QString document; ///< AbstractDocument::identifier() of the document that was current; empty: none was
    Kind kind = Kind::Registration;
    Outcome outcome = Outcome::Open;
    int status = 0;       ///< of HTTP (RFC 9110, 15); 0: none
    QString prescription; ///< of a registration; the registry's id
    QString dispense;    ///< the registry's id: of a cancellation, or of a registration that is Done. May be empty then
    DispenseFacts facts; ///< of a registration

    /// Reads a request of the journal; empty when it is about no dispense.
    static std::optional<DispenseRequest> of(const JournalledRequest& request);
};

/// All requests about dispenses in the register's journal, in the order in which they went out.
QList<DispenseRequest> dispenseRequests();
