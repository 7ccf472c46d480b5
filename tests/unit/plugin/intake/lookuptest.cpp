// SPDX-License-Identifier: MIT
#include "pharmacydoubles.h"

#include "electronicprescriptionexception.h"
#include "electronicprescriptionnoprescriptionsexception.h"
#include "graphicaluserinterface.h"
#include "registryuris.h"
#include "unsettledrequestexception.h"
#include "workstep.h"

using namespace Qt::StringLiterals;

namespace
{

const QString start = "start electronicPrescriptionProcessMessage";

QJsonObject bundleOf(const QJsonArray& resources)
{
    QJsonArray entries;
    for (const QJsonValue resource : resources) {
        entries.append(QJsonObject{{"resource", resource}});
    }
    return {{"resourceType", "Bundle"}, {"entry", entries}};
}

QJsonObject bundleOfPrescription(const QString& id)
{
    return bundleOf({QJsonObject{{"resourceType", "MedicationPrescription"}, {"id", id}}});
}

class LookUp : public PharmacyTest
{
protected:
    using Prescriptions = ElectronicPrescriptionService::Prescriptions;

    LookUp()
    {
        registry->patient = {{"birthDate", "1950-02-28"}};
        registry->bundles = {bundleOfPrescription("a"), bundleOfPrescription("b")};
    }

    Prescriptions lookUp(const QString& card = "77", const QString& status = "active")
    {
        Prescriptions prescriptions;
        service.getElectronicPrescriptionsByCardNumber(card, status, prescriptions);
        return prescriptions;
    }

