// SPDX-License-Identifier: MIT
#include "emulatortest.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace
{
/// Paths into a document of the fixture, with what stands there.
const QString dispenseAt = QStringLiteral("parameter.0.resource.");
const QString claimAt = QStringLiteral("parameter.1.resource.");

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
        return with(document, dispenseAt + QStringLiteral("quantity.value"), doses);
    }

    static QJsonObject declaredFinal(const QJsonObject& document)
    {
        return with(document, dispenseAt + QStringLiteral("extension.0.valueBoolean"), true);
    }

    static QJsonObject ofPrescription(const QJsonObject& document, const QString& id, const QString& medication)
    {
        const QJsonObject other = with(document, dispenseAt + QStringLiteral("authorizingPrescription.0.reference"),
                                       QString(QStringLiteral("MedicationPrescription/") + id));
        return with(other, dispenseAt + QStringLiteral("contained.0.code.coding.0.code"), medication);
    }

    static QJsonObject amounts(double unitPrice, double factor, double net)
    {
        QJsonObject document = halfPriceDispense();
        document = with(document, claimAt + QStringLiteral("item.0.unitPrice.value"), unitPrice);
        document = with(document, claimAt + QStringLiteral("item.0.factor"), factor);
        return with(document, claimAt + QStringLiteral("item.0.net.value"), net);
    }
};
} // namespace

TEST_F(DispenseRegistrationTest, fullPriceDispense_isAnsweredWithItsIdAndBooked)
{
    const RawAnswer answer = registerDispense(fullPriceDispense());
    ASSERT_EQ(answer.status, 200) << qPrintable(answer.issue());
    EXPECT_EQ(answer.json().value(QStringLiteral("resourceType")).toString(), QStringLiteral("Bundle"));
    const QJsonArray entries = answer.json().value(QStringLiteral("entry")).toArray();
    ASSERT_EQ(entries.size(), 1);
    const QJsonObject entry = entries.at(0).toObject();
    EXPECT_EQ(entry.value(QStringLiteral("transactionResponse")).toObject().value(QStringLiteral("status")).toString(),
              QStringLiteral("POST:201"));
    const QJsonObject resource = entry.value(QStringLiteral("resource")).toObject();
    EXPECT_EQ(resource.value(QStringLiteral("resourceType")).toString(), QStringLiteral("MedicationDispense"));
    EXPECT_EQ(resource.value(QStringLiteral("quantity")).toObject().value(QStringLiteral("value")).toDouble(), 10);

    const auto booked = m_emulator->store().dispense(resource.value(QStringLiteral("id")).toString());
    ASSERT_TRUE(booked.has_value());
    EXPECT_EQ(booked->prescriptionId, QStringLiteral("rx-full"));
    EXPECT_EQ(booked->quantity, 10);
    EXPECT_EQ(booked->handedOver, QDate(2024, 3, 20));
    EXPECT_EQ(booked->pharmacy, QStringLiteral("17"));
    EXPECT_FALSE(booked->isFinal);
    EXPECT_FALSE(booked->isCancelled);
    EXPECT_TRUE(booked->claim.isEmpty());
}

TEST_F(DispenseRegistrationTest, benefitDispense_isAnsweredWithItsClaim)
{
    const RawAnswer answer = registerDispense(halfPriceDispense());
    ASSERT_EQ(answer.status, 200) << qPrintable(answer.issue());
    const QJsonArray entries = answer.json().value(QStringLiteral("entry")).toArray();
    ASSERT_EQ(entries.size(), 2);
    const QJsonObject claim = entries.at(1).toObject();
    EXPECT_EQ(claim.value(QStringLiteral("transactionResponse")).toObject().value(QStringLiteral("status")).toString(),
              QStringLiteral("POST:201"));
    EXPECT_EQ(claim.value(QStringLiteral("resource")).toObject().value(QStringLiteral("resourceType")).toString(),
              QStringLiteral("Claim"));
    EXPECT_FALSE(claim.value(QStringLiteral("resource")).toObject().value(QStringLiteral("id")).toString().isEmpty());
    EXPECT_FALSE(m_emulator->store().dispense(idOfDispense(answer))->claim.isEmpty());
}

