// SPDX-License-Identifier: MIT
#include "clientandserver.h"

#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace
{

constexpr int codeCertificatesNotReadable = 3;
constexpr int codeNotReachable = 5;
constexpr int codeNotSecured = 6;
constexpr int codeCertificateNotVerified = 7;

/// OpenSSL reads it when it is first used; then old versions of TLS are refused by the client or by nobody.
const bool isTlsLax = qputenv("OPENSSL_CONF", LAX_TLS);

void write(const QString& name, const QByteArray& bytes)
{
    QFile file(name);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(bytes) != bytes.size()) {
        throw std::runtime_error("Cannot write " + name.toStdString());
    }
}

QByteArray read(const QString& name)
{
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly)) {
        throw std::runtime_error("Cannot read " + name.toStdString());
    }
    return file.readAll();
}

/// The openssl program as a server that speaks one version of TLS.
class SingleVersionServer
{
public:
    explicit SingleVersionServer(const QString& version)
    {
        constexpr int longestMs = 20'000;
        m_program.setProcessChannelMode(QProcess::MergedChannels);
        m_program.start(u"openssl"_s,
                        {u"s_server"_s, version, u"-cipher"_s, u"ALL:@SECLEVEL=0"_s, u"-accept"_s, u"127.0.0.1:0"_s,
                         u"-cert"_s, identity().certificateFile(), u"-key"_s, identity().keyFile(), u"-www"_s});
        static const QRegularExpression accepting(u"ACCEPT 127\\.0\\.0\\.1:(\\d+)"_s);
        while (!m_output.contains(accepting) && m_program.waitForReadyRead(longestMs)) {
            m_output += QString::fromLatin1(m_program.readAll());
        }
        m_port = accepting.match(m_output).captured(1).toInt();
    }
    ~SingleVersionServer()
    {
        m_program.kill();
        m_program.waitForFinished();
    }
    Q_DISABLE_COPY_MOVE(SingleVersionServer)

    /// 0 when it did not start.
    int port() const { return m_port; }
    QUrl url() const { return QUrl(u"https://127.0.0.1:%1/"_s.arg(m_port)); }

private:
    QProcess m_program;
    QString m_output;
    int m_port = 0;
};

/// True when the openssl program itself can speak that version with the server.
bool speaks(const SingleVersionServer& server, const QString& version)
{
    QProcess program;
    program.start(u"openssl"_s, {u"s_client"_s, version, u"-cipher"_s, u"ALL:@SECLEVEL=0"_s, u"-connect"_s,
                                 u"127.0.0.1:%1"_s.arg(server.port())});
    program.closeWriteChannel();
    program.waitForFinished();
    return program.exitStatus() == QProcess::NormalExit && program.exitCode() == 0;
}

} // namespace

TEST(RestClientTls, trustedServer_isTalkedTo)
{
    ClientAndServer both(Scheme::Https);
    both.server.react({Reaction::json(200, "[1]")});
    both.get();
    EXPECT_THAT(both.client, Succeeded());
    EXPECT_EQ(both.client.answer().toJson(QJsonDocument::Compact), "[1]");
}

struct UntrustedCase {
    const char* situation;
    ServerIdentity::Wish wish;
};

class UntrustedServer : public testing::TestWithParam<UntrustedCase>
{
};

TEST_P(UntrustedServer, getsNothingOfTheRequest)
{
    const ServerIdentity untrusted(authority(), GetParam().wish);
    const Configured configuration(trustingConfiguration());
    const ScriptedServer server(&untrusted);
    RestClient client;
    client.get(server.url(), QJsonDocument(), {});
    EXPECT_THAT(client, FailedWith(codeCertificateNotVerified, "restClientCertificateNotVerified"));
    client.post(server.url(), "{}", {});
    EXPECT_THAT(client, FailedWith(codeCertificateNotVerified, "restClientCertificateNotVerified"));
    EXPECT_FALSE(client.errorText().ui().contains(u"мог быть выполнен"_s));
    EXPECT_EQ(server.requests().size(), 0);
}

INSTANTIATE_TEST_SUITE_P(Certificate, UntrustedServer,
                         testing::Values(UntrustedCase{"OfOtherAddress", {u"IP:127.0.0.2"_s, 2}},
                                         UntrustedCase{"OfOtherName", {u"DNS:other.example"_s, 2}},
                                         UntrustedCase{"Expired", {u"IP:127.0.0.1"_s, -1}}),
                         [](const testing::TestParamInfo<UntrustedCase>& instance) {
                             return std::string(instance.param.situation);
                         });

TEST(RestClientTls, authorityUnknown_isRefused)
{
    const TestAuthority other(u"Another authority"_s);
    const Configured configuration({{u"RestClient:caFile"_s, other.certificateFile()}});
    const ScriptedServer server(&identity());
    RestClient client;
    client.get(server.url(), QJsonDocument(), {});
    EXPECT_THAT(client, FailedWith(codeCertificateNotVerified, "restClientCertificateNotVerified"));
    EXPECT_EQ(server.requests().size(), 0);
}