    static QStringList ids(const Prescriptions& prescriptions)
    {
        QStringList all;
        for (const auto& prescription : prescriptions) {
            all << prescription->getId();
        }
        return all;
    }
};

TEST_F(LookUp, answer_isMappedAndCachedBetweenTheEvents)
{
    const auto prescriptions = lookUp();

    EXPECT_EQ(ids(prescriptions), (QStringList{"a", "b"}));
    EXPECT_EQ(journal, (QStringList{start, "by card 77 active", "stop"}));
    EXPECT_EQ(events[0].value("message").value<tr::Tr>(),
              tr::Tr("electronicPrescriptionProcessMessage", "Обращение к сервису электронных рецептов"));
    EXPECT_EQ(service.patientCache.keys(), QStringList{"active"});
    EXPECT_EQ(service.patientCache["active"]->getBirthday(), QDate(1950, 2, 28));
    EXPECT_EQ(service.prescriptionCache.keys(), QStringList{"active"});
    EXPECT_EQ(service.prescriptionCache["active"].first, "77");
    EXPECT_EQ(service.prescriptionCache["active"].second, prescriptions);
}

TEST_F(LookUp, stoppedByTheCashier_isANoticeAndNoError)
{
    QString step;
    registry->beforeAnswer = [&step] {
        step = WorkStep::currentText();
        throwRequestFailure({"restClientStopped", "Запрос прекращён"}, RestClient::Outcome::Stopped);
    };

    EXPECT_TRUE(lookUp().isEmpty());

    EXPECT_EQ(step, u"Поиск рецептов по карте"_s);
    EXPECT_EQ(journal,
              (QStringList{start, "by card 77 active", "stop", "message 2/1/0 electronicPrescriptionLookUpStopped"}));
    EXPECT_EQ(messageSteps, QStringList{QString()}) << "the notice says all";
}

TEST_F(LookUp, secondLookUpUnderTheStatus_replacesTheEntryWhole)
{
    lookUp();
    registry->bundles = {bundleOfPrescription("c")};
    lookUp("78");
    lookUp("79", "Active");

    EXPECT_EQ(service.prescriptionCache["active"].first, "78");
    EXPECT_EQ(ids(service.prescriptionCache["active"].second), QStringList{"c"});
    EXPECT_EQ(service.prescriptionCache.keys(), (QStringList{"Active", "active"}));
}

TEST_F(LookUp, listHoldsPrescriptions_othersAreAppended)
{
    Prescriptions prescriptions{prescriptionWithId("y"), prescriptionWithId("z")};

    service.getElectronicPrescriptionsByCardNumber("77", "active", prescriptions);

    EXPECT_EQ(ids(prescriptions), (QStringList{"y", "z", "a", "b"}));
}

TEST_F(LookUp, oneBundle_isOnePrescriptionWithAnyContent)
{
    registry->bundles = {bundleOf({QJsonObject{{"resourceType", "Provenance"}}}),
                         QJsonObject{},
                         "no bundle",
                         7,
                         QJsonObject{{"entry", "no list"}},
                         QJsonObject{{"entry", QJsonArray{1, QJsonObject()}}}};

    const auto prescriptions = lookUp();

    ASSERT_EQ(prescriptions.size(), 6);
    EXPECT_EQ(prescriptions[0]->getId(), "");
    EXPECT_EQ(prescriptions[0]->getPayByPatientSumFactor(), 1.0);
    EXPECT_TRUE(prescriptions[0]->hasDigitalSignature());
    for (int row = 1; row < 6; ++row) {
        EXPECT_FALSE(prescriptions[row]->hasDigitalSignature());
    }
}

TEST_F(LookUp, entriesWithoutAResource_areSkipped)
{
    const QJsonObject prescription{{"resourceType", "MedicationPrescription"}, {"id", "a"}, {"identifier", "1201"}};
    const QJsonObject dispense{{"resourceType", "MedicationDispense"},
                               {"whenHandedOver", "2024-04-02"},
                               {"quantity", QJsonObject{{"value", 10}}}};
    registry->bundles = {QJsonObject{
        {"entry", QJsonArray{1, "a", QJsonValue::Null, QJsonArray{QJsonObject{{"resource", dispense}}}, dispense,
                             QJsonObject{{"resource", prescription}}, QJsonObject{{"resource", QJsonArray{dispense}}},
                             QJsonObject{{"resource", "MedicationDispense"}}, QJsonObject{{"resource", dispense}}}}}};

    const auto prescriptions = lookUp();

    ASSERT_EQ(ids(prescriptions), QStringList{"a"});
    EXPECT_EQ(prescriptions[0]->getSerialNumber(), "");
    EXPECT_EQ(prescriptions[0]->getDispensedDoseQuantity(), 10.0);
    QList<QDate> dates;
    prescriptions[0]->getMedicationDispenseDates(dates);
    EXPECT_EQ(dates, QList<QDate>{QDate(2024, 4, 2)});
}

TEST_F(LookUp, resourcesOfABundle_areAppliedInOrder)
{
    registry->bundles = {bundleOf({QJsonObject{{"resourceType", "MedicationPrescription"}, {"id", "a"}},
                                   QJsonObject{{"resourceType", "Provenance"}},
                                   QJsonObject{{"resourceType", "MedicationPrescription"}, {"id", "b"}}})};

    const auto prescriptions = lookUp();

    ASSERT_EQ(ids(prescriptions), QStringList{"b"});
    EXPECT_TRUE(prescriptions[0]->hasDigitalSignature());
}

TEST_F(LookUp, anotherDosageSystemConfigured_itsCodesAreTheDictionaryCodes)
{
    config.setForThisRun("ElectronicPrescription:dosageSystemId", "urn:other");
    config.setForThisRun("plugins:pharmacy", "true");
    const Own<GraphicalUserInterface> userInterface;
    ASSERT_TRUE(service.init());
    const QJsonArray codings{QJsonObject{{"system", "urn:other"}, {"code", "5"}},
                             QJsonObject{{"system", registryuris::dosageDictionary}, {"code", "6"}}};
    const QJsonObject medication{{"code", QJsonObject{{"coding", codings}}}};
    registry->bundles = {
        bundleOf({QJsonObject{{"resourceType", "MedicationPrescription"}, {"contained", QJsonArray{medication}}}})};

    const auto prescriptions = lookUp();

    ASSERT_EQ(prescriptions.size(), 1);
    EXPECT_EQ(prescriptions[0]->getDictCode(), "5");
}

TEST_F(LookUp, oneIsOnTheReceipt_cacheKeepsItAndTheListDoesNot)
{
    addPosition(1, R"({"id":"a"})");

    EXPECT_EQ(ids(lookUp()), QStringList{"b"});

    EXPECT_EQ(ids(service.prescriptionCache["active"].second), (QStringList{"a", "b"}));
    EXPECT_TRUE(messages.isEmpty());
}

TEST_F(LookUp, otherStatus_isFilteredToo)
{
    addPosition(1, R"({"id":"a"})");

    EXPECT_EQ(ids(lookUp("77", "completed")), QStringList{"b"});
}

TEST_F(LookUp, allOnTheReceipt_saysNoneFoundAfterTheStopEventAndCaches)
{
    addPosition(1, R"({"id":"a"})");
    addPosition(2, R"({"id":"b"})");
    service.patientCache.insert("active", {});
    service.prescriptionCache.insert("active", {"former", {}});

    EXPECT_TRUE(lookUp().isEmpty());

    EXPECT_EQ(journal, (QStringList{start, "by card 77 active", "stop",
                                    "message 2/1/0 electronicPrescriptionNoPrescriptionsError"}));
    EXPECT_EQ(messages, QList<tr::Tr>{tr::Tr("electronicPrescriptionNoPrescriptionsError", "Рецепты не найдены")});
    EXPECT_EQ(service.prescriptionCache["active"].first, "77");
    EXPECT_EQ(service.prescriptionCache["active"].second.size(), 2);
    EXPECT_TRUE(service.patientCache["active"]);
}

class FailedLookUp : public LookUp
{
protected:
    FailedLookUp()
    {
        service.patientCache.insert("active", former);
        service.prescriptionCache.insert("active", {"former", {prescriptionWithId("z")}});
    }

