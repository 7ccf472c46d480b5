// SPDX-License-Identifier: MIT
#include "registryclienttest.h"

#include "electronicprescriptionexception.h"
#include "electronicprescriptionnoprescriptionsexception.h"
#include "positionoptions.h"

#include <QFile>

using namespace Qt::StringLiterals;

using emulator::Endpoint;

namespace
{

RequestFailure failureOf(const std::function<void()>& operation)
{
    try {
        operation();
    } catch (const ElectronicPrescriptionNoPrescriptionsException& exception) {
        return {true, true, exception.tr().key(), exception.tr().ui()};
    } catch (const ElectronicPrescriptionException& exception) {
        return {true, false, exception.tr().key(), exception.tr().ui()};
    }
    return {};
}

/// Two packs, half of whose price of ten roubles the patient pays.
QSharedPointer<GoodsItem> twoPacks()
{
    GoodsItem::Goods goods;
    goods.number = 1;
    goods.name = u"Метфолин 500 мг"_s;
    goods.price = Kopecks{500};
    goods.tmcPrice = Kopecks{1000};
    goods.quantity = 2.0;
    return QSharedPointer<GoodsItem>::create(goods);
}

} // namespace

const QString RegistryClientTest::dueOptions =
    uR"({ "id": "rx-half", "tradeNameCode": "1003", "organizationId": "payer-1", "sumFactor": 0.5,
        "doseQuantity": 10, "finalDispense": false, "patientReference": "Patient/p-1" })"_s;

RegistryClientTest::RegistryClientTest()
    : position(twoPacks())
{
    position->setExtendedOptions(dueOptions);

    emulator::EmulatorSettings settings;
    if (isHttps()) {
        m_identity.emplace(m_authority);
        settings.tlsCertificate = m_identity->certificateFile();
        settings.tlsKey = m_identity->keyFile();
        trust(m_authority);
    }
    registry = std::make_unique<emulator::RegistryEmulator>(settings);
    registry->seedFromFile(QString::fromUtf8(TEST_SEED));
    registry->start();

    configure("requestsUrl", registry->url().toString());
    configure("authorizationUrl", registry->url().toString());
    configure("timeout", u"30"_s);
    configure("clientId", u"pharmacy"_s);
    configure("clientSecret", u"s&c+ret"_s);
    configure("scope", u"read dispense"_s);
    configure("organizationIdentifier", u"17"_s);
    configure("organizationName", u"Аптека № 17"_s);
    configure("organizationAddress", u"ул. Лесная, 1"_s);
}

void RegistryClientTest::configure(const char* name, const QString& value)
{
    m_config.setForThisRun(u"ElectronicPrescription:"_s + name, value);
}

void RegistryClientTest::trust(const TestAuthority& authority)
{
    m_config.setForThisRun(u"RestClient:caFile"_s, authority.certificateFile());
}

RequestFailure RegistryClientTest::askForCard(const QString& card, const QString& status)
{
    const ElectronicPrescriptionInterface client;
    return failureOf([&] { client.getElectronicPrescriptionsByCardNumber(card, status, prescriptions, patient); });
}

RequestFailure RegistryClientTest::registerDispense()
{
    const ElectronicPrescriptionInterface client;
    return failureOf([&] { client.sendMedicationDispense(position); });
}

RequestFailure RegistryClientTest::cancelDispense()
{
    const ElectronicPrescriptionInterface client;
    return failureOf([&] { client.sendCancelMedicationDispense(position); });
}

RequestFailure RegistryClientTest::ask(Endpoint endpoint)
{
    switch (endpoint) {
    case Endpoint::DispenseRegistration:
        return registerDispense();
    case Endpoint::DispenseCancellation:
        return cancelDispense();
    default:
        return askForCard(u"1100"_s);
    }
}

emulator::JournalEntry RegistryClientTest::lastOf(Endpoint endpoint)
{
    const auto entries = registry->journal().entriesOf(endpoint);
    EXPECT_FALSE(entries.isEmpty()) << nameOf(endpoint);
    return entries.isEmpty() ? emulator::JournalEntry() : entries.last();
}

QString RegistryClientTest::dispenseId() const
{
    return PositionOptions(*position).medicationDispenseId();
}

const char* nameOf(Endpoint endpoint)
{
    switch (endpoint) {
    case Endpoint::Token:
        return "token";
    case Endpoint::PrescriptionsByCard:
        return "prescriptions by card";
    case Endpoint::DispenseRegistration:
        return "registration";
    case Endpoint::DispenseCancellation:
        return "cancellation";
    default:
        return "another endpoint";
    }
}
