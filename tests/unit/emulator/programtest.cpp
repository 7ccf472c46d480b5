// SPDX-License-Identifier: MIT
#include "rawconnection.h"
#include "tlscertificate.h"

#include <QDir>
#include <QJsonArray>
#include <QProcess>
#include <QRegularExpression>
#include <QTcpServer>

#include <gtest/gtest.h>

#include <csignal>
#include <cstring>
#include <string>

using namespace Qt::StringLiterals;

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

    void start(const QStringList& options) { m_process.start(QString::fromUtf8(EMULATOR_PROGRAM), options); }

    /// Waits until the program has printed a line with that beginning, and returns the rest of the line.
    QString line(const QString& beginning)
    {
        const QRegularExpression pattern(u"^%1 (.*)$"_s.arg(beginning), QRegularExpression::MultilineOption);
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

    /// Expects that the program ends with one line that contains the text.
    void expectUnusable(const QStringList& options, const QString& expected)
    {
        start(options);
        ASSERT_TRUE(m_process.waitForFinished(patience));
        EXPECT_EQ(m_process.exitStatus(), QProcess::NormalExit);
        EXPECT_NE(m_process.exitCode(), 0);
        const QString message = QString::fromUtf8(m_process.readAllStandardError());
        EXPECT_TRUE(message.contains(expected)) << qPrintable(message);
        EXPECT_EQ(message.count(u'\n'), 1) << qPrintable(message);
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
    RawConnection registry{QUrl(line(u"registry"_s))};
    registry.request("GET", "/MedicationPrescription/$by-card");
    EXPECT_EQ(registry.answer().value_or(RawAnswer()).status, 401);
    RawConnection admin{QUrl(line(u"admin"_s))};
    admin.request("GET", "/journal");
    EXPECT_EQ(admin.answer().value_or(RawAnswer()).status, 200);
    signalEnd(SIGTERM);
}

TEST_F(EmulatorProgram, withoutAdminPort_hasNone)
{
    start({});
    line(u"registry"_s);
    signalEnd(SIGINT);
    EXPECT_FALSE(m_output.contains(u"admin"_s));
}

TEST_F(EmulatorProgram, withCertificate_printsHttpsUrl)
{
    const TlsCertificate certificate;
    start({"--tls-certificate", certificate.certificateFile(), "--tls-key", certificate.keyFile(), "--base-path",
           "/fhir"});
    const QUrl url(line(u"registry"_s));
    EXPECT_EQ(url.scheme(), u"https"_s);
    EXPECT_EQ(url.path(), u"/fhir"_s);
    RawConnection registry(url, certificate.certificateFile());
    registry.request("GET", "/fhir/connect/token");
    EXPECT_EQ(registry.answer().value_or(RawAnswer()).status, 405);
    signalEnd(SIGTERM);
}

TEST_F(EmulatorProgram, dataFileWithState_isKeptAndThisIsPrinted)
{
    const QString data = m_folder.filePath(u"data.sqlite"_s);
    start({"--data", data, "--seed", DEMO_SEED});
    line(u"registry"_s);
    EXPECT_FALSE(m_output.contains(u"data kept"_s));
    signalEnd(SIGTERM);
    start({"--data", data, "--seed", DEMO_SEED});
    EXPECT_EQ(line(u"data kept,"_s), u"the seed was not used"_s);
    signalEnd(SIGTERM);
}

class EndedEmulator : public EmulatorProgram, public ::testing::WithParamInterface<int>
{
protected:
    void startWithData()
    {
        m_output.clear();
        start({"--data", m_folder.filePath(u"data.sqlite"_s), "--seed", DEMO_SEED, "--admin-port", "0"});
        m_registry = QUrl(line(u"registry"_s));
        m_admin = QUrl(line(u"admin"_s));
    }
    QJsonObject admin(const QByteArray& method, const QByteArray& path, const QByteArray& body = {}) const
    {
        RawConnection connection(m_admin);
        connection.request(method, path, {{"Content-Type", "application/json"}}, body);
        const RawAnswer answer = connection.answer().value_or(RawAnswer());
        EXPECT_EQ(answer.status, 200) << path.constData();
        return answer.json();
    }
    qsizetype prescriptions() const
    {
        qsizetype count = 0;
        for (const QJsonValue& patient : admin("GET", "/state")["patients"_L1].toArray()) {
            count += patient["prescriptions"_L1].toArray().size();
        }
        return count;
    }

    QUrl m_registry;
    QUrl m_admin;
};

TEST_P(EndedEmulator, answerPending_statusIsZeroAndTheDataFileIsComplete)
{
    startWithData();
    const qsizetype before = prescriptions();
    admin("POST", "/fill", R"({"card": "1100000000000099", "count": 500})");
    admin("POST", "/faults", R"({"endpoint": "token", "fault": "never"})");
    RawConnection waiting(m_registry);
    waiting.request("POST", "/connect/token");
    ASSERT_TRUE(waitUntil([this] { return admin("GET", "/journal")["requests"_L1].toArray().size() == 1; }));
    signalEnd(GetParam());
    EXPECT_EQ(QDir(m_folder.path()).entryList(QDir::Files), QStringList{u"data.sqlite"_s});

    startWithData();
    EXPECT_EQ(prescriptions(), before + 500);
    signalEnd(SIGTERM);
}

INSTANTIATE_TEST_SUITE_P(, EndedEmulator, ::testing::Values(SIGTERM, SIGINT, SIGHUP),
                         [](const auto& instance) { return std::string(::sigabbrev_np(instance.param)); });

TEST_F(EmulatorProgram, helpAndVersion_endWithSuccess)
{
    for (const QString& option : {u"--help"_s, u"--version"_s}) {
        start({option});
        ASSERT_TRUE(m_process.waitForFinished(patience));
        EXPECT_EQ(m_process.exitCode(), 0);
        const QByteArray output = m_process.readAllStandardOutput();
        EXPECT_TRUE(output.contains("prescription-registry-emulator")) << output.constData();
        EXPECT_EQ(output.contains("--tls-certificate"), option == "--help"_L1);
    }
}

TEST_F(EmulatorProgram, unusableOptions_areReportedInOneLine)
{
    QTcpServer occupied;
    ASSERT_TRUE(occupied.listen(QHostAddress::LocalHost));
    QFile badSeed(m_folder.filePath(u"bad.json"_s));
    ASSERT_TRUE(badSeed.open(QIODevice::WriteOnly));
    badSeed.write("{\"patients\": [{\"id\": 1}]}");
    badSeed.close();

    expectUnusable({"--port", "x"}, u"--port takes a port from 0 to 65535, not \"x\""_s);
    expectUnusable({"--admin-port", "70000"}, u"--admin-port takes a port from 0 to 65535"_s);
    expectUnusable({"--read-timeout", "0"}, u"--read-timeout takes seconds from 1 to 86400, not \"0\""_s);
    expectUnusable({"--frobnicate"}, u"frobnicate"_s);
    expectUnusable({"something"}, u"cannot use \"something\""_s);
    expectUnusable({"--port", QString::number(occupied.serverPort())}, u"cannot listen on port"_s);
    expectUnusable({"--seed", "/nowhere.json"}, u"cannot read /nowhere.json: No such file or directory"_s);
    expectUnusable({"--seed", badSeed.fileName()}, badSeed.fileName() + u": patients[0].id: a text is expected"_s);
    expectUnusable({"--data", "/nowhere/x"}, u"cannot open the data file /nowhere/x: there is no folder /nowhere"_s);
    expectUnusable({"--data", m_folder.path()}, u"cannot open the data file "_s + m_folder.path() + u": "_s);
    expectUnusable({"--tls-certificate", "/nowhere.pem", "--tls-key", "/nowhere.key"},
                   u"cannot read /nowhere.pem: No such file or directory"_s);
    expectUnusable({"--tls-key", "/nowhere.key"}, u"TLS needs both a certificate and a key"_s);
}
