// SPDX-License-Identifier: MIT
#include "pharmacydoubles.h"

#include "electronicprescriptionexception.h"

namespace
{

const QString start = "start electronicPrescriptionProcessMessage";

QVariant wrapped(const QSharedPointer<AbstractDocument>& document)
{
    return QVariant::fromValue(document);
}

class Hooks : public PharmacyTest
{
protected:
    void addThreeRegistered()
    {
        for (int number = 1; number <= 3; ++number) {
            addPosition(number, R"({"status":"dispensed"})");
        }
    }

    void failAt(int number)
    {
        registry->onCancel = [number](GoodsItem& position) {
            if (position.getNumber() == number) {
                throw ElectronicPrescriptionException({"aKey", "Отказ"});
            }
        };
    }

    QStringList states() const
    {
        QStringList all;
        for (const auto& position : receipt->positions) {
            all << optionsOf(*position)["status"].toString();
        }
        return all;
    }
};

TEST_F(Hooks, subtotalOfSale_registers)
{
    addPosition(1, "{}");

    EXPECT_EQ(service.beforeSubtotal(control::Action(control::Subtotal)), EContext::GoOn);

    EXPECT_EQ(journal, (QStringList{start, "register 1", "save", "stop"}));
}

TEST_F(Hooks, subtotalOfSaleFails_stops)
{
    addPosition(1, "{}");
    registry->onDispense = [](GoodsItem&) { throw ElectronicPrescriptionException({"aKey", "Отказ"}); };

    EXPECT_EQ(service.beforeSubtotal(control::Action(control::Subtotal)), EContext::Stop);
}

TEST_F(Hooks, subtotalOfReturn_cancelsAndRegistersNothing)
{
    receipt->type = 25;
    addPosition(1, R"({"status":"dispensed"})");
    addPosition(2, "{}");
    control::Action action(control::Subtotal);
    action.insert("document", "replaced in the copy");

    EXPECT_EQ(service.beforeSubtotal(action), EContext::GoOn);

    EXPECT_EQ(journal, (QStringList{start, "cancel 1", "save", "stop"}));
    EXPECT_EQ(action.value("document"), "replaced in the copy") << "the host's action was changed";
}

TEST_F(Hooks, subtotalOfReturnFails_stops)
{
    receipt->type = 25;
    addThreeRegistered();
    failAt(1);

    EXPECT_EQ(service.beforeSubtotal(control::Action(control::Subtotal)), EContext::Stop);
}

TEST_F(Hooks, subtotalOfOtherDocument_goesOn)
{
    addPosition(1, "{}");
    receipt->type = 2;
    EXPECT_EQ(service.beforeSubtotal(control::Action(control::Subtotal)), EContext::GoOn);
    DocumentWatcher::setCurrentDocument({});
    EXPECT_EQ(service.beforeSubtotal(control::Action(control::Subtotal)), EContext::GoOn);

    EXPECT_TRUE(journal.isEmpty());
}

TEST_F(Hooks, cancellingASale_cancelsEveryPosition)
{
    addThreeRegistered();
    const control::Action action(control::CancelDocument);

    EXPECT_EQ(service.beforeStornoAll(action), EContext::GoOn);

    EXPECT_EQ(journal, (QStringList{start, "cancel 1", "save", "cancel 2", "save", "cancel 3", "save", "stop"}));
    ASSERT_EQ(savedContents.size(), 3);
    EXPECT_EQ(savedStates(savedContents[0]), (QStringList{"canceled", "dispensed", "dispensed"}));
    EXPECT_EQ(savedStates(savedContents[1]), (QStringList{"canceled", "canceled", "dispensed"}));
    EXPECT_EQ(savedStates(savedContents[2]), (QStringList{"canceled", "canceled", "canceled"}));
    EXPECT_TRUE(action.getArguments().isEmpty());
}

TEST_F(Hooks, cancellingAnotherDocument_goesOn)
{
    addThreeRegistered();
    receipt->type = 25;
    EXPECT_EQ(service.beforeStornoAll(control::Action(control::CancelDocument)), EContext::GoOn);
    DocumentWatcher::setCurrentDocument({});
    EXPECT_EQ(service.beforeStornoAll(control::Action(control::CancelDocument)), EContext::GoOn);

    EXPECT_TRUE(journal.isEmpty());
}

TEST_F(Hooks, voiding_takesTheDocumentOfTheAction)
{
    addThreeRegistered();
    const QSharedPointer<DocumentDouble> stored(new DocumentDouble);
    stored->type = 2;
    stored->closed = true;
    stored->positions = {receipt->positions[1]};
    control::Action action(control::VoidDocument);
    action.insert("document", wrapped(stored));

    EXPECT_EQ(service.cancelElectronicPrescriptions(action), EContext::GoOn);

    EXPECT_EQ(journal, (QStringList{start, "cancel 2", "stop"})) << "a closed document is saved by the register";
    EXPECT_EQ(states(), (QStringList{"dispensed", "canceled", "dispensed"}));
    EXPECT_EQ(events[0].value("message").value<tr::Tr>(),
              tr::Tr("electronicPrescriptionProcessMessage", "Обращение к сервису электронных рецептов"));
}

TEST_F(Hooks, voidingOfOpenDocument_savesAfterEachPosition)
{
    addThreeRegistered();
    control::Action action(control::VoidDocument);
    action.insert("document", wrapped(receipt));

    EXPECT_EQ(service.cancelElectronicPrescriptions(action), EContext::GoOn);

    EXPECT_EQ(journal.count("save"), 3);
}

TEST_F(Hooks, secondOfThreeFails_firstIsCancelledAndThirdNotTried)
{
    addThreeRegistered();
    failAt(2);
    control::Action action(control::VoidDocument);
    action.insert("document", wrapped(receipt));

    EXPECT_EQ(service.cancelElectronicPrescriptions(action), EContext::Stop);

    EXPECT_EQ(journal, (QStringList{start, "cancel 1", "save", "cancel 2", "message 1/1/0 aKey", "stop"}));
    EXPECT_EQ(states(), (QStringList{"canceled", "dispensed", "dispensed"}));
}

TEST_F(Hooks, voidingWithoutDocument_goesOnWithBothEvents)
{
    addThreeRegistered();
    for (const QVariant& document : {QVariant(), QVariant("foreign"), wrapped({}), QVariant(7)}) {
        journal.clear();
        control::Action action(control::VoidDocument);
        if (document.isValid()) {
            action.insert("document", document);
        }

        EXPECT_EQ(service.cancelElectronicPrescriptions(action), EContext::GoOn);

        EXPECT_EQ(journal, (QStringList{start, "stop"}));
    }
}

TEST_F(Hooks, documentWithoutPositions_goesOn)
{
    control::Action action(control::VoidDocument);
    action.insert("document", wrapped(receipt));

    EXPECT_EQ(service.cancelElectronicPrescriptions(action), EContext::GoOn);

    EXPECT_EQ(journal, (QStringList{start, "stop"}));
}

TEST_F(Hooks, voidingThrows_stopEventIsSent)
{
    addThreeRegistered();
    registry->onCancel = [](GoodsItem&) { throw std::runtime_error("else"); };
    control::Action action(control::VoidDocument);
    action.insert("document", wrapped(receipt));

    EXPECT_THROW(service.cancelElectronicPrescriptions(action), std::runtime_error);

    EXPECT_EQ(journal, (QStringList{start, "cancel 1", "stop"}));
}

class RemovedPosition : public Hooks
{
protected:
    EContext::Result remove(const QVariant& number)
    {
        control::Action action(control::RemovePosition);
        if (number.isValid()) {
            action.insert("positionNumber", number);
        }
        return service.cancelElectronicPrescriptionByAction(action);
    }
};

TEST_F(RemovedPosition, registered_isCancelledAndSaved)
{
    addThreeRegistered();

    EXPECT_EQ(remove(2), EContext::GoOn);

    EXPECT_EQ(journal, (QStringList{start, "cancel 2", "save", "stop"}));
    EXPECT_EQ(states(), (QStringList{"dispensed", "canceled", "dispensed"}));
}

TEST_F(RemovedPosition, numberAsText_isUnderstood)
{
    addThreeRegistered();

    EXPECT_EQ(remove("3"), EContext::GoOn);

    EXPECT_EQ(journal, (QStringList{start, "cancel 3", "save", "stop"}));
}

TEST_F(RemovedPosition, registryRefuses_stops)
{
    addThreeRegistered();
    failAt(2);

    EXPECT_EQ(remove(2), EContext::Stop);

    EXPECT_EQ(journal, (QStringList{start, "cancel 2", "message 1/1/0 aKey", "stop"}));
}

TEST_F(RemovedPosition, unknownNumber_notFoundWithoutEvents)
{
    addThreeRegistered();

    EXPECT_EQ(remove(4), EContext::NotFound);
    EXPECT_EQ(remove(QVariant()), EContext::NotFound);

    EXPECT_TRUE(journal.isEmpty());
}

TEST_F(RemovedPosition, otherDocument_goesOn)
{
    addThreeRegistered();
    receipt->type = 25;
    EXPECT_EQ(remove(1), EContext::GoOn);
    DocumentWatcher::setCurrentDocument({});
    EXPECT_EQ(remove(1), EContext::GoOn);

    EXPECT_TRUE(journal.isEmpty());
}

TEST_F(RemovedPosition, throws_stopEventIsSent)
{
    addThreeRegistered();
    registry->onCancel = [](GoodsItem&) { throw std::runtime_error("else"); };

    EXPECT_THROW(remove(1), std::runtime_error);

    EXPECT_EQ(journal.last(), "stop");
}

TEST_F(Hooks, eventsOfLongWork_areSentThroughTheObject)
{
    ServiceWithOwnEvents own(journal);
    own.registryClient = registry;
    const QStringList expected = {"own start electronicPrescriptionProcessMessage", "cancel 1", "save", "own stop"};
    const auto position = addPosition(1, R"({"status":"dispensed"})");
    control::Action action;
    action.insert("document", wrapped(receipt));
    action.insert("positionNumber", 1);

    EXPECT_EQ(own.cancelElectronicPrescriptions(action), EContext::GoOn);
    EXPECT_EQ(journal, expected);

    position->setExtendedOptions(R"({"status":"dispensed"})");
    journal.clear();
    EXPECT_EQ(own.cancelElectronicPrescriptionByAction(action), EContext::GoOn);
    EXPECT_EQ(journal, expected);

    EXPECT_TRUE(events.isEmpty());
}

/// Only the steps themselves show the plug-in's exceptions; a hook lets one out of a replaced step pass.
TEST_F(Hooks, replacedStepThrowsThePluginsException_goesThroughUnshownAfterTheStopEvent)
{
    class Throwing : public Service
    {
    public:
        bool cancelElectronicPrescription(const QSharedPointer<GoodsItem>&, bool) const override
        {
            throw ElectronicPrescriptionException({"aKey", "Отказ"});
        }
    } throwing;
    addPosition(1);
    control::Action action;
    action.insert("document", wrapped(receipt));
    action.insert("positionNumber", 1);
    const auto expectThrown = [&](int documentType,
                                  EContext::Result (ElectronicPrescriptionService::*hook)(const control::Action&)) {
        receipt->type = documentType;
        journal.clear();
        EXPECT_THROW((throwing.*hook)(action), ElectronicPrescriptionException);
        EXPECT_EQ(journal, (QStringList{start, "stop"}));
    };

    expectThrown(1, &ElectronicPrescriptionService::cancelElectronicPrescriptions);
    expectThrown(1, &ElectronicPrescriptionService::cancelElectronicPrescriptionByAction);
    expectThrown(1, &ElectronicPrescriptionService::beforeStornoAll);
    expectThrown(25, &ElectronicPrescriptionService::beforeSubtotal);
}

/// A hook hands its work to the virtual step, with the flag that says whether to save.
TEST_F(Hooks, cancellingStep_isCalledThroughTheObject)
{
    class WithStep : public Service
    {
    public:
        mutable QStringList calls;
        bool cancelElectronicPrescription(const QSharedPointer<GoodsItem>& position, bool saveDocument) const override
        {
            calls << QString("%1 %2").arg(position->getNumber()).arg(saveDocument);
            return true;
        }
    } withStep;
    addPosition(1);
    control::Action action(control::VoidDocument);
    action.insert("document", wrapped(receipt));
    action.insert("positionNumber", 1);

    withStep.cancelElectronicPrescriptions(action);
    receipt->closed = true;
    withStep.cancelElectronicPrescriptions(action);
    withStep.cancelElectronicPrescriptionByAction(action);

    EXPECT_EQ(withStep.calls, (QStringList{"1 1", "1 0", "1 1"}));
}

} // namespace
