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

void write(const QString& name, const QByteArray& content)
{
    QFile file(name);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
        throw std::runtime_error("Cannot write " + name.toStdString());
    }
}

/// In the form that the openssl program takes.
QString timeOf(const QDateTime& moment)
{
    return moment.toUTC().toString(u"yyyyMMddhhmmss'Z'"_s);
}

/// What an authority of the openssl program needs to sign with dates of one's own.
const QByteArray signing = R"([ca]
default_ca = here
[here]
dir = .
database = $dir/signed.txt
new_certs_dir = $dir
rand_serial = yes
default_md = sha256
policy = any
copy_extensions = copy
[any]
commonName = supplied
)";

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

    const QDateTime now = QDateTime::currentDateTime();
    const QDateTime end = now.addDays(wish.daysValid);
    const QDateTime begin = wish.daysUntilValid > 0 ? now.addDays(wish.daysUntilValid) : std::min(now, end).addDays(-1);
    const QString settings = m_folder.filePath(u"signing.cnf"_s);
    write(settings, QByteArray(signing).replace("dir = .", "dir = " + QFile::encodeName(m_folder.path())));
    write(m_folder.filePath(u"signed.txt"_s), {});
    openssl({u"ca"_s, u"-batch"_s, u"-notext"_s, u"-config"_s, settings, u"-in"_s, request, u"-cert"_s,
             authority.certificateFile(), u"-keyfile"_s, authority.m_folder.filePath(u"key.pem"_s), u"-startdate"_s,
             timeOf(begin), u"-enddate"_s, timeOf(end), u"-out"_s, certificateFile()});
}

QString ServerIdentity::certificateFile() const
{
    return m_folder.filePath(u"certificate.pem"_s);
}

QString ServerIdentity::keyFile() const
{
    return m_folder.filePath(u"key.pem"_s);
}
