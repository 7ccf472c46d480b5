// SPDX-License-Identifier: MIT
#include "findings.h"

#include <algorithm>
#include <array>
#include <iterator>

using namespace Qt::StringLiterals;

namespace doctor
{
namespace
{

using Code = FindingCode;

/// Without characters that a terminal takes as commands: a value may come from any server.
QString printable(QString value)
{
    for (QChar& character : value) {
        if (!character.isPrint()) {
            character = u' ';
        }
    }
    return value;
}

/// A finding with open placeholders. Its advice has the key of its text, with "Advice" after it.
struct FindingRow {
    Code code = {};
    State state = {};
    Kind kind = {};
    Adviser adviser = {};
    const char* key = "";
    const char* text = "";
    const char* advice = ""; ///< empty: there is nothing to do
};

constexpr FindingRow good(Code code, const char* key, const char* text)
{
    return {code, State::Good, Kind::None, Adviser::Nobody, key, text};
}

constexpr FindingRow notChecked(Code code, const char* key, const char* text)
{
    return {code, State::NotChecked, Kind::None, Adviser::Nobody, key, text};
}

constexpr FindingRow warning(Code code, Kind kind, Adviser adviser, const char* key, const char* text,
                             const char* advice)
{
    return {code, State::Warning, kind, adviser, key, text, advice};
}

constexpr FindingRow wrong(Code code, Kind kind, Adviser adviser, const char* key, const char* text, const char* advice)
{
    return {code, State::Wrong, kind, adviser, key, text, advice};
}

constexpr std::array rows = {
    // %1 the check that failed
    notChecked(Code::NotReached, "doctorNotReached", "not checked, since \"%1\" failed"),
    // %1 seconds
    wrong(Code::TimeIsUp, Kind::Network, Adviser::Integrator, "doctorTimeIsUp",
          "not checked: the time limit of %1 s is over",
          "Look at the slow steps above, or allow more with --time-limit."),

    // The configuration.
    good(Code::SettingsGood, "doctorSettingsGood", "has everything that the plug-in needs"),
    // %1 reason
    wrong(Code::SettingsUnreadable, Kind::Configuration, Adviser::Integrator, "doctorSettingsUnreadable",
          "cannot be read: %1", "Name the INI file of the till with --config."),
    // %1 place and mistake
    wrong(Code::SettingWrong, Kind::Configuration, Adviser::Integrator, "doctorSettingWrong", "%1",
          "Correct this in the configuration."),
    // %1 key
    wrong(Code::SettingMissing, Kind::Configuration, Adviser::Integrator, "doctorSettingMissing",
          "%1 is missing or empty",
          "Set %1. Addresses, client, secret and organization identifier come from the operator of the registry."),
    wrong(Code::PluginOff, Kind::Configuration, Adviser::Integrator, "doctorPluginOff",
          "[plugins] pharmacy is not true: the plug-in is switched off", "Set it to true."),
    // %1 key
    wrong(Code::AddressWithUser, Kind::Configuration, Adviser::Integrator, "doctorAddressWithUser",
          "%1 has a user name or a password: the till sends nothing there", "Remove everything before the @ of %1."),

    // Names. %1 host
    // %2 addresses
    good(Code::NameFound, "doctorNameFound", "%2"),
    good(Code::NameFoundIpv6Only, "doctorNameFoundIpv6Only", "%2 (IPv6 only)"),
    good(Code::NameIsAddress, "doctorNameIsAddress", "an address: there is no name to look up"),
    wrong(Code::NameNotFound, Kind::Network, Adviser::NetworkAdministrator, "doctorNameNotFound",
          "the name %1 is not found",
          "Can the name servers that the till asks resolve %1? If nobody's can, compare the name with what the "
          "operator of the registry gave."),
    wrong(Code::NameServerSilent, Kind::Network, Adviser::NetworkAdministrator, "doctorNameServerSilent",
          "no name server answered in time",
          "Which name servers is the till to ask, and does the network let it (port 53)?"),

    // Connections. %1 host, %2 port
    // %3 address
    good(Code::ConnectionMade, "doctorConnectionMade", "connected to %3"),
    wrong(Code::ConnectionRefused, Kind::Network, Adviser::Operator, "doctorConnectionRefused",
          "nothing accepts connections at port %2",
          "Nothing accepts our connections at %1, port %2. Is this the right address, and is the service running?"),
    wrong(Code::ConnectionSilent, Kind::Network, Adviser::NetworkAdministrator, "doctorConnectionSilent",
          "no answer in time: a firewall may drop the packets", "Please let the till connect to %1, TCP port %2."),
    wrong(Code::ConnectionIpv6Only, Kind::Network, Adviser::NetworkAdministrator, "doctorConnectionIpv6Only",
          "cannot be reached: %1 has IPv6 addresses only",
          "Please give the till a route to IPv6. Without one, the operator of the registry has to offer %1 over IPv4."),
    // %3 the system's reason
    wrong(Code::ConnectionUnreachable, Kind::Network, Adviser::NetworkAdministrator, "doctorConnectionUnreachable",
          "cannot be reached: %3", "Please let the till reach %1, TCP port %2."),
    wrong(Code::ProxyUnusable, Kind::Network, Adviser::NetworkAdministrator, "doctorProxyUnusable",
          "the proxy does not connect: %3",
          "Is the address in [RestClient] proxy right, and may the till reach %1, port %2, through this proxy?"),

    // TLS. %1 host, %2 port
    // %3 version, %4 last day, %5 days
    good(Code::TlsGood, "doctorTlsGood", "%3, the certificate is valid for %5 days, until %4"),
    warning(Code::TlsEndsSoon, Kind::Tls, Adviser::Operator, "doctorTlsEndsSoon",
            "%3, but the certificate ends in %5 days, on %4",
            "The certificate of %1, port %2, ends on %4. When will it be replaced, and will the same authority sign "
            "the new one?"),
    good(Code::TlsNotNeeded, "doctorTlsNotNeeded", "not used: http on this machine"),
    warning(Code::TlsNotUsed, Kind::Tls, Adviser::Operator, "doctorTlsNotUsed",
            "not used: over http everyone on the way can read the secret and the cards",
            "What is the https address of %1?"),
    // %3 day of the certificate, %4 the till's day
    wrong(Code::CertificateExpired, Kind::Tls, Adviser::Operator, "doctorCertificateExpired",
          "the certificate ended on %3; by the till's clock it is %4",
          "The certificate of %1, port %2, ended on %3. Please install a new one."),
    wrong(Code::CertificateNotYetValid, Kind::Tls, Adviser::TillAdministrator, "doctorCertificateNotYetValid",
          "the certificate begins on %3; by the till's clock it is %4",
          "Is the till's date right? If it is, the operator of the registry has to know: the certificate of %1, port "
          "%2, is valid from %3 only."),
    // %3 names
    wrong(Code::CertificateOtherHost, Kind::Tls, Adviser::Integrator, "doctorCertificateOtherHost",
          "the certificate is for another host: %3",
          "Does the address have the host name that the operator of the registry gave? If it does, tell the operator: "
          "the certificate of %1, port %2, is for %3."),
    // %3 issuer
    wrong(Code::CertificateUnknownAuthority, Kind::Tls, Adviser::Operator, "doctorCertificateUnknownAuthority",
          "the system does not know the authority that signed: %3",
          "The certificate that we see at %1, port %2, is signed by %3. Is that yours? If it is, please send the "
          "authority's certificate as a PEM file, for [RestClient] caFile, and see that your server sends its whole "
          "chain. If it is not, something in our own network opens the connection."),
    wrong(Code::CertificateOtherAuthority, Kind::Tls, Adviser::Operator, "doctorCertificateOtherAuthority",
          "not signed by an authority of [RestClient] caFile, but by %3",
          "The certificate that we see at %1, port %2, is signed by %3. Has your authority changed, or does your "
          "server not send its whole chain? Please send the authority's certificate as a PEM file."),
    // %3 reason
    wrong(Code::CertificateRefused, Kind::Tls, Adviser::Operator, "doctorCertificateRefused",
          "the certificate is refused: %3",
          "The certificate of %1, port %2, does not pass verification: %3. Please correct it."),
    wrong(Code::AuthoritiesUnreadable, Kind::Configuration, Adviser::Integrator, "doctorAuthoritiesUnreadable",
          "the file of [RestClient] caFile holds no certificates that can be read",
          "Name the PEM file of the registry's authority, and let the till's account read it."),
    wrong(Code::TlsNotSpoken, Kind::Tls, Adviser::Integrator, "doctorTlsNotSpoken",
          "the address says https, but port %2 does not speak TLS",
          "Compare scheme and port of the address with what the operator of the registry gave."),
    wrong(Code::TlsClosed, Kind::Tls, Adviser::Operator, "doctorTlsClosed",
          "the server closes the connection before TLS is set up",
          "%1, port %2, closes our connection during the TLS handshake. Our till speaks TLS 1.2 and 1.3. Is our "
          "address admitted?"),
    wrong(Code::TlsSilent, Kind::Tls, Adviser::Operator, "doctorTlsSilent",
          "the server accepts the connection, but does not set up TLS in time",
          "%1, port %2, accepts our connection, but does not answer the TLS handshake. Is the service running?"),
    // %3 reason
    wrong(Code::TlsFailed, Kind::Tls, Adviser::Operator, "doctorTlsFailed", "TLS cannot be set up: %3",
          "TLS with %1, port %2, cannot be set up: %3. Our till speaks TLS 1.2 and 1.3."),

    // The first answer. %1 host, %2 port
    // %3 status
    good(Code::AnswerGood, "doctorAnswerGood", "HTTP, status %3"),
    wrong(Code::AnswerSilent, Kind::Network, Adviser::Operator, "doctorAnswerSilent",
          "the server accepts the connection, but does not answer in time",
          "%1, port %2, accepts our connection, but does not answer requests. Is the service running?"),
    wrong(Code::AnswerClosed, Kind::Network, Adviser::Operator, "doctorAnswerClosed",
          "the server closes the connection without an answer",
          "%1, port %2, closes our connection without an answer. Is the service running, and is our address admitted?"),
    wrong(Code::AnswerExpectsTls, Kind::Tls, Adviser::Integrator, "doctorAnswerExpectsTls",
          "the address says http, but port %2 speaks TLS", "Write https in the address."),
    wrong(Code::AnswerNotHttp, Kind::Network, Adviser::Integrator, "doctorAnswerNotHttp",
          "something answers, but not in HTTP",
          "Compare host and port of the address with what the operator of the registry gave."),
    // %3 host
    wrong(Code::AnswerElsewhere, Kind::Network, Adviser::NetworkAdministrator, "doctorAnswerElsewhere",
          "the answer leads to %3: a sign-in page is in front of the registry",
          "Please let the till reach %1, port %2, without a sign-in page or portal."),
    wrong(Code::AnswerLeadsToHttps, Kind::Tls, Adviser::Integrator, "doctorAnswerLeadsToHttps",
          "the address says http, and the server sends to https", "Write https in the address."),
    wrong(Code::AnswerPage, Kind::Network, Adviser::NetworkAdministrator, "doctorAnswerPage",
          "a web page answers in the place of the registry",
          "Does a proxy or a filter answer for %1, port %2? Please let the till through. If there is none, compare the "
          "address with what the operator of the registry gave."),
    wrong(Code::AnswerProxyLogin, Kind::Network, Adviser::NetworkAdministrator, "doctorAnswerProxyLogin",
          "a proxy wants a user name and a password", "Please let the till reach %1, port %2, without them."),
    // %3 status
    wrong(Code::AnswerUnavailable, Kind::Registry, Adviser::Operator, "doctorAnswerUnavailable",
          "the service is not available (status %3)",
          "%1, port %2, answers with status %3. When will the service be back?"),

    // The clock. %1 how far apart
    good(Code::ClockGood, "doctorClockGood", "till and server are %1 apart"),
    notChecked(Code::ClockUnknown, "doctorClockUnknown", "not checked: the server does not say what time it is"),
    warning(Code::ClockDrifts, Kind::Clock, Adviser::TillAdministrator, "doctorClockDrifts",
            "till and server are %1 apart", "Let the till take its time from a time server (NTP)."),
    wrong(Code::ClockAhead, Kind::Clock, Adviser::TillAdministrator, "doctorClockAhead",
          "the till's clock is %1 ahead of the server's",
          "Set the date and the time of the till, and let it take them from a time server (NTP)."),
    wrong(Code::ClockBehind, Kind::Clock, Adviser::TillAdministrator, "doctorClockBehind",
          "the till's clock is %1 behind the server's",
          "Set the date and the time of the till, and let it take them from a time server (NTP)."),

    // The token. %1 host, %2 the registry's words
    good(Code::TokenGood, "doctorTokenGood", "granted"),
    notChecked(Code::TokenSettingsMissing, "doctorTokenSettingsMissing",
               "not checked: clientId or clientSecret is missing"),
    notChecked(Code::TokenOaisFirst, "doctorTokenOaisFirst", "not checked: the registry stops at the OAIS token"),
    wrong(Code::ClientRefused, Kind::Credentials, Adviser::Operator, "doctorClientRefused",
          "the registry refuses client or secret: %2",
          "Our token request to %1 is refused: %2. Is our client registered, and is its secret still valid? (First "
          "compare clientId and clientSecret with what you sent us.)"),
    wrong(Code::OrganizationRefused, Kind::Credentials, Adviser::Operator, "doctorOrganizationRefused",
          "the registry refuses the organization: %2",
          "Our token request to %1 is refused: %2. For which organization identifier may our client act? (First "
          "compare organizationIdentifier with what you sent us.)"),
    wrong(Code::ScopeRefused, Kind::Credentials, Adviser::Operator, "doctorScopeRefused",
          "the registry refuses the scope: %2",
          "Our token request to %1 is refused: %2. Which scopes does our client have?"),
    // %2 scopes
    wrong(Code::ScopeNotGranted, Kind::Credentials, Adviser::Operator, "doctorScopeNotGranted",
          "granted, but without the scope %2", "%1 grants our client a token without the scope %2. Please add it."),
    wrong(Code::TokenRequestRefused, Kind::Registry, Adviser::Operator, "doctorTokenRequestRefused",
          "the registry refuses the token request: %2",
          "Our token request (client credentials, RFC 6749, 4.4) to %1 is refused: %2. What does it lack?"),
    wrong(Code::TokenPathUnknown, Kind::Registry, Adviser::Operator, "doctorTokenPathUnknown",
          "there is no token service under [ElectronicPrescription] authorizationUrl",
          "%1 does not know the path of our token request. Under which address does /connect/token lie?"),
    wrong(Code::TokenNotJson, Kind::Registry, Adviser::Operator, "doctorTokenNotJson",
          "the answer to the token request is no JSON",
          "%1 answers our token request with status 200, but not in JSON. Does the service work?"),
    wrong(Code::TokenMissing, Kind::Registry, Adviser::Operator, "doctorTokenMissing",
          "the answer to the token request has no access_token",
          "%1 answers our token request with JSON that has no access_token. Does the service work?"),

    // The OAIS token. %1 host, %2 the registry's words
    good(Code::OaisGood, "doctorOaisGood", "not refused with the token request"),
    good(Code::OaisNotUsed, "doctorOaisNotUsed", "none configured, none asked for"),
    wrong(Code::OaisMissing, Kind::Credentials, Adviser::Operator, "doctorOaisMissing",
          "none configured, but the registry wants one: %2",
          "%1 refuses our request: %2. Please send us an OAIS token."),
    wrong(Code::OaisRefused, Kind::Credentials, Adviser::Operator, "doctorOaisRefused", "refused: %2",
          "%1 refuses our OAIS token: %2. Is it still valid? (First compare oais with what you sent us.)"),

    // A card's prescriptions. %1 host
    // %2 how many
    good(Code::CardGood, "doctorCardGood", "prescriptions found: %2"),
    good(Code::CardWithoutPrescriptions, "doctorCardWithoutPrescriptions", "known, without active prescriptions"),
    notChecked(Code::CardNotGiven, "doctorCardNotGiven", "not checked: name a test card with --card"),
    wrong(Code::CardUnknown, Kind::Registry, Adviser::Operator, "doctorCardUnknown",
          "the registry does not know this card", "%1 does not know our test card. Which test cards are there?"),
    wrong(Code::CardPathUnknown, Kind::Registry, Adviser::Operator, "doctorCardPathUnknown",
          "there is no registry under [ElectronicPrescription] requestsUrl",
          "%1 does not know the path of our request. Under which address does /MedicationPrescription/$by-card lie?"),
    wrong(Code::CardScopeMissing, Kind::Credentials, Adviser::Operator, "doctorCardScopeMissing",
          "the registry forbids the look-up: the token lacks a scope",
          "%1 answers our look-up of prescriptions with status 403. Which scope does it need, and does our client have "
          "it?"),
    wrong(Code::CardTokenRefused, Kind::Credentials, Adviser::Operator, "doctorCardTokenRefused",
          "the registry refuses the token that it has just granted",
          "%1 refuses a token that your authorization server has just granted. Do the two belong together?"),
    wrong(Code::CardOaisRefused, Kind::Credentials, Adviser::Operator, "doctorCardOaisRefused",
          "the registry refuses the look-up for its OAIS token",
          "%1 refuses our look-up of prescriptions for its OAIS token. Which token is our pharmacy to use?"),
    // %2 status
    wrong(Code::CardRefused, Kind::Registry, Adviser::Operator, "doctorCardRefused",
          "the registry refuses the look-up (status %2)",
          "%1 answers our look-up of prescriptions by card with status %2. Why?"),
    wrong(Code::CardAnswerUnusable, Kind::Registry, Adviser::Operator, "doctorCardAnswerUnusable",
          "the answer is no Bundle with prescriptions",
          "%1 answers our look-up of prescriptions by card, but not with a Bundle. Does the service work?"),

    // Any request. %1 host
    wrong(Code::RequestElsewhere, Kind::Network, Adviser::NetworkAdministrator, "doctorRequestElsewhere",
          "the request is sent elsewhere: something is in front of the registry",
          "Please let the till reach %1 without a portal or a proxy in between."),
    // %2 what the till shows
    wrong(Code::RequestFailed, Kind::Network, Adviser::NetworkAdministrator, "doctorRequestFailed",
          "the request fails; the till shows: %2",
          "Does something between the till and %1 end connections or hold answers back?"),
    wrong(Code::RegistryBusy, Kind::Registry, Adviser::Operator, "doctorRegistryBusy",
          "the registry has had too many requests (status 429)",
          "%1 answers with status 429. How many requests may our tills send?"),
    // %2 status
    wrong(Code::RegistryUnavailable, Kind::Registry, Adviser::Operator, "doctorRegistryUnavailable",
          "the registry fails (status %2)", "%1 answers with status %2. When will the service be back?"),
};

/// "certificateExpired" for "doctorCertificateExpired".
QString nameOf(const FindingRow& row)
{
    const QString name = QString::fromLatin1(row.key).mid(int(sizeof "doctor") - 1);
    return name.first(1).toLower() + name.mid(1);
}

tr::Tr filled(const QString& key, const char* text, const QStringList& values)
{
    tr::Tr result(key, QString::fromUtf8(text));
    for (const QString& value : values) {
        result = result.arg(printable(value));
    }
    return result;
}

Finding fill(const FindingRow& row, const QStringList& values)
{
    const QString key = QString::fromLatin1(row.key);
    return {row.code,
            row.state,
            row.kind,
            row.adviser,
            nameOf(row),
            filled(key, row.text, values),
            row.adviser == Adviser::Nobody ? tr::Tr() : filled(key + u"Advice"_s, row.advice, values)};
}

} // namespace

Finding finding(FindingCode code, const QStringList& values)
{
    const auto row =
        std::find_if(rows.begin(), rows.end(), [code](const FindingRow& candidate) { return candidate.code == code; });
    Q_ASSERT(row != rows.end());
    return fill(*row, values);
}

QList<Finding> allFindings()
{
    QList<Finding> all;
    std::transform(rows.begin(), rows.end(), std::back_inserter(all),
                   [](const FindingRow& row) { return fill(row, {}); });
    return all;
}

} // namespace doctor
