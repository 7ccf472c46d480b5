// SPDX-License-Identifier: MIT
#include "pharmacydoubles.h"

#include "electronicprescriptionexception.h"

#include <QJsonDocument>

namespace
{

const core::BasicDialog::Result canceled({}, true);

/// A cashier who serves the first prescription without a step back, if nothing else is laid out.
class ProcessingLoop : public PharmacyTest
{
protected:
    ProcessingLoop()
    {
        for (const auto& prescription : prescriptions) {
            prescription->setDictName("known"); // no look-up in the goods database
        }
        service.patientCache.insert("active", patient);
        service.patientCache.insert("completed", otherPatient);
        onAction = [this](control::Action& action) {
            if (action.getType() == control::SelectGoods) {
                action.insert("result", "the goods");
                return goodsResults.isEmpty() ? EContext::GoOn : goodsResults.takeFirst();
            }
            action.insert("positionNumber", 5);
            return addResults.isEmpty() ? EContext::GoOn : addResults.takeFirst();
        };
    }

    void process(const QString& status = "active")
    {
        service.processElectronicPrescriptions("77", status, prescriptions);
    }

    /// The rest of the way, from the details on.
    void goStraightOn()
    {
        cashier.details << status(0);
        cashier.texts << entered("2");
        cashier.confirmations << status(1);
    }

    void expectUntouchedReceipt()
    {
        EXPECT_EQ(position->getTags(), QStringList());
        EXPECT_EQ(position->getExtendedOptions(), "");
        EXPECT_TRUE(service.lastCardNumber.isNull());
        EXPECT_TRUE(saved.isEmpty());
        EXPECT_FALSE(receipt->getPluginValue("ElectronicPrescriptionService", "cardNumber", {}).isValid());
    }