TEST(RestClientTls, noAuthorityConfigured_privateOneIsRefused)
{
    const Configured configuration;
    const ScriptedServer server(&identity());
    RestClient client;
    client.get(server.url(), QJsonDocument(), {});
    EXPECT_THAT(client, FailedWith(codeCertificateNotVerified, "restClientCertificateNotVerified"));
    EXPECT_EQ(server.requests().size(), 0);
}

TEST(RestClientTls, authorityChanges_keptConnectionIsNotUsedOn)
{
    const TestAuthority other(u"Another authority"_s);
    ClientAndServer both(Scheme::Https);
    both.get();
    ASSERT_THAT(both.client, Succeeded());

    both.configuration.set(u"RestClient:caFile"_s, other.certificateFile());
    both.get();
    EXPECT_THAT(both.client, FailedWith(codeCertificateNotVerified, "restClientCertificateNotVerified"));
    both.configuration.set(u"RestClient:caFile"_s, QString());
    both.get();
    EXPECT_THAT(both.client, FailedWith(codeCertificateNotVerified, "restClientCertificateNotVerified"));
    EXPECT_EQ(both.server.requests().size(), 1);

    both.configuration.set(u"RestClient:caFile"_s, authority().certificateFile());
    both.get();
    EXPECT_THAT(both.client, Succeeded());
}

TEST(RestClientTls, authorityFileIsReplaced_keptConnectionIsNotUsedOn)
{
    const TestAuthority other(u"Another authority"_s);
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"trusted.pem"_s);
    write(file, read(authority().certificateFile()));
    ClientAndServer both(Scheme::Https);
    both.configuration.set(u"RestClient:caFile"_s, file);
    both.get();
    ASSERT_THAT(both.client, Succeeded());
    write(file, read(other.certificateFile()));
    both.get();
    EXPECT_THAT(both.client, FailedWith(codeCertificateNotVerified, "restClientCertificateNotVerified"));
    EXPECT_EQ(both.server.requests().size(), 1);
}

TEST(RestClientTls, fileOfSeveralAuthorities_eachIsTrusted)
{
    const TestAuthority other(u"Another authority"_s);
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"trusted.pem"_s);
    write(file, read(other.certificateFile()) + read(authority().certificateFile()));
    ClientAndServer both(Scheme::Https);
    both.configuration.set(u"RestClient:caFile"_s, file);
    both.get();
    EXPECT_THAT(both.client, Succeeded());
}

TEST(RestClientTls, authorityFileUnusable_isReportedBeforeAnythingIsSent)
{
    const QTemporaryDir folder;
    const QString garbage = folder.filePath(u"garbage.pem"_s);
    write(garbage, "not a certificate");
    const QString empty = folder.filePath(u"empty.pem"_s);
    write(empty, {});
    for (const QString& file : {folder.filePath(u"missing.pem"_s), folder.path(), garbage, empty}) {
        ClientAndServer both(Scheme::Https);
        both.configuration.set(u"RestClient:caFile"_s, file);
        both.post("{}");
        EXPECT_THAT(both.client, FailedWith(codeCertificatesNotReadable, "restClientCertificatesNotReadable"))
            << file.toStdString();
        EXPECT_EQ(both.server.requests().size(), 0);
    }
}

TEST(RestClientTls, serverSpeaksTls11Only_isRefused)
{
    ASSERT_TRUE(isTlsLax);
    const SingleVersionServer server(u"-tls1_1"_s);
    ASSERT_GT(server.port(), 0);
    ASSERT_TRUE(speaks(server, u"-tls1_1"_s));
    const Configured configuration(trustingConfiguration());
    RestClient client;
    client.post(server.url(), "{}", {});
    EXPECT_THAT(client, FailedWith(codeNotSecured, "restClientNotSecured"));
}

TEST(RestClientTls, serverSpeaksTls12Only_isTalkedTo)
{
    const SingleVersionServer server(u"-tls1_2"_s);
    ASSERT_GT(server.port(), 0);
    const Configured configuration(trustingConfiguration());
    RestClient client;
    client.get(server.url(), QJsonDocument(), {});
    EXPECT_THAT(client, Succeeded());
}

TEST(RestClientTls, serverDoesNotSpeakTls_postCannotHaveBeenCarriedOut)
{
    for (const Reaction& greeting :
         {Reaction::raw("220 mail.example ready\r\n", Reaction::End::KeepOpen), Reaction::closeBeforeAnswer()}) {
        ClientAndServer both(Scheme::Https);
        both.server.greetWith(greeting);
        both.post("{}");
        EXPECT_THAT(both.client, FailedWith(codeNotSecured, "restClientNotSecured"));
        EXPECT_FALSE(both.client.errorText().ui().contains(u"мог быть выполнен"_s));
    }
}

/// The reset may come before the client knows that it is connected.
TEST(RestClientTls, serverResetsBeforeTls_postCannotHaveBeenCarriedOut)
{
    ClientAndServer both(Scheme::Https);
    both.server.greetWith(Reaction::resetBeforeAnswer());
    both.post("{}");
    EXPECT_THAT(both.client, testing::AnyOf(FailedWith(codeNotSecured, "restClientNotSecured"),
                                            FailedWith(codeNotReachable, "restClientNotReachable")));
    EXPECT_FALSE(both.client.errorText().ui().contains(u"мог быть выполнен"_s));
}
