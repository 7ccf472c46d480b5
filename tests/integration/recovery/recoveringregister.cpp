// SPDX-License-Identifier: MIT
#include "recoveringregister.h"

#include "actionhost.h"
#include "actionqueuecontroller.h"
#include "activitynotifier.h"
#include "dispenserecovery.h"
#include "documentarchive.h"
#include "documentwatcher.h"
#include "electronicprescriptionservice.h"
#include "graphicaluserinterface.h"
#include "inplace.h"
#include "loyaltysystemlayer.h"
#include "opendocumentcommands.h"
#include "opendocumentfile.h"
#include "paymentcommands.h"
#include "pharmacy.h"
#include "positionoptions.h"
#include "receiptprinter.h"
#include "requestjournal.h"
#include "storeddocumentcommands.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

#include <utility>

using namespace Qt::StringLiterals;

namespace
{

/// What the patient gets for a prescription, and what is paid for it.
struct Medicine {
    const char* tradeNameCode;
    const char* payer; ///< its id at the registry; empty: the patient pays all
    double patientShare;
    Kopecks price; ///< per pack
};

const Medicine& medicineOf(int prescription)
{
    static const Medicine medicines[] = {
        {"1001", "", 1, Kopecks{1240}},
        {"1003", "payer-1", 0.5, Kopecks{1000}},
        {"1002", "payer-1", 0, Kopecks{335}},
    };
    return medicines[prescription - 1];
}

CatalogueGoods goodsOf(int prescription)
{
    CatalogueGoods goods;
    goods.code = QString::fromLatin1(medicineOf(prescription).tradeNameCode);
    goods.name = u"Лекарство по рецепту "_s + Pharmacy::prescriptionOf(prescription);
    goods.price = medicineOf(prescription).price;
    goods.cataloguePrice = medicineOf(prescription).price;
    return goods;
}

PositionOptions optionsOf(int prescription, double doses, bool isFinal)
{
    const Medicine& medicine = medicineOf(prescription);
    return PositionOptions(QJsonDocument(QJsonObject{
        {u"id"_s, Pharmacy::prescriptionOf(prescription)},
        {u"tradeNameCode"_s, QString::fromLatin1(medicine.tradeNameCode)},
        {u"organizationId"_s, QString::fromLatin1(medicine.payer)},
        {u"sumFactor"_s, medicine.patientShare},
        {u"doseQuantity"_s, doses},
        {u"finalDispense"_s, isFinal},
        {u"patientReference"_s, u"Patient/p-1"_s},
        {u"patient"_s, u"Пробный П."_s},
    }));
}

QString bookLine(const QString& prescription, double doses, const QString& id)
{
    return u"%1: %2 doses as %3"_s.arg(prescription).arg(doses).arg(id);
}

bool isGivenUp(const Document& document)
{
    return document.getState() == Document::State::Cancelled || document.getState() == Document::State::Voided;
}

} // namespace

class RecoveringRegister::FirstChoice : public DispenseChoiceDialog
{
public:
    explicit FirstChoice(int& times)
        : m_times(times)
    {
    }
    DispenseChoice ask(const DispenseChoiceParams& params) override
    {
        ++m_times;
        EXPECT_FALSE(params.dispenses.isEmpty()) << "there is nothing to choose from";
        return {DispenseChoice::Chosen, 0};
    }

private:
    int& m_times;
};

/// One run of the register.
class RecoveringRegister::Running
{
public:
    explicit Running(const QString& folder)
        : printer(folder, marks)
        , till(folder)
        , openDocumentCommands(till)
        , paymentCommands(till)
        , storedDocumentCommands(till, printer, marks)
    {
        till.setActivePlugins([] { return QStringList{u"electronicprescription"_s}; });
        openDocumentCommands.offer(controller.object);
        paymentCommands.offer(controller.object);
        storedDocumentCommands.offer(controller.object);
        start(prescriptions);
        start(recovery);
        till.restore(OpenDocumentFile(folder).load());
    }
    ~Running() { DocumentWatcher::setCurrentDocument(nullptr); }
    Q_DISABLE_COPY_MOVE(Running)

    void start(BasicPlugin& plugin)
    {
        EXPECT_TRUE(plugin.init());
        const auto triggers = plugin.getTriggers();
        for (const ActionTrigger& trigger : triggers) {
            controller.object.host().addTrigger(trigger);
        }
    }

    Own<ActivityNotifier> notifier;
    Own<ActionQueueController> controller;
    Own<GraphicalUserInterface> gui;
    Own<LoyaltySystemLayer> loyalty;
    Own<DocumentArchive> documentArchive;
    Own<RequestJournal> journal;
    PositionMarks marks;
    ReceiptPrinter printer;
    Till till;
    OpenDocumentCommands openDocumentCommands;
    PaymentCommands paymentCommands;
    StoredDocumentCommands storedDocumentCommands;
    ElectronicPrescriptionService prescriptions;
    DispenseRecovery recovery;
};

