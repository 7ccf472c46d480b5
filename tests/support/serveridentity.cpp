// SPDX-License-Identifier: MIT
#include "serveridentity.h"

#include <QDateTime>
#include <QFile>
#include <QProcess>

#include <algorithm>
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

void write(const QString& file, const QByteArray& text)
{
    QFile out(file);
    if (!out.open(QIODevice::WriteOnly) || out.write(text) != text.size()) {
        throw std::runtime_error(file.toStdString() + ": cannot be written");
    }
}

/// Of "openssl ca"; %1 is its folder.
const QString settingsOfAuthority = uR"([ca]
default_ca = authority
[authority]
database = %1/issued
new_certs_dir = %1
rand_serial = yes
default_md = sha256
copy_extensions = copy
policy = any
[any]
commonName = supplied
)"_s;

/// So many days from now, as "openssl ca" wants it.
QString dateIn(int days)
{
    return QDateTime::currentDateTimeUtc().addDays(days).toString(u"yyyyMMddHHmmss'Z'"_s);
}

} // namespace

TestAuthority::TestAuthority(const QString& name)
{
    openssl(QStringList{u"req"_s, u"-x509"_s} + newKey(m_folder.filePath(u"key.pem"_s)) +
            QStringList{u"-subj"_s, u"/CN="_s + name, u"-addext"_s, u"basicConstraints=critical,CA:TRUE"_s, u"-days"_s,
                        u"2"_s, u"-out"_s, certificateFile()});
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
    const QString settings = m_folder.filePath(u"settings"_s);
    write(m_folder.filePath(u"issued"_s), {});
    write(settings, settingsOfAuthority.arg(m_folder.path()).toUtf8());
    // Unlike "openssl x509", it takes the dates, also those of a certificate that has expired.
    openssl({u"ca"_s, u"-batch"_s, u"-notext"_s, u"-config"_s, settings, u"-cert"_s, authority.certificateFile(),
             u"-keyfile"_s, authority.m_folder.filePath(u"key.pem"_s), u"-startdate"_s,
             dateIn(std::min(0, wish.daysValid) - 1), u"-enddate"_s, dateIn(wish.daysValid), u"-in"_s, request,
             u"-out"_s, certificateFile()});
}

QString ServerIdentity::certificateFile() const
{
    return m_folder.filePath(u"certificate.pem"_s);
}

QString ServerIdentity::keyFile() const
{
    return m_folder.filePath(u"key.pem"_s);
}
