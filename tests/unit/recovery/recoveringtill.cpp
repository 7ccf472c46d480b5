// SPDX-License-Identifier: MIT
#include "recoveringtill.h"

#include "documentwatcher.h"
#include "positionformat.h"

#include <QJsonArray>
#include <QJsonDocument>

using namespace Qt::StringLiterals;

namespace
{

class Current : private DocumentWatcher
{
public:
    static void set(const QSharedPointer<AbstractDocument>& document) { setCurrentDocument(document); }
    QSharedPointer<AbstractDocument> get() const { return getDocument(); }
};

QJsonObject location(const QString& pharmacy)
{
    return {{"resourceType"_L1, "Location"_L1},
            {"name"_L1, pharmacy},
            {"address"_L1, QJsonObject{{"text"_L1, u"ул. Лесная, 1"_s}}}};
}

QJsonObject entry(const QJsonObject& resource)
{
    return {{"resource"_L1, resource}};
}

QJsonObject bundle(const QJsonArray& entries)
{
    return {{"resourceType"_L1, "Bundle"_L1}, {"entry"_L1, entries}};
}

QJsonObject dispenseResource(const ShownDispense& shown)
{
    QJsonObject dispense{{"resourceType"_L1, "MedicationDispense"_L1},
                         {"status"_L1, "completed"_L1},
                         {"whenHandedOver"_L1, shown.day},
                         {"quantity"_L1, QJsonObject{{"value"_L1, shown.doses}}},
                         {"contained"_L1, QJsonArray{location(shown.pharmacy)}}};
    if (!shown.id.isEmpty()) {
        dispense["id"_L1] = shown.id;
    }
    return dispense;
}

QByteArray bytes(const QJsonObject& object)
{
    return QJsonDocument(object).toJson();
}

} // namespace

/// Gives tokens, and the card's prescriptions under the status "active".
class RecoveringTill::Registry : public RestClient
{
public:
    explicit Registry(RecoveringTill& till)
        : m_till(till)
    {
    }
    void post(const QUrl&, const QByteArray&, const QHash<QString, QString>&) override
    {
        m_code = 0;
        m_answer = QJsonObject{{"access_token"_L1, "token"_L1}};
    }
    void get(const QUrl& url, const QJsonDocument&, const QHash<QString, QString>&) override
    {
        ++m_till.lookUps;
        m_code = m_till.isDown ? 7 : m_till.refusal;
        if (m_code != 0) {
            m_answer = m_till.isDown ? QJsonObject() : refusalOf(u"Карта не найдена"_s);
            return;
        }
        QJsonArray entries;
        for (auto one = m_till.prescriptions.cbegin(); one != m_till.prescriptions.cend(); ++one) {
            const bool isCompleted = m_till.completed.contains(one.key());
            QJsonArray resources{entry({{"resourceType"_L1, "MedicationPrescription"_L1},
                                        {"id"_L1, one.key()},
                                        {"status"_L1, isCompleted ? "completed"_L1 : "active"_L1}})};
            for (const ShownDispense& dispense : one.value()) {
                resources.append(entry(dispenseResource(dispense)));
            }
            entries.append(entry(bundle(resources)));
        }
        const bool isActive = url.query().endsWith(u"status=active"_s);
        m_answer = isActive && !entries.isEmpty() ? bundle(entries) : QJsonObject{{"resourceType"_L1, "Bundle"_L1}};
    }
    int errorCode() const override { return m_code; }
    tr::Tr errorText() const override { return {tr::undefined, u"нет связи"_s}; }
    QJsonDocument answer() const override { return QJsonDocument(m_answer); }
    Outcome outcome() const override { return Outcome::Settled; }

private:
    static QJsonObject refusalOf(const QString& text)
    {
        return {{"resourceType"_L1, "OperationOutcome"_L1},
                {"issue"_L1, QJsonArray{QJsonObject{{"severity"_L1, "error"_L1}, {"details"_L1, text}}}}};
    }

    RecoveringTill& m_till;
    int m_code = 0;
    QJsonObject m_answer;
};

class RecoveringTill::Choice : public DispenseChoiceDialog
{
public:
    explicit Choice(RecoveringTill& till)
        : m_till(till)
    {
    }
    DispenseChoice ask(const DispenseChoiceParams& params) override
    {
        m_till.questions.append(params);
        return m_till.answer;
    }

private:
    RecoveringTill& m_till;
};

QList<QSharedPointer<AbstractDocument>> RecoveringTill::Archive::documentsOf(const QDate& day) const
{
    ++readings;
    return ofDays.value(day);
}

QSharedPointer<AbstractDocument> RecoveringTill::Archive::document(const QString& identifier) const
{
    QList<QSharedPointer<AbstractDocument>> all = ofNoDay;
    for (const auto& documents : ofDays) {
        all.append(documents);
    }
    for (const auto& one : std::as_const(all)) {
        if (one->identifier() == identifier) {
            return one;
        }
    }
    return nullptr;
}

