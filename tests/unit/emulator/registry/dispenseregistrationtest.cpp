// SPDX-License-Identifier: MIT
#include "emulatortest.h"

#include <QJsonArray>
#include <QJsonDocument>

using namespace Qt::StringLiterals;

namespace
{
/// Paths into a document of the fixture, with what stands there.
const QString dispenseAt = u"parameter.0.resource."_s;
const QString claimAt = u"parameter.1.resource."_s;

class DispenseRegistrationTest : public EmulatorTest
{
protected:
    /// Expects that the document is refused and nothing is booked.
    void expectRefusal(const QJsonObject& document, int status, const QString& details)
    {
        const qsizetype booked = m_emulator->store().dispenses().size();
        const RawAnswer answer = registerDispense(document);
        EXPECT_EQ(answer.status, status);
        EXPECT_EQ(answer.issue(), details) << qPrintable(answer.issue());
        EXPECT_EQ(m_emulator->store().dispenses().size(), booked);
    }

    static QJsonObject doses(const QJsonObject& document, double doses)
    {
        return with(document, dispenseAt + u"quantity.value"_s, doses);
    }

    static QJsonObject declaredFinal(const QJsonObject& document)
    {
        return with(document, dispenseAt + u"extension.0.valueBoolean"_s, true);
    }

    static QJsonObject ofPrescription(const QJsonObject& document, const QString& id, const QString& medication)
    {
        const QJsonObject other = with(document, dispenseAt + u"authorizingPrescription.0.reference"_s,
                                       QString(u"MedicationPrescription/"_s + id));
        return with(other, dispenseAt + u"contained.0.code.coding.0.code"_s, medication);
    }

    static QJsonObject amounts(double unitPrice, double factor, double net)
    {
        QJsonObject document = halfPriceDispense();
        document = with(document, claimAt + u"item.0.unitPrice.value"_s, unitPrice);
        document = with(document, claimAt + u"item.0.factor"_s, factor);
        return with(document, claimAt + u"item.0.net.value"_s, net);
    }
};
} // namespace

TEST_F(DispenseRegistrationTest, fullPriceDispense_isAnsweredWithItsIdAndBooked)
{
    const RawAnswer answer = registerDispense(fullPriceDispense());
    ASSERT_EQ(answer.status, 200) << qPrintable(answer.issue());
    EXPECT_EQ(answer.json().value(u"resourceType"_s).toString(), u"Bundle"_s);
    const QJsonArray entries = answer.json().value(u"entry"_s).toArray();
    ASSERT_EQ(entries.size(), 1);
    const QJsonObject entry = entries.at(0).toObject();
    EXPECT_EQ(entry.value(u"transactionResponse"_s).toObject().value(u"status"_s).toString(), u"POST:201"_s);
    const QJsonObject resource = entry.value(u"resource"_s).toObject();
    EXPECT_EQ(resource.value(u"resourceType"_s).toString(), u"MedicationDispense"_s);
    EXPECT_EQ(resource.value(u"quantity"_s).toObject().value(u"value"_s).toDouble(), 10);

    const auto booked = m_emulator->store().dispense(resource.value(u"id"_s).toString());
    ASSERT_TRUE(booked.has_value());
    EXPECT_EQ(booked->prescriptionId, u"rx-full"_s);
    EXPECT_EQ(booked->quantity, 10);
    EXPECT_EQ(booked->handedOver, QDate(2024, 3, 20));
    EXPECT_EQ(booked->pharmacy, u"17"_s);
    EXPECT_FALSE(booked->isFinal);
    EXPECT_FALSE(booked->isCancelled);
    EXPECT_TRUE(booked->claim.isEmpty());
}

TEST_F(DispenseRegistrationTest, benefitDispense_isAnsweredWithItsClaim)
{
    const RawAnswer answer = registerDispense(halfPriceDispense());
    ASSERT_EQ(answer.status, 200) << qPrintable(answer.issue());
    const QJsonArray entries = answer.json().value(u"entry"_s).toArray();
    ASSERT_EQ(entries.size(), 2);
    const QJsonObject claim = entries.at(1).toObject();
    EXPECT_EQ(claim.value(u"transactionResponse"_s).toObject().value(u"status"_s).toString(), u"POST:201"_s);
    EXPECT_EQ(claim.value(u"resource"_s).toObject().value(u"resourceType"_s).toString(), u"Claim"_s);
    EXPECT_FALSE(claim.value(u"resource"_s).toObject().value(u"id"_s).toString().isEmpty());
    EXPECT_FALSE(m_emulator->store().dispense(idOfDispense(answer))->claim.isEmpty());
}

