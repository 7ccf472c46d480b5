// SPDX-License-Identifier: MIT
#pragma once

#include "configured.h"
#include "restclient.h"
#include "scriptedserver.h"

#include <QJsonObject>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

enum class Scheme : int { Http, Https };

inline std::string nameOf(Scheme scheme)
{
    return scheme == Scheme::Http ? "Http" : "Https";
}

/// One authority for the whole program; made on first use.
inline const TestAuthority& authority()
{
    static const TestAuthority theAuthority;
    return theAuthority;
}

inline const ServerIdentity& identity()
{
    static const ServerIdentity theIdentity(authority());
    return theIdentity;
}

/// A configuration that trusts the test's authority, and nothing but it.
inline QMap<QString, QString> trustingConfiguration()
{
    return {{u"RestClient:caFile"_s, authority().certificateFile()}};
}

/// A client, and a server that it trusts.
struct ClientAndServer {
    explicit ClientAndServer(Scheme scheme = Scheme::Http)
        : configuration(scheme == Scheme::Https ? trustingConfiguration() : QMap<QString, QString>())
        , server(scheme == Scheme::Https ? &identity() : nullptr)
    {
    }

    void get(const QString& path = u"/"_s, const QHash<QString, QString>& headers = {})
    {
        client.get(server.url(path), QJsonDocument(), headers);
    }
    void post(const QByteArray& body, const QHash<QString, QString>& headers = {})
    {
        client.post(server.url(), body, headers);
    }

    Configured configuration;
    ScriptedServer server;
    RestClient client;
};

MATCHER(Succeeded, "succeeded")
{
    *result_listener << "error " << arg.errorCode() << " " << arg.errorText().key().toStdString();
    return arg.errorCode() == 0 && arg.errorText() == tr::Tr();
}

/// Failed with that code and a text of that key.
MATCHER_P2(FailedWith, code, key, "")
{
    *result_listener << "error " << arg.errorCode() << " " << arg.errorText().key().toStdString();
    return arg.errorCode() == code && arg.errorText().key() == QLatin1StringView(key);
}
