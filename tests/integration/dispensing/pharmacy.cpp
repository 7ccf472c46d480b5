// SPDX-License-Identifier: MIT
#include "pharmacy.h"

#include "positionformat.h"
#include "positionoptions.h"
#include "prescriptionstatus.h"
#include "savetofilelogic.h"
#include "serveridentity.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

/// One authority for the whole program; made on first use.
const TestAuthority& authority()
{
    static const TestAuthority theAuthority;
    return theAuthority;
}

const ServerIdentity& identity()
{
    static const ServerIdentity theIdentity(authority());
    return theIdentity;
}

struct Line {
    const char* prescription;
    GoodsItem::Goods goods;
    QString options; ///< with blanks, so that a change of the text alone is seen
};

const Line& lineOf(int position)
{
    static const Line lines[] = {
        {"rx-full",
         {1, u"Амоксидар 500 мг"_s, Kopecks{1240}, {}, Kopecks{1240}, 1.0},
         uR"({ "id": "rx-full", "tradeNameCode": "1001", "organizationId": "", "sumFactor": 1,
            "doseQuantity": 20, "finalDispense": true, "patientReference": "Patient/p-1", "patient": "Пробный П." })"_s},
        {"rx-half",
         {2, u"Метфолин 500 мг"_s, Kopecks{500}, {}, Kopecks{1000}, 2.0},
         uR"({ "id": "rx-half", "tradeNameCode": "1003", "organizationId": "payer-1", "sumFactor": 0.5,
            "doseQuantity": 10, "finalDispense": false, "patientReference": "Patient/p-1", "patient": "Пробный П." })"_s},
        {"rx-free",
         {3, u"Парацидол 500 мг"_s, {}, {}, Kopecks{335}, 3.0},
         uR"({ "id": "rx-free", "tradeNameCode": "1002", "organizationId": "payer-1", "sumFactor": 0,
            "doseQuantity": 5, "finalDispense": false, "patientReference": "Patient/p-1", "patient": "Пробный П." })"_s},
    };
    return lines[position - 1];
}

QSharedPointer<DocumentDouble> documentOfThree()
{
    const auto document = QSharedPointer<DocumentDouble>::create();
    document->name = u"00000001"_s;
    document->setPluginValue(u"ElectronicPrescriptionService"_s, u"cardNumber"_s, u"1100"_s);
    for (const int number : everyPosition) {
        const auto position = document->add(lineOf(number).goods);
        position->setTag(positionformat::tag);
        position->setSoftCheckId(lineOf(number).prescription);
        position->setExtendedOptions(lineOf(number).options);
    }
    return document;
}

emulator::EmulatorSettings settingsOver(Pharmacy::Over over)
{
    emulator::EmulatorSettings settings;
    if (over == Pharmacy::Over::Https) {
        settings.tlsCertificate = identity().certificateFile();
        settings.tlsKey = identity().keyFile();
    }
    return settings;
}

QJsonObject asJson(const QString& text)
{
    return QJsonDocument::fromJson(text.toUtf8()).object();
}

} // namespace

QMap<QString, QString> configurationFor(const QString& registry, const QString& dataFolder, int timeoutSeconds)
{
    return {
        {u"Register:data"_s, dataFolder},
        {u"ElectronicPrescription:requestsUrl"_s, registry},
        {u"ElectronicPrescription:authorizationUrl"_s, registry},
        {u"ElectronicPrescription:timeout"_s, QString::number(timeoutSeconds)},
        {u"ElectronicPrescription:clientId"_s, u"pharmacy"_s},
        {u"ElectronicPrescription:clientSecret"_s, u"s&c+ret"_s},
        {u"ElectronicPrescription:scope"_s, u"dispense"_s},
        {u"ElectronicPrescription:organizationIdentifier"_s, u"17"_s},
        {u"ElectronicPrescription:organizationName"_s, u"Аптека № 17"_s},
        {u"ElectronicPrescription:organizationAddress"_s, u"ул. Лесная, 1"_s},
        {u"ElectronicPrescription:oais"_s, u"oais-token"_s},
    };
}

QString seedOfThreePrescriptions()
{
    return QString::fromUtf8(TEST_SEED);
}

class Pharmacy::Listener : public BaseActivityListener
{
public:
    explicit Listener(Pharmacy& pharmacy)
        : m_pharmacy(pharmacy)
    {
    }
    void handleEvent(const Event& event) override
    {
        const qsizetype messages = m_pharmacy.m_dialog.messages().size() - m_pharmacy.m_takenMessages;
        m_pharmacy.m_events.append({event.getCode(), messages});
    }

private:
    Pharmacy& m_pharmacy;
};

Pharmacy::Pharmacy(Over over, int timeoutSeconds)
    : m_registry(settingsOver(over), seedOfThreePrescriptions())
    , m_config(configurationFor(m_registry.url().toString(), dataFolder.path(), timeoutSeconds))
    , m_listener(std::make_unique<Listener>(*this))
    , m_document(documentOfThree())
{
    if (over == Over::Https) {
        m_config.set(u"RestClient:caFile"_s, authority().certificateFile());
    }
    m_notifier.object.subscribe(m_listener.get());
    DocumentWatcher::setCurrentDocument(m_document);
    m_service.emplace();
}

