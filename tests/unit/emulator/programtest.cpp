// SPDX-License-Identifier: MIT
#include "rawconnection.h"
#include "tlscertificate.h"

#include <QProcess>
#include <QRegularExpression>
#include <QTcpServer>

#include <gtest/gtest.h>

#include <csignal>

namespace
{
constexpr int patience = 20'000; // milliseconds

/// The program itself, started with options.
class EmulatorProgram : public ::testing::Test
{
protected:
    ~EmulatorProgram() override
    {
        if (m_process.state() != QProcess::NotRunning) {
            m_process.kill();
            m_process.waitForFinished(patience);
        }
    }

    void start(const QStringList& options) { m_process.start(QStringLiteral(EMULATOR_PROGRAM), options); }

    /// Waits until the program has printed a line with that beginning, and gives the rest of the line.
    QString line(const QString& beginning)
    {
        const QRegularExpression pattern(QStringLiteral("^%1 (.*)$").arg(beginning),
                                         QRegularExpression::MultilineOption);
        QRegularExpressionMatch match;
        const bool found = waitUntil([&] {
            m_output += QString::fromUtf8(m_process.readAllStandardOutput());
            match = pattern.match(m_output);
            return match.hasMatch() || m_process.state() == QProcess::NotRunning;
        });
        EXPECT_TRUE(found && match.hasMatch()) << qPrintable(m_output) << m_process.readAllStandardError().constData();
        return match.captured(1);
    }

    void signalEnd(int signal)
    {
        ::kill(pid_t(m_process.processId()), signal);
        EXPECT_TRUE(m_process.waitForFinished(patience));
        EXPECT_EQ(m_process.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(m_process.exitCode(), 0);
    }

    /// Expects that the program cannot be started so, and says why.
    void expectRefusal(const QStringList& options, const QString& message)
    {
        start(options);
        ASSERT_TRUE(m_process.waitForFinished(patience));
        EXPECT_EQ(m_process.exitStatus(), QProcess::NormalExit);
        EXPECT_NE(m_process.exitCode(), 0);
        const QString told = QString::fromUtf8(m_process.readAllStandardError());
        EXPECT_TRUE(told.contains(message)) << qPrintable(told);
        EXPECT_EQ(told.count(QLatin1Char('\n')), 1) << qPrintable(told);
        EXPECT_EQ(m_process.readAllStandardOutput(), "");
    }

    QProcess m_process;
    QString m_output;
    QTemporaryDir m_folder;
};
} // namespace

TEST_F(EmulatorProgram, started_printsItsUrlsAndAnswers)
{
    start({"--admin-port", "0", "--seed", DEMO_SEED});
    RawConnection registry{QUrl(line(QStringLiteral("registry")))};
    registry.request("GET", "/MedicationPrescription/$by-card");
    EXPECT_EQ(registry.answer().value_or(RawAnswer()).status, 401);
    RawConnection admin{QUrl(line(QStringLiteral("admin")))};
    admin.request("GET", "/journal");
    EXPECT_EQ(admin.answer().value_or(RawAnswer()).status, 200);
    signalEnd(SIGTERM);
}

TEST_F(EmulatorProgram, withoutAdminPort_hasNone)
{
    start({});
    line(QStringLiteral("registry"));
    signalEnd(SIGINT);
    EXPECT_FALSE(m_output.contains(QStringLiteral("admin")));
}

TEST_F(EmulatorProgram, withCertificate_printsHttpsUrl)
{
    const TlsCertificate certificate;
    start({"--tls-certificate", certificate.certificateFile(), "--tls-key", certificate.keyFile(), "--base-path",
           "/fhir"});
    const QUrl url(line(QStringLiteral("registry")));
    EXPECT_EQ(url.scheme(), QStringLiteral("https"));
    EXPECT_EQ(url.path(), QStringLiteral("/fhir"));
    RawConnection registry(url, certificate.certificateFile());
    registry.request("GET", "/fhir/connect/token");
    EXPECT_EQ(registry.answer().value_or(RawAnswer()).status, 405);
    signalEnd(SIGTERM);
}

TEST_F(EmulatorProgram, dataFileThatHoldsState_keepsItAndSaysSo)
{
    const QString data = m_folder.filePath(QStringLiteral("data.sqlite"));
    start({"--data", data, "--seed", DEMO_SEED});
    line(QStringLiteral("registry"));
    EXPECT_FALSE(m_output.contains(QStringLiteral("data kept")));
    signalEnd(SIGTERM);
    start({"--data", data, "--seed", DEMO_SEED});
    EXPECT_EQ(line(QStringLiteral("data kept,")), QStringLiteral("the seed was not used"));
    signalEnd(SIGTERM);
}

TEST_F(EmulatorProgram, helpAndVersion_endWithSuccess)
{
    for (const QString& option : {QStringLiteral("--help"), QStringLiteral("--version")}) {
        start({option});
        ASSERT_TRUE(m_process.waitForFinished(patience));
        EXPECT_EQ(m_process.exitCode(), 0);
        const QByteArray told = m_process.readAllStandardOutput();
        EXPECT_TRUE(told.contains("prescription-registry-emulator")) << told.constData();
        EXPECT_EQ(told.contains("--tls-certificate"), option == QLatin1String("--help"));
    }
}

TEST_F(EmulatorProgram, whatItCannotUse_isToldInOneLine)
{
    QTcpServer occupied;
    ASSERT_TRUE(occupied.listen(QHostAddress::LocalHost));
    QFile badSeed(m_folder.filePath(QStringLiteral("bad.json")));
    ASSERT_TRUE(badSeed.open(QIODevice::WriteOnly));
    badSeed.write("{\"patients\": [{\"id\": 1}]}");
    badSeed.close();

    expectRefusal({"--port", "x"}, QStringLiteral("--port takes a port from 0 to 65535, not \"x\""));
    expectRefusal({"--admin-port", "70000"}, QStringLiteral("--admin-port takes a port from 0 to 65535"));
    expectRefusal({"--frobnicate"}, QStringLiteral("frobnicate"));
    expectRefusal({"something"}, QStringLiteral("cannot use \"something\""));
    expectRefusal({"--port", QString::number(occupied.serverPort())}, QStringLiteral("cannot listen on port"));
    expectRefusal({"--seed", "/nowhere.json"}, QStringLiteral("cannot read the seed /nowhere.json"));
    expectRefusal({"--seed", badSeed.fileName()},
                  badSeed.fileName() + QStringLiteral(": patients[0].id: a text is expected"));
    expectRefusal({"--data", "/nowhere/x"}, QStringLiteral("cannot open the data file /nowhere/x"));
    expectRefusal({"--tls-key", "/nowhere.key"}, QStringLiteral("TLS needs both a certificate and a key"));
}
