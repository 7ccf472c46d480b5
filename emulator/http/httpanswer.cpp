// SPDX-License-Identifier: MIT
#include "httpanswer.h"

#include <QJsonDocument>

#include <boost/beast/http/status.hpp>

namespace emulator
{
namespace
{
QByteArray reasonOf(int status)
{
    const auto reason = boost::beast::http::obsolete_reason(boost::beast::http::int_to_status(unsigned(status)));
    return QByteArray(reason.data(), qsizetype(reason.size()));
}
} // namespace

HttpAnswer HttpAnswer::json(int status, const QJsonObject& content)
{
    HttpAnswer answer;
    answer.status = status;
    answer.body = QJsonDocument(content).toJson(QJsonDocument::Compact);
    return answer;
}

HttpAnswer& HttpAnswer::with(const QByteArray& name, const QByteArray& value)
{
    headers.append(std::pair(name, value));
    return *this;
}

QByteArray HttpAnswer::head(bool keepAlive) const
{
    QByteArray head = "HTTP/1.1 " + QByteArray::number(status) + ' ' + reasonOf(status) + "\r\n";
    if (!contentType.isEmpty()) {
        head += "Content-Type: " + contentType + "\r\n";
    }
    head += "Content-Length: " + QByteArray::number(body.size()) + "\r\n";
    for (const auto& [name, value] : headers) {
        head += name + ": " + value + "\r\n";
    }
    head += keepAlive ? "Connection: keep-alive\r\n\r\n" : "Connection: close\r\n\r\n";
    return head;
}
} // namespace emulator