RecoveringTill::RecoveringTill()
    : config({{u"plugins:pharmacy"_s, u"true"_s},
              {u"RestClient:journal"_s, u"*/MedicationDispense/*"_s},
              {u"ElectronicPrescription:requestsUrl"_s, u"http://registry.example"_s},
              {u"ElectronicPrescription:organizationName"_s, u"Аптека № 17"_s},
              {u"ElectronicPrescription:organizationAddress"_s, u"ул. Лесная, 1"_s}})
    , m_client([this] { return QSharedPointer<Registry>::create(*this); })
    , m_choice([this] { return QSharedPointer<Choice>::create(*this); })
{
    config.set(u"Register:data"_s, folder.path());
    saving.onSave = [](const auto&, const QString&, const auto&) { return true; };
    journal.emplace();
}

RecoveringTill::~RecoveringTill()
{
    Current::set(nullptr);
}

QSharedPointer<DocumentDouble> RecoveringTill::document(const QString& name, const QString& prescription,
                                                        const QString& dispense)
{
    const auto made = QSharedPointer<DocumentDouble>::create();
    made->name = name;
    made->setPluginValue(u"ElectronicPrescriptionService"_s, u"cardNumber"_s, u"1100"_s);
    addPosition(*made, prescription, dispense);
    return made;
}

QSharedPointer<GoodsItem> RecoveringTill::addPosition(DocumentDouble& document, const QString& prescription,
                                                      const QString& dispense)
{
    QJsonObject options{{positionformat::id, prescription}, {positionformat::doseQuantity, 10}};
    if (!dispense.isNull()) {
        options[positionformat::status] = positionformat::dispensed;
        options[positionformat::medicationDispenseId] = dispense;
    }
    GoodsItem::Goods goods;
    goods.name = u"Амоксидар"_s;
    const auto position = document.add(goods);
    position->setTag(positionformat::tag);
    position->setExtendedOptions(QString::fromUtf8(bytes(options)));
    return position;
}

QJsonObject RecoveringTill::optionsOf(const AbstractDocument& document, int index)
{
    return QJsonDocument::fromJson(document.getPositions().at(index)->getExtendedOptions().toUtf8()).object();
}

bool RecoveringTill::isMarked(const AbstractDocument& document, int index)
{
    return optionsOf(document, index)["recovery"_L1].toString() == "unknown"_L1;
}

qint64 RecoveringTill::begin(const QString& document, const QString& path, const QByteArray& body)
{
    const auto former = Current().get();
    const auto current = QSharedPointer<DocumentDouble>::create();
    current->name = document;
    Current::set(current);
    const qint64 request = *journal->object.begin(u"POST"_s, QUrl(u"http://registry.example"_s + path), body);
    Current::set(former);
    return request;
}

qint64 RecoveringTill::registration(const QString& document, const QString& prescription, double doses)
{
    const QJsonObject dispense{
        {"resourceType"_L1, "MedicationDispense"_L1},
        {"whenHandedOver"_L1, clock.now.date().toString(Qt::ISODate)},
        {"quantity"_L1, QJsonObject{{"value"_L1, doses}}},
        {"contained"_L1, QJsonArray{location(u"Аптека № 17"_s)}},
        {"authorizingPrescription"_L1,
         QJsonArray{QJsonObject{{"reference"_L1, QString(u"MedicationPrescription/"_s + prescription)}}}},
    };
    const QJsonObject body{
        {"parameter"_L1, QJsonArray{QJsonObject{{"name"_L1, "medicationDispense"_L1}, {"resource"_L1, dispense}}}}};
    return begin(document, u"/MedicationDispense/$register"_s, bytes(body));
}

qint64 RecoveringTill::cancellation(const QString& document, const QString& dispense)
{
    return begin(document, u"/MedicationDispense/%1/$set-as-error"_s.arg(dispense), "{}");
}

void RecoveringTill::confirm(qint64 request, const QString& dispense)
{
    QJsonObject confirmed = entry({{"resourceType"_L1, "MedicationDispense"_L1}, {"id"_L1, dispense}});
    confirmed["transactionResponse"_L1] = QJsonObject{{"status"_L1, "POST:201"_L1}};
    journal->object.end(request, JournalledRequest::State::Answered, 200, bytes(bundle({confirmed})));
}

void RecoveringTill::confirmCancellation(qint64 request)
{
    const QJsonObject confirmed{{"transactionResponse"_L1, QJsonObject{{"status"_L1, "PUT:200"_L1}}}};
    journal->object.end(request, JournalledRequest::State::Answered, 200, bytes(bundle({confirmed})));
}

void RecoveringTill::refuse(qint64 request)
{
    journal->object.end(request, JournalledRequest::State::Answered, 400, R"({"resourceType": "OperationOutcome"})");
}

void RecoveringTill::restart()
{
    journal.reset();
    journal.emplace();
}

void RecoveringTill::makeCurrent(const QSharedPointer<AbstractDocument>& document)
{
    Current::set(document);
}

QStringList RecoveringTill::messages() const
{
    QStringList texts;
    for (const auto& message : dialogs.messages()) {
        texts.append(message.text);
    }
    return texts;
}
