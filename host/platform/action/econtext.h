// SPDX-License-Identifier: MIT
#pragma once

/// Where the register is, and the outcome of an action there.
struct EContext {
    /// A plug-in may meet numbers that are not named here.
    enum Code : int {
        Idle = 4,
        OpenDocument = 6, ///< its payment screen included
        StoredDocuments = 9,
        DialogOnTop = 15,
    };

    /// The outcome of a hook or an action.
    enum Result : int {
        Stop = 0,
        NotFound = 1, ///< stops the host's action like Stop
        GoOn = 2,     ///< done; the host goes on
    };
};
