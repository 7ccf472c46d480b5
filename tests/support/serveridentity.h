// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

/// A certification authority made for the test by the openssl program. Its files live as long as it.
class TestAuthority
{
public:
    explicit TestAuthority(const QString& name = u"Test authority"_s);

    /// PEM file of the authority's certificate.
    QString certificateFile() const;

private:
    friend class ServerIdentity;
    QTemporaryDir m_folder;
};

/// A server's certificate and key, made for the test by the openssl program. The files live as long as it.
class ServerIdentity
{
public:
    struct Wish {
        /// The subjectAltName, such as "IP:127.0.0.1".
        QString names = u"IP:127.0.0.1,DNS:localhost"_s;
        /// From now; negative: it has expired.
        int daysValid = 2;
        /// Greater than 0: it is not valid before so many days from now.
        int daysUntilValid = 0;
    };

    explicit ServerIdentity(const TestAuthority& authority);
    ServerIdentity(const TestAuthority& authority, const Wish& wish);

    QString certificateFile() const;
    QString keyFile() const;

private:
    QTemporaryDir m_folder;
};
