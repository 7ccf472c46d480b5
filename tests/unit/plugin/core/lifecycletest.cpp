// SPDX-License-Identifier: MIT
#include "pharmacydoubles.h"

#include "electronicprescriptionformcreator.h"
#include "graphicaluserinterface.h"
#include "registryuris.h"

#include <log4qt/logmanager.h>

#include <QMetaMethod>
#include <QMetaType>

namespace
{

class UserInterfaceDouble : public GraphicalUserInterface
{
public:
    QList<QSharedPointer<BasicFormCreator>> creators;

    void addFormCreator(const QSharedPointer<BasicFormCreator>& creator) override { creators << creator; }

private:
    InPlace<GraphicalUserInterface> m_place{this};
};

class LifeCycle : public PharmacyTest
{
protected:
    UserInterfaceDouble userInterface;

    void restore(const QVariant& document)
    {
        service.handleEvent(Event(EActivityListener::DocumentRestored).addArgument("document", document));
    }

    void fillState()
    {
        service.patientCache.insert("active", QSharedPointer<Patient>(new Patient("Иванов Иван Иван", QDate())));
        service.prescriptionCache.insert("active", {"77", {prescriptionWithId("1")}});
        service.lastCardNumber = "77";
    }

    bool isCleared() const
    {
        return service.patientCache.isEmpty() && service.prescriptionCache.isEmpty() && service.lastCardNumber.isNull();
    }
};

/// The service with steps that a test replaced.
class ServiceWithSteps : public ElectronicPrescriptionService
{
public:
    int cleared = 0;

    void clear() override { ++cleared; }
};

TEST_F(LifeCycle, newService_hasClientAndLoggerAndNothingElse)
{
    const Service fresh;

    EXPECT_TRUE(fresh.registryClient);
    EXPECT_EQ(fresh.parent(), nullptr);
    EXPECT_TRUE(fresh.patientCache.isEmpty());
    EXPECT_TRUE(fresh.prescriptionCache.isEmpty());
    EXPECT_TRUE(fresh.lastCardNumber.isNull());
    EXPECT_TRUE(fresh.dosageSystemId.isNull());
    EXPECT_EQ(fresh.logger, Log4Qt::LogManager::logger("electronicPrescription"));
    EXPECT_TRUE(fresh.getHandlers().isEmpty());
    EXPECT_TRUE(fresh.getTriggers().isEmpty());
}

TEST_F(LifeCycle, pharmacyMissingInConfiguration_initRegistersNothing)
{
    EXPECT_FALSE(service.init());

    EXPECT_TRUE(service.getHandlers().isEmpty());
    EXPECT_TRUE(service.getTriggers().isEmpty());
    EXPECT_TRUE(userInterface.creators.isEmpty());
    fillState();
    Singleton<ActivityNotifier>::get()->notify(Event(EActivityListener::DocumentOpened));
    EXPECT_FALSE(isCleared()) << "the service listens";
}

TEST_F(LifeCycle, pharmacyOff_initRegistersNothing)
{
    config.setForThisRun("plugins:pharmacy", "false");

    EXPECT_FALSE(service.init());

    EXPECT_TRUE(service.getHandlers().isEmpty());
    EXPECT_TRUE(service.getTriggers().isEmpty());
    EXPECT_TRUE(userInterface.creators.isEmpty());
    fillState();
    Singleton<ActivityNotifier>::get()->notify(Event(EActivityListener::DocumentOpened));
    EXPECT_FALSE(isCleared()) << "the service listens";
}

class InitialisedLifeCycle : public LifeCycle
{
protected:
    InitialisedLifeCycle()
    {
        config.setForThisRun("plugins:pharmacy", "true");
        initialised = service.init();
    }

