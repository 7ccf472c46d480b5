// SPDX-License-Identifier: MIT
#include "accesschecks.h"

#include <algorithm>
#include <array>
#include <optional>

using namespace Qt::StringLiterals;

namespace doctor
{
namespace
{

constexpr int badRequest = 400;
constexpr int unauthorized = 401;
constexpr int forbidden = 403;
constexpr int notFound = 404;
constexpr int methodNotAllowed = 405;
constexpr int tooManyRequests = 429;
constexpr int serverError = 500;

/// The member "error" of a refused token request (RFC 6749, 5.2).
struct TokenErrorRow {
    QLatin1StringView error;
    FindingCode code = {};
};

constexpr std::array tokenErrors = {
    TokenErrorRow{"invalid_client"_L1, FindingCode::ClientRefused},
    TokenErrorRow{"unauthorized_client"_L1, FindingCode::OrganizationRefused},
    TokenErrorRow{"invalid_scope"_L1, FindingCode::ScopeRefused},
};

/// What any request may come to.
std::optional<Finding> commonFailure(const RequestOutcome& outcome, const QString& host)
{
    if (outcome.isTransportFailure()) {
        return finding(FindingCode::RequestFailed, {host, outcome.words});
    }
    if (outcome.code >= serverError) {
        return finding(FindingCode::RegistryUnavailable, {host, QString::number(outcome.code)});
    }
    if (outcome.code == tooManyRequests) {
        return finding(FindingCode::RegistryBusy, {host});
    }
    if (0 < outcome.code && outcome.code < badRequest) {
        return finding(FindingCode::RequestElsewhere, {host});
    }
    return std::nullopt;
}

/// The protocol has no code for a refused OAIS token; the registry's words name it.
bool isAboutOais(const RequestOutcome& outcome)
{
    return outcome.code == unauthorized && (outcome.words.contains(u"ОАИС"_s, Qt::CaseInsensitive) ||
                                            outcome.words.contains(u"OAIS"_s, Qt::CaseInsensitive));
}

/// The scopes that were asked for and not granted. Without "scope" in the answer all were (RFC 6749, 5.1).
QStringList scopesNotGranted(const Access& access)
{
    const QJsonValue granted = access.token.answer.object()["scope"_L1];
    QStringList missing = granted.isString() ? access.registry.scopes() : QStringList();
    for (const QString& scope : granted.toString().split(u' ', Qt::SkipEmptyParts)) {
        missing.removeAll(scope);
    }
    return missing;
}

Finding judgeGrant(Access& access)
{
    if (access.token.answer.isNull()) {
        return finding(FindingCode::TokenNotJson, {access.authorizationHost});
    }
    access.hasToken = !access.token.answer.object()["access_token"_L1].toString().isEmpty();
    if (!access.hasToken) {
        return finding(FindingCode::TokenMissing, {access.authorizationHost});
    }
    if (const QStringList missing = scopesNotGranted(access); !missing.isEmpty()) {
        return finding(FindingCode::ScopeNotGranted, {access.authorizationHost, missing.join(u' ')});
    }
    return finding(FindingCode::TokenGood);
}

Finding judgeRefusal(const Access& access)
{
    const RequestOutcome& outcome = access.token;
    const QString error = outcome.answer.object()["error"_L1].toString();
    const auto row = std::find_if(tokenErrors.begin(), tokenErrors.end(),
                                  [&error](const TokenErrorRow& candidate) { return candidate.error == error; });
    FindingCode code = FindingCode::TokenRequestRefused;
    if (row != tokenErrors.end()) {
        code = row->code;
    } else if (outcome.code == unauthorized || outcome.code == forbidden) {
        code = FindingCode::ClientRefused;
    } else if (outcome.code == notFound || outcome.code == methodNotAllowed) {
        code = FindingCode::TokenPathUnknown;
    }
    return finding(code, {access.authorizationHost, outcome.words});
}

/// An address that is wrong and a card that is unknown both give 404. Without a card a registry that knows the address
/// says something else.
FindingCode whatIsNotFound(Access& access)
{
    return access.registry.askForCard({}).request.code == notFound ? FindingCode::CardPathUnknown
                                                                   : FindingCode::CardUnknown;
}

Finding judgeCardRefusal(Access& access, const RequestOutcome& outcome)
{
    const QStringList values = {access.requestsHost, QString::number(outcome.code)};
    switch (outcome.code) {
    case unauthorized:
        return finding(isAboutOais(outcome) ? FindingCode::CardOaisRefused : FindingCode::CardTokenRefused, values);
    case forbidden:
        return finding(FindingCode::CardScopeMissing, values);
    case notFound:
        return finding(whatIsNotFound(access), values);
    default:
        return finding(FindingCode::CardRefused, values);
    }
}

} // namespace

Finding checkToken(Access& access)
{
    if (!access.registry.hasCredentials()) {
        return finding(FindingCode::TokenSettingsMissing);
    }
    access.token = access.registry.askForToken();
    if (const std::optional<Finding> failure = commonFailure(access.token, access.authorizationHost)) {
        return *failure;
    }
    access.isStoppedByOais = isAboutOais(access.token);
    if (access.isStoppedByOais) {
        return finding(FindingCode::TokenOaisFirst);
    }
    return access.token.code == 0 ? judgeGrant(access) : judgeRefusal(access);
}

Finding checkOais(Access& access)
{
    if (access.isStoppedByOais) {
        return finding(access.registry.hasOais() ? FindingCode::OaisRefused : FindingCode::OaisMissing,
                       {access.authorizationHost, access.token.words});
    }
    return finding(access.registry.hasOais() ? FindingCode::OaisGood : FindingCode::OaisNotUsed);
}

Finding checkCard(Access& access)
{
    if (access.card.isEmpty()) {
        return finding(FindingCode::CardNotGiven);
    }
    const ObservedRegistry::CardOutcome outcome = access.registry.askForCard(access.card);
    if (const std::optional<Finding> failure = commonFailure(outcome.request, access.requestsHost)) {
        return *failure;
    }
    if (outcome.request.code != 0) {
        return judgeCardRefusal(access, outcome.request);
    }
    if (outcome.isUnusable) {
        return finding(FindingCode::CardAnswerUnusable, {access.requestsHost});
    }
    return outcome.isEmpty
               ? finding(FindingCode::CardWithoutPrescriptions)
               : finding(FindingCode::CardGood, {access.requestsHost, QString::number(outcome.prescriptions)});
}

} // namespace doctor
