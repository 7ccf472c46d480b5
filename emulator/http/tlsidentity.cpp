// SPDX-License-Identifier: MIT
#include "tlsidentity.h"

#include "emulatorerror.h"
#include "filecontent.h"

#include <QSslCertificate>
#include <QSslKey>

using namespace Qt::StringLiterals;

namespace emulator
{
namespace
{
QSslKey keyIn(const QByteArray& pem)
{
    for (const QSsl::KeyAlgorithm algorithm : {QSsl::Rsa, QSsl::Ec}) {
        QSslKey key(pem, algorithm);
        if (!key.isNull()) {
            return key;
        }
    }
    return {};
}
} // namespace

QSslConfiguration tlsIdentity(const QString& certificateFile, const QString& keyFile)
{
    if (certificateFile.isEmpty() || keyFile.isEmpty()) {
        throw EmulatorError(u"TLS needs both a certificate and a key"_s);
    }
    const QList<QSslCertificate> chain = QSslCertificate::fromData(contentOfFile(certificateFile));
    if (chain.isEmpty()) {
        throw EmulatorError(u"%1 holds no PEM certificate"_s.arg(certificateFile));
    }
    const QSslKey key = keyIn(contentOfFile(keyFile));
    if (key.isNull()) {
        throw EmulatorError(u"%1 holds no RSA or EC key in PEM without a passphrase"_s.arg(keyFile));
    }

    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setLocalCertificateChain(chain);
    configuration.setPrivateKey(key);
    configuration.setProtocol(QSsl::TlsV1_2OrLater);
    configuration.setPeerVerifyMode(QSslSocket::VerifyNone); // the client brings no certificate
    return configuration;
}
} // namespace emulator
