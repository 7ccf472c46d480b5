// SPDX-License-Identifier: MIT
#include "pharmacydoubles.h"

#include "electronicprescriptionexception.h"
#include "electronicprescriptionnoprescriptionsexception.h"
#include "unsettledrequestexception.h"
#include "workstep.h"

using namespace Qt::StringLiterals;

namespace
{

const QString start = "start electronicPrescriptionProcessMessage";

class Dispensing : public PharmacyTest
{
protected:
    EContext::Result dispense() { return service.dispenseElectronicPrescriptions(control::Action(control::Subtotal)); }
};

TEST_F(Dispensing, noPrescriptionPositions_goesOnWithoutAnything)
{
    addPosition(1);

    EXPECT_EQ(dispense(), EContext::GoOn);

    EXPECT_TRUE(journal.isEmpty());
}

TEST_F(Dispensing, noDocument_goesOnWithoutAnything)
{
    DocumentWatcher::setCurrentDocument({});

    EXPECT_EQ(dispense(), EContext::GoOn);

    EXPECT_TRUE(journal.isEmpty());
}

TEST_F(Dispensing, unregisteredPosition_isRegisteredMarkedAndSaved)
{
    const auto position = addPosition(1, R"({"id":"r1","doseQuantity":2})");

    EXPECT_EQ(dispense(), EContext::GoOn);

    EXPECT_EQ(journal, (QStringList{start, "register 1", "save", "stop"}));
    EXPECT_EQ(position->getExtendedOptions(), R"({"doseQuantity":2,"id":"r1","status":"dispensed"})");
    EXPECT_EQ(saved, QList<QSharedPointer<AbstractDocument>>{receipt});
    EXPECT_EQ(savedFiles, QStringList{""});
    EXPECT_EQ(events[0].value("message").value<tr::Tr>(),
              tr::Tr("electronicPrescriptionProcessMessage", "Обращение к сервису электронных рецептов"));
}

TEST_F(Dispensing, dispenseIdWrittenByTheClient_isKept)
{
    const auto position = addPosition(1, R"({"id":"r1"})");
    registry->onDispense = [](GoodsItem& dispensed) {
        dispensed.setExtendedOptions(R"({"id":"r1","medicationDispenseId":"d9"})");
    };

    dispense();

    EXPECT_EQ(position->getExtendedOptions(), R"({"id":"r1","medicationDispenseId":"d9","status":"dispensed"})");
}

TEST_F(Dispensing, everyDuePosition_isRegisteredInOrderAndSavedAtOnce)
{
    addPosition(3, "{}");
    addPosition(1);
    addPosition(2, R"({"status":"dispensed"})");
    addPosition(4, R"({"status":"canceled"})");

    EXPECT_EQ(dispense(), EContext::GoOn);

    EXPECT_EQ(journal, (QStringList{start, "register 3", "save", "register 4", "save", "stop"}));
}

TEST_F(Dispensing, everySave_holdsWhatIsRegisteredByThen)
{
    addPosition(1, "{}");
    addPosition(2, "{}");
    addPosition(3, R"({"status":"canceled"})");

    dispense();

    ASSERT_EQ(savedContents.size(), 3);
    EXPECT_EQ(savedStates(savedContents[0]), (QStringList{"dispensed", "", "canceled"}));
    EXPECT_EQ(savedStates(savedContents[1]), (QStringList{"dispensed", "dispensed", "canceled"}));
    EXPECT_EQ(savedStates(savedContents[2]), (QStringList{"dispensed", "dispensed", "dispensed"}));
}

TEST_F(Dispensing, secondSubtotal_registersNothingAgain)
{
    addPosition(1, "{}");
    dispense();
    journal.clear();

    EXPECT_EQ(dispense(), EContext::GoOn);

    EXPECT_EQ(journal, (QStringList{start, "stop"}));
}

TEST_F(Dispensing, cancelledPosition_isRegisteredAgain)
{
    const auto position = addPosition(1, R"({"status":"canceled"})");

    dispense();

    EXPECT_EQ(journal, (QStringList{start, "register 1", "save", "stop"}));
    EXPECT_EQ(optionsOf(*position)["status"], "dispensed");
}

TEST_F(Dispensing, positionsNotDue_keepTheirTextByteForByte)
{
    const QList<const char*> texts = {R"({ "status" : "dispensed" })", R"({"status": "Canceled"})", R"({"status": ""})",
                                      R"({"status": null})", R"({"status": 1})"};
    for (const char* text : texts) {
        addPosition(int(receipt->positions.size()) + 1, text);
    }
    const auto untagged = addPosition(9);
    untagged->setExtendedOptions("not JSON");

    EXPECT_EQ(dispense(), EContext::GoOn);

    EXPECT_EQ(journal, (QStringList{start, "stop"}));
    for (int row = 0; row < texts.size(); ++row) {
        EXPECT_EQ(receipt->positions[row]->getExtendedOptions(), texts[row]);
    }
    EXPECT_EQ(untagged->getExtendedOptions(), "not JSON");
}

TEST_F(Dispensing, optionsAreNoJson_positionIsDue)
{
    const auto position = addPosition(1, "not JSON");

    EXPECT_EQ(dispense(), EContext::GoOn);

    EXPECT_EQ(position->getExtendedOptions(), R"({"status":"dispensed"})");
}

TEST_F(Dispensing, eachRegistration_isAStepOfItsOwnThatNamesPrescriptionAndGoods)
{
    addPosition(1, R"({"id":"r1","serialNumber":"АБ 17"})");
    addPosition(2, R"({"status":"dispensed"})");
    addPosition(3, R"({"id":"r3"})");
    QStringList steps;
    registry->onDispense = [&steps](GoodsItem&) { steps << WorkStep::currentText(); };

    dispense();

    EXPECT_EQ(steps, (QStringList{u"Регистрация отпуска 1 из 2. Рецепт АБ 17, товар: "_s + u"Товар 1"_s,
                                  u"Регистрация отпуска 2 из 2. Рецепт r3, товар: "_s + u"Товар 3"_s}));
    EXPECT_EQ(WorkStep::currentText(), QString());
}

TEST_F(Dispensing, failureOfTheSecond_readsWhichOneWhatIsRegisteredAndWhatToDoNext)
{
    using Outcome = RestClient::Outcome;
    for (const auto& [outcome, word] : {std::pair(Outcome::Unknown, u"Неизвестно, записан ли в реестре этот отпуск"_s),
                                        std::pair(Outcome::Settled, u"Реестр не подтвердил этот отпуск"_s),
                                        std::pair(Outcome::Stopped, u"Реестр не подтвердил этот отпуск"_s)}) {
        receipt->positions.clear();
        addPosition(1, R"({"id":"a"})");
        addPosition(2, R"({"id":"b"})");
        registry->onDispense = [known = outcome](GoodsItem& position) {
            if (position.getNumber() == 2) {
                throwRequestFailure({"aKey", "Отказ"}, known);
            }
        };

        EXPECT_EQ(dispense(), EContext::Stop);

        EXPECT_EQ(messages.last(), tr::Tr("aKey", "Отказ")) << "the failure's own words";
        EXPECT_TRUE(messageSteps.last().startsWith(u"Регистрация отпуска 2 из 2. Рецепт b, товар: "_s));
        EXPECT_TRUE(messageAdvice.last().startsWith(word)) << qPrintable(messageAdvice.last());
        EXPECT_TRUE(messageAdvice.last().contains(u"Записано до него: 1 из 2"_s)) << qPrintable(messageAdvice.last());
        EXPECT_EQ(WorkStep::currentText(), QString());
    }
}

TEST_F(Dispensing, saving_isNoPartOfTheStepBeforeIt)
{
    const auto first = addPosition(1, R"({"id":"a"})");
    addPosition(2, R"({"id":"b"})");

    EXPECT_EQ(dispense(), EContext::GoOn);
    EXPECT_TRUE(service.cancelElectronicPrescription(first, true));

    EXPECT_EQ(saveSteps, QStringList({QString(), QString(), QString()}));
}

TEST_F(Dispensing, cancellationFails_readsWhichOneAndWhatToDoNext)
{
    using Outcome = RestClient::Outcome;
    const auto position = addPosition(1, R"({"id":"r1","status":"dispensed"})");
    for (const auto& [outcome, word] :
         {std::pair(Outcome::Unknown, u"Неизвестно, отменён ли этот отпуск"_s),
          std::pair(Outcome::Settled, u"Реестр не подтвердил отмену; касса по-прежнему считает отпуск записанным"_s)}) {
        registry->onCancel = [known = outcome](GoodsItem&) { throwRequestFailure({"aKey", "Отказ"}, known); };

        EXPECT_FALSE(service.cancelElectronicPrescription(position, true));

        EXPECT_TRUE(messageSteps.last().startsWith(u"Отмена отпуска. Рецепт r1, товар: "_s))
            << qPrintable(messageSteps.last());
        EXPECT_TRUE(messageAdvice.last().startsWith(word)) << qPrintable(messageAdvice.last());
    }
}

TEST_F(Dispensing, secondOfThreeFails_firstStaysRegisteredAndSubtotalStops)
{
    const auto first = addPosition(1, R"({"id":"a"})");
    const auto second = addPosition(2, R"({ "id": "b", "status": "canceled" })");
    const auto third = addPosition(3, R"({ "id": "c" })");
    registry->onDispense = [](GoodsItem& position) {
        if (position.getNumber() == 2) {
            throw ElectronicPrescriptionException({"aKey", "Отказ"});
        }
    };

    EXPECT_EQ(dispense(), EContext::Stop);

    EXPECT_EQ(journal, (QStringList{start, "register 1", "save", "register 2", "stop", "message 1/1/0 aKey"}));
    EXPECT_EQ(messages, QList<tr::Tr>{tr::Tr("aKey", "Отказ")});
    EXPECT_EQ(first->getExtendedOptions(), R"({"id":"a","status":"dispensed"})");
    EXPECT_EQ(second->getExtendedOptions(), R"({ "id": "b", "status": "canceled" })");
    EXPECT_EQ(third->getExtendedOptions(), R"({ "id": "c" })");

    registry->onDispense = {};
    journal.clear();
    EXPECT_EQ(dispense(), EContext::GoOn);
    EXPECT_EQ(journal, (QStringList{start, "register 2", "save", "register 3", "save", "stop"}));
}

TEST_F(Dispensing, noPrescriptionsException_isShownToo)
{
    addPosition(1, "{}");
    registry->onDispense = [](GoodsItem&) { throw ElectronicPrescriptionNoPrescriptionsException({"none", "Нет"}); };

    EXPECT_EQ(dispense(), EContext::Stop);

    EXPECT_EQ(journal.last(), "message 1/1/0 none");
}

TEST_F(Dispensing, otherException_goesThroughAfterTheStopEvent)
{
    addPosition(1, "{}");
    registry->onDispense = [](GoodsItem&) { throw BasicException({"aKey", "Сбой"}); };

    EXPECT_THROW(dispense(), BasicException);

    EXPECT_EQ(journal, (QStringList{start, "register 1", "stop"}));
}

class DispensingThroughTheObject : public PharmacyTest
{
protected:
    DispensingThroughTheObject() { own.registryClient = registry; }