    bool initialised = false;
};

TEST_F(InitialisedLifeCycle, initSucceeds)
{
    EXPECT_TRUE(initialised);
}

TEST_F(InitialisedLifeCycle, dosageSystemMissingInConfiguration_isDictionaryUri)
{
    EXPECT_EQ(service.dosageSystemId, registryuris::dosageDictionary);
}

TEST_F(LifeCycle, dosageSystemInConfiguration_isTaken)
{
    config.setForThisRun("plugins:pharmacy", "true");
    config.setForThisRun("ElectronicPrescription:dosageSystemId", "urn:dosage");

    ASSERT_TRUE(service.init());

    EXPECT_EQ(service.dosageSystemId, "urn:dosage");
}

TEST_F(InitialisedLifeCycle, oneHandler_isThePrescriptionCommand)
{
    const auto handlers = service.getHandlers();

    ASSERT_EQ(handlers.size(), 1);
    EXPECT_EQ(handlers[0].context, 6);
    EXPECT_EQ(handlers[0].actionType, 94);
    EXPECT_TRUE(handlers[0].enabled);
    cashier.texts << core::BasicDialog::Result({}, true);
    EXPECT_EQ(handlers[0].handler(control::Action(control::PluginCommand)), EContext::Stop);
    EXPECT_EQ(journal, QStringList{"ask inputCard"});
}

TEST_F(InitialisedLifeCycle, eightTriggers_inTheirOrder)
{
    struct Row {
        int context;
        int action;
        int priority;
    };
    const QList<Row> expected = {{4, 224, 3}, {6, 224, 3}, {9, 224, 3}, {6, 133, 3},
                                 {6, 144, 3}, {6, 202, 3}, {6, 131, 2}, {6, 206, 2}};
    const auto triggers = service.getTriggers();

    ASSERT_EQ(triggers.size(), expected.size());
    for (int row = 0; row < expected.size(); ++row) {
        SCOPED_TRACE(row + 1);
        EXPECT_EQ(triggers[row].context, expected[row].context);
        EXPECT_EQ(triggers[row].actionType, expected[row].action);
        EXPECT_EQ(triggers[row].order, 1);
        EXPECT_EQ(triggers[row].result, 0);
        EXPECT_EQ(triggers[row].priority, expected[row].priority);
    }
}

/// The receipt's positions 1 and 3 are registered and 2 is not; a stored document has the registered position 7.
class Triggers : public InitialisedLifeCycle
{
protected:
    /// What the triggers do, in their order, when the receipt is a document of that type.
    QList<QStringList> journalsFor(int documentType)
    {
        QList<QStringList> journals;
        for (const ActionTrigger& trigger : service.getTriggers()) {
            receipt->positions.clear();
            addPosition(7, R"({"status":"dispensed"})");
            const QSharedPointer<DocumentDouble> stored(new DocumentDouble);
            stored->closed = true;
            stored->positions = std::exchange(receipt->positions, {});
            addPosition(1, R"({"status":"dispensed"})");
            addPosition(2, "{}");
            addPosition(3, R"({"status":"dispensed"})");
            receipt->type = documentType;
            control::Action action;
            action.insert("document", QVariant::fromValue(QSharedPointer<AbstractDocument>(stored)));
            action.insert("positionNumber", 3);
            journal.clear();

            EXPECT_EQ(trigger.handler(action), EContext::GoOn);

            journals << journal;
        }
        return journals;
    }

