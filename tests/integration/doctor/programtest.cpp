// SPDX-License-Identifier: MIT
// prescription-doctor as a program.
#include "doctortest.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QProcess>

using namespace doctor;

namespace
{

constexpr int longestMs = 30'000;

class DoctorProgram : public DoctorTest
{
protected:
    /// Runs the program to its end.
    /// @param language what the environment says
    void run(const QStringList& arguments, const QString& language = u"C.UTF-8"_s)
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"LC_ALL"_s, language);
        environment.remove(u"LANGUAGE"_s);
        QProcess program;
        program.setProcessEnvironment(environment);
        program.start(QString::fromUtf8(DOCTOR), arguments);
        ASSERT_TRUE(program.waitForFinished(longestMs));
        status = program.exitStatus() == QProcess::NormalExit ? program.exitCode() : -1;
        output = QString::fromUtf8(program.readAllStandardOutput());
        errors = QString::fromUtf8(program.readAllStandardError());
        for (const QString& secret : std::as_const(secrets)) {
            EXPECT_FALSE((output + errors).contains(secret)) << secret.toStdString();
        }
    }

    int status = -1;
    QString output;
    QString errors;
};

} // namespace

TEST_F(DoctorProgram, allIsWell_linesAndStatus0)
{
    startRegistry();
    run({u"--config"_s, writeConfiguration(), u"--card"_s, testCard});
    EXPECT_EQ(status, 0) << output.toStdString();
    EXPECT_EQ(output.count(u'\n'), 11) << output.toStdString();
    EXPECT_TRUE(output.startsWith(u"prescription-doctor 0."_s)) << output.toStdString();
    EXPECT_TRUE(output.endsWith(u"Exit status 0: all well.\n"_s)) << output.toStdString();
    EXPECT_EQ(errors, QString());
}

TEST_F(DoctorProgram, secretIsWrong_status7AndNothingOnTheErrorOutput)
{
    startRegistry();
    configure(u"clientSecret"_s, u"another secret"_s);
    secrets.append(u"another secret"_s);
    run({u"--config"_s, writeConfiguration()});
    EXPECT_EQ(status, 7) << output.toStdString();
    EXPECT_TRUE(output.contains(u"Write to the operator of the registry: "_s)) << output.toStdString();
    EXPECT_EQ(errors, QString());
}

TEST_F(DoctorProgram, json_isOneObjectAndNothingElse)
{
    startRegistry();
    configure(u"organizationIdentifier"_s, u"18"_s);
    run({u"--json"_s, u"--config"_s, writeConfiguration()});
    const QJsonObject report = QJsonDocument::fromJson(output.toUtf8()).object();
    EXPECT_EQ(report["status"_L1], 7) << output.toStdString();
    EXPECT_EQ(report["checks"_L1].toArray().size(), 9) << output.toStdString();
    EXPECT_EQ(status, 7);
}

TEST_F(DoctorProgram, russianEnvironment_textsAreInRussian)
{
    startRegistry();
    configure(u"clientSecret"_s, u"another secret"_s);
    run({u"--config"_s, writeConfiguration()}, u"ru_RU.UTF-8"_s);
    EXPECT_EQ(status, 7);
    EXPECT_TRUE(output.contains(u"Напишите оператору реестра: "_s)) << output.toStdString();
    EXPECT_FALSE(output.contains(u"registry"_s)) << output.toStdString();
}

TEST_F(DoctorProgram, noAnswer_theTillsWordsAreInTheLanguageOfTheRest)
{
    startRegistry();
    for (const QString& language : {u"C.UTF-8"_s, u"ru_RU.UTF-8"_s}) {
        registry->ask([](auto& emulated) {
            emulated.faults().clear();
            emulated.faults().closeBeforeAnswer(emulator::Endpoint::Token, emulator::Occasion::nth(2));
        });
        run({u"--config"_s, writeConfiguration()}, language);
        EXPECT_EQ(status, 4) << output.toStdString();
        EXPECT_EQ(output.contains(u"Связь с сервером"_s), language.startsWith(u"ru"_s)) << output.toStdString();
    }
}

TEST_F(DoctorProgram, wrongOption_status2)
{
    run({u"--confg"_s});
    EXPECT_EQ(status, 2);
    EXPECT_TRUE(errors.startsWith(u"prescription-doctor: "_s)) << errors.toStdString();
    EXPECT_EQ(output, QString());
}

TEST_F(DoctorProgram, version_isShown)
{
    run({u"--version"_s});
    EXPECT_EQ(status, 0);
    EXPECT_TRUE(output.startsWith(u"prescription-doctor 0."_s)) << output.toStdString();
}
