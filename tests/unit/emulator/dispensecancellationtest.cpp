// SPDX-License-Identifier: MIT
#include "emulatortest.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace
{
class DispenseCancellationTest : public EmulatorTest
{
protected:
    /// Books a dispense that completes its prescription.
    QByteArray bookFinal()
    {
        const QJsonObject document =
            with(fullPriceDispense(), QStringLiteral("parameter.0.resource.extension.0.valueBoolean"), true);
        const QByteArray id = idOfDispense(registerDispense(document)).toUtf8();
        EXPECT_EQ(statusOf(QStringLiteral("rx-full")), QStringLiteral("completed"));
        return id;
    }
};
} // namespace

TEST_F(DispenseCancellationTest, cancellation_isAnsweredWithErroneousDispense)
{
    const QByteArray id = bookFinal();
    const RawAnswer answer = cancelDispense(id);
    ASSERT_EQ(answer.status, 200) << qPrintable(answer.issue());
    EXPECT_EQ(answer.json().value(QStringLiteral("resourceType")).toString(), QStringLiteral("Bundle"));
    const QJsonArray entries = answer.json().value(QStringLiteral("entry")).toArray();
    ASSERT_EQ(entries.size(), 1);
    const QJsonObject entry = entries.first().toObject();
    EXPECT_EQ(entry.value(QStringLiteral("transactionResponse")).toObject().value(QStringLiteral("status")).toString(),
              QStringLiteral("PUT:200"));
    const QJsonObject resource = entry.value(QStringLiteral("resource")).toObject();
    EXPECT_EQ(resource.value(QStringLiteral("id")).toString().toUtf8(), id);
    EXPECT_EQ(resource.value(QStringLiteral("status")).toString(), QStringLiteral("entered-in-error"));
    EXPECT_TRUE(m_emulator->store().dispense(QString::fromUtf8(id))->isCancelled);
}

TEST_F(DispenseCancellationTest, cancelledFinalDispense_givesPrescriptionBack)
{
    ASSERT_EQ(cancelDispense(bookFinal()).status, 200);
    EXPECT_EQ(statusOf(QStringLiteral("rx-full")), QStringLiteral("active"));
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

TEST_F(DispenseCancellationTest, cancelledPartOfFinallyDispensedPrescription_leavesItCompleted)
{
    const QByteArray part = idOfDispense(registerDispense(fullPriceDispense())).toUtf8();
    bookFinal();
    ASSERT_EQ(cancelDispense(part).status, 200);
    EXPECT_EQ(statusOf(QStringLiteral("rx-full")), QStringLiteral("completed"));
}

TEST_F(DispenseCancellationTest, secondCancellation_isRefused)
{
    const QByteArray id = bookFinal();
    ASSERT_EQ(cancelDispense(id).status, 200);
    ASSERT_EQ(registerDispense(fullPriceDispense()).status, 200);
    const RawAnswer answer = cancelDispense(id);
    EXPECT_EQ(answer.status, 409);
    EXPECT_EQ(answer.issue(),
              QString(QStringLiteral("Отпуск ") + QString::fromUtf8(id) + QStringLiteral(" уже отменён")));
}

TEST_F(DispenseCancellationTest, unknownDispense_isRefused)
{
    const RawAnswer answer = cancelDispense("a%2F%251");
    EXPECT_EQ(answer.status, 404);
    EXPECT_EQ(answer.issue(), QStringLiteral("Отпуск a/%1 не найден в реестре"));
}

TEST_F(DispenseCancellationTest, missingId_isRefused)
{
    const RawAnswer answer = ask("POST", "/MedicationDispense/$set-as-error", admitted(), "{}");
    EXPECT_EQ(answer.status, 400);
    EXPECT_EQ(answer.issue(), QStringLiteral("Не указано, какой отпуск отменяется"));
}

TEST_F(DispenseCancellationTest, dispenseOfOtherPharmacy_isRefused)
{
    const QByteArray id = bookFinal();
    const RawAnswer answer = ask("POST", "/MedicationDispense/" + id + "/$set-as-error",
                                 admitted("grant_type=client_credentials&client_id=other&client_secret=other&"
                                          "organization_identifier=18"),
                                 "{}");
    EXPECT_EQ(answer.status, 403);
    EXPECT_EQ(answer.issue(), QString(QStringLiteral("Отпуск ") + QString::fromUtf8(id) +
                                      QStringLiteral(" зарегистрирован другой организацией")));
    EXPECT_FALSE(m_emulator->store().dispense(QString::fromUtf8(id))->isCancelled);
}

TEST_F(DispenseCancellationTest, bodyThatIsNoJsonObject_isRefused)
{
    const QByteArray id = bookFinal();
    for (const QByteArray& body : {QByteArray("[]"), QByteArray("x"), QByteArray()}) {
        const RawAnswer answer = ask("POST", "/MedicationDispense/" + id + "/$set-as-error", admitted(), body);
        EXPECT_EQ(answer.status, 400);
        EXPECT_EQ(answer.issue(), QStringLiteral("Запрос отмены не является объектом JSON"));
    }
    EXPECT_FALSE(m_emulator->store().dispense(QString::fromUtf8(id))->isCancelled);
}
