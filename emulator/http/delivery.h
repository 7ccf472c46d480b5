// SPDX-License-Identifier: MIT
#pragma once

#include "httpanswer.h"

#include <chrono>
#include <functional>

namespace emulator
{
/// An answer, and how the connection is to deliver it.
struct Delivery {
    enum class Manner : int {
        Whole,    ///< as a server does
        Dripping, ///< the body byte by byte, `pause` apart
        CutOff,   ///< Content-Length is that of the whole body, half of the body follows, then the connection is closed
        Close,    ///< the connection is closed without a byte of the answer
        Reset,    ///< the connection is reset (RST) without a byte of the answer
        Never,    ///< nothing is sent and the connection stays open until the client leaves
    };

    HttpAnswer answer;
    Manner manner = Manner::Whole;
    std::chrono::milliseconds delay{0};
    std::chrono::milliseconds pause{0};
    std::function<void(bool)> finished; ///< called once, with true when the last byte was given to the system
};
} // namespace emulator
