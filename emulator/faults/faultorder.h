// SPDX-License-Identifier: MIT
#pragma once

#include "delivery.h"
#include "endpoint.h"
#include "jsonnode.h"
#include "occasion.h"

#include <optional>

namespace emulator
{
/// A fault, and the requests that it hits.
struct FaultOrder {
    Endpoint endpoint = Endpoint::Any;
    Occasion occasion;

    QString name; ///< for the journal
    Delivery::Manner manner = Delivery::Manner::Whole;
    std::chrono::milliseconds delay{0};
    std::chrono::milliseconds pause{0};
    bool isCarriedOut = true;         ///< the request takes effect, whatever happens to its answer
    bool isLate = false;              ///< it takes effect only when the next request comes that books something
    std::optional<HttpAnswer> answer; ///< sent instead of the registry's answer
    bool halvesBody = false;          ///< the body ends in its middle, and Content-Length is that of the half

    /// The fault of that name, with its row in docs/emulator.md: "delay", "drip", "cut", "late", "never", "close",
    /// "reset", "status" (503), "html", "empty", "half-json" or "body". Nothing for any other name.
    static std::optional<FaultOrder> named(const QString& name);
    static QStringList names();

    /// Reads an order of the admin port (docs/emulator.md). Throws EmulatorError.
    static FaultOrder fromJson(const JsonNode& node);
    /// How the answer is delivered under this fault.
    Delivery deliver(HttpAnswer registryAnswer) const;
};
} // namespace emulator