    QSharedPointer<GoodsItem> position{addPosition(5)};
    QSharedPointer<Patient> patient{new Patient("Петров Пётр Петрович", QDate(1950, 2, 28))};
    QSharedPointer<Patient> otherPatient{new Patient("Иванов Иван Иван", QDate())};
    ElectronicPrescriptionService::Prescriptions prescriptions{prescriptionWithId("a"), prescriptionWithId("b")};
    QList<EContext::Result> goodsResults;
    QList<EContext::Result> addResults;
};

const QStringList wholeWay = {"list", "details", "action 219", "ask inputQuantity", "confirm", "action 220", "save"};

TEST_F(ProcessingLoop, straightOn_putsThePrescriptionOnTheReceiptAndRemembersTheCard)
{
    cashier.rows << 1;
    goStraightOn();

    process();

    EXPECT_EQ(journal, wholeWay);
    EXPECT_EQ(position->getTags(), QStringList{"prescription"});
    EXPECT_EQ(position->getSoftCheckId(), "b");
    const QJsonObject options = optionsOf(*position);
    EXPECT_EQ(options["id"], "b");
    EXPECT_EQ(options["doseQuantity"], 2);
    EXPECT_EQ(options["finalDispense"], true);
    EXPECT_EQ(service.lastCardNumber, "77");
    EXPECT_EQ(receipt->getPluginValue("ElectronicPrescriptionService", "cardNumber", {}), QVariant("77"));
    EXPECT_EQ(saved, QList<QSharedPointer<AbstractDocument>>{receipt});
    EXPECT_EQ(savedFiles, QStringList{""});
}

TEST_F(ProcessingLoop, save_holdsTheMarkedPositionAndTheCard)
{
    prescriptions[1]->setPayByPatientSumFactor(0.5);
    cashier.rows << 1;
    goStraightOn();

    process();

    ASSERT_EQ(savedContents.size(), 1);
    const QJsonObject& document = savedContents[0];
    const QJsonValue savedPosition = document["positions"][0];
    EXPECT_EQ(savedPosition["tags"], (QJsonArray{"prescription"}));
    EXPECT_EQ(savedPosition["softCheckId"], "b");
    EXPECT_EQ(savedPosition["price"], 50.0);
    const QJsonObject options = QJsonDocument::fromJson(savedPosition["extendedOptions"].toString().toUtf8()).object();
    EXPECT_EQ(options["id"], "b");
    EXPECT_EQ(options["doseQuantity"], 2);
    EXPECT_EQ(options["finalDispense"], true);
    EXPECT_EQ(document["plugins"]["ElectronicPrescriptionService"]["cardNumber"], "77");
}

TEST_F(ProcessingLoop, dialogs_getTheirRecords)
{
    cashier.rows << 1;
    goStraightOn();

    process("completed");

    ASSERT_EQ(shownLists.size(), 1);
    QList<QSharedPointer<ElectronicPrescription>> shown;
    shownLists[0].getElectronicPrescriptions(shown);
    EXPECT_EQ(shown, prescriptions);
    EXPECT_EQ(shownLists[0].getStatus(), "completed");
    EXPECT_FALSE(shownLists[0].isUseLast());
    QSharedPointer<Patient> shownPatient;
    shownLists[0].getPatient(shownPatient);
    EXPECT_EQ(shownPatient, otherPatient);

    ASSERT_EQ(shownDetails.size(), 1);
    QSharedPointer<ElectronicPrescription> shownPrescription;
    shownDetails[0].getElectronicPrescription(shownPrescription);
    EXPECT_EQ(shownPrescription, prescriptions[1]);
    EXPECT_EQ(shownDetails[0].getStatus(), "completed");
    shownDetails[0].getPatient(shownPatient);
    EXPECT_EQ(shownPatient, otherPatient);

    ASSERT_EQ(shownConfirmations.size(), 1);
    shownConfirmations[0].getElectronicPrescription(shownPrescription);
    EXPECT_EQ(shownPrescription, prescriptions[1]);
}

TEST_F(ProcessingLoop, otherStatus_writesThePatientOfActive)
{
    cashier.rows << 0;
    goStraightOn();

    process("completed");

    EXPECT_EQ(optionsOf(*position)["patient"], "Петров Пётр Петрович");
}

TEST_F(ProcessingLoop, selection_goesOnToTheReceipt)
{
    cashier.rows << 0;
    goStraightOn();

    process();

    ASSERT_EQ(actions.size(), 2);
    EXPECT_EQ(actions[1].value("result"), "the goods");
}

class LeftList : public ProcessingLoop, public ::testing::WithParamInterface<int>
{
};

TEST_P(LeftList, endsWithoutTouchingTheReceipt)
{
    cashier.rows << GetParam();

    process();

    EXPECT_EQ(journal, QStringList{"list"});
    expectUntouchedReceipt();
}

INSTANTIATE_TEST_SUITE_P(row, LeftList, ::testing::Values(-1, -2, 2, 3, std::numeric_limits<int>::max()));

class BackFromDetails : public ProcessingLoop, public ::testing::WithParamInterface<int>
{
};

TEST_P(BackFromDetails, showsTheListAgain)
{
    cashier.rows << 0 << -1;
    cashier.details << status(GetParam());

    process();

    EXPECT_EQ(journal, (QStringList{"list", "details", "list again"}));
    expectUntouchedReceipt();
}

INSTANTIATE_TEST_SUITE_P(status, BackFromDetails, ::testing::Values(-1, 1, 2));

TEST_F(ProcessingLoop, detailsWithoutStatus_goOn)
{
    cashier.rows << 0;
    goStraightOn();
    cashier.details = {core::BasicDialog::Result(QVariantMap{})};

    process();

    EXPECT_EQ(journal, wholeWay);
}

TEST_F(ProcessingLoop, goodsNotChosen_detailsAgain)
{
    cashier.rows << 0;
    goStraightOn();
    cashier.details << status(0) << status(0);
    goodsResults = {EContext::Stop, EContext::NotFound};

    process();

    EXPECT_EQ(journal, (QStringList{"list", "details", "action 219", "details", "action 219"} + wholeWay.mid(1)));
}

TEST_F(ProcessingLoop, dosesCancelled_detailsAgain)
{
    cashier.rows << 0;
    goStraightOn();
    cashier.details << status(0);
    cashier.texts.prepend(canceled);

    process();

    EXPECT_EQ(journal, (QStringList{"list", "details", "action 219", "ask inputQuantity"} + wholeWay.mid(1)));
}

TEST_F(ProcessingLoop, confirmationBack_detailsAgainAndNothingAdded)
{
    cashier.rows << 0 << -1;
    cashier.details << status(0) << status(-1);
    cashier.texts << entered("2");
    cashier.confirmations << status(-1);

    process();

    EXPECT_EQ(journal,
              (QStringList{"list", "details", "action 219", "ask inputQuantity", "confirm", "details", "list again"}));
    expectUntouchedReceipt();
}

TEST_F(ProcessingLoop, goodsNotAdded_detailsAgain)
{
    cashier.rows << 0;
    goStraightOn();
    goStraightOn();
    addResults = {EContext::Stop};

    process();

    EXPECT_EQ(journal, (QStringList{"list", "details", "action 219", "ask inputQuantity", "confirm", "action 220"} +
                        wholeWay.mid(1)));
}

TEST_F(ProcessingLoop, addedPositionNotOnTheReceipt_detailsAgain)
{
    cashier.rows << 0 << -1;
    goStraightOn();
    cashier.details << status(-1);
    receipt->positions.clear();

    process();

    EXPECT_EQ(journal, (QStringList{"list", "details", "action 219", "ask inputQuantity", "confirm", "action 220",
                                    "details", "list again"}));
    expectUntouchedReceipt();
}

TEST_F(ProcessingLoop, receiptGone_detailsAgain)
{
    cashier.rows << 0 << -1;
    goStraightOn();
    cashier.details << status(-1);
    DocumentWatcher::setCurrentDocument({});

    process();

    EXPECT_EQ(journal.last(), "list again");
    expectUntouchedReceipt();
}

TEST_F(ProcessingLoop, everyLaterList_isShownAgain)
{
    cashier.rows << 0 << 1 << 0 << -1;
    cashier.details << status(-1) << status(-1) << status(-1);

    process();

    EXPECT_EQ(journal,
              (QStringList{"list", "details", "list again", "details", "list again", "details", "list again"}));
}

TEST_F(ProcessingLoop, nextCall_showsTheListAsANewOne)
{
    for (int call = 0; call < 2; ++call) {
        cashier.rows << 0 << -1;
        cashier.details << status(-1);
        process();
    }

    EXPECT_EQ(journal, (QStringList{"list", "details", "list again", "list", "details", "list again"}));
}

class Confirmation : public ProcessingLoop, public ::testing::WithParamInterface<std::pair<int, bool>>
{
};

TEST_P(Confirmation, decidesWhetherTheDispenseIsFinal)
{
    cashier.rows << 0;
    goStraightOn();
    cashier.confirmations = {status(GetParam().first)};

    process();

    EXPECT_EQ(journal, wholeWay);
    EXPECT_EQ(optionsOf(*position)["finalDispense"], GetParam().second);
}

INSTANTIATE_TEST_SUITE_P(status, Confirmation,
                         ::testing::Values(std::pair(1, true), std::pair(2, false), std::pair(0, false),
                                           std::pair(-2, false), std::pair(7, false)));

TEST_F(ProcessingLoop, confirmationWithoutStatus_isPartial)
{
    cashier.rows << 0;
    goStraightOn();
    cashier.confirmations = {core::BasicDialog::Result()};

    process();

    EXPECT_EQ(optionsOf(*position)["finalDispense"], false);
}

TEST_F(ProcessingLoop, benefit_changesThePriceBeforeTheSave)
{
    prescriptions[0]->setPayByPatientSumFactor(0.5);
    cashier.rows << 0;
    goStraightOn();

    process();

    EXPECT_EQ(position->getPrice(), 50.0);
    EXPECT_EQ(journal.mid(journal.size() - 3), (QStringList{"action 220", "recalculate", "save"}));
}

TEST_F(ProcessingLoop, newPosition_isFilledBeforeItIsPriced)
{
    GoodsItem::Goods goods;
    goods.number = 5;
    goods.price = Kopecks{10000};
    const QSharedPointer<JournallingPosition> journalling(new JournallingPosition(goods));
    receipt->positions = {journalling};
    prescriptions[0]->setPayByPatientSumFactor(0.5);
    cashier.rows << 0;
    goStraightOn();

    process();

    EXPECT_EQ(journalling->calls, (QStringList{"options", "soft check id", "tag", "price"}));
}

/// Steps that write their calls down; they answer what a straight way asks for.
class ServiceWithSteps : public Service
{
public:
    mutable QStringList calls;
    std::function<void()> onSelect = [] {};

