// SPDX-License-Identifier: MIT
// The doctor and the configuration.
#include "doctortest.h"

#include "inplace.h"
#include "requestjournal.h"

using namespace doctor;

namespace
{

constexpr QFile::Permissions readableByAll = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther;

using SettingsTest = DoctorTest;

QStringList checksOf(const QList<CheckResult>& results)
{
    QStringList checks;
    for (const CheckResult& result : results) {
        checks.append(result.check);
    }
    return checks;
}

} // namespace

TEST_F(SettingsTest, nothingIsWrong_everyCheckIsGoodInOrder)
{
    startSecureRegistry({u"IP:127.0.0.1"_s, 60});
    examine(testCard);
    EXPECT_EQ(checksOf(results), (QStringList{u"configuration"_s, u"name"_s, u"connection"_s, u"tls"_s, u"answer"_s,
                                              u"clock"_s, u"token"_s, u"oais"_s, u"card"_s}));
    for (const CheckResult& result : std::as_const(results)) {
        EXPECT_EQ(result.finding.state, State::Good) << shown().toStdString();
        EXPECT_GE(result.milliseconds, 0);
    }
    EXPECT_EQ(exitStatus(results), 0);
    EXPECT_TRUE(shown().contains(u"prescriptions found: 2"_s)) << shown().toStdString();
}

TEST_F(SettingsTest, twoServers_eachIsLookedAt)
{
    startRegistry();
    const auto requests = std::move(registry);
    startRegistry();
    configure(u"requestsUrl"_s, requests->url().toString());
    examine();
    EXPECT_EQ(checksOf(results).count(u"connection"_s), 2) << shown().toStdString();
    EXPECT_EQ(exitStatus(results), 0);
    EXPECT_TRUE(shown().contains(u"127.0.0.1:%1: connected to 127.0.0.1"_s.arg(requests->url().port())));
    EXPECT_TRUE(shown().contains(u"127.0.0.1:%1: connected to 127.0.0.1"_s.arg(registry->url().port())));
}

TEST_F(SettingsTest, configurationIsMissing_nothingElseIsChecked)
{
    results = doctor::examine({folder.filePath(u"nowhere.ini"_s)});
    expectWrong(u"configuration"_s, FindingCode::SettingsUnreadable, Adviser::Integrator, 3);
    for (const auto& check : {u"token"_s, u"oais"_s, u"card"_s}) {
        expectFinding(check, FindingCode::NotReached);
    }
    expectNotReached(u"token"_s, u"configuration"_s);
}

TEST_F(SettingsTest, organizationIsMissing_itsKeyIsNamedAndTheRegistryIsAskedAllTheSame)
{
    startRegistry();
    removeKey(u"organizationIdentifier"_s);
    examine();
    expectWrong(u"configuration"_s, FindingCode::SettingMissing, Adviser::Integrator, 3);
    EXPECT_TRUE(shown().contains(u"[ElectronicPrescription] organizationIdentifier is missing"_s));
    expectFinding(u"token"_s, FindingCode::TokenRequestRefused);
}

TEST_F(SettingsTest, secretIsMissing_noTokenIsAskedFor)
{
    startRegistry();
    removeKey(u"clientSecret"_s);
    examine(testCard);
    expectWrong(u"configuration"_s, FindingCode::SettingMissing, Adviser::Integrator, 3);
    expectFinding(u"token"_s, FindingCode::TokenSettingsMissing);
    expectNotReached(u"card"_s, u"token"_s);
    EXPECT_EQ(registry->ask([](auto& emulated) { return emulated.journal().entries().size(); }), 1) << "only a GET";
}

TEST_F(SettingsTest, addressIsMissing_itsServerIsNotLookedAt)
{
    startRegistry();
    removeKey(u"authorizationUrl"_s);
    examine();
    expectWrong(u"configuration"_s, FindingCode::SettingMissing, Adviser::Integrator, 3);
    expectNotReached(u"token"_s, u"configuration"_s);
    expectFinding(u"connection"_s, FindingCode::ConnectionMade);
}

