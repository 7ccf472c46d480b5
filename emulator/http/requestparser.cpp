// SPDX-License-Identifier: MIT
#include "requestparser.h"

// The parser asserts that the end of a chunked body comes in at least five bytes, but reads it correctly from four.
#define BOOST_DISABLE_ASSERTS

#include <boost/asio/buffer.hpp>
#include <boost/beast/http/error.hpp>
#include <boost/beast/http/parser.hpp>
#include <boost/beast/http/string_body.hpp>

namespace http = boost::beast::http;

namespace emulator
{
namespace
{
template <typename View>
QByteArray bytesOf(const View& view)
{
    return QByteArray(view.data(), qsizetype(view.size()));
}

int statusOf(const boost::system::error_code& error)
{
    if (error == http::error::body_limit) {
        return 413;
    }
    if (error == http::error::header_limit) {
        return 431;
    }
    if (error == http::error::bad_version) {
        return 505;
    }
    return 400;
}
} // namespace

struct RequestParser::Reader {
    http::request_parser<http::string_body> parser;

    Reader()
    {
        parser.eager(true);
        parser.header_limit(headerLimit);
        parser.body_limit(bodyLimit);
    }
};

RequestParser::RequestParser()
    : m_reader(std::make_unique<Reader>())
{
}

RequestParser::~RequestParser() = default;

RequestParser::State RequestParser::read(QByteArray& bytes)
{
    auto& parser = m_reader->parser;
    while (!parser.is_done() && !bytes.isEmpty()) {
        const bool headWasRead = parser.is_header_done();
        boost::system::error_code error;
        const std::size_t used = parser.put(boost::asio::buffer(bytes.constData(), std::size_t(bytes.size())), error);
        bytes.remove(0, qsizetype(used));
        if (!headWasRead && parser.is_header_done() && !parser.is_done()) {
            const auto expect = parser.get()[http::field::expect];
            m_continueRequested = boost::beast::iequals(expect, "100-continue");
        }
        if (error == http::error::need_more) {
            break;
        }
        if (error) {
            m_status = statusOf(error);
            return State::Unreadable;
        }
    }
    return parser.is_done() ? State::Complete : State::Incomplete;
}

bool RequestParser::hasBegun() const
{
    return m_reader->parser.got_some();
}

bool RequestParser::takeContinueRequest()
{
    return std::exchange(m_continueRequested, false);
}

HttpRequest RequestParser::take()
{
    const auto message = m_reader->parser.release();
    m_reader = std::make_unique<Reader>();
    m_continueRequested = false;

    HttpRequest request;
    request.method = bytesOf(message.method_string());
    request.target = bytesOf(message.target());
    request.body = bytesOf(message.body());
    request.keepAlive = message.keep_alive();
    for (const auto& field : message) {
        request.headers.append({bytesOf(field.name_string()), bytesOf(field.value())});
    }
    return request;
}
} // namespace emulator