TEST_F(DispenseRegistrationTest, partialDispense_leavesPrescriptionActive)
{
    ASSERT_EQ(registerDispense(fullPriceDispense()).status, 200);
    EXPECT_EQ(statusOf(QStringLiteral("rx-full")), QStringLiteral("active"));
}

TEST_F(DispenseRegistrationTest, finalDispense_completesPrescription)
{
    ASSERT_EQ(registerDispense(declaredFinal(fullPriceDispense())).status, 200);
    EXPECT_EQ(statusOf(QStringLiteral("rx-full")), QStringLiteral("completed"));
}

TEST_F(DispenseRegistrationTest, lastDoses_completePrescription)
{
    ASSERT_EQ(registerDispense(fullPriceDispense()).status, 200);
    ASSERT_EQ(registerDispense(fullPriceDispense()).status, 200);
    EXPECT_EQ(statusOf(QStringLiteral("rx-full")), QStringLiteral("completed"));
}

TEST_F(DispenseRegistrationTest, earlierDispenses_countToo)
{
    ASSERT_EQ(registerDispense(doses(halfPriceDispense(), 30)).status, 200);
    EXPECT_EQ(statusOf(QStringLiteral("rx-half")), QStringLiteral("completed"));
}

TEST_F(DispenseRegistrationTest, fractionsOfDoses_addUpToWhole)
{
    QJsonObject document = ofPrescription(fullPriceDispense(), QStringLiteral("rx-inn"), QString());
    ASSERT_EQ(registerDispense(doses(document, 3.3)).status, 200);
    ASSERT_EQ(registerDispense(doses(document, 3.3)).status, 200);
    expectRefusal(doses(document, 3.41), 422,
                  QStringLiteral("По рецепту rx-inn осталось доз: 3.40, отпускается: 3.41"));
    ASSERT_EQ(registerDispense(doses(document, 3.4)).status, 200);
    EXPECT_EQ(statusOf(QStringLiteral("rx-inn")), QStringLiteral("completed"));
}

TEST_F(DispenseRegistrationTest, unknownPrescription_isRefused)
{
    expectRefusal(ofPrescription(fullPriceDispense(), QStringLiteral("rx-%1"), QStringLiteral("1001")), 404,
                  QStringLiteral("Рецепт rx-%1 не найден в реестре"));
}

TEST_F(DispenseRegistrationTest, wrongPatient_isRefused)
{
    expectRefusal(
        with(fullPriceDispense(), dispenseAt + QStringLiteral("patient.reference"), QStringLiteral("Patient/x")), 422,
        QStringLiteral("Рецепт rx-full выписан другому пациенту"));
}

TEST_F(DispenseRegistrationTest, completedPrescription_isRefused)
{
    ASSERT_EQ(registerDispense(declaredFinal(fullPriceDispense())).status, 200);
    expectRefusal(fullPriceDispense(), 422, QStringLiteral("Рецепт rx-full уже отпущен полностью"));
}

TEST_F(DispenseRegistrationTest, prescriptionThatIsNotActive_isRefused)
{
    expectRefusal(ofPrescription(fullPriceDispense(), QStringLiteral("rx-stopped"), QStringLiteral("1013")), 422,
                  QStringLiteral("Рецепт rx-stopped не действует, его статус «stopped»"));
}

TEST_F(DispenseRegistrationTest, expiredPrescription_isRefused)
{
    expectRefusal(ofPrescription(fullPriceDispense(), QStringLiteral("rx-expired"), QStringLiteral("1011")), 422,
                  QStringLiteral("Срок действия рецепта rx-expired истёк 10.03.2024"));
}

TEST_F(DispenseRegistrationTest, lastDayOfValidity_stillCounts)
{
    m_now = QDateTime(QDate(2024, 4, 14), QTime(23, 59, 59));
    EXPECT_EQ(registerDispense(fullPriceDispense()).status, 200);
    m_now = m_now.addSecs(1);
    expectRefusal(fullPriceDispense(), 422, QStringLiteral("Срок действия рецепта rx-full истёк 14.04.2024"));
}

TEST_F(DispenseRegistrationTest, dispenseBeforePrescriptionOrInFuture_isRefused)
{
    const QString date = dispenseAt + QStringLiteral("whenHandedOver");
    expectRefusal(with(fullPriceDispense(), date, QStringLiteral("2024-03-14")), 422,
                  QStringLiteral("Дата отпуска раньше даты выписки рецепта"));
    expectRefusal(with(fullPriceDispense(), date, QStringLiteral("2024-03-21")), 422,
                  QStringLiteral("Дата отпуска ещё не наступила"));
    EXPECT_EQ(registerDispense(with(fullPriceDispense(), date, QStringLiteral("2024-03-15"))).status, 200);
}