    const QString start = "start electronicPrescriptionProcessMessage";
    const QStringList carriedIsCancelled = {start, "cancel 7", "stop"};
    const QStringList isRegistered = {start, "register 2", "save", "stop"};
    const QStringList oneIsCancelled = {start, "cancel 3", "save", "stop"};
    const QStringList allAreCancelled = {start, "cancel 1", "save", "cancel 3", "save", "stop"};
    const QStringList nothing{};
};

TEST_F(Triggers, onASale_doEachItsOwn)
{
    EXPECT_EQ(journalsFor(AbstractDocument::Sale),
              (QList<QStringList>{carriedIsCancelled, carriedIsCancelled, carriedIsCancelled, isRegistered,
                                  isRegistered, oneIsCancelled, allAreCancelled, allAreCancelled}));
}

TEST_F(Triggers, onAReturn_doEachItsOwn)
{
    EXPECT_EQ(journalsFor(AbstractDocument::Return),
              (QList<QStringList>{carriedIsCancelled, carriedIsCancelled, carriedIsCancelled, allAreCancelled,
                                  allAreCancelled, nothing, nothing, nothing}));
}

TEST_F(InitialisedLifeCycle, listensToTheRegister)
{
    fillState();

    Singleton<ActivityNotifier>::get()->notify(Event(EActivityListener::DocumentClosed));

    EXPECT_TRUE(isCleared());
}

TEST_F(InitialisedLifeCycle, formCreator_isHandedOverAndNotKept)
{
    ASSERT_EQ(userInterface.creators.size(), 1);
    EXPECT_TRUE(userInterface.creators[0].dynamicCast<ElectronicPrescriptionFormCreator>());
    const QWeakPointer<BasicFormCreator> creator = userInterface.creators[0];
    userInterface.creators.clear();
    EXPECT_TRUE(creator.isNull());
}

class ReceiptEvent : public LifeCycle, public ::testing::WithParamInterface<int>
{
};

TEST_P(ReceiptEvent, openedClosedOrCancelled_forgetsTheReceipt)
{
    fillState();

    service.handleEvent(Event(EActivityListener::Event(GetParam())));

    EXPECT_TRUE(isCleared());
}

/// Only a saved receipt that becomes current gives its card number.
TEST_P(ReceiptEvent, carriesADocumentWithACard_forgetsTheCardAllTheSame)
{
    receipt->setPluginValue("ElectronicPrescriptionService", "cardNumber", "4477");
    fillState();

    service.handleEvent(Event(EActivityListener::Event(GetParam()))
                            .addArgument("document", QVariant::fromValue(QSharedPointer<AbstractDocument>(receipt))));

    EXPECT_TRUE(isCleared());
}

TEST_P(ReceiptEvent, openedClosedOrCancelled_clearsThroughTheObject)
{
    ServiceWithSteps withSteps;

    withSteps.handleEvent(Event(EActivityListener::Event(GetParam())));

    EXPECT_EQ(withSteps.cleared, 1);
}

INSTANTIATE_TEST_SUITE_P(code, ReceiptEvent, ::testing::Values(10, 12, 22), ::testing::PrintToStringParamName());

class OtherEvent : public LifeCycle, public ::testing::WithParamInterface<int>
{
};

TEST_P(OtherEvent, changesNothing)
{
    fillState();

    service.handleEvent(Event(EActivityListener::Event(GetParam()))
                            .addArgument("document", QVariant::fromValue(QSharedPointer<AbstractDocument>(receipt))));

    EXPECT_EQ(service.patientCache.size(), 1);
    EXPECT_EQ(service.prescriptionCache.size(), 1);
    EXPECT_EQ(service.lastCardNumber, "77");
    EXPECT_TRUE(journal.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(code, OtherEvent, ::testing::Values(0, 9, 11, 13, 16, 18, 21, 23, 72, 73, 196),
                         ::testing::PrintToStringParamName());

TEST_F(LifeCycle, cleared_copiesOfTheCachesStay)
{
    fillState();
    const auto patients = service.patientCache;
    const auto prescriptions = service.prescriptionCache;
    const auto client = service.registryClient;
    service.dosageSystemId = "urn:dosage";

    service.clear();

    EXPECT_TRUE(isCleared());
    EXPECT_EQ(patients.size(), 1);
    EXPECT_EQ(prescriptions.size(), 1);
    EXPECT_EQ(service.registryClient, client);
    EXPECT_EQ(service.dosageSystemId, "urn:dosage");
    EXPECT_NE(service.logger, nullptr);
}

TEST_F(LifeCycle, restoredDocumentWithCardNumber_givesIt)
{
    receipt->setPluginValue("ElectronicPrescriptionService", "cardNumber", "4477");

    restore(QVariant::fromValue(QSharedPointer<AbstractDocument>(receipt)));

    EXPECT_EQ(service.lastCardNumber, "4477");
}

TEST_F(LifeCycle, restoredDocumentWithNumberAsCard_givesItsText)
{
    receipt->setPluginValue("ElectronicPrescriptionService", "cardNumber", 4477);

    restore(QVariant::fromValue(QSharedPointer<AbstractDocument>(receipt)));

    EXPECT_EQ(service.lastCardNumber, "4477");
}

TEST_F(LifeCycle, restoredDocumentWithoutCardNumber_leavesNull)
{
    service.lastCardNumber = "77";
    receipt->setPluginValue("AnotherPlugin", "cardNumber", "1");
    receipt->setPluginValue("ElectronicPrescriptionService", "cardnumber", "2");

    restore(QVariant::fromValue(QSharedPointer<AbstractDocument>(receipt)));

    EXPECT_TRUE(service.lastCardNumber.isNull());
}

TEST_F(LifeCycle, restoredDocumentIsTheOneOfTheEvent_notTheCurrentOne)
{
    receipt->setPluginValue("ElectronicPrescriptionService", "cardNumber", "of the current one");
    const QSharedPointer<DocumentDouble> restored(new DocumentDouble);
    restored->setPluginValue("ElectronicPrescriptionService", "cardNumber", "of the restored one");

    restore(QVariant::fromValue(QSharedPointer<AbstractDocument>(restored)));

    EXPECT_EQ(service.lastCardNumber, "of the restored one");
}

/// Putting a receipt aside sends no event; the next one that becomes current is another one.
TEST_F(LifeCycle, anotherReceiptTakenUp_forgetsWhatWasLookedUpBefore)
{
    receipt->setPluginValue("ElectronicPrescriptionService", "cardNumber", "77");
    fillState();

    restore(QVariant::fromValue(QSharedPointer<AbstractDocument>(receipt)));

    EXPECT_TRUE(service.prescriptionCache.isEmpty());
    EXPECT_TRUE(service.patientCache.isEmpty());
    EXPECT_EQ(service.lastCardNumber, "77");
}

// The first receipt serves the prescription in full and is put aside after the subtotal. The second receipt has the
// same card, and was put aside before.
TEST_F(LifeCycle, prescriptionServedInFullOnAReceiptPutAside_isNotOfferedOnTheNextOne)
{
    const auto bundleOf = [](const QString& id) {
        const QJsonObject resource{{"resourceType", "MedicationPrescription"}, {"id", id}};
        return QJsonObject{{"entry", QJsonArray{QJsonObject{{"resource", resource}}}}};
    };
    const auto offered = [this] {
        QStringList ids;
        QList<QSharedPointer<ElectronicPrescription>> prescriptions;
        shownLists.last().getElectronicPrescriptions(prescriptions);
        for (const auto& prescription : prescriptions) {
            ids << prescription->getId();
        }
        return ids;
    };
    control::Action command(control::PluginCommand);
    command.insert("status", "active");
    const QSharedPointer<DocumentDouble> former(new DocumentDouble);
    former->setPluginValue("ElectronicPrescriptionService", "cardNumber", "77");

    registry->bundles = {bundleOf("served"), bundleOf("other")};
    cashier.texts << entered("77");
    cashier.rows << -1;
    service.processElectronicPrescriptionsByAction(command);
    ASSERT_EQ(offered(), (QStringList{"served", "other"}));
    addPosition(1, R"({"id":"served","finalDispense":true})");
    ASSERT_EQ(service.beforeSubtotal(control::Action(control::Subtotal)), EContext::GoOn);

    registry->bundles = {bundleOf("other")}; // the registry gives no prescription that was served in full
    DocumentWatcher::setCurrentDocument(former);
    restore(QVariant::fromValue(QSharedPointer<AbstractDocument>(former)));
    cashier.rows << -1;
    service.processElectronicPrescriptionsByAction(command);

    EXPECT_EQ(offered(), QStringList{"other"});
}

TEST_F(LifeCycle, restoredWithoutDocument_leavesNull)
{
    service.lastCardNumber = "77";
    service.handleEvent(Event(EActivityListener::DocumentRestored));
    EXPECT_TRUE(service.lastCardNumber.isNull());

    service.lastCardNumber = "77";
    restore("no document");
    EXPECT_TRUE(service.lastCardNumber.isNull());

    service.lastCardNumber = "77";
    restore(QVariant::fromValue(QSharedPointer<AbstractDocument>()));
    EXPECT_TRUE(service.lastCardNumber.isNull());
}

TEST_F(LifeCycle, document_convertsToQObject)
{
    const QVariant document = QVariant::fromValue(QSharedPointer<AbstractDocument>(receipt));

    ASSERT_TRUE(document.canConvert<QObject*>());
    EXPECT_EQ(document.value<QObject*>(), receipt.data());
}

TEST_F(LifeCycle, restoredDocument_doesNotClearThroughTheObject)
{
    ServiceWithSteps withSteps;

    withSteps.handleEvent(Event(EActivityListener::DocumentRestored));

    EXPECT_EQ(withSteps.cleared, 0);
}

TEST_F(LifeCycle, startEvent_carriesTheMessage)
{
    const tr::Tr message("aKey", "Текст");

    service.sendStartEvent(message);

    ASSERT_EQ(events.size(), 1);
    EXPECT_EQ(events[0].getCode(), 72);
    const QVariant value = events[0].value("message");
    ASSERT_EQ(value.metaType(), QMetaType::fromType<tr::Tr>());
    EXPECT_EQ(value.value<tr::Tr>(), message);
}

TEST_F(LifeCycle, stopEvent_carriesNothing)
{
    service.sendStopEvent();

    ASSERT_EQ(events.size(), 1);
    EXPECT_EQ(events[0].getCode(), 73);
    EXPECT_FALSE(events[0].value("message").isValid());
}

TEST_F(LifeCycle, metaObject_hasOneSlotAndAnswersForEveryBase)
{
    const QMetaObject& meta = ElectronicPrescriptionService::staticMetaObject;
    EXPECT_STREQ(meta.className(), "ElectronicPrescriptionService");
    EXPECT_EQ(meta.superClass(), &BaseActivityListener::staticMetaObject);
    ASSERT_EQ(meta.methodCount() - meta.methodOffset(), 1);
    EXPECT_EQ(meta.method(meta.methodOffset()).methodSignature(), "handleEvent(Event)");
    EXPECT_EQ(meta.method(meta.methodOffset()).methodType(), QMetaMethod::Slot);

    ElectronicPrescriptionService* const object = &service;
    EXPECT_EQ(object->qt_metacast("ElectronicPrescriptionService"), static_cast<void*>(object));
    EXPECT_EQ(object->qt_metacast("BasicPlugin"), static_cast<void*>(static_cast<BasicPlugin*>(object)));
    EXPECT_EQ(object->qt_metacast(AbstractPlugin_iid), static_cast<void*>(static_cast<AbstractPlugin*>(object)));
    EXPECT_NE(object->qt_metacast("DocumentWatcher"), nullptr);
    EXPECT_EQ(object->qt_metacast("BaseActivityListener"),
              static_cast<void*>(static_cast<BaseActivityListener*>(object)));
    EXPECT_EQ(object->qt_metacast("QObject"), static_cast<void*>(static_cast<QObject*>(object)));
    EXPECT_EQ(object->qt_metacast("SomethingElse"), nullptr);
    EXPECT_TRUE(QString(AbstractPlugin_iid).endsWith(".AbstractPlugin"));
}

TEST_F(LifeCycle, listener_comesBeforePlugin)
{
    ElectronicPrescriptionService* const object = &service;
    const void* const listener = static_cast<BaseActivityListener*>(object);
    const void* const plugin = static_cast<BasicPlugin*>(object);

    EXPECT_EQ(listener, object);
    EXPECT_LT(listener, plugin);
}

} // namespace
