// SPDX-License-Identifier: MIT
#include "emulatortest.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>

using namespace Qt::StringLiterals;

namespace
{
QJsonValue changed(const QJsonValue& holder, const QStringList& path, const QJsonValue& value)
{
    if (path.isEmpty()) {
        return value;
    }
    if (holder.isArray()) {
        QJsonArray array = holder.toArray();
        const int index = path.first().toInt();
        if (index >= array.size()) {
            array.append(value);
        } else if (path.size() == 1 && value.isUndefined()) {
            array.removeAt(index);
        } else {
            array[index] = changed(array.at(index), path.mid(1), value);
        }
        return array;
    }
    QJsonObject object = holder.toObject();
    object.insert(path.first(), changed(object.value(path.first()), path.mid(1), value));
    return object;
}

QJsonObject dispense(const QString& prescription, const QString& medicationCode)
{
    const auto text = [](const char* json) { return QJsonDocument::fromJson(json).object(); };
    QJsonObject resource = text(R"({
        "resourceType": "MedicationDispense",
        "extension": [{"url": "http://structures.example/fhir/StructureDefinition/by-finalDispense",
                       "valueBoolean": false}],
        "contained": [
            {"resourceType": "Medication", "id": "internalMedication", "isBrand": true,
             "code": {"coding": [{"system": "http://dictionary.example/Dosage", "code": ""}]}},
            {"resourceType": "Location", "name": "Аптека", "address": {"text": "Улица"}}],
        "status": "completed",
        "patient": {"reference": "Patient/p-1100"},
        "quantity": {"value": 10},
        "authorizingPrescription": [{"reference": ""}],
        "medication": {"reference": "#internalMedication"},
        "whenHandedOver": "2024-03-20"})");
    resource = with(resource, u"contained.0.code.coding.0.code"_s, medicationCode);
    resource =
        with(resource, u"authorizingPrescription.0.reference"_s, QString(u"MedicationPrescription/"_s + prescription));
    return {{u"resourceType"_s, u"Parameters"_s},
            {u"parameter"_s, QJsonArray{QJsonObject{{u"name"_s, u"medicationDispense"_s}, {u"resource"_s, resource}}}}};
}
} // namespace

QJsonObject with(const QJsonObject& object, const QString& path, const QJsonValue& value)
{
    return changed(object, path.split(u'.'), value).toObject();
}

void expectRefusal(const RawAnswer& answer, emulator::RefusalCode code, const QStringList& values)
{
    const emulator::HttpAnswer expected = emulator::Refusal(code, values).answer();
    EXPECT_EQ(answer.status, expected.status);
    EXPECT_EQ(answer.body, expected.body) << answer.body.constData() << "\ninstead of\n" << expected.body.constData();
    for (const auto& [name, value] : expected.headers) {
        EXPECT_EQ(answer.header(name), value) << name.constData();
    }
}

EmulatorTest::EmulatorTest()
{
    emulator::EmulatorSettings settings;
    settings.clock = [this] { return m_now; };
    settings.adminPort = 0;
    m_emulator = std::make_unique<emulator::RegistryEmulator>(settings);
    m_emulator->seed(seedJson());
    m_emulator->start();
}

QByteArray EmulatorTest::seedJson()
{
    QFile file(QString::fromUtf8(TEST_SEED));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

RawAnswer EmulatorTest::ask(const QByteArray& method, const QByteArray& target, const emulator::HttpHeaders& headers,
                            const QByteArray& body)
{
    RawConnection connection(m_emulator->url());
    connection.request(method, target, headers, body);
    const auto answer = connection.answer();
    EXPECT_TRUE(answer.has_value()) << "no whole answer to " << method.constData() << " " << target.constData();
    return answer.value_or(RawAnswer());
}

RawAnswer EmulatorTest::askForToken(const QByteArray& form, const emulator::HttpHeaders& headers)
{
    const std::pair<QByteArray, QByteArray> type("Content-Type", "application/x-www-form-urlencoded");
    return ask("POST", "/connect/token", emulator::HttpHeaders{type} + headers, form);
}

QByteArray EmulatorTest::goodForm(const QByteArray& scope)
{
    return "grant_type=client_credentials&client_id=pharmacy&client_secret=s%26c%2Bret&scope=" + scope +
           "&organization_identifier=17";
}

emulator::HttpHeaders EmulatorTest::admitted(const QByteArray& form)
{
    const QString token = askForToken(form).json().value(u"access_token"_s).toString();
    EXPECT_FALSE(token.isEmpty());
    return {{"Authorization", "Bearer " + token.toLatin1()}, {"Content-Type", "application/json; charset=utf-8"}};
}

RawAnswer EmulatorTest::byCard(const QByteArray& query)
{
    return ask("GET", "/MedicationPrescription/$by-card" + query, admitted());
}

RawAnswer EmulatorTest::registerDispense(const QJsonObject& document)
{
    return ask("POST", "/MedicationDispense/$register", admitted(), QJsonDocument(document).toJson());
}

RawAnswer EmulatorTest::cancelDispense(const QByteArray& id)
{
    return ask("POST", "/MedicationDispense/" + id + "/$set-as-error", admitted(), "{}");
}

QJsonObject EmulatorTest::fullPriceDispense()
{
    return dispense(u"rx-full"_s, u"1001"_s);
}

QJsonObject EmulatorTest::halfPriceDispense()
{
    const QJsonObject claim = QJsonDocument::fromJson(R"({
        "resourceType": "Claim", "type": "pharmacy", "created": "2024-03-20",
        "organization": {"reference": "Organization/payer-1"},
        "originalPrescription": {"reference": "MedicationPrescription/rx-half"},
        "patient": {"reference": "Patient/p-1100"},
        "item": [{"sequence": 1,
                  "type": {"display": "Электронный рецепт", "system": "http://vs.example/group", "code": "group"},
                  "service": {"system": "http://vs.example/service", "code": "2102"},
                  "unitPrice": {"value": 20.00, "system": "urn:std:iso:4217", "code": "BYN"},
                  "factor": 0.5,
                  "net": {"value": 10.00, "system": "urn:std:iso:4217", "code": "BYN"}}]})")
                                  .object();
    return with(dispense(u"rx-half"_s, u"1003"_s), u"parameter.1"_s,
                QJsonObject{{u"name"_s, u"claim"_s}, {u"resource"_s, claim}});
}

QString EmulatorTest::idOfDispense(const RawAnswer& registration)
{
    const QJsonArray entries = registration.json().value(u"entry"_s).toArray();
    return entries.at(0).toObject().value(u"resource"_s).toObject().value(u"id"_s).toString();
}

QString EmulatorTest::statusOf(const QString& prescription)
{
    const auto found = m_emulator->store().prescription(prescription);
    return found ? found->status : QString();
}
