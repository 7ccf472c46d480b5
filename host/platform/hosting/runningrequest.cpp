// SPDX-License-Identifier: MIT
#include "runningrequest.h"

#include <utility>

namespace
{

RunningRequest*& innermost()
{
    static RunningRequest* request = nullptr;
    return request;
}

RunningRequest::Escape& theEscape()
{
    static RunningRequest::Escape escape;
    return escape;
}

} // namespace

RunningRequest::RunningRequest(std::chrono::seconds limit, bool changesSomething)
    : m_limit(limit)
    , m_changesSomething(changesSomething)
    , m_outer(innermost())
{
    m_since.start();
    innermost() = this;
}

RunningRequest::~RunningRequest()
{
    innermost() = m_outer;
}

RunningRequest* RunningRequest::current()
{
    return innermost();
}

void RunningRequest::setEscape(Escape escape)
{
    theEscape() = std::move(escape);
}

void RunningRequest::escape()
{
    if (const Escape escape = theEscape()) {
        escape(*this);
    }
}

std::chrono::seconds RunningRequest::elapsed() const
{
    return std::chrono::duration_cast<std::chrono::seconds>(std::chrono::milliseconds(m_since.elapsed()));
}
