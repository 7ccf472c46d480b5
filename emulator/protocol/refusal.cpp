// SPDX-License-Identifier: MIT
#include "refusal.h"

#include "operationoutcome.h"

using namespace Qt::StringLiterals;

namespace emulator
{
Refusal::Refusal(int status, QString details)
    : m_status(status)
    , m_details(std::move(details))
{
}

Refusal Refusal::oauth(int status, const QString& error, const QString& description, const QString& details)
{
    Refusal refusal(status, details);
    refusal.m_oauth = {{u"error"_s, error}, {u"error_description"_s, description}};
    return refusal.with("Cache-Control", "no-store");
}

Refusal Refusal::with(const QByteArray& header, const QByteArray& value) const
{
    Refusal refusal = *this;
    refusal.m_headers.append({header, value});
    return refusal;
}

HttpAnswer Refusal::answer() const
{
    QJsonObject content = operationOutcome(m_details);
    for (auto member = m_oauth.begin(); member != m_oauth.end(); ++member) {
        content.insert(member.key(), member.value());
    }
    HttpAnswer answer = HttpAnswer::json(m_status, content);
    answer.headers = m_headers;
    return answer;
}
} // namespace emulator
