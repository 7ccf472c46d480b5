// SPDX-License-Identifier: MIT
#include "emulatortest.h"

#include "emulatorerror.h"

#include <QLocale>
#include <QTimeZone>

using namespace Qt::StringLiterals;

using emulator::Dispense;

namespace
{
class ScriptedRegistryTest : public EmulatorTest
{
protected:
    /// The message of what is refused; empty when it is booked.
    QString refusalOf(const Dispense& dispense)
    {
        try {
            m_emulator->dispenseElsewhere(dispense);
        } catch (const emulator::EmulatorError& error) {
            return error.message();
        }
        return {};
    }

    static Dispense dispenseOf(const QString& prescription, double quantity)
    {
        Dispense dispense;
        dispense.prescriptionId = prescription;
        dispense.quantity = quantity;
        return dispense;
    }
};
} // namespace

TEST_F(ScriptedRegistryTest, reset_beginsAgainWithTheSeed)
{
    const auto headers = admitted();
    ASSERT_EQ(registerDispense(fullPriceDispense()).status, 200);
    m_emulator->faults().neverAnswer(emulator::Endpoint::Any);
    m_emulator->reset();
    EXPECT_EQ(m_emulator->store().dispenses().size(), 2);
    EXPECT_TRUE(m_emulator->faults().pending().isEmpty());
    EXPECT_TRUE(m_emulator->journal().entries().isEmpty());
    const RawAnswer answer = ask("GET", "/MedicationPrescription/$by-card?patientIdentifier=1100", headers);
    expectRefusal(answer, emulator::RefusalCode::TokenExpired);
}

TEST_F(ScriptedRegistryTest, anyAnswer_saysWhatTimeItIsByTheRegistrysClock)
{
    const QByteArray date = ask("GET", "/nowhere").header("Date");
    const QDateTime said = QLocale::c().toDateTime(QString::fromLatin1(date), u"ddd, dd MMM yyyy hh:mm:ss 'GMT'"_s);
    EXPECT_EQ(QDateTime(said.date(), said.time(), QTimeZone::utc()), m_now) << date.constData();
}

TEST_F(ScriptedRegistryTest, seedWithMistake_leavesStateAsItWas)
{
    EXPECT_THROW(m_emulator->seed("{\"patients\": 1}"), emulator::EmulatorError);
    m_emulator->reset();
    EXPECT_EQ(m_emulator->store().prescriptionsOfCard(u"1100"_s).size(), 6);
}

TEST_F(ScriptedRegistryTest, equalDispenseElsewhere_differsOnlyInItsIdAndCanBeCancelledByThePharmacy)
{
    const QString first = idOfDispense(registerDispense(halfPriceDispense()));
    m_emulator->journal().clear();
    const QString second = m_emulator->dispenseElsewhere(*m_emulator->store().dispense(first));
    EXPECT_NE(second, first);
    EXPECT_TRUE(m_emulator->journal().entries().isEmpty());

    const auto original = m_emulator->store().dispense(first);
    const auto equal = m_emulator->store().dispense(second);
    ASSERT_TRUE(equal.has_value());
    EXPECT_EQ(equal->prescriptionId, original->prescriptionId);
    EXPECT_EQ(equal->pharmacy, original->pharmacy);
    EXPECT_EQ(equal->pharmacyName, original->pharmacyName);
    EXPECT_EQ(equal->pharmacyAddress, original->pharmacyAddress);
    EXPECT_EQ(equal->quantity, original->quantity);
    EXPECT_EQ(equal->handedOver, original->handedOver);
    EXPECT_EQ(cancelDispense(second.toUtf8()).status, 200);
    EXPECT_FALSE(m_emulator->store().dispense(first)->isCancelled);
}

TEST_F(ScriptedRegistryTest, dispenseElsewhereEqualToACancelledOne_isValid)
{
    const QString cancelled = idOfDispense(registerDispense(fullPriceDispense()));
    cancelDispense(cancelled.toUtf8());
    const QString id = m_emulator->dispenseElsewhere(*m_emulator->store().dispense(cancelled));
    EXPECT_FALSE(m_emulator->store().dispense(id)->isCancelled);
    EXPECT_TRUE(m_emulator->store().dispense(cancelled)->isCancelled);
}

TEST_F(ScriptedRegistryTest, dispenseElsewhereOfTheLastDoses_completesThePrescription)
{
    m_emulator->dispenseElsewhere(dispenseOf(u"rx-full"_s, 20));
    EXPECT_EQ(statusOf(u"rx-full"_s), u"completed"_s);
    EXPECT_EQ(m_emulator->store().dispensesOf(u"rx-full"_s).first().handedOver, m_now.date());
    expectRefusal(registerDispense(fullPriceDispense()), emulator::RefusalCode::PrescriptionCompleted, {u"rx-full"_s});
}

TEST_F(ScriptedRegistryTest, dispenseOfAnotherPharmacy_cannotBeCancelledByThisOne)
{
    Dispense dispense = dispenseOf(u"rx-full"_s, 10);
    dispense.pharmacy = u"18"_s;
    const QString id = m_emulator->dispenseElsewhere(dispense);
    expectRefusal(cancelDispense(id.toUtf8()), emulator::RefusalCode::DispenseOfOtherPharmacy, {id});
}

TEST_F(ScriptedRegistryTest, dispenseElsewhereAgainstTheRules_isRefusedAndBooksNothing)
{
    EXPECT_EQ(refusalOf(dispenseOf(u"rx-none"_s, 1)), u"Рецепт rx-none не найден в реестре"_s);
    EXPECT_EQ(refusalOf(dispenseOf(u"rx-full"_s, 0)), u"Количество отпускаемых доз должно быть больше нуля"_s);
    EXPECT_EQ(refusalOf(dispenseOf(u"rx-half"_s, 31)), u"По рецепту rx-half осталось доз: 30.00, отпускается: 31.00"_s);
    EXPECT_EQ(refusalOf(dispenseOf(u"rx-stopped"_s, 1)), u"Рецепт rx-stopped не действует, его статус «stopped»"_s);
    Dispense tomorrow = dispenseOf(u"rx-full"_s, 1);
    tomorrow.handedOver = m_now.date().addDays(1);
    EXPECT_EQ(refusalOf(tomorrow), u"Дата отпуска ещё не наступила"_s);
    EXPECT_EQ(m_emulator->store().dispenses().size(), 2);
}
