// SPDX-License-Identifier: MIT
#include "emulatortest.h"

#include <QJsonArray>
#include <QJsonDocument>

using namespace Qt::StringLiterals;

using emulator::RefusalCode;

namespace
{
class DispenseCancellationTest : public EmulatorTest
{
protected:
    /// Books a dispense that completes its prescription.
    QByteArray bookFinal()
    {
        const QJsonObject document =
            with(fullPriceDispense(), u"parameter.0.resource.extension.0.valueBoolean"_s, true);
        const QByteArray id = idOfDispense(registerDispense(document)).toUtf8();
        EXPECT_EQ(statusOf(u"rx-full"_s), u"completed"_s);
        return id;
    }
};
} // namespace

TEST_F(DispenseCancellationTest, cancellation_isAnsweredWithDispenseEnteredInError)
{
    const QByteArray id = bookFinal();
    const RawAnswer answer = cancelDispense(id);
    ASSERT_EQ(answer.status, 200) << qPrintable(answer.issue());
    EXPECT_EQ(answer.json().value(u"resourceType"_s).toString(), u"Bundle"_s);
    const QJsonArray entries = answer.json().value(u"entry"_s).toArray();
    ASSERT_EQ(entries.size(), 1);
    const QJsonObject entry = entries.first().toObject();
    EXPECT_EQ(entry.value(u"transactionResponse"_s).toObject().value(u"status"_s).toString(), u"PUT:200"_s);
    const QJsonObject resource = entry.value(u"resource"_s).toObject();
    EXPECT_EQ(resource.value(u"id"_s).toString().toUtf8(), id);
    EXPECT_EQ(resource.value(u"status"_s).toString(), u"entered-in-error"_s);
    EXPECT_TRUE(m_emulator->store().dispense(QString::fromUtf8(id))->isCancelled);
}

TEST_F(DispenseCancellationTest, cancelledFinalDispense_makesPrescriptionActiveAgain)
{
    ASSERT_EQ(cancelDispense(bookFinal()).status, 200);
    EXPECT_EQ(statusOf(u"rx-full"_s), u"active"_s);
    EXPECT_EQ(registerDispense(fullPriceDispense()).status, 200);
}

TEST_F(DispenseCancellationTest, cancelledDoses_canBeDispensedAgain)
{
    const QByteArray first = idOfDispense(registerDispense(fullPriceDispense())).toUtf8();
    ASSERT_EQ(registerDispense(fullPriceDispense()).status, 200);
    ASSERT_EQ(registerDispense(fullPriceDispense()).status, 422);
    ASSERT_EQ(cancelDispense(first).status, 200);
    EXPECT_EQ(registerDispense(fullPriceDispense()).status, 200);
}

TEST_F(DispenseCancellationTest, cancelledPartBeforeFinalDispense_leavesPrescriptionCompleted)
{
    const QByteArray part = idOfDispense(registerDispense(fullPriceDispense())).toUtf8();
    bookFinal();
    ASSERT_EQ(cancelDispense(part).status, 200);
    EXPECT_EQ(statusOf(u"rx-full"_s), u"completed"_s);
}

TEST_F(DispenseCancellationTest, secondCancellation_isRefused)
{
    const QByteArray id = bookFinal();
    ASSERT_EQ(cancelDispense(id).status, 200);
    ASSERT_EQ(registerDispense(fullPriceDispense()).status, 200);
    const RawAnswer answer = cancelDispense(id);
    expectRefusal(answer, RefusalCode::DispenseAlreadyCancelled, {QString::fromUtf8(id)});
}

TEST_F(DispenseCancellationTest, unknownDispense_isRefused)
{
    const RawAnswer answer = cancelDispense("a%2F%251");
    expectRefusal(answer, RefusalCode::DispenseUnknown, {u"a/%1"_s});
}

TEST_F(DispenseCancellationTest, missingId_isRefused)
{
    const RawAnswer answer = ask("POST", "/MedicationDispense/$set-as-error", admitted(), "{}");
    expectRefusal(answer, RefusalCode::DispenseIdMissing);
}

TEST_F(DispenseCancellationTest, dispenseOfOtherPharmacy_isRefused)
{
    const QByteArray id = bookFinal();
    const RawAnswer answer = ask("POST", "/MedicationDispense/" + id + "/$set-as-error",
                                 admitted("grant_type=client_credentials&client_id=other&client_secret=other&"
                                          "organization_identifier=18"),
                                 "{}");
    expectRefusal(answer, RefusalCode::DispenseOfOtherPharmacy, {QString::fromUtf8(id)});
    EXPECT_FALSE(m_emulator->store().dispense(QString::fromUtf8(id))->isCancelled);
}

TEST_F(DispenseCancellationTest, bodyThatIsNoJsonObject_isRefused)
{
    const QByteArray id = bookFinal();
    for (const QByteArray& body : {QByteArray("[]"), QByteArray("x"), QByteArray()}) {
        const RawAnswer answer = ask("POST", "/MedicationDispense/" + id + "/$set-as-error", admitted(), body);
        expectRefusal(answer, RefusalCode::CancellationNoObject);
    }
    EXPECT_FALSE(m_emulator->store().dispense(QString::fromUtf8(id))->isCancelled);
}
