// SPDX-License-Identifier: MIT
#include "tokenservice.h"

#include "percentdecoding.h"
#include "refusal.h"

#include <QRandomGenerator>

#include <array>

namespace emulator
{
namespace
{
constexpr qsizetype rememberedTokens = 10'000; // from here on, expired ones are forgotten

Refusal invalidRequest(const QString& description, const QString& details)
{
    return Refusal::oauth(400, QStringLiteral("invalid_request"), description, details);
}

Refusal invalidClient(const QString& description, const QString& details)
{
    return Refusal::oauth(401, QStringLiteral("invalid_client"), description, details);
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
        throw invalidRequest(QStringLiteral("the body has to be a form"),
                             QStringLiteral("Запрос токена должен быть отправлен в виде формы"));
    }
    const auto pairs = decodeForm(request.body);
    if (!pairs) {
        throw invalidRequest(QStringLiteral("the form is not percent-encoded UTF-8"),
                             QStringLiteral("Запрос токена не удалось разобрать"));
    }
    QHash<QString, QString> values;
    for (const auto& [name, value] : *pairs) {
        if (values.contains(name)) {
            throw invalidRequest(QStringLiteral("a parameter stands twice"),
                                 QStringLiteral("В запросе токена дважды указан параметр ") + name);
        }
        values.insert(name, value);
    }
    return values;
}

QString required(const QHash<QString, QString>& values, const QString& name)
{
    QString value = values.value(name);
    if (value.isEmpty()) {
        throw invalidRequest(name + QStringLiteral(" is missing"),
                             QStringLiteral("В запросе токена не указан параметр ") + name);
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
    if (required(values, QStringLiteral("grant_type")) != QLatin1String("client_credentials")) {
        throw Refusal::oauth(400, QStringLiteral("unsupported_grant_type"),
                             QStringLiteral("only client_credentials is known"),
                             QStringLiteral("Запрошен неизвестный способ авторизации"));
    }
    const auto client = m_store.client(required(values, QStringLiteral("client_id")));
    if (!client) {
        throw invalidClient(QStringLiteral("the client is unknown"),
                            QStringLiteral("Клиент не зарегистрирован в АИС «ЭЛЕКТРОННЫЙ РЕЦЕПТ»"));
    }
    if (required(values, QStringLiteral("client_secret")) != client->secret)
        throw invalidClient(QStringLiteral("the secret is wrong"), QStringLiteral("Неверный секрет клиента"));
    if (required(values, QStringLiteral("organization_identifier")) != client->organization) {
        throw Refusal::oauth(400, QStringLiteral("unauthorized_client"),
                             QStringLiteral("the client does not act for that organization"),
                             QStringLiteral("Клиент не может работать от имени указанной организации"));
    }
    const QStringList scopes = grantedScopes(*client, values.value(QStringLiteral("scope")));

    forgetExpired();
    const int lifetime = m_store.rules().tokenLifetime;
    const QByteArray token = newToken();
    m_tokens.insert(token, {client->id, client->organization, scopes, m_clock().addSecs(lifetime)});
    HttpAnswer answer = HttpAnswer::json(200, {{QStringLiteral("access_token"), QString::fromLatin1(token)},
                                               {QStringLiteral("token_type"), QStringLiteral("Bearer")},
                                               {QStringLiteral("expires_in"), lifetime},
                                               {QStringLiteral("scope"), scopes.join(QLatin1Char(' '))}});
    answer.with("Cache-Control", "no-store");
    return answer;
}

void TokenService::checkOaisOfTokenRequest(const HttpRequest& request) const
{
    const QString& wanted = m_store.rules().oaisToken;
    if (wanted.isEmpty())
        return;
    const QByteArray given = bearerToken(request.header("Authorization"));
    if (given.isEmpty()) {
        throw invalidClient(QStringLiteral("the OAIS token is missing"),
                            QStringLiteral("В запросе токена не указан токен ОАИС"))
            .with("WWW-Authenticate", "Bearer");
    }
    if (given != wanted.toUtf8()) {
        throw invalidClient(QStringLiteral("the OAIS token is wrong"),
                            QStringLiteral("Токен ОАИС в запросе токена не принят"))
            .with("WWW-Authenticate", "Bearer error=\"invalid_token\"");
    }
}

QStringList TokenService::grantedScopes(const Client& client, const QString& wanted) const
{
    const QStringList scopes = wanted.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (const QString& scope : scopes) {
        if (!client.scopes.contains(scope)) {
            throw Refusal::oauth(400, QStringLiteral("invalid_scope"),
                                 QStringLiteral("the client may not ask for that scope"),
                                 QStringLiteral("Клиенту не разрешена область доступа ") + scope);
        }
    }
    return scopes.isEmpty() ? client.scopes : scopes;
}

Access TokenService::admit(const HttpRequest& request, const QString& scope) const
{
    const QByteArray token = bearerToken(request.header("Authorization"));
    if (token.isEmpty())
        throw Refusal(401, QStringLiteral("Запрос без токена авторизации")).with("WWW-Authenticate", "Bearer");
    const auto access = m_tokens.constFind(token);
    if (access == m_tokens.constEnd())
        throw invalidToken(QStringLiteral("Токен авторизации неизвестен"));
    if (access->expiry <= m_clock())
        throw invalidToken(QStringLiteral("Срок действия токена авторизации истёк"));

    const QString& oais = m_store.rules().oaisToken;
    if (!oais.isEmpty()) {
        const QByteArray given = bearerToken(request.header("OAIS"));
        if (given.isEmpty())
            throw Refusal(401, QStringLiteral("Запрос без токена ОАИС"));
        if (given != oais.toUtf8())
            throw Refusal(401, QStringLiteral("Токен ОАИС не принят"));
    }
    if (!scope.isEmpty() && !access->scopes.contains(scope)) {
        throw Refusal(403, QStringLiteral("Для операции нужна область доступа ") + scope)
            .with("WWW-Authenticate", "Bearer error=\"insufficient_scope\"");
    }
    return *access;
}

void TokenService::expireAll()
{
    const QDateTime now = m_clock();
    for (Access& access : m_tokens)
        access.expiry = now;
}

void TokenService::forgetExpired()
{
    if (m_tokens.size() < rememberedTokens)
        return;
    const QDateTime now = m_clock();
    m_tokens.removeIf([&now](const auto& token) { return token.value().expiry <= now; });
}
} // namespace emulator