TEST_F(SettingsTest, addressHasAUser_isNotAsked)
{
    startRegistry();
    secrets.append(u"opensesame"_s);
    QUrl url = registry->url();
    url.setUserInfo(u"ali:opensesame"_s);
    useServer(url);
    examine();
    expectWrong(u"configuration"_s, FindingCode::AddressWithUser, Adviser::Integrator, 3);
    expectNotReached(u"token"_s, u"configuration"_s);
}

TEST_F(SettingsTest, pluginIsOff_saysSo)
{
    startRegistry();
    ini.remove(u"plugins"_s);
    examine();
    expectWrong(u"configuration"_s, FindingCode::PluginOff, Adviser::Integrator, 3);
}

TEST_F(SettingsTest, misspelledKey_isNamedWithItsLine)
{
    startRegistry();
    configure(u"timeOut"_s, u"20"_s);
    examine();
    expectWrong(u"configuration"_s, FindingCode::SettingWrong, Adviser::Integrator, 3);
    EXPECT_TRUE(shown().contains(u"[ElectronicPrescription] timeOut: unknown key; did you mean"_s))
        << shown().toStdString();
}

TEST_F(SettingsTest, keysOfTheRegisterAndOfOtherPlugins_areNotLookedAt)
{
    startRegistry();
    ini[u"Register"_s][u"pharmacyNam"_s] = u"x"_s;
    ini[u"DispenseRecovery"_s][u"statuses"_s] = u"active"_s;
    ini[u"plugins"_s][u"loyalty"_s] = u"true"_s;
    examine();
    expectFinding(u"configuration"_s, FindingCode::SettingsGood);
}

TEST_F(SettingsTest, secretFileIsReadableByAll_itsModeIsAskedForAndTheSecretIsUsed)
{
    startRegistry();
    removeKey(u"clientSecret"_s);
    configure(u"clientSecretFile"_s, u"secret"_s);
    write(u"secret"_s, "s&c+ret\n", readableByAll);
    examine();
    expectWrong(u"configuration"_s, FindingCode::SettingWrong, Adviser::Integrator, 3);
    EXPECT_TRUE(shown().contains(u"set its mode to 0600"_s)) << shown().toStdString();
    expectFinding(u"token"_s, FindingCode::TokenGood);
}

TEST_F(SettingsTest, secretFileIsMissing_saysSoAndAsksForNoToken)
{
    startRegistry();
    removeKey(u"clientSecret"_s);
    configure(u"clientSecretFile"_s, u"secret"_s);
    examine();
    expectWrong(u"configuration"_s, FindingCode::SettingWrong, Adviser::Integrator, 3);
    EXPECT_TRUE(shown().contains(folder.filePath(u"secret"_s) + u" is not there"_s)) << shown().toStdString();
    expectFinding(u"token"_s, FindingCode::TokenSettingsMissing);
}

TEST_F(SettingsTest, secretFileIsPrivate_isGood)
{
    startRegistry();
    removeKey(u"clientSecret"_s);
    configure(u"clientSecretFile"_s, u"secret"_s);
    write(u"secret"_s, "s&c+ret\n", QFile::ReadOwner | QFile::WriteOwner);
    examine();
    expectFinding(u"configuration"_s, FindingCode::SettingsGood);
    expectFinding(u"token"_s, FindingCode::TokenGood);
}

TEST_F(SettingsTest, tillKeepsAJournalOfRequests_theDoctorWritesNothingThere)
{
    startRegistry();
    ini[u"RestClient"_s][u"journal"_s] = u"*"_s;
    ini[u"Register"_s][u"data"_s] = folder.path();
    const InPlace<RequestJournal> place(nullptr);
    examine(testCard);
    const std::unique_ptr<RequestJournal> made(Singleton<RequestJournal>::instance);
    expectFinding(u"card"_s, FindingCode::CardGood);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), (QStringList{u"seed.json"_s, u"till.ini"_s}));
}

TEST_F(SettingsTest, timeIsUp_saysSoAndIsNoSuccess)
{
    startRegistry();
    limits.whole = std::chrono::milliseconds(0);
    examine();
    expectWrong(u"name"_s, FindingCode::TimeIsUp, Adviser::Integrator, 4);
    expectNotReached(u"token"_s, u"name"_s);
}
