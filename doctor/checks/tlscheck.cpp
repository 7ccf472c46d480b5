// SPDX-License-Identifier: MIT
#include "serverchecks.h"

#include "config.h"
#include "currenttime.h"
#include "server.h"

#include <QFile>
#include <QSslCertificate>
#include <QSslConfiguration>
#include <QSslError>

#include <algorithm>
#include <array>
#include <optional>

using namespace Qt::StringLiterals;

namespace doctor
{
namespace
{

constexpr int daysOfWarning = 30;

QString day(const QDateTime& moment)
{
    return moment.toUTC().date().toString(Qt::ISODate);
}

QString today()
{
    return day(CurrentTime::create()->current());
}

QString namesOf(const QSslCertificate& certificate)
{
    const QStringList names = QStringList(certificate.subjectAlternativeNames().values());
    return names.isEmpty() ? certificate.subjectDisplayName() : names.join(u", "_s);
}

/// A finding about a certificate: what OpenSSL says, in the order in which one explains the others.
struct CertificateRow {
    QSslError::SslError error;
    FindingCode code;
};

constexpr std::array certificateRows = {
    CertificateRow{QSslError::CertificateExpired, FindingCode::CertificateExpired},
    CertificateRow{QSslError::CertificateNotYetValid, FindingCode::CertificateNotYetValid},
    CertificateRow{QSslError::UnableToGetLocalIssuerCertificate, FindingCode::CertificateUnknownAuthority},
    CertificateRow{QSslError::UnableToGetIssuerCertificate, FindingCode::CertificateUnknownAuthority},
    CertificateRow{QSslError::UnableToVerifyFirstCertificate, FindingCode::CertificateUnknownAuthority},
    CertificateRow{QSslError::SelfSignedCertificate, FindingCode::CertificateUnknownAuthority},
    CertificateRow{QSslError::SelfSignedCertificateInChain, FindingCode::CertificateUnknownAuthority},
    CertificateRow{QSslError::CertificateUntrusted, FindingCode::CertificateUnknownAuthority},
    CertificateRow{QSslError::HostNameMismatch, FindingCode::CertificateOtherHost},
};

bool hasOwnAuthorities()
{
    return !Singleton<Config>::get()->getString(u"RestClient:caFile"_s).isEmpty();
}

QStringList valuesFor(FindingCode code, const QSslCertificate& certificate)
{
    switch (code) {
    case FindingCode::CertificateExpired:
        return {day(certificate.expiryDate()), today()};
    case FindingCode::CertificateNotYetValid:
        return {day(certificate.effectiveDate()), today()};
    case FindingCode::CertificateOtherHost:
        return {namesOf(certificate)};
    default:
        return {certificate.issuerDisplayName()};
    }
}

/// Why the certificate was refused.
Finding refusedCertificate(const QStringList& where, const QList<QSslError>& errors)
{
    for (const CertificateRow& row : certificateRows) {
        const auto error = std::find_if(errors.cbegin(), errors.cend(),
                                        [&row](const QSslError& candidate) { return candidate.error() == row.error; });
        if (error == errors.cend()) {
            continue;
        }
        const FindingCode code = row.code == FindingCode::CertificateUnknownAuthority && hasOwnAuthorities()
                                     ? FindingCode::CertificateOtherAuthority
                                     : row.code;
        return finding(code, where + valuesFor(row.code, error->certificate()));
    }
    return finding(FindingCode::CertificateRefused, where + QStringList{errors.constFirst().errorString()});
}

/// OpenSSL's words for bytes that are no TLS.
bool areOtherBytes(const QString& error)
{
    const QStringList words = {u"wrong version number"_s, u"unknown protocol"_s, u"packet length too long"_s,
                               u"http request"_s};
    return std::any_of(words.cbegin(), words.cend(), [&error](const QString& word) { return error.contains(word); });
}

/// Why there is no TLS.
Finding noTls(const Server& server)
{
    const QStringList where = {server.host(), QString::number(server.port())};
    const QSslSocket& socket = *server.socket;
    if (const QList<QSslError> errors = socket.sslHandshakeErrors(); !errors.isEmpty()) {
        return refusedCertificate(where, errors);
    }
    if (areOtherBytes(socket.errorString())) {
        return finding(FindingCode::TlsNotSpoken, where);
    }
    switch (socket.error()) {
    case QAbstractSocket::RemoteHostClosedError:
        return finding(FindingCode::TlsClosed, where);
    case QAbstractSocket::SocketTimeoutError:
        return finding(FindingCode::TlsSilent, where);
    default:
        return finding(FindingCode::TlsFailed, where + QStringList{socket.errorString()});
    }
}

/// TLS 1.2 or newer against the configured authorities; nothing when their file holds none.
std::optional<QSslConfiguration> configuration()
{
    QSslConfiguration made = QSslConfiguration::defaultConfiguration();
    made.setProtocol(QSsl::TlsV1_2OrLater);
    made.setPeerVerifyMode(QSslSocket::VerifyPeer);
    if (hasOwnAuthorities()) {
        const QString file = Singleton<Config>::get()->getString(u"RestClient:caFile"_s);
        const QList<QSslCertificate> authorities = QSslCertificate::fromPath(file, QSsl::Pem);
        if (authorities.isEmpty()) {
            return std::nullopt;
        }
        made.setCaCertificates(authorities);
    }
    return made;
}

/// The day on which the first certificate of the chain ends.
QDateTime endOf(const QList<QSslCertificate>& chain)
{
    const auto first = std::min_element(chain.cbegin(), chain.cend(), [](const auto& left, const auto& right) {
        return left.expiryDate() < right.expiryDate();
    });
    return first->expiryDate();
}

/// "TLS 1.3"
QString versionOf(const QSslSocket& socket)
{
    return socket.sessionProtocol() == QSsl::TlsV1_2 ? u"TLS 1.2"_s : u"TLS 1.3"_s;
}

Finding goodTls(const Server& server)
{
    const QDateTime end = endOf(server.socket->peerCertificateChain());
    const qint64 days = CurrentTime::create()->current().daysTo(end);
    const FindingCode code = days < daysOfWarning ? FindingCode::TlsEndsSoon : FindingCode::TlsGood;
    return finding(code, {server.host(), QString::number(server.port()), versionOf(*server.socket), day(end),
                          QString::number(days)});
}

bool isOnThisMachine(const Server& server)
{
    return server.addresses.constFirst().isLoopback() && !server.hasProxy();
}

} // namespace

Finding checkTls(Server& server, const TimeLimit& limit)
{
    if (!server.isSecure()) {
        return finding(isOnThisMachine(server) ? FindingCode::TlsNotNeeded : FindingCode::TlsNotUsed, {server.host()});
    }
    const std::optional<QSslConfiguration> tls = configuration();
    if (!tls) {
        return finding(FindingCode::AuthoritiesUnreadable);
    }
    server.socket->setSslConfiguration(*tls);
    server.socket->setPeerVerifyName(server.host());
    server.socket->startClientEncryption();
    return server.socket->waitForEncrypted(limit.step()) ? goodTls(server) : noTls(server);
}

} // namespace doctor
