// SPDX-License-Identifier: MIT
#pragma once

#include "httprequest.h"

#include <memory>

namespace emulator
{
/// Reads requests out of a connection's bytes, one after the other.
class RequestParser
{
public:
    static constexpr quint32 headerLimit = 64 * 1024;         ///< octets of request line and headers
    static constexpr quint64 bodyLimit = 16ULL * 1024 * 1024; ///< octets of one request's body

    enum class State : int {
        Incomplete, ///< more bytes are needed
        Complete,   ///< take() returns the request
        Unreadable, ///< see status(); nothing more can be read from this connection
    };

    RequestParser();
    Q_DISABLE_COPY_MOVE(RequestParser)
    ~RequestParser();

    /// Removes from `bytes` what belongs to the present request. Bytes of the next request stay.
    State read(QByteArray& bytes);

    /// True when a byte of the present request was read.
    bool hasBegun() const;

    /// True once when the head asks for "100 Continue" before its body is sent (RFC 9110, section 10.1.1).
    bool takeContinueRequest();

    /// The complete request. The parser then begins the next one.
    HttpRequest take();

    /// The status to answer an unreadable request with: 400, 413, 431 or 505.
    int status() const { return m_status; }

private:
    struct Reader;

    std::unique_ptr<Reader> m_reader;
    bool m_continueRequested = false;
    int m_status = 0;
};
} // namespace emulator
