// SPDX-License-Identifier: MIT
#include "registrydoubles.h"

namespace
{

/// The interface with its settings in reach.
class Settings : public ElectronicPrescriptionInterface
{
public:
    using ElectronicPrescriptionInterface::authorizationUrl;
    using ElectronicPrescriptionInterface::clientId;
    using ElectronicPrescriptionInterface::clientSecret;
    using ElectronicPrescriptionInterface::oais;
    using ElectronicPrescriptionInterface::organizationAddress;
    using ElectronicPrescriptionInterface::organizationIdentifier;
    using ElectronicPrescriptionInterface::organizationName;
    using ElectronicPrescriptionInterface::requestsUrl;
    using ElectronicPrescriptionInterface::scope;
    using ElectronicPrescriptionInterface::timeout;
};

/// Writes down which settings were asked for, with their defaults.
class AskedConfig : public Config
{
public:
    QString getString(const QString& key, const QString& def) const override
    {
        asked.append(key + '=' + def);
        return def;
    }
    int getInt(const QString& key, int def) const override
    {
        asked.append(key + "=#" + QString::number(def));
        return def;
    }

    mutable QStringList asked;

private:
    InPlace<Config> m_place{this};
};

using SettingsTest = RegistryTest;

TEST_F(SettingsTest, construction_readsEverySettingOnceInOrderWithItsDefault)
{
    const AskedConfig asked;
    const ElectronicPrescriptionInterface interface;
    EXPECT_EQ(asked.asked, QStringList({
                               "ElectronicPrescription:requestsUrl=http://localhost",
                               "ElectronicPrescription:authorizationUrl=http://localhost",
                               "ElectronicPrescription:timeout=#60",
                               "ElectronicPrescription:clientId=",
                               "ElectronicPrescription:clientSecret=",
                               "ElectronicPrescription:scope=",
                               "ElectronicPrescription:organizationIdentifier=",
                               "ElectronicPrescription:organizationName=",
                               "ElectronicPrescription:organizationAddress=",
                               "ElectronicPrescription:oais=",
                           }));
}

TEST_F(SettingsTest, everySetting_isKeptInTheMemberOfItsName)
{
    configurePharmacy();
    const Settings settings;
    EXPECT_EQ(settings.requestsUrl, "https://registry.example/api/");
    EXPECT_EQ(settings.authorizationUrl, "https://login.example");
    EXPECT_EQ(settings.timeout, 17);
    EXPECT_EQ(settings.clientId, "pharmacy-1");
    EXPECT_EQ(settings.clientSecret, "s3cret");
    EXPECT_EQ(settings.scope, "prescriptions dispenses");
    EXPECT_EQ(settings.organizationIdentifier, "org-9");
    EXPECT_EQ(settings.organizationName, "Аптека № 9");
    EXPECT_EQ(settings.organizationAddress, "г. Минск, ул. Лесная, 1");
    EXPECT_EQ(settings.oais, "oais-token");
}

TEST_F(SettingsTest, withoutSettings_requestsGoToTheLoopbackWithSixtySecondsAndEmptyCredentials)
{
    grantToken();
    answer(R"({"resourceType": "Bundle", "entry": [{"resource": {"resourceType": "Bundle"}}]})");
    const ElectronicPrescriptionInterface interface;
    QJsonArray prescriptions;
    QJsonObject patient;
    interface.getElectronicPrescriptionsByCardNumber("1", "active", prescriptions, patient);

    ASSERT_EQ(requests.size(), 2);
    EXPECT_EQ(requests[0].url.toString(), "http://localhost/connect/token");
    EXPECT_EQ(requests[0].timeout, 60);
    EXPECT_EQ(requests[0].body,
              "grant_type=client_credentials&client_id=&client_secret=&scope=&organization_identifier=");
    EXPECT_EQ(requests[1].url.toString(QUrl::RemoveQuery), "http://localhost/MedicationPrescription/$by-card");
    EXPECT_EQ(requests[1].timeout, 60);
}

TEST_F(SettingsTest, settingChangedAfterConstruction_hasNoEffect)
{
    configurePharmacy();
    const ElectronicPrescriptionInterface interface;
    config.set("ElectronicPrescription:timeout", "3");
    config.set("ElectronicPrescription:clientId", "another");
    config.set("ElectronicPrescription:authorizationUrl", "https://elsewhere.example");
    grantToken();
    QString token;
    interface.getAuthorizationToken(token);

    ASSERT_EQ(requests.size(), 1);
    EXPECT_EQ(requests[0].timeout, 17);
    EXPECT_EQ(requests[0].url.host(), "login.example");
    EXPECT_TRUE(requests[0].body.contains("client_id=pharmacy-1&"));
}

TEST_F(SettingsTest, withoutAnyConfigYet_oneIsCreated)
{
    const InPlace<Config> none(nullptr);
    const Settings settings;
    const std::unique_ptr<Config> created(Singleton<Config>::instance);

    ASSERT_NE(created, nullptr);
    EXPECT_EQ(settings.requestsUrl, "http://localhost");
    EXPECT_EQ(settings.timeout, 60);
}

} // namespace
