// SPDX-License-Identifier: MIT
#include "doctortest.h"

#include "report.h"

#include <QFile>
#include <QJsonDocument>

#include <algorithm>

using namespace doctor;

namespace
{

constexpr QFile::Permissions ownerAlone = QFile::ReadOwner | QFile::WriteOwner;

/// @param cards those that take the place of the file's
QJsonObject readSeed(const QMap<QByteArray, QString>& cards)
{
    QFile file(QString::fromUtf8(TEST_SEED));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    QByteArray seed = file.readAll();
    for (auto card = cards.cbegin(); card != cards.cend(); ++card) {
        seed.replace("\"card\": \"" + card.key() + '"', "\"card\": \"" + card->toLatin1() + '"');
    }
    return QJsonDocument::fromJson(seed).object();
}

} // namespace

DoctorTest::DoctorTest()
    : secrets{u"s&c+ret"_s, u"s%26c%2Bret"_s, u"Пробный"_s, u"Пётр"_s, u"Петрович"_s, testCard, emptyCard}
{
    ini[u"plugins"_s] = {{u"pharmacy"_s, u"true"_s}};
    configure(u"clientId"_s, u"pharmacy"_s);
    configure(u"clientSecret"_s, u"s&c+ret"_s);
    configure(u"scope"_s, u"read dispense"_s);
    configure(u"organizationIdentifier"_s, u"17"_s);
    configure(u"organizationName"_s, u"Аптека № 17"_s);
    configure(u"organizationAddress"_s, u"ул. Лесная, 1"_s);
}

DoctorTest::~DoctorTest()
{
    const QString everything = shown() + QString::fromUtf8(jsonOf(results));
    for (const QString& secret : std::as_const(secrets)) {
        EXPECT_FALSE(everything.contains(secret)) << secret.toStdString() << " is shown:\n" << everything.toStdString();
    }
}

void DoctorTest::startRegistry(const QJsonObject& rules, emulator::EmulatorSettings settings)
{
    QJsonObject seed = readSeed({{"1100", testCard}, {"1102", emptyCard}});
    seed["rules"_L1] = rules;
    const QString file = write(u"seed.json"_s, QJsonDocument(seed).toJson(), ownerAlone);
    registry = std::make_unique<RegistryThread>(settings, file);
    useServer(registry->url());
}

void DoctorTest::startSecureRegistry(const ServerIdentity::Wish& wish)
{
    authority.emplace();
    identity.emplace(*authority, wish);
    emulator::EmulatorSettings settings;
    settings.tlsCertificate = identity->certificateFile();
    settings.tlsKey = identity->keyFile();
    startRegistry({}, settings);
    ini[u"RestClient"_s][u"caFile"_s] = authority->certificateFile();
}

void DoctorTest::useServer(const QUrl& url)
{
    configure(u"requestsUrl"_s, url.toString());
    configure(u"authorizationUrl"_s, url.toString());
}

QString DoctorTest::writeConfiguration()
{
    QByteArray content;
    for (auto section = ini.cbegin(); section != ini.cend(); ++section) {
        content += '[' + section.key().toUtf8() + "]\n";
        for (auto value = section->cbegin(); value != section->cend(); ++value) {
            content += value.key().toUtf8() + "=\"" + value->toUtf8() + "\"\n";
        }
    }
    return write(u"till.ini"_s, content, ownerAlone);
}

QString DoctorTest::write(const QString& name, const QByteArray& content, QFile::Permissions permissions)
{
    QFile file(folder.filePath(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_EQ(file.write(content), content.size());
    EXPECT_TRUE(file.setPermissions(permissions));
    return file.fileName();
}

void DoctorTest::examine(const QString& card)
{
    QList<CheckResult> found;
    results = doctor::examine({writeConfiguration(), card, limits},
                              [&found](const CheckResult& result) { found.append(result); });
    EXPECT_EQ(found.size(), results.size()) << "each result is given out as soon as it is there";
}

CheckResult DoctorTest::resultOf(const QString& check) const
{
    const auto result = std::find_if(results.cbegin(), results.cend(),
                                     [&check](const CheckResult& candidate) { return candidate.check == check; });
    EXPECT_NE(result, results.cend()) << check.toStdString();
    return result == results.cend() ? CheckResult() : *result;
}

void DoctorTest::expectWrong(const QString& check, FindingCode code, Adviser adviser, int status) const
{
    const auto wrong = std::find_if(results.cbegin(), results.cend(), [](const CheckResult& candidate) {
        return candidate.finding.state == State::Wrong;
    });
    ASSERT_NE(wrong, results.cend()) << shown().toStdString();
    EXPECT_EQ(wrong->check, check) << shown().toStdString();
    EXPECT_EQ(wrong->finding.name, finding(code).name) << shown().toStdString();
    EXPECT_EQ(wrong->finding.adviser, adviser) << shown().toStdString();
    EXPECT_EQ(exitStatus(results), status) << shown().toStdString();
}

void DoctorTest::expectFinding(const QString& check, FindingCode code) const
{
    EXPECT_EQ(resultOf(check).finding.name, finding(code).name) << shown().toStdString();
}

void DoctorTest::expectNotReached(const QString& check, const QString& failed) const
{
    expectFinding(check, FindingCode::NotReached);
    EXPECT_EQ(resultOf(check).finding.text, finding(FindingCode::NotReached, {failed}).text) << shown().toStdString();
}

QString DoctorTest::shown() const
{
    QString lines;
    for (const CheckResult& result : results) {
        lines += lineOf(result);
    }
    return lines + summaryOf(results);
}
