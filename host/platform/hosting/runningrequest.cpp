// SPDX-License-Identifier: MIT
#include "runningrequest.h"

#include <QPointer>

#include <utility>

namespace
{

RunningRequest*& innermost()
{
    static RunningRequest* request = nullptr;
    return request;
}

struct OwnedEscape {
    QPointer<const QObject> owner;
    RunningRequest::Escape escape;
};

OwnedEscape& theEscape()
{
    static OwnedEscape escape;
    return escape;
}

} // namespace

RunningRequest::RunningRequest(std::chrono::seconds limit, bool changesSomething, const QString& step)
    : m_limit(limit)
    , m_changesSomething(changesSomething)
    , m_step(step)
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

void RunningRequest::setEscape(const QObject* owner, Escape escape)
{
    theEscape() = {owner, std::move(escape)};
}

void RunningRequest::escape()
{
    const OwnedEscape owned = theEscape();
    if (owned.owner && owned.escape) {
        owned.escape(*this);
    }
}

std::chrono::seconds RunningRequest::elapsed() const
{
    return std::chrono::duration_cast<std::chrono::seconds>(std::chrono::milliseconds(m_since.elapsed()));
}