TEST_F(DispenseRegistrationTest, partialDispense_leavesPrescriptionActive)
{
    ASSERT_EQ(registerDispense(fullPriceDispense()).status, 200);
    EXPECT_EQ(statusOf(u"rx-full"_s), u"active"_s);
}

TEST_F(DispenseRegistrationTest, finalDispense_completesPrescription)
{
    ASSERT_EQ(registerDispense(declaredFinal(fullPriceDispense())).status, 200);
    EXPECT_EQ(statusOf(u"rx-full"_s), u"completed"_s);
}

TEST_F(DispenseRegistrationTest, lastDoses_completePrescription)
{
    ASSERT_EQ(registerDispense(fullPriceDispense()).status, 200);
    ASSERT_EQ(registerDispense(fullPriceDispense()).status, 200);
    EXPECT_EQ(statusOf(u"rx-full"_s), u"completed"_s);
}

TEST_F(DispenseRegistrationTest, earlierDispenses_countToo)
{
    ASSERT_EQ(registerDispense(doses(halfPriceDispense(), 30)).status, 200);
    EXPECT_EQ(statusOf(u"rx-half"_s), u"completed"_s);
}

TEST_F(DispenseRegistrationTest, fractionsOfDoses_addUpToWhole)
{
    QJsonObject document = ofPrescription(fullPriceDispense(), u"rx-inn"_s, QString());
    ASSERT_EQ(registerDispense(doses(document, 3.3)).status, 200);
    ASSERT_EQ(registerDispense(doses(document, 3.3)).status, 200);
    expectRefusal(doses(document, 3.41), 422, u"По рецепту rx-inn осталось доз: 3.40, отпускается: 3.41"_s);
    ASSERT_EQ(registerDispense(doses(document, 3.4)).status, 200);
    EXPECT_EQ(statusOf(u"rx-inn"_s), u"completed"_s);
}

TEST_F(DispenseRegistrationTest, unknownPrescription_isRefused)
{
    expectRefusal(ofPrescription(fullPriceDispense(), u"rx-%1"_s, u"1001"_s), 404,
                  u"Рецепт rx-%1 не найден в реестре"_s);
}

TEST_F(DispenseRegistrationTest, wrongPatient_isRefused)
{
    expectRefusal(with(fullPriceDispense(), dispenseAt + u"patient.reference"_s, u"Patient/x"_s), 422,
                  u"Рецепт rx-full выписан другому пациенту"_s);
}

TEST_F(DispenseRegistrationTest, completedPrescription_isRefused)
{
    ASSERT_EQ(registerDispense(declaredFinal(fullPriceDispense())).status, 200);
    expectRefusal(fullPriceDispense(), 422, u"Рецепт rx-full уже отпущен полностью"_s);
}

TEST_F(DispenseRegistrationTest, prescriptionThatIsNotActive_isRefused)
{
    expectRefusal(ofPrescription(fullPriceDispense(), u"rx-stopped"_s, u"1013"_s), 422,
                  u"Рецепт rx-stopped не действует, его статус «stopped»"_s);
}

TEST_F(DispenseRegistrationTest, expiredPrescription_isRefused)
{
    expectRefusal(ofPrescription(fullPriceDispense(), u"rx-expired"_s, u"1011"_s), 422,
                  u"Срок действия рецепта rx-expired истёк 10.03.2024"_s);
}

TEST_F(DispenseRegistrationTest, lastDayOfValidity_stillCounts)
{
    m_now = QDateTime(QDate(2024, 4, 14), QTime(23, 59, 59));
    EXPECT_EQ(registerDispense(fullPriceDispense()).status, 200);
    m_now = m_now.addSecs(1);
    expectRefusal(fullPriceDispense(), 422, u"Срок действия рецепта rx-full истёк 14.04.2024"_s);
}

TEST_F(DispenseRegistrationTest, dispenseBeforePrescriptionOrInFuture_isRefused)
{
    const QString date = dispenseAt + u"whenHandedOver"_s;
    expectRefusal(with(fullPriceDispense(), date, u"2024-03-14"_s), 422, u"Дата отпуска раньше даты выписки рецепта"_s);
    expectRefusal(with(fullPriceDispense(), date, u"2024-03-21"_s), 422, u"Дата отпуска ещё не наступила"_s);
    EXPECT_EQ(registerDispense(with(fullPriceDispense(), date, u"2024-03-15"_s)).status, 200);
}