RecoveringRegister::RecoveringRegister()
    : m_registry({}, seedOfThreePrescriptions())
    , m_config(configurationFor(m_registry.url().toString(), m_folder.path(), 5))
    , m_choice([this] { return QSharedPointer<FirstChoice>::create(m_choices); })
{
    m_config.set(u"RestClient:journal"_s, u"*/MedicationDispense/*"_s);
    m_config.set(u"plugins:pharmacy"_s, u"true"_s);
    m_saving.onSave = [this](const auto&, const QString&, const SavingDouble::Write& write) { return save(write); };
    m_running = std::make_unique<Running>(m_folder.path());
}

RecoveringRegister::~RecoveringRegister() = default;

Till& RecoveringRegister::till() const
{
    return m_running->till;
}

EContext::Result RecoveringRegister::run(control::EActionType type, const QVariantMap& arguments) const
{
    control::Action action(type);
    for (auto argument = arguments.cbegin(); argument != arguments.cend(); ++argument) {
        action.insert(argument.key(), argument.value());
    }
    return m_running->controller.object.execute(action);
}

void RecoveringRegister::serve(int prescription, double doses, bool isFinal) const
{
    const int number = till().add({goodsOf(prescription), 1});
    till().document()->setPluginValue(u"ElectronicPrescriptionService"_s, u"cardNumber"_s, u"1100"_s);
    const auto position = till().document()->position(number);
    optionsOf(prescription, doses, isFinal).mark(*position);
    position->setPrice(position->getPrice() * medicineOf(prescription).patientShare);
    till().save();
}

bool RecoveringRegister::close() const
{
    return run(control::SubtotalAndPayment) == EContext::GoOn &&
           till().close({Payment::cash(till().document()->getSum())});
}

EContext::Result RecoveringRegister::voidDocument(const QSharedPointer<Document>& document) const
{
    return run(control::VoidDocument, {{u"document"_s, QVariant::fromValue(document.staticCast<AbstractDocument>())}});
}

void RecoveringRegister::compare() const
{
    m_running->recovery.reconcile();
}

void RecoveringRegister::cutPowerAt(int nth, bool isSaved)
{
    m_savesLeft = nth;
    m_isLastSaved = isSaved;
}

bool RecoveringRegister::save(const SavingDouble::Write& write)
{
    const bool isLast = m_savesLeft > 0 && --m_savesLeft == 0;
    if (m_hasPower && !isLast) {
        return write();
    }
    if (std::exchange(m_hasPower, false)) {
        m_requestsBefore = requests();
        if (m_isLastSaved) {
            write();
        }
    }
    throw PowerCut();
}

void RecoveringRegister::restart()
{
    if (!std::exchange(m_hasPower, true)) {
        EXPECT_EQ(requests(), m_requestsBefore) << "something went out after the power had failed";
    }
    m_running.reset();
    m_running = std::make_unique<Running>(m_folder.path());
}

QList<QSharedPointer<Document>> RecoveringRegister::documents() const
{
    constexpr int all = 1000;
    QList<QSharedPointer<Document>> documents = till().archive().latest(all);
    if (till().document()) {
        documents.append(till().document());
    }
    return documents;
}

QStringList RecoveringRegister::registryBooks() const
{
    QStringList lines;
    for (const int prescription : everyPosition) {
        const QString id = Pharmacy::prescriptionOf(prescription);
        const QList<emulator::Dispense> dispenses =
            m_registry.ask([&id](auto& registry) { return registry.store().dispensesOf(id); });
        for (const emulator::Dispense& dispense : dispenses) {
            if (!dispense.isCancelled) {
                lines.append(bookLine(id, dispense.quantity, dispense.id));
            }
        }
    }
    lines.sort();
    return lines;
}

QStringList RecoveringRegister::documentBooks() const
{
    QStringList lines;
    const auto all = documents();
    for (const auto& document : all) {
        if (document->isReturn() || isGivenUp(*document)) {
            continue; // what a return cancels is written to its sale
        }
        for (const auto& position : document->positions()) {
            const PositionOptions options(*position);
            if (isPrescriptionPosition(*position) && options.isRegistered()) {
                lines.append(bookLine(options.id(), options.doseQuantity(), options.medicationDispenseId()));
            }
        }
    }
    lines.sort();
    return lines;
}

void RecoveringRegister::order(const std::function<void(emulator::FaultScript&)>& order) const
{
    m_registry.ask([&](auto& registry) { order(registry.faults()); });
}

qsizetype RecoveringRegister::requests() const
{
    return m_registry.ask([](auto& registry) { return registry.journal().entries().size(); });
}
