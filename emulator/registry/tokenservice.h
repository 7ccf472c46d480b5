// SPDX-License-Identifier: MIT
#pragma once

#include "clock.h"
#include "httpanswer.h"
#include "httprequest.h"
#include "prescriptionstore.h"
#include "records.h"

namespace emulator
{
/// Issues bearer tokens by client credentials (RFC 6749, section 4.4), and checks those of requests (RFC 6750). Tokens
/// are in memory only: after a restart of the emulator they are unknown.
class TokenService
{
public:
    /// @param store holds the clients and the rules; outlives the service
    TokenService(const PrescriptionStore& store, Clock clock);

    /// Answers a token request. Throws Refusal.
    HttpAnswer issue(const HttpRequest& request);
    /// The access that the tokens of a resource request grant. Throws Refusal when they grant none.
    /// @param scope that the operation needs; empty: any token is enough
    Access admit(const HttpRequest& request, const QString& scope) const;

    /// Lets all tokens expire that were issued so far.
    void expireAll();

private:
    void checkOaisOfTokenRequest(const HttpRequest& request) const;
    QStringList grantedScopes(const Client& client, const QString& wanted) const;
    void forgetExpired();

    const PrescriptionStore& m_store;
    Clock m_clock;
    QHash<QByteArray, Access> m_tokens;
};
} // namespace emulator
