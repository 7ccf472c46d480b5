// SPDX-License-Identifier: MIT
#pragma once

#include "actionqueuecontroller.h"
#include "activitynotifier.h"
#include "configured.h"
#include "dialogdouble.h"
#include "documentdouble.h"
#include "electronicprescriptiondialog.h"
#include "electronicprescriptioninterface.h"
#include "electronicprescriptionservice.h"
#include "goodsitem.h"
#include "inplace.h"
#include "loyaltysystemlayer.h"
#include "mocked.h"
#include "qtprinting.h"
#include "savingdouble.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QStringList>

#include <gtest/gtest.h>

#include <functional>

/// The service with its state in reach.
class Service : public ElectronicPrescriptionService
{
public:
    using ElectronicPrescriptionService::dosageSystemId;
    using ElectronicPrescriptionService::lastCardNumber;
    using ElectronicPrescriptionService::logger;
    using ElectronicPrescriptionService::patientCache;
    using ElectronicPrescriptionService::prescriptionCache;
    using ElectronicPrescriptionService::registryClient;
};

/// The service with three steps replaced: the two events of long work and hasPrescriptions().
class ServiceWithOwnEvents : public Service
{
public:
    explicit ServiceWithOwnEvents(QStringList& journal)
        : m_journal(journal)
    {
    }

    /// What hasPrescriptions() answers; may throw.
    std::function<bool()> onHasPrescriptions = [] { return true; };

    /// Written down as "own start aKey".
    void sendStartEvent(const tr::Tr& message) const override;
    /// Written down as "own stop".
    void sendStopEvent() const override;
    bool hasPrescriptions() const override;

private:
    QStringList& m_journal;
};

/// A position of any minimum price, even one that the register does not keep.
class PositionWithMinimum : public GoodsItem
{
public:
    PositionWithMinimum(const Goods& goods, double minRetailPrice)
        : GoodsItem(goods)
        , m_minRetailPrice(minRetailPrice)
    {
    }

    double getMinRetailPrice() const override { return m_minRetailPrice; }

private:
    double m_minRetailPrice;
};

/// A position that writes down what is set on it.
class JournallingPosition : public GoodsItem
{
public:
    using GoodsItem::GoodsItem;

    QStringList calls;

    void setPrice(double price) override
    {
        calls << "price";
        GoodsItem::setPrice(price);
    }
    void setTag(const QString& tag) override
    {
        calls << "tag";
        GoodsItem::setTag(tag);
    }
    void setExtendedOptions(const QString& options) override
    {
        calls << "options";
        GoodsItem::setExtendedOptions(options);
    }
    void setSoftCheckId(const QString& id) override
    {
        calls << "soft check id";
        GoodsItem::setSoftCheckId(id);
    }
};

/// A registry client that answers and fails as the test says.
class RegistryClient : public ElectronicPrescriptionInterface
{
public:
    explicit RegistryClient(QStringList& journal)
        : m_journal(journal)
    {
    }

    QJsonArray bundles;
    QJsonObject patient;
    /// Called before a card is answered; may throw.
    std::function<void()> beforeAnswer;
    /// Called for the position that is registered or cancelled; may throw.
    std::function<void(GoodsItem&)> onDispense;
    std::function<void(GoodsItem&)> onCancel;

    void getElectronicPrescriptionsByCardNumber(const QString& cardNumber, const QString& status,
                                                QJsonArray& prescriptions, QJsonObject& thePatient) const override;
    void sendMedicationDispense(const QSharedPointer<GoodsItem>& position) const override;
    void sendCancelMedicationDispense(const QSharedPointer<GoodsItem>& position) const override;

private:
    QStringList& m_journal;
};

/// What the cashier answers, in order. When no answer is left, a dialog fails the test and is cancelled.
struct Cashier {
    QList<core::BasicDialog::Result> texts;
    QList<int> rows;
    QList<core::BasicDialog::Result> details;
    QList<core::BasicDialog::Result> confirmations;
};

/// A text input's answer.
core::BasicDialog::Result entered(const QString& text);

/// An answer of the details form or of the confirmation.
core::BasicDialog::Result status(int value);

/// Everything around the service is a double. All of them write into one journal, so that the order can be seen.
class PharmacyTest : public ::testing::Test
{
protected:
    PharmacyTest();
    ~PharmacyTest() override;

    /// Puts a position on the receipt; with the tag "prescription" when `options` is not null.
    QSharedPointer<GoodsItem> addPosition(int number, const char* options = nullptr, double price = 100.0,
                                          double minRetailPrice = 0.0);

    /// What happened, in lines such as "start electronicPrescriptionProcessMessage", "stop", "message 1/1/0 aKey",
    /// "save", "list", "list again", "details", "confirm", "ask inputCard", "action 219", "recalculate", "by card 77
    /// active", "register 1", "cancel 1".
    QStringList journal;
    Cashier cashier;

    QSharedPointer<DocumentDouble> receipt{new DocumentDouble};
    Configured config;
    Service service;
    QSharedPointer<RegistryClient> registry{new RegistryClient(journal)};

    /// What the register does with an action of the plug-in; by default it does it.
    std::function<EContext::Result(control::Action&)> onAction = [](control::Action&) { return EContext::GoOn; };

    QList<tr::Tr> messages;                        ///< shown to the cashier
    QStringList messageSteps;                      ///< that the messages were about, one for each message
    QStringList messageAdvice;                     ///< below the messages, one for each message
    QList<Event> events;                           ///< sent to the register
    QList<TextInputParams> textInputs;             ///< shown to the cashier
    QList<control::Action> actions;                ///< executed, as they were handed over
    QList<QSharedPointer<AbstractDocument>> saved; ///< by SaveToFileLogic
    QStringList savedFiles;
    QStringList saveSteps;            ///< that a failure of the saving would be about, one for each saving
    QList<QJsonObject> savedContents; ///< of the documents, as they were when they were saved
    QList<ElectronicPrescriptionChoiceParams> shownLists;
    QList<ElectronicPrescriptionParams> shownDetails;
    QStringList shownDictionaryNames; ///< of the prescriptions whose details were shown, as they were then
    QList<ElectronicPrescriptionConfirmDispenseParams> shownConfirmations;
    QList<QSharedPointer<AbstractDocument>> recalculated;
    QList<QList<double>> recalculatedPrices; ///< of all positions, as they were when the document was recalculated

private:
    class NotifierDouble;
    class PrescriptionDialogDouble;
    class QueueDouble;
    class LoyaltyDouble;

    void answerDialogs();
    void keepSaved();

    std::unique_ptr<ActivityNotifier> m_notifier;
    std::unique_ptr<ActionQueueController> m_queue;
    std::unique_ptr<LoyaltySystemLayer> m_loyalty;
    InPlace<ActivityNotifier> m_notifierInPlace;
    InPlace<ActionQueueController> m_queueInPlace;
    InPlace<LoyaltySystemLayer> m_loyaltyInPlace;
    DialogDouble m_dialog;
    Mocked<ElectronicPrescriptionDialog> m_prescriptionDialog;
    SavingDouble m_saving;
};

/// A prescription with an id and nothing else.
QSharedPointer<ElectronicPrescription> prescriptionWithId(const QString& id);

/// The options of a position as a JSON object; fails the test when they are none.
QJsonObject optionsOf(const GoodsItem& position);

/// The states of a saved document's positions, in their order; an empty text for none.
QStringList savedStates(const QJsonObject& document);