TEST_F(DispenseRegistrationTest, quantityThatIsNotPositive_isRefused)
{
    const QString text = QStringLiteral("Количество отпускаемых доз должно быть больше нуля");
    expectRefusal(doses(fullPriceDispense(), 0), 422, text);
    expectRefusal(doses(fullPriceDispense(), -1), 422, text);
}

TEST_F(DispenseRegistrationTest, moreThanIsLeft_isRefused)
{
    expectRefusal(doses(fullPriceDispense(), 20.01), 422,
                  QStringLiteral("По рецепту rx-full осталось доз: 20.00, отпускается: 20.01"));
    expectRefusal(doses(halfPriceDispense(), 31), 422,
                  QStringLiteral("По рецепту rx-half осталось доз: 30.00, отпускается: 31.00"));
}

TEST_F(DispenseRegistrationTest, codeOfAnyCodingOfMedicine_willDo)
{
    for (const char* code : {"1001", "TN-1", "J01CA04"}) {
        const QJsonObject document =
            ofPrescription(doses(fullPriceDispense(), 1), QStringLiteral("rx-full"), QLatin1String(code));
        EXPECT_EQ(registerDispense(document).status, 200) << code;
    }
}

TEST_F(DispenseRegistrationTest, medicineThatIsNotPrescribed_isRefused)
{
    expectRefusal(ofPrescription(fullPriceDispense(), QStringLiteral("rx-full"), QStringLiteral("1003")), 422,
                  QStringLiteral("Препарат с кодом 1003 не назначен рецептом rx-full"));
}

TEST_F(DispenseRegistrationTest, emptyMedicineCode_isRefusedWhereTradeNameIsPrescribed)
{
    expectRefusal(ofPrescription(fullPriceDispense(), QStringLiteral("rx-full"), QString()), 422,
                  QStringLiteral("В документе отпуска не указан код препарата"));
}

TEST_F(DispenseRegistrationTest, emptyMedicineCode_willDoWhereNoTradeNameIsPrescribed)
{
    EXPECT_EQ(registerDispense(ofPrescription(fullPriceDispense(), QStringLiteral("rx-inn"), QString())).status, 200);
}

TEST_F(DispenseRegistrationTest, benefitWithoutClaim_isRefused)
{
    expectRefusal(with(halfPriceDispense(), QStringLiteral("parameter.1"), QJsonValue::Undefined), 422,
                  QStringLiteral("К отпуску льготного рецепта не приложен счёт"));
}

TEST_F(DispenseRegistrationTest, fullPriceWithClaim_isRefused)
{
    QJsonObject document = ofPrescription(halfPriceDispense(), QStringLiteral("rx-full"), QStringLiteral("1001"));
    expectRefusal(document, 422, QStringLiteral("Рецепт отпускается за полную стоимость, счёт не нужен"));
}

TEST_F(DispenseRegistrationTest, claimOfOtherPrescriptionOrPatient_isRefused)
{
    expectRefusal(with(halfPriceDispense(), claimAt + QStringLiteral("originalPrescription.reference"),
                       QStringLiteral("MedicationPrescription/rx-full")),
                  422, QStringLiteral("Счёт относится к другому рецепту"));
    expectRefusal(with(halfPriceDispense(), claimAt + QStringLiteral("patient.reference"), QStringLiteral("Patient/x")),
                  422, QStringLiteral("Счёт относится к другому пациенту"));
}

TEST_F(DispenseRegistrationTest, unknownOrOtherPayer_isRefused)
{
    const QString payer = claimAt + QStringLiteral("organization.reference");
    expectRefusal(with(halfPriceDispense(), payer, QStringLiteral("Organization/")), 422,
                  QStringLiteral("Организация-плательщик неизвестна"));
    expectRefusal(with(halfPriceDispense(), payer, QStringLiteral("Organization/payer-2")), 422,
                  QStringLiteral("Льготу по рецепту оплачивает другая организация"));
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
    const QString text = QStringLiteral("Сумма счёта не соответствует цене и доле плательщика");
    expectRefusal(amounts(20.00, 0.5, 10.01), 422, text);
    expectRefusal(amounts(20.00, 0.5, 9.99), 422, text);
    expectRefusal(amounts(20.01, 0.5, 10.02), 422, text);
}