    void expectFormerCaches()
    {
        EXPECT_EQ(service.patientCache["active"], former);
        EXPECT_EQ(service.prescriptionCache["active"].first, "former");
        EXPECT_EQ(ids(service.prescriptionCache["active"].second), QStringList{"z"});
    }

    QSharedPointer<Patient> former{new Patient("Прежний", QDate())};
};

TEST_F(FailedLookUp, registryHasNone_isANoticeAfterTheStopEvent)
{
    registry->beforeAnswer = [] { throw ElectronicPrescriptionNoPrescriptionsException({"aKey", "Нет рецептов"}); };

    EXPECT_TRUE(lookUp().isEmpty());

    EXPECT_EQ(journal, (QStringList{start, "by card 77 active", "stop", "message 2/1/0 aKey"}));
    EXPECT_EQ(messages, QList<tr::Tr>{tr::Tr("aKey", "Нет рецептов")});
    expectFormerCaches();
}

TEST_F(FailedLookUp, registryFails_isAnErrorAfterTheStopEvent)
{
    registry->beforeAnswer = [] { throw ElectronicPrescriptionException({"aKey", "Отказ"}); };

    EXPECT_TRUE(lookUp().isEmpty());

    EXPECT_EQ(journal, (QStringList{start, "by card 77 active", "stop", "message 1/1/0 aKey"}));
    EXPECT_EQ(messages, QList<tr::Tr>{tr::Tr("aKey", "Отказ")});
    expectFormerCaches();
}

TEST_F(FailedLookUp, listHoldsPrescriptions_itStaysAsItWas)
{
    const std::function<void()> failures[] = {
        [] {
            throw ElectronicPrescriptionNoPrescriptionsException({"aKey", "Нет рецептов"});
        },
        [] {
            throw ElectronicPrescriptionException({"aKey", "Отказ"});
        },
        [] {
            throw BasicException({"aKey", "Сбой"});
        },
    };
    for (const auto& failure : failures) {
        registry->beforeAnswer = failure;
        Prescriptions prescriptions{prescriptionWithId("y")};
        try {
            service.getElectronicPrescriptionsByCardNumber("77", "active", prescriptions);
        } catch (const BasicException&) {
        }
        EXPECT_EQ(ids(prescriptions), QStringList{"y"});
    }
}

TEST_F(FailedLookUp, otherException_goesThroughAfterTheStopEvent)
{
    registry->beforeAnswer = [] { throw BasicException({"aKey", "Сбой"}); };

    EXPECT_THROW(lookUp(), BasicException);

    EXPECT_EQ(journal, (QStringList{start, "by card 77 active", "stop"}));
    expectFormerCaches();
}

/// The filter and the two events are steps that a double may replace.
TEST_F(LookUp, steps_areCalledThroughTheObject)
{
    class WithSteps : public Service
    {
    public:
        mutable QStringList calls;

        using Service::getUnprocessedElectronicPrescriptions;
        void getUnprocessedElectronicPrescriptions(Prescriptions& prescriptions) const override
        {
            calls << QString("filter %1").arg(prescriptions.size());
            prescriptions.removeFirst();
        }
        void sendStartEvent(const tr::Tr& message) const override { calls << message.text(); }
        void sendStopEvent() const override { calls << "stop"; }
    } withSteps;
    withSteps.registryClient = registry;
    LookUp::Prescriptions prescriptions;

    withSteps.getElectronicPrescriptionsByCardNumber("77", "active", prescriptions);

    EXPECT_EQ(withSteps.calls, (QStringList{"Обращение к сервису электронных рецептов", "filter 2", "stop"}));
    EXPECT_EQ(ids(prescriptions), QStringList{"b"});
}

class Filter : public LookUp
{
protected:
    Prescriptions prescriptions{prescriptionWithId("a"), prescriptionWithId("b"), prescriptionWithId("c")};

