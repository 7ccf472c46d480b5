// SPDX-License-Identifier: MIT
#pragma once

#include "httpanswer.h"
#include "refusalcatalogue.h"

#include <QString>
#include <QStringList>

#include <exception>

namespace emulator
{
/// The registry does not carry out a request. Thrown by the rule that the request breaks, before anything changes.
class Refusal : public std::exception
{
public:
    /// @param values what the text's placeholders stand for, in their order; a value is never scanned for placeholders
    explicit Refusal(RefusalCode code, const QStringList& values = {});

    /// The same refusal, whose answer has one more header.
    Refusal with(const QByteArray& header, const QByteArray& value) const;

    RefusalCode code() const { return m_row.code; }
    /// The HTTP status.
    int status() const { return m_row.status; }
    /// The text for the cashier.
    QString details() const;
    /// An OperationOutcome; for a token request with the OAuth2 error in the same object (RFC 6749, section 5.2).
    HttpAnswer answer() const;

    const char* what() const noexcept override { return "the registry refuses the request"; }

private:
    const RefusalRow& m_row;
    QStringList m_values;
    HttpHeaders m_headers;
};

/// Throws that refusal unless the rule is kept.
inline void demand(bool isKept, RefusalCode code, const QStringList& values = {})
{
    if (!isKept) {
        throw Refusal(code, values);
    }
}
} // namespace emulator