    void fillDictionaryName(const QSharedPointer<ElectronicPrescription>& prescription) const override
    {
        calls << "dictionary " + prescription->getId();
    }
    bool selectMedicineForElectronicPrescription(const QSharedPointer<ElectronicPrescription>& prescription,
                                                 QVariant& selected) const override
    {
        EXPECT_FALSE(selected.isValid());
        calls << "goods " + prescription->getId();
        onSelect();
        selected = "selected";
        return true;
    }
    bool inputDispensedDoseQuantity(const QSharedPointer<ElectronicPrescription>& prescription,
                                    double& doses) const override
    {
        calls << QString("doses %1 %2").arg(prescription->getId()).arg(doses);
        doses = 3;
        return true;
    }
    int addSelectedMedicine(const QVariant& selected) const override
    {
        calls << "add " + selected.toString();
        return 5;
    }
};

TEST_F(ProcessingLoop, steps_areCalledThroughTheObject)
{
    ServiceWithSteps steps;
    cashier.rows << 0 << 1;
    cashier.details << status(-1) << status(0);
    cashier.confirmations << status(1);

    steps.processElectronicPrescriptions("77", "active", prescriptions);

    EXPECT_EQ(steps.calls, (QStringList{"dictionary a", "dictionary b", "goods b", "doses b 0", "add selected"}));
    EXPECT_EQ(optionsOf(*position)["doseQuantity"], 3);
}

TEST_F(ProcessingLoop, stepThrowsItsException_isShownAndEndsTheLoop)
{
    ServiceWithSteps steps;
    steps.onSelect = [] { throw ElectronicPrescriptionException({"aKey", "Отказ"}); };
    cashier.rows << 0;
    cashier.details << status(0);

    steps.processElectronicPrescriptions("77", "active", prescriptions);

    EXPECT_EQ(journal, (QStringList{"list", "details", "message 1/1/0 aKey"}));
    EXPECT_EQ(messages, QList<tr::Tr>{tr::Tr("aKey", "Отказ")});
    expectUntouchedReceipt();
}

TEST_F(ProcessingLoop, stepThrowsAnother_goesThrough)
{
    ServiceWithSteps steps;
    steps.onSelect = [] { throw std::runtime_error("else"); };
    cashier.rows << 0;
    cashier.details << status(0);

    EXPECT_THROW(steps.processElectronicPrescriptions("77", "active", prescriptions), std::runtime_error);

    EXPECT_TRUE(messages.isEmpty());
}

} // namespace
