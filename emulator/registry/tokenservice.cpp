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
constexpr qsizetype rememberedTokens = 10'000; // from here on, expired ones are forgotten

Refusal invalidRequest(const QString& description, const QString& details)
{
    return Refusal::oauth(400, u"invalid_request"_s, description, details);
}

Refusal invalidClient(const QString& description, const QString& details)
{
    return Refusal::oauth(401, u"invalid_client"_s, description, details);
}

Refusal invalidToken(const QString& details)
{
    return Refusal(401, details).with("WWW-Authenticate", "Bearer error=\"invalid_token\"");
}

QByteArray newToken()
{
    std::array<quint32, 8> random{};
    QRandomGenerator::system()->fillRange(random.data(), qsizetype(random.size()));
    const QByteArray octets(reinterpret_cast<const char*>(random.data()), qsizetype(sizeof random));
    return octets.toBase64(QByteArray::Base64UrlEncoding | QByteArray::OmitTrailingEquals);
}

/// The parameters of a token request by name. None may stand twice (RFC 6749, section 3.2).
QHash<QString, QString> parameters(const HttpRequest& request)
{
    const QByteArray type = request.header("Content-Type").split(';').first().trimmed().toLower();
    if (type != "application/x-www-form-urlencoded") {
        throw invalidRequest(u"the body has to be a form"_s, u"Запрос токена должен быть отправлен в виде формы"_s);
    }
    const auto pairs = decodeForm(request.body);
    if (!pairs) {
        throw invalidRequest(u"the form is not percent-encoded UTF-8"_s, u"Запрос токена не удалось разобрать"_s);
    }
    QHash<QString, QString> values;
    for (const auto& [name, value] : *pairs) {
        if (values.contains(name)) {
            throw invalidRequest(u"a parameter stands twice"_s, u"В запросе токена дважды указан параметр "_s + name);
        }
        values.insert(name, value);
    }
    return values;
}

QString required(const QHash<QString, QString>& values, const QString& name)
{
    QString value = values.value(name);
    if (value.isEmpty()) {
        throw invalidRequest(name + u" is missing"_s, u"В запросе токена не указан параметр "_s + name);
    }
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
    if (required(values, u"grant_type"_s) != "client_credentials"_L1) {
        throw Refusal::oauth(400, u"unsupported_grant_type"_s, u"only client_credentials is known"_s,
                             u"Запрошен неизвестный способ авторизации"_s);
    }
    const auto client = m_store.client(required(values, u"client_id"_s));
    if (!client) {
        throw invalidClient(u"the client is unknown"_s, u"Клиент не зарегистрирован в АИС «ЭЛЕКТРОННЫЙ РЕЦЕПТ»"_s);
    }
    if (required(values, u"client_secret"_s) != client->secret) {
        throw invalidClient(u"the secret is wrong"_s, u"Неверный секрет клиента"_s);
    }
    if (required(values, u"organization_identifier"_s) != client->organization) {
        throw Refusal::oauth(400, u"unauthorized_client"_s, u"the client does not act for that organization"_s,
                             u"Клиент не может работать от имени указанной организации"_s);
    }
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
    if (given.isEmpty()) {
        throw invalidClient(u"the OAIS token is missing"_s, u"В запросе токена не указан токен ОАИС"_s)
            .with("WWW-Authenticate", "Bearer");
    }
    if (given != wanted.toUtf8()) {
        throw invalidClient(u"the OAIS token is wrong"_s, u"Токен ОАИС в запросе токена не принят"_s)
            .with("WWW-Authenticate", "Bearer error=\"invalid_token\"");
    }
}

QStringList TokenService::grantedScopes(const Client& client, const QString& wanted) const
{
    const QStringList scopes = wanted.split(u' ', Qt::SkipEmptyParts);
    for (const QString& scope : scopes) {
        if (!client.scopes.contains(scope)) {
            throw Refusal::oauth(400, u"invalid_scope"_s, u"the client may not ask for that scope"_s,
                                 u"Клиенту не разрешена область доступа "_s + scope);
        }
    }
    return scopes.isEmpty() ? client.scopes : scopes;
}

Access TokenService::admit(const HttpRequest& request, const QString& scope) const
{
    const QByteArray token = bearerToken(request.header("Authorization"));
    if (token.isEmpty()) {
        throw Refusal(401, u"Запрос без токена авторизации"_s).with("WWW-Authenticate", "Bearer");
    }
    const auto access = m_tokens.constFind(token);
    if (access == m_tokens.constEnd()) {
        throw invalidToken(u"Токен авторизации неизвестен"_s);
    }
    if (access->expiry <= m_clock()) {
        throw invalidToken(u"Срок действия токена авторизации истёк"_s);
    }

    const QString& oais = m_store.rules().oaisToken;
    if (!oais.isEmpty()) {
        const QByteArray given = bearerToken(request.header("OAIS"));
        if (given.isEmpty()) {
            throw Refusal(401, u"Запрос без токена ОАИС"_s);
        }
        if (given != oais.toUtf8()) {
            throw Refusal(401, u"Токен ОАИС не принят"_s);
        }
    }
    if (!scope.isEmpty() && !access->scopes.contains(scope)) {
        throw Refusal(403, u"Для операции нужна область доступа "_s + scope)
            .with("WWW-Authenticate", "Bearer error=\"insufficient_scope\"");
    }
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
