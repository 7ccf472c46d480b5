// SPDX-License-Identifier: MIT
#include "serveridentity.h"

#include <QProcess>

#include <stdexcept>

namespace
{

void openssl(const QStringList& arguments)
{
    constexpr int longestMs = 30'000;
    QProcess program;
    program.start(QStringLiteral("openssl"), arguments);
    if (!program.waitForFinished(longestMs) || program.exitCode() != 0)
        throw std::runtime_error("openssl " + arguments.join(u' ').toStdString() + ": " +
                                 program.readAllStandardError().toStdString());
}

QStringList newKey(const QString& file)
{
    return {QStringLiteral("-newkey"),
            QStringLiteral("ec"),
            QStringLiteral("-pkeyopt"),
            QStringLiteral("ec_paramgen_curve:P-256"),
            QStringLiteral("-nodes"),
            QStringLiteral("-keyout"),
            file};
}

} // namespace

TestAuthority::TestAuthority(const QString& name)
{
    openssl(QStringList{QStringLiteral("req"), QStringLiteral("-x509")} +
            newKey(m_folder.filePath(QStringLiteral("key.pem"))) +
            QStringList{QStringLiteral("-subj"), QStringLiteral("/CN=") + name, QStringLiteral("-days"),
                        QStringLiteral("2"), QStringLiteral("-out"), certificateFile()});
}

QString TestAuthority::certificateFile() const
{
    return m_folder.filePath(QStringLiteral("certificate.pem"));
}

ServerIdentity::ServerIdentity(const TestAuthority& authority)
    : ServerIdentity(authority, Wish())
{
}

ServerIdentity::ServerIdentity(const TestAuthority& authority, const Wish& wish)
{
    const QString request = m_folder.filePath(QStringLiteral("request.pem"));
    openssl(QStringList{QStringLiteral("req")} + newKey(keyFile()) +
            QStringList{QStringLiteral("-subj"), QStringLiteral("/CN=Test server"), QStringLiteral("-addext"),
                        QStringLiteral("subjectAltName=") + wish.names, QStringLiteral("-out"), request});
    openssl({QStringLiteral("x509"), QStringLiteral("-req"), QStringLiteral("-in"), request, QStringLiteral("-CA"),
             authority.certificateFile(), QStringLiteral("-CAkey"),
             authority.m_folder.filePath(QStringLiteral("key.pem")), QStringLiteral("-CAcreateserial"),
             QStringLiteral("-copy_extensions"), QStringLiteral("copy"), QStringLiteral("-days"),
             QString::number(wish.daysValid), QStringLiteral("-out"), certificateFile()});
}

QString ServerIdentity::certificateFile() const
{
    return m_folder.filePath(QStringLiteral("certificate.pem"));
}

QString ServerIdentity::keyFile() const
{
    return m_folder.filePath(QStringLiteral("key.pem"));
}
