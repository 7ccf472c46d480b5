// SPDX-License-Identifier: MIT
// The registry has carried out a request and the answer was lost. The next command finds that out, and nothing is
// booked or cancelled twice.

#include "fault.h"
#include "positionformat.h"
#include "recoveringpharmacy.h"
#include "savingdouble.h"

#include <gtest/gtest.h>

#include <QFile>

#include <stdexcept>
#include <utility>

using namespace Qt::StringLiterals;

using emulator::Endpoint;
using emulator::Occasion;

namespace
{

class LostAnswer : public testing::TestWithParam<Fault>
{
protected:
    void lose(Endpoint endpoint, int occasion) { order(GetParam(), pharmacy, endpoint, Occasion::nth(occasion)); }
    QString markOf(int position) const { return pharmacy.optionsOf(position)["recovery"_L1].toString(); }

    RecoveringPharmacy till;
    Pharmacy& pharmacy = till.pharmacy;
};

TEST_P(LostAnswer, registration_isMarkedAndFoundByTheNextSubtotal)
{
    for (const int position : everyPosition) {
        lose(Endpoint::DispenseRegistration, 1);
        EXPECT_EQ(till.subtotal(), EContext::Stop);
        EXPECT_EQ(markOf(position), u"unknown"_s);
        pharmacy.order([](emulator::FaultScript& faults) { faults.clear(); });
    }
    EXPECT_EQ(till.subtotal(), EContext::GoOn);
    for (const int position : everyPosition) {
        expectRegistered(pharmacy, position);
    }
    EXPECT_EQ(till.openRequests(), 0);
}

TEST_P(LostAnswer, cancellation_isFoundByTheNextCommand)
{
    ASSERT_EQ(till.subtotal(), EContext::GoOn);
    lose(Endpoint::DispenseCancellation, 2);
    EXPECT_EQ(till.cancelDocument(), EContext::Stop);
    EXPECT_EQ(markOf(2), u"unknown"_s);

    EXPECT_EQ(till.cancelDocument(), EContext::GoOn);
    for (const int position : everyPosition) {
        expectCancelled(pharmacy, position);
    }
}

TEST_P(LostAnswer, positionRemovedAfterItsRegistration_isCancelledAtTheRegistry)
{
    lose(Endpoint::DispenseRegistration, 2);
    EXPECT_EQ(till.subtotal(), EContext::Stop);

    EXPECT_EQ(till.cancelPosition(2), EContext::GoOn);
    expectCancelled(pharmacy, 2);
}

INSTANTIATE_TEST_SUITE_P(Faults, LostAnswer, testing::ValuesIn(lostAnswers()),
                         [](const auto& test) { return test.param.name; });

TEST(Recovery, registryCannotBeAsked_commandStopsAndNothingIsSent)
{
    RecoveringPharmacy till;
    Pharmacy& pharmacy = till.pharmacy;
    pharmacy.order([](emulator::FaultScript& faults) {
        faults.carryOutThenClose(Endpoint::DispenseRegistration, Occasion::nth(1));
    });
    EXPECT_EQ(till.subtotal(), EContext::Stop);
    pharmacy.takeMessages();
    pharmacy.order([](emulator::FaultScript& faults) {
        faults.closeBeforeAnswer(Endpoint::PrescriptionsByCard, Occasion::always());
    });
    pharmacy.forgetRequests();

    EXPECT_EQ(till.subtotal(), EContext::Stop);
    EXPECT_EQ(pharmacy.asked(Endpoint::DispenseRegistration), 0);
    const auto messages = pharmacy.takeMessages();
    ASSERT_EQ(messages.size(), 1);
    EXPECT_TRUE(messages.first().text.contains(u"рецепт rx-full, Амоксидар 500 мг"_s))
        << messages.first().text.toStdString();

    pharmacy.order([](emulator::FaultScript& faults) { faults.clear(); });
    EXPECT_EQ(till.subtotal(), EContext::GoOn);
    for (const int position : everyPosition) {
        expectRegistered(pharmacy, position);
    }
}

/// A till whose first registration got no answer, and whose document has lost its card.
class WithoutTheCard : public testing::Test
{
protected:
    void lose(void (emulator::FaultScript::*fault)(Endpoint, Occasion))
    {
        pharmacy.order([fault](emulator::FaultScript& faults) {
            (faults.*fault)(Endpoint::DispenseRegistration, Occasion::nth(1));
        });
        EXPECT_EQ(till.subtotal(), EContext::Stop);
        pharmacy.document()->setPluginValue(u"ElectronicPrescriptionService"_s, u"cardNumber"_s, {});
        pharmacy.takeMessages();
    }
    void expectAskedOfTheCashierAlone()
    {
        ASSERT_EQ(till.choices.size(), 1);
        EXPECT_TRUE(till.choices.first().dispenses.isEmpty());
        EXPECT_EQ(pharmacy.asked(Endpoint::PrescriptionsByCard), 0);
    }