Pharmacy::~Pharmacy()
{
    DocumentWatcher::setCurrentDocument(nullptr);
}

EContext::Result Pharmacy::subtotal()
{
    return m_service->beforeSubtotal(control::Action(control::Subtotal));
}

EContext::Result Pharmacy::cancelDocument()
{
    return m_service->beforeStornoAll(control::Action(control::CancelDocument));
}

EContext::Result Pharmacy::cancelPosition(int position)
{
    control::Action action(control::RemovePosition);
    action.insert(u"positionNumber"_s, position);
    return m_service->cancelElectronicPrescriptionByAction(action);
}

void Pharmacy::removePosition(int position)
{
    m_document->positions.removeOne(m_document->getPosition(position));
}

QStringList Pharmacy::options() const
{
    QStringList all;
    for (const auto& position : m_document->positions) {
        all.append(position->getExtendedOptions());
    }
    return all;
}

QJsonObject Pharmacy::optionsOf(int position) const
{
    return PositionOptions(*m_document->getPosition(position)).toDocument().object();
}

void Pharmacy::setOptions(int position, const QString& options)
{
    m_document->getPosition(position)->setExtendedOptions(options);
}

QJsonObject Pharmacy::savedDocument() const
{
    QFile file(dataFolder.filePath(AbstractDocument::openDocumentFile));
    return file.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(file.readAll()).object() : QJsonObject();
}

void Pharmacy::takeSavedDocument()
{
    m_document = documentOfThree();
    const QJsonArray saved = savedDocument()["positions"_L1].toArray();
    for (const auto& position : saved) {
        setOptions(position["number"_L1].toInt(), position["extendedOptions"_L1].toString());
    }
    DocumentWatcher::setCurrentDocument(m_document);
}

QString Pharmacy::prescriptionOf(int position)
{
    return lineOf(position).prescription;
}

QList<emulator::Dispense> Pharmacy::dispensesOf(int position) const
{
    const QString prescription = prescriptionOf(position);
    return m_registry.ask([&](auto& registry) { return registry.store().dispensesOf(prescription); });
}

emulator::Dispense Pharmacy::soleDispenseOf(int position) const
{
    const QList<emulator::Dispense> dispenses = dispensesOf(position);
    EXPECT_EQ(dispenses.size(), 1) << "position " << position;
    return dispenses.value(0);
}

QString Pharmacy::statusOfPrescription(int position) const
{
    const QString prescription = prescriptionOf(position);
    return m_registry.ask([&](auto& registry) { return registry.store().prescription(prescription)->status; });
}

void Pharmacy::atRegistry(const std::function<void(emulator::RegistryEmulator&)>& change) const
{
    m_registry.ask([&](auto& registry) { change(registry); });
}

void Pharmacy::order(const std::function<void(emulator::FaultScript&)>& order) const
{
    m_registry.ask([&](auto& registry) { order(registry.faults()); });
}

QList<emulator::JournalEntry> Pharmacy::requests() const
{
    return m_registry.ask([](auto& registry) { return registry.journal().entries(); });
}

qsizetype Pharmacy::asked(emulator::Endpoint endpoint) const
{
    return m_registry.ask([endpoint](auto& registry) { return registry.journal().count(endpoint); });
}

void Pharmacy::forgetRequests() const
{
    m_registry.ask([](auto& registry) { registry.journal().clear(); });
}

QList<DialogDouble::Message> Pharmacy::takeMessages()
{
    const QList<DialogDouble::Message> shown = m_dialog.messages().mid(m_takenMessages);
    m_takenMessages = m_dialog.messages().size();
    return shown;
}

QList<Pharmacy::HeardEvent> Pharmacy::takeEvents()
{
    return std::exchange(m_events, {});
}

void expectRegistered(const Pharmacy& pharmacy, int position)
{
    const emulator::Dispense dispense = pharmacy.soleDispenseOf(position);
    EXPECT_FALSE(dispense.isCancelled) << "position " << position;
    EXPECT_FALSE(dispense.id.isEmpty());
    QJsonObject registered = asJson(lineOf(position).options);
    registered[positionformat::medicationDispenseId] = dispense.id;
    registered[positionformat::status] = positionformat::dispensed;
    EXPECT_EQ(pharmacy.optionsOf(position), registered) << "position " << position;
}

void expectCancelled(const Pharmacy& pharmacy, int position)
{
    const emulator::Dispense dispense = pharmacy.soleDispenseOf(position);
    EXPECT_TRUE(dispense.isCancelled) << "position " << position;
    EXPECT_EQ(pharmacy.statusOfPrescription(position), emulator::prescriptionstatus::active);
    QJsonObject cancelled = asJson(lineOf(position).options);
    cancelled[positionformat::medicationDispenseId] = dispense.id;
    cancelled[positionformat::status] = positionformat::canceled;
    EXPECT_EQ(pharmacy.optionsOf(position), cancelled) << "position " << position;
}
