// SPDX-License-Identifier: MIT
#include "tokenservice.h"

#include "percentdecoding.h"
#include "refusal.h"

#include <QRandomGenerator>

#include <array>

using namespace Qt::StringLiterals;

namespace emulator
{
namespace
{
constexpr qsizetype rememberedTokens = 10'000; // with so many, expired ones are forgotten

QByteArray newToken()
{
    std::array<quint32, 8> random{};
    QRandomGenerator::system()->fillRange(random.data(), qsizetype(random.size()));
    const QByteArray octets(reinterpret_cast<const char*>(random.data()), qsizetype(sizeof random));
    return octets.toBase64(QByteArray::Base64UrlEncoding | QByteArray::OmitTrailingEquals);
}

/// The parameters of a token request by name. A name may occur once (RFC 6749, section 3.2).
QHash<QString, QString> parameters(const HttpRequest& request)
{
    demand(request.mediaType() == "application/x-www-form-urlencoded", RefusalCode::TokenRequestNoForm);
    const auto pairs = decodeForm(request.body);
    demand(pairs.has_value(), RefusalCode::TokenRequestUndecodable);
    QHash<QString, QString> values;
    for (const auto& [name, value] : *pairs) {
        demand(!values.contains(name), RefusalCode::TokenParameterTwice, {name});
        values.insert(name, value);
    }
    return values;
}

QString required(const QHash<QString, QString>& values, const QString& name)
{
    QString value = values.value(name);
    demand(!value.isEmpty(), RefusalCode::TokenParameterMissing, {name});
    return value;
}
} // namespace

TokenService::TokenService(const PrescriptionStore& store, Clock clock)
    : m_store(store)
    , m_clock(std::move(clock))
{
}

HttpAnswer TokenService::issue(const HttpRequest& request)
{
    checkOaisOfTokenRequest(request);
    const QHash<QString, QString> values = parameters(request);
    demand(required(values, u"grant_type"_s) == "client_credentials"_L1, RefusalCode::GrantTypeUnknown);
    const auto client = m_store.client(required(values, u"client_id"_s));
    demand(client.has_value(), RefusalCode::ClientUnknown);
    demand(required(values, u"client_secret"_s) == client->secret, RefusalCode::ClientSecretWrong);
    demand(required(values, u"organization_identifier"_s) == client->organization, RefusalCode::OrganizationWrong);
    const QStringList scopes = grantedScopes(*client, values.value(u"scope"_s));

    forgetExpired();
    const int lifetime = m_store.rules().tokenLifetime;
    const QByteArray token = newToken();
    m_tokens.insert(token, {client->id, client->organization, scopes, m_clock().addSecs(lifetime)});
    HttpAnswer answer = HttpAnswer::json(200, {{u"access_token"_s, QString::fromLatin1(token)},
                                               {u"token_type"_s, u"Bearer"_s},
                                               {u"expires_in"_s, lifetime},
                                               {u"scope"_s, scopes.join(u' ')}});
    answer.with("Cache-Control", "no-store");
    return answer;
}

void TokenService::checkOaisOfTokenRequest(const HttpRequest& request) const
{
    const QString& wanted = m_store.rules().oaisToken;
    if (wanted.isEmpty()) {
        return;
    }
    const QByteArray given = bearerToken(request.header("Authorization"));
    demand(!given.isEmpty(), RefusalCode::TokenRequestOaisMissing);
    demand(given == wanted.toUtf8(), RefusalCode::TokenRequestOaisWrong);
}

QStringList TokenService::grantedScopes(const Client& client, const QString& wanted) const
{
    const QStringList scopes = wanted.split(u' ', Qt::SkipEmptyParts);
    for (const QString& scope : scopes) {
        demand(client.scopes.contains(scope), RefusalCode::ScopeNotAllowed, {scope});
    }
    return scopes.isEmpty() ? client.scopes : scopes;
}

Access TokenService::admit(const HttpRequest& request, const QString& scope) const
{
    const QByteArray token = bearerToken(request.header("Authorization"));
    demand(!token.isEmpty(), RefusalCode::TokenMissing);
    const auto access = m_tokens.constFind(token);
    demand(access != m_tokens.constEnd(), RefusalCode::TokenUnknown);
    demand(access->expiry > m_clock(), RefusalCode::TokenExpired);

    const QString& oais = m_store.rules().oaisToken;
    if (!oais.isEmpty()) {
        const QByteArray given = bearerToken(request.header("OAIS"));
        demand(!given.isEmpty(), RefusalCode::OaisMissing);
        demand(given == oais.toUtf8(), RefusalCode::OaisWrong);
    }
    demand(scope.isEmpty() || access->scopes.contains(scope), RefusalCode::ScopeMissing, {scope});
    return *access;
}

void TokenService::expireAll()
{
    const QDateTime now = m_clock();
    for (Access& access : m_tokens) {
        access.expiry = now;
    }
}

void TokenService::forgetExpired()
{
    if (m_tokens.size() < rememberedTokens) {
        return;
    }
    const QDateTime now = m_clock();
    m_tokens.removeIf([&now](const auto& token) { return token.value().expiry <= now; });
}
} // namespace emulator
