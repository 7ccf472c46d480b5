// SPDX-License-Identifier: MIT
#include "refusal.h"

#include "operationoutcome.h"

using namespace Qt::StringLiterals;

namespace emulator
{
namespace
{
/// The text with its placeholders replaced, all at once.
QString filled(const QString& text, const QStringList& values)
{
    QString result;
    for (qsizetype at = 0; at < text.size(); ++at) {
        if (text.at(at) == u'%') {
            result += values.value(text.at(++at).digitValue() - 1);
        } else {
            result += text.at(at);
        }
    }
    return result;
}
} // namespace

Refusal::Refusal(RefusalCode code, const QStringList& values)
    : m_row(refusalRow(code))
    , m_values(values)
{
    if (*m_row.oauth.error != '\0') {
        m_headers.append(std::pair<QByteArray, QByteArray>("Cache-Control", "no-store"));
    }
    if (*m_row.challenge != '\0') {
        m_headers.append(std::pair<QByteArray, QByteArray>("WWW-Authenticate", m_row.challenge));
    }
}

Refusal Refusal::with(const QByteArray& header, const QByteArray& value) const
{
    Refusal refusal = *this;
    refusal.m_headers.append({header, value});
    return refusal;
}

QString Refusal::details() const
{
    return filled(QString::fromUtf16(m_row.text), m_values);
}

HttpAnswer Refusal::answer() const
{
    QJsonObject content = operationOutcome(details());
    if (*m_row.oauth.error != '\0') {
        content.insert(u"error"_s, QString::fromLatin1(m_row.oauth.error));
        content.insert(u"error_description"_s, filled(QString::fromLatin1(m_row.oauth.description), m_values));
    }
    HttpAnswer answer = HttpAnswer::json(m_row.status, content);
    answer.headers = m_headers;
    return answer;
}
} // namespace emulator
