// SPDX-License-Identifier: MIT
#include "report.h"

#include "clockdouble.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTimeZone>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace doctor;

namespace
{

CheckResult good()
{
    return {u"connection"_s, u"registry.test:443"_s,
            finding(FindingCode::ConnectionMade, {u"registry.test"_s, u"443"_s, u"192.0.2.1"_s}), 12};
}

CheckResult expired()
{
    return {u"tls"_s, u"registry.test:443"_s,
            finding(FindingCode::CertificateExpired, {u"registry.test"_s, u"443"_s, u"2024-01-02"_s, u"2024-03-20"_s}),
            34};
}

CheckResult notChecked()
{
    return {u"token"_s, {}, finding(FindingCode::NotReached, {u"tls"_s})};
}

CheckResult refused()
{
    return {u"token"_s, {}, finding(FindingCode::ClientRefused, {u"registry.test"_s, u"no"_s}), 5};
}

} // namespace

TEST(DoctorReport, head_saysWhenAndForWhichConfiguration)
{
    const ClockDouble clock(QDateTime(QDate(2024, 3, 20), QTime(12, 30), QTimeZone::utc()));
    EXPECT_TRUE(headOf(u"till.ini"_s).endsWith(u", 2024-03-20 12:30:00 UTC, till.ini\n"_s))
        << headOf(u"till.ini"_s).toStdString();
}

TEST(DoctorReport, goodResult_isOneLineWithTimeAndServer)
{
    EXPECT_EQ(lineOf(good()), u"OK       connection         12 ms  registry.test:443: connected to 192.0.2.1\n"_s);
}

TEST(DoctorReport, wrongResult_hasASecondLineThatSaysWhomToAskForWhat)
{
    EXPECT_EQ(lineOf(expired()),
              u"WRONG    tls                34 ms  registry.test:443: the certificate ended on 2024-01-02; by the "
              "till's clock it is 2024-03-20\n"
              "         Write to the operator of the registry: The certificate of registry.test, port 443, ended on "
              "2024-01-02. Please install a new one.\n"_s);
}

TEST(DoctorReport, checkThatWasNotMade_hasNoTime)
{
    EXPECT_EQ(lineOf(notChecked()), u"--       token                     not checked, since \"tls\" failed\n"_s);
}

TEST(DoctorReport, summary_countsAndNamesTheStatus)
{
    EXPECT_EQ(summaryOf({good(), expired(), notChecked()}),
              u"Good: 1, warnings: 0, wrong: 1, not checked: 1. Exit status 5: TLS.\n"_s);
    EXPECT_EQ(summaryOf({good()}), u"Good: 1, warnings: 0, wrong: 0, not checked: 0. Exit status 0: all well.\n"_s);
}

TEST(DoctorReport, exitStatus_isTheKindOfTheFirstThatIsWrong)
{
    const CheckResult warning{u"tls"_s, {}, finding(FindingCode::TlsEndsSoon), 1};
    EXPECT_EQ(exitStatus({}), 0);
    EXPECT_EQ(exitStatus({good(), warning, notChecked()}), 0);
    EXPECT_EQ(exitStatus({good(), expired(), refused()}), 5);
    EXPECT_EQ(exitStatus({refused(), expired()}), 7);
}

TEST(DoctorReport, json_hasEachCheckWithStateFindingAndWhomToAsk)
{
    const ClockDouble clock(QDateTime(QDate(2024, 3, 20), QTime(12, 30), QTimeZone::utc()));
    const QJsonObject report = QJsonDocument::fromJson(jsonOf({good(), expired(), notChecked()})).object();
    EXPECT_EQ(report["time"_L1], u"2024-03-20T12:30:00Z"_s);
    EXPECT_EQ(report["status"_L1], 5);
    EXPECT_EQ(report["kind"_L1], u"tls"_s);
    const QJsonArray checks = report["checks"_L1].toArray();
    ASSERT_EQ(checks.size(), 3);
    EXPECT_EQ(checks.at(0).toObject(), (QJsonObject{{"check"_L1, "connection"_L1},
                                                    {"state"_L1, "ok"_L1},
                                                    {"finding"_L1, "connectionMade"_L1},
                                                    {"text"_L1, "connected to 192.0.2.1"_L1},
                                                    {"server"_L1, "registry.test:443"_L1},
                                                    {"milliseconds"_L1, 12}}));
    const QJsonObject wrong = checks.at(1).toObject();
    EXPECT_EQ(wrong["state"_L1], u"wrong"_s);
    EXPECT_EQ(wrong["finding"_L1], u"certificateExpired"_s);
    EXPECT_EQ(wrong["kind"_L1], u"tls"_s);
    EXPECT_EQ(wrong["ask"_L1], u"registry-operator"_s);
    EXPECT_TRUE(wrong["advice"_L1].toString().contains(u"Please install a new one"_s));
    EXPECT_EQ(checks.at(2).toObject(), (QJsonObject{{"check"_L1, "token"_L1},
                                                    {"state"_L1, "not-checked"_L1},
                                                    {"finding"_L1, "notReached"_L1},
                                                    {"text"_L1, "not checked, since \"tls\" failed"_L1}}));
}
