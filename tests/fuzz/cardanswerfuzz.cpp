// SPDX-License-Identifier: MIT
// A card's prescriptions: from the bytes of the answer to every cell of the list.

#include "fuzztarget.h"

#include "dialogdouble.h"
#include "documentdouble.h"
#include "electronicprescriptionchoicemodel.h"
#include "electronicprescriptionexception.h"
#include "electronicprescriptioninterface.h"
#include "electronicprescriptionservice.h"
#include "goodsitem.h"
#include "mocked.h"
#include "positionoptions.h"
#include "restclient.h"

#include <QJsonDocument>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

using Prescriptions = ElectronicPrescriptionService::Prescriptions;

/// Answers with bytes instead of a server.
class Answer : public RestClient
{
public:
    Answer(const QByteArray& bytes, int code)
        : m_bytes(bytes)
        , m_code(code)
    {
    }
    void get(const QUrl&, const QJsonDocument&, const QHash<QString, QString>&) override {}
    int errorCode() const override { return m_code; }
    tr::Tr errorText() const override { return {u"answerRefused"_s, u"Отказ"_s}; }
    QJsonDocument answer() const override { return QJsonDocument::fromJson(m_bytes); }

private:
    QByteArray m_bytes;
    int m_code;
};

class Client : public ElectronicPrescriptionInterface
{
public:
    void getAuthorizationToken(QString& token) const override { token = u"token"_s; }
};

class Service : public ElectronicPrescriptionService
{
public:
    Service()
    {
        registryClient.reset(new Client);
        dosageSystemId = u"urn:dosage"_s;
    }
    using ElectronicPrescriptionService::patientCache;
};

/// The number of nested Bundles, each of which is a prescription.
qsizetype bundlesIn(const QByteArray& bytes)
{
    const QJsonObject answer = QJsonDocument::fromJson(bytes).object();
    if (answer["resourceType"_L1] != "Bundle"_L1) {
        return 0;
    }
    const QJsonArray entries = answer["entry"_L1].toArray();
    return std::count_if(entries.begin(), entries.end(), [](const QJsonValue& entry) {
        return entry["resource"_L1]["resourceType"_L1] == "Bundle"_L1;
    });
}

Prescriptions lookUp(Service& service, const QByteArray& bytes)
{
    const DialogDouble dialog;
    Prescriptions prescriptions;
    service.getElectronicPrescriptionsByCardNumber(u"77"_s, u"active"_s, prescriptions);
    promise(prescriptions.size() == bundlesIn(bytes), "there are as many prescriptions as nested Bundles");
    promise(dialog.messages().size() == (prescriptions.isEmpty() ? 1 : 0), "a message is shown when there are none");
    promise(prescriptions.isEmpty() || service.patientCache.value(u"active"_s), "prescriptions come with a patient");
    return prescriptions;
}

void lookAtEveryCell(const Prescriptions& prescriptions)
{
    const ElectronicPrescriptionChoiceModel model(prescriptions, {}, nullptr);
    promise(model.rowCount() == prescriptions.size(), "the list has a row for each prescription");
    for (int row = 0; row < model.rowCount(); ++row) {
        for (int column = 0; column < model.columnCount(); ++column) {
            promise(model.index(row, column).data().typeId() == QMetaType::QString, "every cell holds a text");
        }
        for (const int column : {ElectronicPrescriptionChoiceModel::DoseQuantity,
                                 ElectronicPrescriptionChoiceModel::DispensedDoseQuantity}) {
            bool isNumber = false;
            model.index(row, column).data().toString().toDouble(&isNumber);
            promise(isNumber, "doses are shown as a number");
        }
    }
}

/// Adds a served prescription to the document: it is not offered again, and the others are.
void serveFirst(const Service& service, const Prescriptions& prescriptions)
{
    const QString id = prescriptions.first()->getId();
    if (!id.isValidUtf16()) { // JSON would change it
        return;
    }
    const auto sale = QSharedPointer<DocumentDouble>::create();
    const auto position = sale->add();
    service.fillElectronicPrescriptionDataForPosition(prescriptions.first(), position, true, 1.0);
    service.setPriceForPosition(prescriptions.first(), position);
    promise(PositionOptions(*position).id() == id, "the position keeps the id");

    Prescriptions others = prescriptions;
    others.removeIf([&id](const auto& prescription) { return prescription->getId() == id; });
    Prescriptions left = prescriptions;
    DocumentWatcher::setCurrentDocument(sale);
    service.getUnprocessedElectronicPrescriptions(left);
    DocumentWatcher::setCurrentDocument({});
    promise(left == others, "all but the served one are left, in their order");

    QJsonDocument dispense;
    Client().formMedicationDispense(position, dispense);
    promise(dispense.isObject(), "the dispense makes a document for the registry");
}

/// Uses the same bytes as the answer to a failed request.
void refuse(const QByteArray& bytes)
{
    const QSharedPointer<RestClient> client(new Answer(bytes, 500));
    QJsonDocument result;
    try {
        Client().getRequestResult(client, result);
    } catch (const ElectronicPrescriptionException&) {
        return;
    }
    promise(false, "a failed request is an error with any answer");
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes = bytesOf(data, size);
    const Mocked<RestClient> mocked([&bytes] { return QSharedPointer<Answer>::create(bytes, 0); });

    Service service;
    const Prescriptions prescriptions = lookUp(service, bytes);
    lookAtEveryCell(prescriptions);
    if (!prescriptions.isEmpty()) {
        serveFirst(service, prescriptions);
    }
    Client().checkRequestResultStatus(QJsonDocument::fromJson(bytes).object(), u"POST:201"_s);
    refuse(bytes);
    return 0;
}
