// SPDX-License-Identifier: MIT
#include "serverchecks.h"

#include "nameresolver.h"
#include "server.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace doctor
{
namespace
{

bool areIpv6Only(const QList<QHostAddress>& addresses)
{
    return std::all_of(addresses.cbegin(), addresses.cend(),
                       [](const QHostAddress& address) { return address.protocol() == QAbstractSocket::IPv6Protocol; });
}

QString listOf(const QList<QHostAddress>& addresses)
{
    QStringList texts;
    for (const QHostAddress& address : addresses) {
        texts.append(address.toString());
    }
    return texts.join(u", "_s);
}

/// Why there is no connection.
/// @param failed the socket that tried last
Finding noConnection(const Server& server, const QSslSocket& failed)
{
    if (server.usesTunnel()) {
        return finding(FindingCode::ProxyUnusable,
                       {server.host(), QString::number(server.port()), failed.errorString()});
    }
    const Endpoint hop = server.nextHop();
    const QString port = QString::number(hop.port);
    if (!server.hasProxy() && areIpv6Only(server.addresses)) {
        return finding(FindingCode::ConnectionIpv6Only, {hop.host, port});
    }
    switch (failed.error()) {
    case QAbstractSocket::ConnectionRefusedError:
        return finding(FindingCode::ConnectionRefused, {hop.host, port});
    case QAbstractSocket::SocketTimeoutError:
        return finding(FindingCode::ConnectionSilent, {hop.host, port});
    default:
        return finding(FindingCode::ConnectionUnreachable, {hop.host, port, failed.errorString()});
    }
}

} // namespace

Finding checkName(Server& server, const TimeLimit& limit)
{
    const QString host = server.nextHop().host;
    if (const QHostAddress address(host); !address.isNull()) {
        server.addresses = {address};
        return finding(FindingCode::NameIsAddress);
    }
    const ResolvedName resolved = NameResolver::create()->resolve(host, limit.step());
    if (!resolved.isInTime) {
        return finding(FindingCode::NameServerSilent, {host});
    }
    if (resolved.addresses.isEmpty()) {
        return finding(FindingCode::NameNotFound, {host});
    }
    server.addresses = resolved.addresses;
    const FindingCode code = areIpv6Only(resolved.addresses) ? FindingCode::NameFoundIpv6Only : FindingCode::NameFound;
    return finding(code, {host, listOf(resolved.addresses)});
}

Finding checkConnection(Server& server, const TimeLimit& limit)
{
    const Endpoint hop = server.nextHop();
    for (const QHostAddress& address : std::as_const(server.addresses)) {
        server.socket = server.newSocket();
        if (server.usesTunnel()) {
            server.socket->connectToHost(server.host(), quint16(server.port()));
        } else {
            server.socket->connectToHost(address, quint16(hop.port));
        }
        if (server.socket->waitForConnected(limit.step())) {
            return finding(FindingCode::ConnectionMade,
                           {server.host(), QString::number(server.port()), address.toString()});
        }
    }
    return noConnection(server, *server.socket);
}

} // namespace doctor
