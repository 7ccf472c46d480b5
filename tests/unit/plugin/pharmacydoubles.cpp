// SPDX-License-Identifier: MIT
#include "pharmacydoubles.h"

#include "workstep.h"

#include <QJsonDocument>

void RegistryClient::getElectronicPrescriptionsByCardNumber(const QString& cardNumber, const QString& status,
                                                            QJsonArray& prescriptions, QJsonObject& thePatient) const
{
    m_journal << QString("by card %1 %2").arg(cardNumber, status);
    if (beforeAnswer) {
        beforeAnswer();
    }
    prescriptions = bundles;
    thePatient = patient;
}

void RegistryClient::sendMedicationDispense(const QSharedPointer<GoodsItem>& position) const
{
    m_journal << QString("register %1").arg(position->getNumber());
    if (onDispense) {
        onDispense(*position);
    }
}

void RegistryClient::sendCancelMedicationDispense(const QSharedPointer<GoodsItem>& position) const
{
    m_journal << QString("cancel %1").arg(position->getNumber());
    if (onCancel) {
        onCancel(*position);
    }
}

void ServiceWithOwnEvents::sendStartEvent(const tr::Tr& message) const
{
    m_journal << "own start " + message.key();
}

void ServiceWithOwnEvents::sendStopEvent() const
{
    m_journal << "own stop";
}

bool ServiceWithOwnEvents::hasPrescriptions() const
{
    return onHasPrescriptions();
}

core::BasicDialog::Result entered(const QString& text)
{
    return {text};
}

core::BasicDialog::Result status(int value)
{
    return {QVariantMap{{"status", value}}};
}

class PharmacyTest::NotifierDouble : public ActivityNotifier
{
public:
    explicit NotifierDouble(PharmacyTest& test)
        : m_test(test)
    {
    }

    void notify(const Event& event) override
    {
        m_test.events << event;
        if (event.getCode() == EActivityListener::LongWorkBegins) {
            m_test.journal << "start " + event.value("message").value<tr::Tr>().key();
        } else if (event.getCode() == EActivityListener::LongWorkEnds) {
            m_test.journal << "stop";
        } else {
            m_test.journal << QString("event %1").arg(event.getCode());
        }
        ActivityNotifier::notify(event);
    }

private:
    PharmacyTest& m_test;
};

class PharmacyTest::PrescriptionDialogDouble : public ElectronicPrescriptionDialog
{
public:
    explicit PrescriptionDialogDouble(PharmacyTest& test)
        : m_test(test)
    {
    }

    int choiceElectronicPrescription(const ElectronicPrescriptionChoiceParams& params) override
    {
        m_test.shownLists << params;
        m_test.journal << (params.isUseLast() ? "list again" : "list");
        if (!m_test.cashier.rows.isEmpty()) {
            return m_test.cashier.rows.takeFirst();
        }
        ADD_FAILURE() << "nobody answers the list";
        return -1;
    }

    core::BasicDialog::Result showElectronicPrescription(const ElectronicPrescriptionParams& params) override
    {
        m_test.shownDetails << params;
        QSharedPointer<ElectronicPrescription> prescription;
        params.getElectronicPrescription(prescription);
        m_test.shownDictionaryNames << prescription->getDictName();
        m_test.journal << "details";
        if (!m_test.cashier.details.isEmpty()) {
            return m_test.cashier.details.takeFirst();
        }
        ADD_FAILURE() << "nobody answers the details";
        return status(-1);
    }

    core::BasicDialog::Result
    confirmDispenseForElectronicPrescription(const ElectronicPrescriptionConfirmDispenseParams& params) override
    {
        m_test.shownConfirmations << params;
        m_test.journal << "confirm";
        if (!m_test.cashier.confirmations.isEmpty()) {
            return m_test.cashier.confirmations.takeFirst();
        }
        ADD_FAILURE() << "nobody answers the confirmation";
        return status(-1);
    }

private:
    PharmacyTest& m_test;
};

class PharmacyTest::QueueDouble : public ActionQueueController
{
public:
    explicit QueueDouble(PharmacyTest& test)
        : m_test(test)
    {
    }

