// SPDX-License-Identifier: MIT
#pragma once

#include "tr.h"

#include <QList>
#include <QString>
#include <QStringList>

namespace doctor
{

enum class State : int {
    Good,
    Warning, ///< works now; something is to be done all the same
    Wrong,
    NotChecked, ///< it could not be looked at, or nobody asked for it
};

/// What kind of thing is wrong. The number is the program's exit status.
enum class Kind : int {
    None = 0,
    Configuration = 3,
    Network = 4,
    Tls = 5,
    Clock = 6,
    Credentials = 7,
    Registry = 8, ///< the registry answers, but not as it should
};

/// Who can put it right.
enum class Adviser : int {
    Nobody,
    Integrator, ///< who wrote the configuration
    NetworkAdministrator,
    TillAdministrator, ///< who looks after the machine
    Operator,          ///< of the registry
};

/// What a check can find.
enum class FindingCode : int {
    NotReached,
    TimeIsUp,

    SettingsGood,
    SettingsUnreadable,
    SettingWrong,
    SettingMissing,
    PluginOff,
    AddressWithUser,

    NameFound,
    NameFoundIpv6Only,
    NameIsAddress,
    NameNotFound,
    NameServerSilent,

    ConnectionMade,
    ConnectionRefused,
    ConnectionSilent,
    ConnectionIpv6Only,
    ConnectionUnreachable,
    ProxyUnusable,

    TlsGood,
    TlsEndsSoon,
    TlsNotNeeded,
    TlsNotUsed,
    CertificateExpired,
    CertificateNotYetValid,
    CertificateOtherHost,
    CertificateUnknownAuthority,
    CertificateOtherAuthority,
    CertificateRefused,
    AuthoritiesUnreadable,
    TlsNotSpoken,
    TlsClosed,
    TlsSilent,
    TlsFailed,

    AnswerGood,
    AnswerSilent,
    AnswerClosed,
    AnswerExpectsTls,
    AnswerNotHttp,
    AnswerElsewhere,
    AnswerLeadsToHttps,
    AnswerPage,
    AnswerProxyLogin,
    AnswerUnavailable,

    ClockGood,
    ClockUnknown,
    ClockDrifts,
    ClockAhead,
    ClockBehind,

    TokenGood,
    TokenSettingsMissing,
    TokenOaisFirst,
    ClientRefused,
    OrganizationRefused,
    ScopeRefused,
    ScopeNotGranted,
    TokenRequestRefused,
    TokenPathUnknown,
    TokenNotJson,
    TokenMissing,

    OaisGood,
    OaisNotUsed,
    OaisMissing,
    OaisRefused,

    CardGood,
    CardWithoutPrescriptions,
    CardNotGiven,
    CardUnknown,
    CardPathUnknown,
    CardScopeMissing,
    CardTokenRefused,
    CardOaisRefused,
    CardRefused,
    CardAnswerUnusable,

    RequestElsewhere,
    RequestFailed,
    RegistryBusy,
    RegistryUnavailable,
};

/// What a check found, and what to do about it.
struct Finding {
    FindingCode code;
    State state;
    Kind kind;
    Adviser adviser;
    QString name;  ///< for programs: never translated, never changed
    tr::Tr text;   ///< what was found
    tr::Tr advice; ///< what to ask the adviser for; for the registry's operator the words to send
};

/// The finding of that code.
/// @param values of the placeholders in its row of the table; nothing secret, no card number, no name of a person
Finding finding(FindingCode code, const QStringList& values = {});

/// Every row of the table, with open placeholders.
QList<Finding> allFindings();

} // namespace doctor