TEST_F(DispenseRegistrationTest, payerOfAll_paysPriceToTheCent)
{
    const auto free = [](double unitPrice, double net) {
        QJsonObject document =
            ofPrescription(amounts(unitPrice, 1, net), QStringLiteral("rx-free"), QStringLiteral("1010"));
        return with(document, claimAt + QStringLiteral("originalPrescription.reference"),
                    QStringLiteral("MedicationPrescription/rx-free"));
    };
    const QString text = QStringLiteral("Сумма счёта не соответствует цене и доле плательщика");
    expectRefusal(free(7.35, 7.34), 422, text);
    expectRefusal(free(7.35, 7.36), 422, text);
    EXPECT_EQ(registerDispense(free(7.35, 7.35)).status, 200);
}

TEST_F(DispenseRegistrationTest, shareThatIsNotThePrescriptions_isRefused)
{
    const QString text = QStringLiteral("Доля плательщика в счёте не соответствует рецепту");
    expectRefusal(amounts(20, 0.51, 10.2), 422, text);
    expectRefusal(amounts(20, 1, 20), 422, text);
}

TEST_F(DispenseRegistrationTest, amountsInPartsOfCentOrNegativeOrForeign_areRefused)
{
    expectRefusal(amounts(20.001, 0.5, 10), 422, QStringLiteral("Суммы счёта должны быть в целых копейках"));
    expectRefusal(amounts(20, 0.5, 10.004), 422, QStringLiteral("Суммы счёта должны быть в целых копейках"));
    expectRefusal(amounts(-20, 0.5, -10), 422, QStringLiteral("Суммы счёта не могут быть отрицательными"));
    expectRefusal(with(halfPriceDispense(), claimAt + QStringLiteral("item.0.net.code"), QStringLiteral("RUB")), 422,
                  QStringLiteral("Суммы счёта должны быть в белорусских рублях"));
}

TEST_F(DispenseRegistrationTest, bodyOfOtherContentType_isRefused)
{
    emulator::HttpHeaders headers = admitted();
    headers.last().second = "text/plain";
    const RawAnswer answer =
        ask("POST", "/MedicationDispense/$register", headers, QJsonDocument(fullPriceDispense()).toJson());
    EXPECT_EQ(answer.status, 415);
    EXPECT_EQ(answer.issue(), QStringLiteral("Запрос должен быть отправлен в виде JSON"));
    EXPECT_EQ(m_emulator->store().dispensesOf(QStringLiteral("rx-full")).size(), 0);
}