    EContext::Result execute(control::Action& action) override
    {
        m_test.actions << action;
        m_test.journal << QString("action %1").arg(action.getType());
        return m_test.onAction(action);
    }

private:
    PharmacyTest& m_test;
};

class PharmacyTest::LoyaltyDouble : public LoyaltySystemLayer
{
public:
    explicit LoyaltyDouble(PharmacyTest& test)
        : m_test(test)
    {
    }

    void recalculate(const QSharedPointer<AbstractDocument>& document) override
    {
        m_test.recalculated << document;
        QList<double> prices;
        for (const auto& position : document->getPositions()) {
            prices << position->getPrice();
        }
        m_test.recalculatedPrices << prices;
        m_test.journal << "recalculate";
    }

private:
    PharmacyTest& m_test;
};

PharmacyTest::PharmacyTest()
    : m_notifier(std::make_unique<NotifierDouble>(*this))
    , m_queue(std::make_unique<QueueDouble>(*this))
    , m_loyalty(std::make_unique<LoyaltyDouble>(*this))
    , m_notifierInPlace(m_notifier.get())
    , m_queueInPlace(m_queue.get())
    , m_loyaltyInPlace(m_loyalty.get())
    , m_prescriptionDialog([this] { return QSharedPointer<PrescriptionDialogDouble>::create(*this); })
{
    answerDialogs();
    keepSaved();
    DocumentWatcher::setCurrentDocument(receipt);
    service.registryClient = registry;
}

PharmacyTest::~PharmacyTest()
{
    DocumentWatcher::setCurrentDocument({});
}

void PharmacyTest::answerDialogs()
{
    m_dialog.onMessage = [this](const DialogDouble::Message& message) {
        messages << message.tr;
        messageSteps << WorkStep::currentText();
        messageAdvice << WorkStep::currentAdvice();
        journal << QString("message %1/%2/%3 %4")
                       .arg(message.kind)
                       .arg(message.sound)
                       .arg(message.seconds)
                       .arg(message.tr.key());
    };
    m_dialog.onTextInput = [this](const TextInputParams& params) -> core::BasicDialog::Result {
        textInputs << params;
        journal << "ask " + params.inputName;
        if (!cashier.texts.isEmpty()) {
            return cashier.texts.takeFirst();
        }
        ADD_FAILURE() << "nobody answers the text input " << qPrintable(params.inputName);
        return {{}, true};
    };
}

void PharmacyTest::keepSaved()
{
    m_saving.onSave = [this](const auto& document, const QString& file, const SavingDouble::Write&) {
        saved << document;
        savedFiles << file;
        saveSteps << WorkStep::currentText();
        savedContents << document->toJson();
        journal << "save";
        return true;
    };
}

QSharedPointer<GoodsItem> PharmacyTest::addPosition(int number, const char* options, double price,
                                                    double minRetailPrice)
{
    GoodsItem::Goods goods;
    goods.number = number;
    goods.name = QString("Товар %1").arg(number);
    goods.price = Kopecks::fromRoubles(price).value();
    const QSharedPointer<GoodsItem> position(new PositionWithMinimum(goods, minRetailPrice));
    if (options) {
        position->setTag("prescription");
        position->setExtendedOptions(options);
    }
    receipt->positions << position;
    return position;
}

QSharedPointer<ElectronicPrescription> prescriptionWithId(const QString& id)
{
    const QSharedPointer<ElectronicPrescription> prescription(new ElectronicPrescription);
    prescription->setId(id);
    return prescription;
}

QJsonObject optionsOf(const GoodsItem& position)
{
    const QJsonDocument document = QJsonDocument::fromJson(position.getExtendedOptions().toUtf8());
    EXPECT_TRUE(document.isObject()) << qPrintable(position.getExtendedOptions());
    return document.object();
}

QStringList savedStates(const QJsonObject& document)
{
    QStringList states;
    const QJsonArray positions = document["positions"].toArray();
    for (const auto& position : positions) {
        const QByteArray options = position.toObject()["extendedOptions"].toString().toUtf8();
        states << QJsonDocument::fromJson(options)["status"].toString();
    }
    return states;
}