TEST_F(DispenseRegistrationTest, quantityThatIsNotPositive_isRefused)
{
    const QString text = u"Количество отпускаемых доз должно быть больше нуля"_s;
    expectRefusal(doses(fullPriceDispense(), 0), 422, text);
    expectRefusal(doses(fullPriceDispense(), -1), 422, text);
}

TEST_F(DispenseRegistrationTest, moreThanIsLeft_isRefused)
{
    expectRefusal(doses(fullPriceDispense(), 20.01), 422,
                  u"По рецепту rx-full осталось доз: 20.00, отпускается: 20.01"_s);
    expectRefusal(doses(halfPriceDispense(), 31), 422, u"По рецепту rx-half осталось доз: 30.00, отпускается: 31.00"_s);
}

TEST_F(DispenseRegistrationTest, codeOfAnyCodingOfMedicine_willDo)
{
    for (const char* code : {"1001", "TN-1", "J01CA04"}) {
        const QJsonObject document =
            ofPrescription(doses(fullPriceDispense(), 1), u"rx-full"_s, QLatin1StringView(code));
        EXPECT_EQ(registerDispense(document).status, 200) << code;
    }
}

TEST_F(DispenseRegistrationTest, medicineThatIsNotPrescribed_isRefused)
{
    expectRefusal(ofPrescription(fullPriceDispense(), u"rx-full"_s, u"1003"_s), 422,
                  u"Препарат с кодом 1003 не назначен рецептом rx-full"_s);
}

TEST_F(DispenseRegistrationTest, emptyMedicineCode_isRefusedWhereTradeNameIsPrescribed)
{
    expectRefusal(ofPrescription(fullPriceDispense(), u"rx-full"_s, QString()), 422,
                  u"В документе отпуска не указан код препарата"_s);
}

TEST_F(DispenseRegistrationTest, emptyMedicineCode_willDoWhereNoTradeNameIsPrescribed)
{
    EXPECT_EQ(registerDispense(ofPrescription(fullPriceDispense(), u"rx-inn"_s, QString())).status, 200);
}

TEST_F(DispenseRegistrationTest, benefitWithoutClaim_isRefused)
{
    expectRefusal(with(halfPriceDispense(), u"parameter.1"_s, QJsonValue::Undefined), 422,
                  u"К отпуску льготного рецепта не приложен счёт"_s);
}

TEST_F(DispenseRegistrationTest, fullPriceWithClaim_isRefused)
{
    QJsonObject document = ofPrescription(halfPriceDispense(), u"rx-full"_s, u"1001"_s);
    expectRefusal(document, 422, u"Рецепт отпускается за полную стоимость, счёт не нужен"_s);
}

TEST_F(DispenseRegistrationTest, claimOfOtherPrescriptionOrPatient_isRefused)
{
    expectRefusal(
        with(halfPriceDispense(), claimAt + u"originalPrescription.reference"_s, u"MedicationPrescription/rx-full"_s),
        422, u"Счёт относится к другому рецепту"_s);
    expectRefusal(with(halfPriceDispense(), claimAt + u"patient.reference"_s, u"Patient/x"_s), 422,
                  u"Счёт относится к другому пациенту"_s);
}

TEST_F(DispenseRegistrationTest, unknownOrOtherPayer_isRefused)
{
    const QString payer = claimAt + u"organization.reference"_s;
    expectRefusal(with(halfPriceDispense(), payer, u"Organization/"_s), 422, u"Организация-плательщик неизвестна"_s);
    expectRefusal(with(halfPriceDispense(), payer, u"Organization/payer-2"_s), 422,
                  u"Льготу по рецепту оплачивает другая организация"_s);
}

TEST_F(DispenseRegistrationTest, amountsThatFit_areTaken)
{
    for (const auto& [unitPrice, net] : {std::pair(20.0, 10.0), std::pair(0.02, 0.01), std::pair(12345.68, 6172.84),
                                         std::pair(20.01, 10.0), std::pair(20.01, 10.01), std::pair(0.0, 0.0)}) {
        const QJsonObject document = doses(amounts(unitPrice, 0.5, net), 1);
        EXPECT_EQ(registerDispense(document).status, 200) << unitPrice << " " << net;
    }
}

