// SPDX-License-Identifier: MIT
#pragma once

#include "httpanswer.h"

#include <QString>

#include <exception>

namespace emulator
{
/// A request that the registry does not carry out, thrown by the rule that it breaks. Nothing has been changed then.
class Refusal : public std::exception
{
public:
    /// `status`: the HTTP status; `details`: what the cashier is told.
    Refusal(int status, QString details);

    /// The same as an OAuth2 error (RFC 6749, section 5.2): its error code, and a description in ASCII.
    static Refusal oauth(int status, const QString& error, const QString& description, const QString& details);

    /// The same refusal, whose answer has one more header.
    Refusal with(const QByteArray& header, const QByteArray& value) const;

    int status() const { return m_status; }
    const QString& details() const { return m_details; }
    HttpAnswer answer() const;

    const char* what() const noexcept override { return "the registry refuses the request"; }

private:
    int m_status;
    QString m_details;
    QJsonObject m_oauth;
    HttpHeaders m_headers;
};
} // namespace emulator