    EContext::Result dispense() { return own.dispenseElectronicPrescriptions(control::Action(control::Subtotal)); }

    ServiceWithOwnEvents own{journal};
};

TEST_F(DispensingThroughTheObject, hasPrescriptionsFalse_goesOnThoughAPositionIsTagged)
{
    addPosition(1, "{}");
    own.onHasPrescriptions = [] { return false; };

    EXPECT_EQ(dispense(), EContext::GoOn);

    EXPECT_TRUE(journal.isEmpty());
}

TEST_F(DispensingThroughTheObject, hasPrescriptionsTrue_bracketsTheWorkInItsEvents)
{
    addPosition(1, "{}");

    EXPECT_EQ(dispense(), EContext::GoOn);

    EXPECT_EQ(journal,
              (QStringList{"own start electronicPrescriptionProcessMessage", "register 1", "save", "own stop"}));
    EXPECT_TRUE(events.isEmpty());
}

TEST_F(DispensingThroughTheObject, hasPrescriptionsTrueWithoutTaggedPosition_bracketsNothing)
{
    addPosition(1);

    EXPECT_EQ(dispense(), EContext::GoOn);

    EXPECT_EQ(journal, (QStringList{"own start electronicPrescriptionProcessMessage", "own stop"}));
}

TEST_F(DispensingThroughTheObject, hasPrescriptionsThrows_isShownAndStops)
{
    addPosition(1, "{}");
    own.onHasPrescriptions = []() -> bool { throw ElectronicPrescriptionException({"aKey", "Отказ"}); };

    EXPECT_EQ(dispense(), EContext::Stop);

    EXPECT_EQ(journal, QStringList{"message 1/1/0 aKey"});
    EXPECT_EQ(messages, QList<tr::Tr>{tr::Tr("aKey", "Отказ")});
}

class Return : public PharmacyTest
{
protected:
    QSharedPointer<GoodsItem> registered{
        addPosition(1, R"({ "id": "a", "medicationDispenseId": "d9", "status": "dispensed" })")};
};

TEST_F(Return, untaggedPosition_nothingToCancel)
{
    const auto position = addPosition(2);
    position->setExtendedOptions(R"({ "status": "dispensed" })");

    EXPECT_TRUE(service.cancelElectronicPrescription(position, true));

    EXPECT_TRUE(journal.isEmpty());
    EXPECT_EQ(position->getExtendedOptions(), R"({ "status": "dispensed" })");
}

TEST_F(Return, neverRegistered_nothingToCancelAndOptionsStay)
{
    for (const char* text : {R"({ "id": "a" })", R"({ "status": "canceled" })", R"({ "status": "Dispensed" })",
                             R"({ "status": true })", "not JSON", ""}) {
        SCOPED_TRACE(text);
        const auto position = addPosition(2, text);
        EXPECT_TRUE(service.cancelElectronicPrescription(position, true));
        EXPECT_EQ(position->getExtendedOptions(), text);
    }
    EXPECT_TRUE(journal.isEmpty());
}

TEST_F(Return, registeredPosition_isCancelledMarkedAndSaved)
{
    EXPECT_TRUE(service.cancelElectronicPrescription(registered, true));

    EXPECT_EQ(journal, (QStringList{"cancel 1", "save"}));
    EXPECT_EQ(registered->getExtendedOptions(), R"({"id":"a","medicationDispenseId":"d9","status":"canceled"})");
    EXPECT_EQ(saved, QList<QSharedPointer<AbstractDocument>>{receipt});
    EXPECT_EQ(savedFiles, QStringList{""});
    ASSERT_EQ(savedContents.size(), 1);
    EXPECT_EQ(savedStates(savedContents[0]), QStringList{"canceled"});
}

TEST_F(Return, withoutSaving_optionsChangeAndNothingIsSaved)
{
    EXPECT_TRUE(service.cancelElectronicPrescription(registered, false));

    EXPECT_EQ(journal, QStringList{"cancel 1"});
    EXPECT_EQ(optionsOf(*registered)["status"], "canceled");
}

TEST_F(Return, registryRefuses_isShownAndOptionsStay)
{
    const QString before = registered->getExtendedOptions();
    registry->onCancel = [](GoodsItem&) { throw ElectronicPrescriptionException({"aKey", "Отказ"}); };

    EXPECT_FALSE(service.cancelElectronicPrescription(registered, true));

    EXPECT_EQ(journal, (QStringList{"cancel 1", "message 1/1/0 aKey"}));
    EXPECT_EQ(messages, QList<tr::Tr>{tr::Tr("aKey", "Отказ")});
    EXPECT_EQ(registered->getExtendedOptions(), before);
}

TEST_F(Return, otherException_goesThrough)
{
    registry->onCancel = [](GoodsItem&) { throw std::runtime_error("else"); };

    EXPECT_THROW(service.cancelElectronicPrescription(registered, true), std::runtime_error);
}

} // namespace
