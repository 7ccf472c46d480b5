// SPDX-License-Identifier: MIT
#pragma once

#include "clock.h"
#include "httpanswer.h"
#include "httprequest.h"
#include "prescriptionstore.h"
#include "records.h"

namespace emulator
{
/// Issues bearer tokens under the client-credentials grant (RFC 6749, section 4.4) and looks at those that requests
/// bring (RFC 6750). Tokens live in memory: a new start of the emulator knows none of the former ones.
class TokenService
{
public:
    /// `store` holds the clients and the rules, and must outlive the service.
    TokenService(const PrescriptionStore& store, Clock clock);

    /// Answers a token request; throws Refusal.
    HttpAnswer issue(const HttpRequest& request);
    /// The access that a resource request's tokens give; throws Refusal when they give none, or not that scope.
    Access admit(const HttpRequest& request, const QString& scope) const;

    /// From now on every token issued so far counts as expired.
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
