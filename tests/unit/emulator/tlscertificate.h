// SPDX-License-Identifier: MIT
#pragma once

#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

/// A self-signed certificate for the loopback address, made for one test.
class TlsCertificate
{
public:
    TlsCertificate()
    {
        const int status = QProcess::execute(
            "openssl", {"req", "-x509", "-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:prime256v1", "-nodes", "-days",
                        "2", "-subj", "/CN=localhost", "-addext", "subjectAltName=IP:127.0.0.1,DNS:localhost",
                        "-keyout", keyFile(), "-out", certificateFile()});
        EXPECT_EQ(status, 0) << "openssl made no certificate";
    }

    QString certificateFile() const { return m_folder.filePath("certificate.pem"); }
    QString keyFile() const { return m_folder.filePath("key.pem"); }

private:
    QTemporaryDir m_folder;
};