    QStringList unprocessed()
    {
        service.getUnprocessedElectronicPrescriptions(prescriptions);
        return ids(prescriptions);
    }
};

TEST_F(Filter, emptyReceipt_keepsAll)
{
    EXPECT_EQ(unprocessed(), (QStringList{"a", "b", "c"}));
}

TEST_F(Filter, idOfATaggedPosition_isRemoved)
{
    addPosition(1, R"({"id":"b"})");

    EXPECT_EQ(unprocessed(), (QStringList{"a", "c"}));
}

TEST_F(Filter, idInAnotherCase_isAnotherId)
{
    addPosition(1, R"({"id":"B"})");
    prescriptions << prescriptionWithId("B");

    EXPECT_EQ(unprocessed(), (QStringList{"a", "b", "c"}));
}

TEST_F(Filter, dispenseCancelled_prescriptionIsStillOnTheReceipt)
{
    addPosition(1, R"({"id":"b","status":"canceled"})");
    addPosition(2, R"({"id":"a","status":"dispensed"})");

    EXPECT_EQ(unprocessed(), QStringList{"c"});
}

TEST_F(Filter, everyPrescriptionWithTheId_isRemoved)
{
    prescriptions << prescriptionWithId("b");
    addPosition(1, R"({"id":"b"})");
    addPosition(2, R"({"id":"a"})");

    EXPECT_EQ(unprocessed(), QStringList{"c"});
}

TEST_F(Filter, untaggedPosition_removesNothing)
{
    addPosition(1)->setExtendedOptions(R"({"id":"b"})");
    const auto otherCase = addPosition(2);
    otherCase->setTag("Prescription");
    otherCase->setExtendedOptions(R"({"id":"a"})");

    EXPECT_EQ(unprocessed(), (QStringList{"a", "b", "c"}));
}

TEST_F(Filter, optionsAreNoJson_removeNothing)
{
    addPosition(1, "not JSON");
    addPosition(2, R"(["b"])");
    addPosition(3, R"({"ID":"b"})");
    addPosition(4, R"({"id":7})");

    EXPECT_EQ(unprocessed(), (QStringList{"a", "b", "c"}));
}

TEST_F(Filter, optionsAreNoJson_removeThePrescriptionWithoutId)
{
    prescriptions << prescriptionWithId("");
    addPosition(1, "not JSON");

    EXPECT_EQ(unprocessed(), (QStringList{"a", "b", "c"}));
}

TEST_F(Filter, idInCyrillic_isRemoved)
{
    prescriptions << prescriptionWithId("рецепт");
    addPosition(1, R"({"id":"рецепт"})");

    EXPECT_EQ(unprocessed(), (QStringList{"a", "b", "c"}));
}

TEST_F(Filter, otherDocumentOrNone_keepsAll)
{
    addPosition(1, R"({"id":"b"})");
    receipt->type = 25;
    EXPECT_EQ(unprocessed(), (QStringList{"a", "b", "c"}));
    DocumentWatcher::setCurrentDocument({});
    EXPECT_EQ(unprocessed(), (QStringList{"a", "b", "c"}));
}

TEST_F(Filter, eachCall_looksAtTheReceiptAgain)
{
    addPosition(1, R"({"id":"b"})");
    unprocessed();
    receipt->positions.clear();
    prescriptions << prescriptionWithId("b");

    EXPECT_EQ(unprocessed(), (QStringList{"a", "c", "b"}));
}

class CachedList : public LookUp
{
protected:
    CachedList()
    {
        for (const char* const status : {"active", "completed", "Active"}) {
            service.prescriptionCache.insert(status, {"77", {prescriptionWithId("a"), prescriptionWithId("b")}});
        }
        addPosition(1, R"({"id":"a"})");
    }