TEST_F(DispenseRegistrationTest, netOneCentOff_isRefused)
{
    const QString text = u"Сумма счёта не соответствует цене и доле плательщика"_s;
    expectRefusal(amounts(20.00, 0.5, 10.01), 422, text);
    expectRefusal(amounts(20.00, 0.5, 9.99), 422, text);
    expectRefusal(amounts(20.01, 0.5, 10.02), 422, text);
}

TEST_F(DispenseRegistrationTest, payerOfAll_paysPriceToTheCent)
{
    const auto free = [](double unitPrice, double net) {
        QJsonObject document = ofPrescription(amounts(unitPrice, 1, net), u"rx-free"_s, u"1010"_s);
        return with(document, claimAt + u"originalPrescription.reference"_s, u"MedicationPrescription/rx-free"_s);
    };
    const QString text = u"Сумма счёта не соответствует цене и доле плательщика"_s;
    expectRefusal(free(7.35, 7.34), 422, text);
    expectRefusal(free(7.35, 7.36), 422, text);
    EXPECT_EQ(registerDispense(free(7.35, 7.35)).status, 200);
}

TEST_F(DispenseRegistrationTest, shareThatIsNotThePrescriptions_isRefused)
{
    const QString text = u"Доля плательщика в счёте не соответствует рецепту"_s;
    expectRefusal(amounts(20, 0.51, 10.2), 422, text);
    expectRefusal(amounts(20, 1, 20), 422, text);
}

TEST_F(DispenseRegistrationTest, amountsInPartsOfCentOrNegativeOrForeign_areRefused)
{
    expectRefusal(amounts(20.001, 0.5, 10), 422, u"Суммы счёта должны быть в целых копейках"_s);
    expectRefusal(amounts(20, 0.5, 10.004), 422, u"Суммы счёта должны быть в целых копейках"_s);
    expectRefusal(amounts(-20, 0.5, -10), 422, u"Суммы счёта не могут быть отрицательными"_s);
    expectRefusal(with(halfPriceDispense(), claimAt + u"item.0.net.code"_s, u"RUB"_s), 422,
                  u"Суммы счёта должны быть в белорусских рублях"_s);
}

TEST_F(DispenseRegistrationTest, bodyOfOtherContentType_isRefused)
{
    emulator::HttpHeaders headers = admitted();
    headers.last().second = "text/plain";
    const RawAnswer answer =
        ask("POST", "/MedicationDispense/$register", headers, QJsonDocument(fullPriceDispense()).toJson());
    EXPECT_EQ(answer.status, 415);
    EXPECT_EQ(answer.issue(), u"Запрос должен быть отправлен в виде JSON"_s);
    EXPECT_EQ(m_emulator->store().dispensesOf(u"rx-full"_s).size(), 0);
}

TEST_F(DispenseRegistrationTest, bodyThatIsNoJsonObject_isRefused)
{
    for (const QByteArray& body :
         {QByteArray("x"), QByteArray("{"), QByteArray("[]"), QByteArray("\"a\""), QByteArray()}) {
        const RawAnswer answer = ask("POST", "/MedicationDispense/$register", admitted(), body);
        EXPECT_EQ(answer.status, 400);
        EXPECT_EQ(answer.issue(), u"Документ отпуска не является объектом JSON"_s);
    }
}

struct WrongShape {
    const char* path;
    QJsonValue value;
    const char16_t* details;
};

void PrintTo(const WrongShape& shape, std::ostream* stream)
{
    *stream << shape.path << " = " << QJsonDocument(QJsonArray{shape.value}).toJson(QJsonDocument::Compact).constData();
}

class MisshapenDispense : public DispenseRegistrationTest, public ::testing::WithParamInterface<WrongShape>
{
};

TEST_P(MisshapenDispense, isRefusedByItsOwnText)
{
    expectRefusal(with(halfPriceDispense(), QLatin1StringView(GetParam().path), GetParam().value), 400,
                  QString::fromUtf16(GetParam().details));
}

