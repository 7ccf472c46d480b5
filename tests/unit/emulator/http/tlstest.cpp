// SPDX-License-Identifier: MIT
#include "tlscertificate.h"

#include "emulatorerror.h"
#include "emulatortest.h"

#include <QSslSocket>

using namespace Qt::StringLiterals;

namespace
{
class TlsTest : public EmulatorTest
{
protected:
    TlsTest()
    {
        emulator::EmulatorSettings settings;
        settings.clock = [this] { return m_now; };
        settings.tlsCertificate = m_certificate.certificateFile();
        settings.tlsKey = m_certificate.keyFile();
        m_emulator = std::make_unique<emulator::RegistryEmulator>(settings);
        m_emulator->seed(seedJson());
        m_emulator->start();
    }

    void expectUnusable(const QString& certificate, const QString& key, const QString& message)
    {
        emulator::EmulatorSettings settings;
        settings.tlsCertificate = certificate;
        settings.tlsKey = key;
        emulator::RegistryEmulator registry(settings);
        try {
            registry.start();
            ADD_FAILURE() << "started with " << qPrintable(certificate) << " and " << qPrintable(key);
        } catch (const emulator::EmulatorError& error) {
            EXPECT_EQ(error.message(), message);
        }
    }

    TlsCertificate m_certificate;
};
} // namespace

TEST_F(TlsTest, registryWithCertificate_speaksHttpsOverTls12OrNewer)
{
    EXPECT_EQ(m_emulator->url().scheme(), u"https"_s);
    RawConnection connection(m_emulator->url(), m_certificate.certificateFile());
    ASSERT_TRUE(connection.isOpen());
    EXPECT_TRUE(connection.protocol() == QSsl::TlsV1_2 || connection.protocol() == QSsl::TlsV1_3);
    for (int request = 0; request < 2; ++request) {
        connection.request("POST", "/connect/token", {{"Content-Type", "application/x-www-form-urlencoded"}},
                           goodForm());
        const auto answer = connection.answer();
        ASSERT_TRUE(answer.has_value());
        EXPECT_EQ(answer->status, 200);
        EXPECT_TRUE(m_emulator->journal().entries().last().answeredWhole);
    }
    EXPECT_EQ(m_emulator->connectionCount(), 1);
}

TEST_F(TlsTest, faults_hitRequestsOverTlsToo)
{
    m_emulator->faults().cutAnswerOff(emulator::Endpoint::Any);
    m_emulator->faults().closeBeforeAnswer(emulator::Endpoint::Any);
    m_emulator->faults().resetBeforeAnswer(emulator::Endpoint::Any);
    for (const bool hasBytes : {true, false, false}) {
        RawConnection connection(m_emulator->url(), m_certificate.certificateFile());
        connection.request("GET", "/x");
        EXPECT_FALSE(connection.answer().has_value());
        EXPECT_TRUE(connection.waitForEnd());
        EXPECT_EQ(!connection.unread().isEmpty(), hasBytes);
    }
    EXPECT_EQ(m_emulator->journal().entries().size(), 3);
}

TEST_F(TlsTest, plainRequestToTlsPort_isNotInTheJournal)
{
    QUrl url = m_emulator->url();
    url.setScheme(u"http"_s);
    RawConnection connection(url);
    connection.request("GET", "/x");
    EXPECT_FALSE(connection.answer().has_value());
    EXPECT_TRUE(m_emulator->journal().entries().isEmpty());
}

TEST_F(TlsTest, unusableFiles_areReported)
{
    const QString certificate = m_certificate.certificateFile();
    const QString key = m_certificate.keyFile();
    expectUnusable(certificate, QString(), u"TLS needs both a certificate and a key"_s);
    expectUnusable(QString(), key, u"TLS needs both a certificate and a key"_s);
    expectUnusable(u"/nowhere.pem"_s, key, u"cannot read /nowhere.pem: No such file or directory"_s);
    expectUnusable(key, key, key + u" holds no PEM certificate"_s);
    expectUnusable(certificate, certificate, certificate + u" holds no RSA or EC key in PEM without a passphrase"_s);
}
