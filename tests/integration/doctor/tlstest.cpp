// SPDX-License-Identifier: MIT
// The doctor and TLS.
#include "doctortest.h"

#include "scriptedserver.h"

using namespace doctor;

namespace
{

using DoctorTlsTest = DoctorTest;

constexpr std::chrono::milliseconds shortWait{300};

QUrl secure(QUrl url)
{
    url.setScheme(u"https"_s);
    return url;
}

QUrl plain(QUrl url)
{
    url.setScheme(u"http"_s);
    return url;
}

} // namespace

TEST_F(DoctorTlsTest, certificateHasEnded_theOperatorIsAskedForANewOne)
{
    startSecureRegistry({u"IP:127.0.0.1"_s, -3});
    examine();
    expectWrong(u"tls"_s, FindingCode::CertificateExpired, Adviser::Operator, 5);
    const QString end = QDateTime::currentDateTimeUtc().addDays(-3).date().toString(Qt::ISODate);
    EXPECT_TRUE(shown().contains(u"the certificate ended on "_s + end)) << shown().toStdString();
    expectNotReached(u"token"_s, u"tls"_s);
}

TEST_F(DoctorTlsTest, certificateHasNotBegun_theTillsDateIsAskedFor)
{
    startSecureRegistry({u"IP:127.0.0.1"_s, 20, 5});
    examine();
    expectWrong(u"tls"_s, FindingCode::CertificateNotYetValid, Adviser::TillAdministrator, 5);
    const QString begin = QDateTime::currentDateTimeUtc().addDays(5).date().toString(Qt::ISODate);
    EXPECT_TRUE(shown().contains(u"the certificate begins on "_s + begin)) << shown().toStdString();
}

TEST_F(DoctorTlsTest, certificateIsForAnotherHost_itsNamesAreShown)
{
    startSecureRegistry({u"DNS:other.test,DNS:another.test"_s});
    examine();
    expectWrong(u"tls"_s, FindingCode::CertificateOtherHost, Adviser::Integrator, 5);
    EXPECT_TRUE(shown().contains(u"other.test"_s) && shown().contains(u"another.test"_s)) << shown().toStdString();
}

TEST_F(DoctorTlsTest, authorityIsUnknownToTheSystem_theOperatorIsAskedForItsCertificate)
{
    startSecureRegistry();
    ini.remove(u"RestClient"_s);
    examine();
    expectWrong(u"tls"_s, FindingCode::CertificateUnknownAuthority, Adviser::Operator, 5);
    EXPECT_TRUE(shown().contains(u"Test authority"_s)) << shown().toStdString();
}

TEST_F(DoctorTlsTest, authorityIsNotTheConfiguredOne_theOperatorIsAskedWhetherItChanged)
{
    startSecureRegistry();
    const TestAuthority other(u"Another authority"_s);
    ini[u"RestClient"_s][u"caFile"_s] = other.certificateFile();
    examine();
    expectWrong(u"tls"_s, FindingCode::CertificateOtherAuthority, Adviser::Operator, 5);
    EXPECT_TRUE(shown().contains(u"but by Test authority"_s)) << shown().toStdString();
}

TEST_F(DoctorTlsTest, fileOfAuthoritiesIsMissing_theIntegratorIsAsked)
{
    startSecureRegistry();
    ini[u"RestClient"_s][u"caFile"_s] = folder.filePath(u"nowhere.pem"_s);
    examine();
    expectWrong(u"configuration"_s, FindingCode::SettingWrong, Adviser::Integrator, 3);
    EXPECT_TRUE(shown().contains(u"nowhere.pem"_s)) << shown().toStdString();
    expectFinding(u"tls"_s, FindingCode::AuthoritiesUnreadable);
    expectNotReached(u"token"_s, u"tls"_s);
}

TEST_F(DoctorTlsTest, fileOfAuthoritiesHoldsNone_theIntegratorIsAsked)
{
    startSecureRegistry();
    ini[u"RestClient"_s][u"caFile"_s] = write(u"empty.pem"_s, "nothing\n", QFile::ReadOwner);
    examine();
    expectWrong(u"tls"_s, FindingCode::AuthoritiesUnreadable, Adviser::Integrator, 3);
}

TEST_F(DoctorTlsTest, certificateEndsWithinAMonth_isAWarningAndNoFailure)
{
    startSecureRegistry({u"IP:127.0.0.1"_s, 12});
    examine();
    expectFinding(u"tls"_s, FindingCode::TlsEndsSoon);
    EXPECT_TRUE(shown().contains(u"WARNING"_s));
    EXPECT_TRUE(shown().contains(u"ends in 12 days"_s) || shown().contains(u"ends in 11 days"_s))
        << shown().toStdString();
    EXPECT_EQ(exitStatus(results), 0) << shown().toStdString();
    expectFinding(u"token"_s, FindingCode::TokenGood);
}

TEST_F(DoctorTlsTest, addressSaysHttpsAndThePortIsPlain_theIntegratorIsAsked)
{
    startRegistry();
    useServer(secure(registry->url()));
    examine();
    expectWrong(u"tls"_s, FindingCode::TlsNotSpoken, Adviser::Integrator, 5);
}

TEST_F(DoctorTlsTest, addressSaysHttpAndThePortSpeaksTls_theIntegratorIsAsked)
{
    startSecureRegistry();
    useServer(plain(registry->url()));
    limits.step = std::chrono::seconds(2);
    examine();
    expectWrong(u"answer"_s, FindingCode::AnswerExpectsTls, Adviser::Integrator, 5);
}

TEST_F(DoctorTlsTest, serverClosesAtOnce_theOperatorIsAsked)
{
    ScriptedServer server;
    server.greetWith(Reaction::closeBeforeAnswer());
    useServer(secure(server.url()));
    examine();
    expectWrong(u"tls"_s, FindingCode::TlsClosed, Adviser::Operator, 5);
}

TEST_F(DoctorTlsTest, serverIsSilent_theOperatorIsAsked)
{
    ScriptedServer server; // waits for the end of a request
    useServer(secure(server.url()));
    limits.step = shortWait;
    examine();
    expectWrong(u"tls"_s, FindingCode::TlsSilent, Adviser::Operator, 5);
}

TEST_F(DoctorTlsTest, plainHttpElsewhere_isAWarning)
{
    startRegistry();
    QUrl proxied(u"http://registry.test"_s);
    useServer(proxied);
    ini[u"RestClient"_s][u"proxy"_s] = registry->url().toString();
    examine();
    expectFinding(u"tls"_s, FindingCode::TlsNotUsed);
    EXPECT_EQ(resultOf(u"tls"_s).finding.state, State::Warning);
}

TEST_F(DoctorTlsTest, certificateIsRefused_theServerSeesNoRequest)
{
    authority.emplace();
    identity.emplace(*authority);
    ScriptedServer server(&*identity);
    useServer(server.url());
    examine(testCard);
    expectWrong(u"tls"_s, FindingCode::CertificateUnknownAuthority, Adviser::Operator, 5);
    EXPECT_TRUE(server.requests().isEmpty());
}