namespace
{
const QJsonValue none = QJsonValue::Undefined;

INSTANTIATE_TEST_SUITE_P(
    DispenseRegistration, MisshapenDispense,
    ::testing::Values(
        WrongShape{"resourceType", u"Bundle"_s, u"Документ отпуска не является ресурсом Parameters"},
        WrongShape{"parameter", QJsonObject(), u"Документ отпуска не содержит параметров"},
        WrongShape{"parameter.0.name", u"x"_s, u"Документ отпуска содержит неизвестный параметр x"},
        WrongShape{"parameter.0", 1, u"Документ отпуска содержит неизвестный параметр "},
        WrongShape{"parameter.0.name", u"claim"_s, u"Документ отпуска дважды содержит параметр claim"},
        WrongShape{"parameter", QJsonArray(), u"Документ отпуска не содержит ресурса MedicationDispense"},
        WrongShape{"parameter.0.resource", 1, u"Документ отпуска не содержит ресурса MedicationDispense"},
        WrongShape{"parameter.0.resource.resourceType", u"medicationDispense"_s,
                   u"Документ отпуска не содержит ресурса MedicationDispense"},
        WrongShape{"parameter.0.resource.status", u"in-progress"_s, u"Регистрируется только завершённый отпуск"},
        WrongShape{"parameter.0.resource.authorizingPrescription", QJsonArray(),
                   u"Отпуск должен относиться к одному рецепту"},
        WrongShape{"parameter.0.resource.authorizingPrescription.1", QJsonObject(),
                   u"Отпуск должен относиться к одному рецепту"},
        WrongShape{"parameter.0.resource.authorizingPrescription.0.reference", u"Patient/1"_s,
                   u"В документе отпуска не указан рецепт"},
        WrongShape{"parameter.0.resource.patient.reference", 5, u"В документе отпуска не указан пациент"},
        WrongShape{"parameter.0.resource.contained", none, u"Документ отпуска не содержит отпускаемого препарата"},
        WrongShape{"parameter.0.resource.contained.0", none, u"Документ отпуска не содержит отпускаемого препарата"},
        WrongShape{"parameter.0.resource.contained.1", none, u"Документ отпуска не содержит места отпуска"},
        WrongShape{"parameter.0.resource.contained.1.address.text", none,
                   u"У места отпуска не указаны название и адрес"},
        WrongShape{"parameter.0.resource.medication.reference", u"#other"_s,
                   u"Ссылка на отпускаемый препарат не указывает на препарат документа"},
        WrongShape{"parameter.0.resource.contained.0.isBrand", u"true"_s,
                   u"Не указано, назван ли отпускаемый препарат торговым наименованием"},
        WrongShape{"parameter.0.resource.contained.0.code.coding", QJsonArray(),
                   u"У отпускаемого препарата должен быть один код"},
        WrongShape{"parameter.0.resource.contained.0.code.coding.0.code", 1001,
                   u"Код отпускаемого препарата не является текстом"},
        WrongShape{"parameter.0.resource.extension", none, u"Не указано, полностью ли отпущен рецепт"},
        WrongShape{"parameter.0.resource.extension.0.valueBoolean", 1, u"Не указано, полностью ли отпущен рецепт"},
        WrongShape{"parameter.0.resource.quantity.value", u"10"_s, u"В документе отпуска не указано количество доз"},
        WrongShape{"parameter.0.resource.whenHandedOver", u"20.03.2024"_s,
                   u"В документе отпуска не указана дата отпуска"},
        WrongShape{"parameter.1.resource", QJsonArray(), u"Параметр claim не содержит счёта"},
        WrongShape{"parameter.1.resource.type", u"vision"_s, u"Счёт выставлен не аптекой"},
        WrongShape{"parameter.1.resource.created", none, u"В счёте не указана дата"},
        WrongShape{"parameter.1.resource.organization", none, u"В счёте не указана организация-плательщик"},
        WrongShape{"parameter.1.resource.originalPrescription", none, u"В счёте не указан рецепт"},
        WrongShape{"parameter.1.resource.patient", none, u"В счёте не указан пациент"},
        WrongShape{"parameter.1.resource.item.1", QJsonObject(), u"В счёте должна быть ровно одна позиция"},
        WrongShape{"parameter.1.resource.item.0.sequence", 2, u"Позиция счёта должна иметь номер 1"},
        WrongShape{"parameter.1.resource.item.0.type.code", none, u"Неизвестный вид позиции счёта"},
        WrongShape{"parameter.1.resource.item.0.service.code", 2102, u"Неизвестная услуга в позиции счёта"},
        WrongShape{"parameter.1.resource.item.0.unitPrice", none, u"В счёте не указана цена"},
        WrongShape{"parameter.1.resource.item.0.factor", u"0.5"_s, u"В счёте не указана доля плательщика"},
        WrongShape{"parameter.1.resource.item.0.net.value", none, u"В счёте не указана сумма к оплате"}));
} // namespace