    RecoveringPharmacy till;
    Pharmacy& pharmacy = till.pharmacy;
};

TEST_F(WithoutTheCard, cashierKnowsOfNoDispense_subtotalRegistersIt)
{
    lose(&emulator::FaultScript::closeBeforeAnswer);
    till.onChoice = [](const DispenseChoiceParams&) { return DispenseChoice{DispenseChoice::NoneOfThem, -1}; };
    EXPECT_EQ(till.subtotal(), EContext::GoOn);
    expectAskedOfTheCashierAlone();
    for (const int position : everyPosition) {
        expectRegistered(pharmacy, position);
    }
}

TEST_F(WithoutTheCard, cashierKnowsOfTheDispense_positionIsRegisteredAndItIsNotSentAgain)
{
    lose(&emulator::FaultScript::carryOutThenClose);
    till.onChoice = [](const DispenseChoiceParams&) { return DispenseChoice{DispenseChoice::HeldUnseen, -1}; };
    EXPECT_EQ(till.subtotal(), EContext::GoOn);
    expectAskedOfTheCashierAlone();
    EXPECT_EQ(pharmacy.asked(Endpoint::DispenseRegistration), 3);
    EXPECT_EQ(pharmacy.optionsOf(1)["status"_L1].toString(), u"dispensed"_s);
}

TEST(Recovery, answerThatDidNotReachTheDocument_isAppliedWithoutTheNetwork)
{
    RecoveringPharmacy till(RecoveringPharmacy::Recovery::Absent);
    Pharmacy& pharmacy = till.pharmacy;
    {
        SavingDouble saving;
        saving.onSave = [](const auto&, const QString&, const auto&) -> bool { throw std::runtime_error("power cut"); };
        EXPECT_THROW(till.subtotal(), std::runtime_error);
    }
    pharmacy.forgetRequests();
    till.restart();
    EXPECT_TRUE(pharmacy.requests().isEmpty());
    expectRegistered(pharmacy, 1);
    EXPECT_EQ(pharmacy.savedDocument()["positions"_L1][0]["extendedOptions"_L1].toString(), pharmacy.options()[0]);
    EXPECT_EQ(till.openRequests(), 0);
}

/// What the pharmacy asked to have registered for a position.
emulator::Dispense dispenseAskedFor(const Pharmacy& pharmacy, int position)
{
    const QJsonObject options = pharmacy.optionsOf(position);
    emulator::Dispense dispense;
    dispense.prescriptionId = Pharmacy::prescriptionOf(position);
    dispense.pharmacy = u"17"_s;
    dispense.pharmacyName = u"Аптека № 17"_s;
    dispense.pharmacyAddress = u"ул. Лесная, 1"_s;
    dispense.quantity = options[positionformat::doseQuantity].toDouble();
    dispense.isFinal = options[positionformat::finalDispense].toBool();
    return dispense;
}

/// Does something when long work ends, once.
class AtTheEndOfWork : public BaseActivityListener
{
public:
    explicit AtTheEndOfWork(std::function<void()> function)
        : m_function(std::move(function))
    {
        Singleton<ActivityNotifier>::get()->subscribe(this);
    }
    void handleEvent(const Event& event) override
    {
        if (event.getCode() == EActivityListener::LongWorkEnds && m_function) {
            std::exchange(m_function, {})();
        }
    }

private:
    std::function<void()> m_function;
};

/// A pharmacy whose first registration of a position has no answer, and was not carried out.
class UnansweredRegistration : public testing::Test
{
protected:
    void loseRequestOf(int position)
    {
        pharmacy.order([position](emulator::FaultScript& faults) {
            faults.closeBeforeAnswer(Endpoint::DispenseRegistration, Occasion::nth(position));
        });
        EXPECT_EQ(till.subtotal(), EContext::Stop);
    }
    void book(const emulator::Dispense& dispense)
    {
        pharmacy.atRegistry(
            [&dispense](emulator::RegistryEmulator& registry) { registry.dispenseElsewhere(dispense); });
    }

