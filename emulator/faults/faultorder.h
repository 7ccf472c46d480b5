// SPDX-License-Identifier: MIT
#pragma once

#include "delivery.h"
#include "endpoint.h"
#include "jsonnode.h"
#include "occasion.h"

#include <optional>

namespace emulator
{
/// A fault and whom it is to meet.
struct FaultOrder {
    Endpoint endpoint = Endpoint::Any;
    Occasion occasion;

    QString name; ///< for the journal
    Delivery::Manner manner = Delivery::Manner::Whole;
    std::chrono::milliseconds delay{0};
    std::chrono::milliseconds pause{0};
    bool isCarriedOut = true;         ///< the request takes effect, whatever becomes of its answer
    std::optional<HttpAnswer> answer; ///< stands in for the registry's answer
    bool halvesBody = false;          ///< the answer's body ends in its middle, and its length is told accordingly

    /// The plain fault of that name, with all that the name implies: "delay", "drip", "cut", "never", "close", "reset",
    /// "status" (503), "html", "empty", "half-json" or "body". Nothing for any other name.
    static std::optional<FaultOrder> named(const QString& name);
    static QStringList names();

    /// Reads the admin port's form, see docs/emulator.md. Throws EmulatorError.
    static FaultOrder fromJson(const JsonNode& node);
    /// The delivery of that answer as the fault wants it.
    Delivery deliver(HttpAnswer registryAnswer) const;
};
} // namespace emulator