    QStringList cached(const QString& status)
    {
        Prescriptions prescriptions{prescriptionWithId("former")};
        service.getUnprocessedElectronicPrescriptions(status, prescriptions);
        return ids(prescriptions);
    }
};

TEST_F(CachedList, unknownStatus_leavesTheList)
{
    EXPECT_EQ(cached("cancelled"), QStringList{"former"});
    EXPECT_TRUE(journal.isEmpty());
}

TEST_F(CachedList, active_isFiltered)
{
    EXPECT_EQ(cached("active"), QStringList{"b"});
    EXPECT_EQ(service.prescriptionCache["active"].second.size(), 2);
    EXPECT_TRUE(journal.isEmpty());
}

/// The filter is a step that a double may replace.
TEST_F(CachedList, active_isFilteredThroughTheObject)
{
    class WithFilter : public Service
    {
    public:
        using Service::getUnprocessedElectronicPrescriptions;
        void getUnprocessedElectronicPrescriptions(Prescriptions& prescriptions) const override
        {
            prescriptions.removeLast();
        }
    } withFilter;
    withFilter.prescriptionCache = service.prescriptionCache;
    Prescriptions prescriptions;

    withFilter.getUnprocessedElectronicPrescriptions("active", prescriptions);
    EXPECT_EQ(ids(prescriptions), QStringList{"a"});

    withFilter.getUnprocessedElectronicPrescriptions("completed", prescriptions);
    EXPECT_EQ(ids(prescriptions), (QStringList{"a", "b"}));
}

TEST_F(CachedList, otherStatus_isTakenWhole)
{
    EXPECT_EQ(cached("completed"), (QStringList{"a", "b"}));
    EXPECT_EQ(cached("Active"), (QStringList{"a", "b"}));
    EXPECT_TRUE(journal.isEmpty());
}

TEST_F(CachedList, otherStatusWithoutPrescriptions_saysNothing)
{
    service.prescriptionCache.insert("completed", {"77", {}});

    EXPECT_TRUE(cached("completed").isEmpty());
    EXPECT_TRUE(journal.isEmpty());
}

TEST_F(CachedList, activeAllOnTheReceipt_saysNoneFound)
{
    addPosition(2, R"({"id":"b"})");

    EXPECT_TRUE(cached("active").isEmpty());

    EXPECT_EQ(journal, QStringList{"message 2/1/0 electronicPrescriptionNoPrescriptionsError"});
    EXPECT_EQ(messages, QList<tr::Tr>{tr::Tr("electronicPrescriptionNoPrescriptionsError", "Рецепты не найдены")});
}

} // namespace