    RecoveringPharmacy till;
    Pharmacy& pharmacy = till.pharmacy;
};

TEST_F(UnansweredRegistration, bookedAfterTheRegistryWasAsked_isFoundByTheNextSubtotal)
{
    loseRequestOf(1);
    const emulator::Dispense late = dispenseAskedFor(pharmacy, 1);
    AtTheEndOfWork booking([&] { book(late); }); // the registry has just said that there is none
    EXPECT_EQ(till.subtotal(), EContext::Stop);  // the repetition is refused

    EXPECT_EQ(till.subtotal(), EContext::GoOn);
    for (const int position : everyPosition) {
        expectRegistered(pharmacy, position);
    }
}

TEST_F(UnansweredRegistration, equalDispenseOfAnotherPharmacy_isAQuestionToTheCashier)
{
    emulator::Dispense foreign = dispenseAskedFor(pharmacy, 2);
    foreign.pharmacy = u"18"_s;
    foreign.pharmacyName = u"Аптека № 18"_s;
    loseRequestOf(2);
    book(foreign);
    till.onChoice = [](const DispenseChoiceParams&) { return DispenseChoice{DispenseChoice::NoneOfThem}; };

    EXPECT_EQ(till.subtotal(), EContext::GoOn);
    ASSERT_EQ(till.choices.size(), 1);
    ASSERT_EQ(till.choices.first().dispenses.size(), 1);
    EXPECT_TRUE(till.choices.first().dispenses.first().pharmacy.contains(u"№ 18"_s));
    EXPECT_EQ(pharmacy.dispensesOf(2).size(), 2);
    expectRegistered(pharmacy, 3);
}

TEST_F(UnansweredRegistration, cashierDecidesLater_nothingGoesOut)
{
    loseRequestOf(2);
    book(dispenseAskedFor(pharmacy, 2));
    book(dispenseAskedFor(pharmacy, 2));
    till.onChoice = [](const DispenseChoiceParams&) { return DispenseChoice{DispenseChoice::Later}; };
    pharmacy.forgetRequests();

    EXPECT_EQ(till.subtotal(), EContext::Stop);
    EXPECT_EQ(pharmacy.asked(Endpoint::DispenseRegistration), 0);
    till.onChoice = [](const DispenseChoiceParams&) { return DispenseChoice{DispenseChoice::Chosen, 1}; };
    EXPECT_EQ(till.subtotal(), EContext::GoOn);
    EXPECT_EQ(pharmacy.optionsOf(2)[positionformat::medicationDispenseId].toString(), pharmacy.dispensesOf(2)[1].id);
}

TEST_F(UnansweredRegistration, journalIsLost_markedPositionIsAskedAbout)
{
    loseRequestOf(2);
    book(dispenseAskedFor(pharmacy, 2));
    ASSERT_TRUE(QFile::remove(pharmacy.dataFolder.filePath(u"requests.journal"_s)));
    till.onChoice = [](const DispenseChoiceParams&) { return DispenseChoice{DispenseChoice::Chosen, 0}; };
    till.restart();
    EXPECT_EQ(till.choices.size(), 1);
    EXPECT_EQ(till.subtotal(), EContext::GoOn);
    EXPECT_EQ(pharmacy.dispensesOf(2).size(), 1);
}

} // namespace