TEST_F(DispenseRegistrationTest, bodyThatIsNoJsonObject_isRefused)
{
    for (const QByteArray& body :
         {QByteArray("x"), QByteArray("{"), QByteArray("[]"), QByteArray("\"a\""), QByteArray()}) {
        const RawAnswer answer = ask("POST", "/MedicationDispense/$register", admitted(), body);
        EXPECT_EQ(answer.status, 400);
        EXPECT_EQ(answer.issue(), QStringLiteral("Документ отпуска не является объектом JSON"));
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
    expectRefusal(with(halfPriceDispense(), QLatin1String(GetParam().path), GetParam().value), 400,
                  QString::fromUtf16(GetParam().details));
}

namespace
{
const QJsonValue none = QJsonValue::Undefined;

INSTANTIATE_TEST_SUITE_P(
    DispenseRegistration, MisshapenDispense,
    ::testing::Values(
        WrongShape{"resourceType", QStringLiteral("Bundle"), u"Документ отпуска не является ресурсом Parameters"},
        WrongShape{"parameter", QJsonObject(), u"Документ отпуска не содержит параметров"},
        WrongShape{"parameter.0.name", QStringLiteral("x"), u"Документ отпуска содержит неизвестный параметр x"},
        WrongShape{"parameter.0", 1, u"Документ отпуска содержит неизвестный параметр "},
        WrongShape{"parameter.0.name", QStringLiteral("claim"), u"Документ отпуска дважды содержит параметр claim"},
        WrongShape{"parameter", QJsonArray(), u"Документ отпуска не содержит ресурса MedicationDispense"},
        WrongShape{"parameter.0.resource", 1, u"Документ отпуска не содержит ресурса MedicationDispense"},
        WrongShape{"parameter.0.resource.resourceType", QStringLiteral("medicationDispense"),
                   u"Документ отпуска не содержит ресурса MedicationDispense"},
        WrongShape{"parameter.0.resource.status", QStringLiteral("in-progress"),
                   u"Регистрируется только завершённый отпуск"},
        WrongShape{"parameter.0.resource.authorizingPrescription", QJsonArray(),
                   u"Отпуск должен относиться к одному рецепту"},
        WrongShape{"parameter.0.resource.authorizingPrescription.1", QJsonObject(),
                   u"Отпуск должен относиться к одному рецепту"},
        WrongShape{"parameter.0.resource.authorizingPrescription.0.reference", QStringLiteral("Patient/1"),
                   u"В документе отпуска не указан рецепт"},
        WrongShape{"parameter.0.resource.patient.reference", 5, u"В документе отпуска не указан пациент"},
        WrongShape{"parameter.0.resource.contained", none, u"Документ отпуска не содержит отпускаемого препарата"},
        WrongShape{"parameter.0.resource.contained.0", none, u"Документ отпуска не содержит отпускаемого препарата"},
        WrongShape{"parameter.0.resource.contained.1", none, u"Документ отпуска не содержит места отпуска"},
        WrongShape{"parameter.0.resource.contained.1.address.text", none,
                   u"У места отпуска не указаны название и адрес"},
        WrongShape{"parameter.0.resource.medication.reference", QStringLiteral("#other"),
                   u"Ссылка на отпускаемый препарат не указывает на препарат документа"},
        WrongShape{"parameter.0.resource.contained.0.isBrand", QStringLiteral("true"),
                   u"Не указано, назван ли отпускаемый препарат торговым наименованием"},
        WrongShape{"parameter.0.resource.contained.0.code.coding", QJsonArray(),
                   u"У отпускаемого препарата должен быть один код"},
        WrongShape{"parameter.0.resource.contained.0.code.coding.0.code", 1001,
                   u"Код отпускаемого препарата не является текстом"},
        WrongShape{"parameter.0.resource.extension", none, u"Не указано, полностью ли отпущен рецепт"},
        WrongShape{"parameter.0.resource.extension.0.valueBoolean", 1, u"Не указано, полностью ли отпущен рецепт"},
        WrongShape{"parameter.0.resource.quantity.value", QStringLiteral("10"),
                   u"В документе отпуска не указано количество доз"},
        WrongShape{"parameter.0.resource.whenHandedOver", QStringLiteral("20.03.2024"),
                   u"В документе отпуска не указана дата отпуска"},
        WrongShape{"parameter.1.resource", QJsonArray(), u"Параметр claim не содержит счёта"},
        WrongShape{"parameter.1.resource.type", QStringLiteral("vision"), u"Счёт выставлен не аптекой"},
        WrongShape{"parameter.1.resource.created", none, u"В счёте не указана дата"},
        WrongShape{"parameter.1.resource.organization", none, u"В счёте не указана организация-плательщик"},
        WrongShape{"parameter.1.resource.originalPrescription", none, u"В счёте не указан рецепт"},
        WrongShape{"parameter.1.resource.patient", none, u"В счёте не указан пациент"},
        WrongShape{"parameter.1.resource.item.1", QJsonObject(), u"В счёте должна быть ровно одна позиция"},
        WrongShape{"parameter.1.resource.item.0.sequence", 2, u"Позиция счёта должна иметь номер 1"},
        WrongShape{"parameter.1.resource.item.0.type.code", none, u"Неизвестный вид позиции счёта"},
        WrongShape{"parameter.1.resource.item.0.service.code", 2102, u"Неизвестная услуга в позиции счёта"},
        WrongShape{"parameter.1.resource.item.0.unitPrice", none, u"В счёте не указана цена"},
        WrongShape{"parameter.1.resource.item.0.factor", QStringLiteral("0.5"), u"В счёте не указана доля плательщика"},
        WrongShape{"parameter.1.resource.item.0.net.value", none, u"В счёте не указана сумма к оплате"}));
} // namespace
