// SPDX-License-Identifier: MIT
#include "serveridentity.h"

#include <QProcess>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace
{

void openssl(const QStringList& arguments)
{
    constexpr int longestMs = 30'000;
    QProcess program;
    program.start(u"openssl"_s, arguments);
    if (!program.waitForFinished(longestMs) || program.exitCode() != 0) {
        throw std::runtime_error("openssl " + arguments.join(u' ').toStdString() + ": " +
                                 program.readAllStandardError().toStdString());
    }
}

QStringList newKey(const QString& file)
{
    return {u"-newkey"_s, u"ec"_s, u"-pkeyopt"_s, u"ec_paramgen_curve:P-256"_s, u"-nodes"_s, u"-keyout"_s, file};
}

} // namespace

TestAuthority::TestAuthority(const QString& name)
{
    openssl(QStringList{u"req"_s, u"-x509"_s} + newKey(m_folder.filePath(u"key.pem"_s)) +
            QStringList{u"-subj"_s, u"/CN="_s + name, u"-days"_s, u"2"_s, u"-out"_s, certificateFile()});
}

QString TestAuthority::certificateFile() const
{
    return m_folder.filePath(u"certificate.pem"_s);
}

ServerIdentity::ServerIdentity(const TestAuthority& authority)
    : ServerIdentity(authority, Wish())
{
}

ServerIdentity::ServerIdentity(const TestAuthority& authority, const Wish& wish)
{
    const QString request = m_folder.filePath(u"request.pem"_s);
    openssl(QStringList{u"req"_s} + newKey(keyFile()) +
            QStringList{u"-subj"_s, u"/CN=Test server"_s, u"-addext"_s, u"subjectAltName="_s + wish.names, u"-out"_s,
                        request});
    openssl({u"x509"_s, u"-req"_s, u"-in"_s, request, u"-CA"_s, authority.certificateFile(), u"-CAkey"_s,
             authority.m_folder.filePath(u"key.pem"_s), u"-CAcreateserial"_s, u"-copy_extensions"_s, u"copy"_s,
             u"-days"_s, QString::number(wish.daysValid), u"-out"_s, certificateFile()});
}

QString ServerIdentity::certificateFile() const
{
    return m_folder.filePath(u"certificate.pem"_s);
}

QString ServerIdentity::keyFile() const
{
    return m_folder.filePath(u"key.pem"_s);
}
