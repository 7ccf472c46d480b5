// SPDX-License-Identifier: MIT
#include "dispensedocument.h"

#include "refusal.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace emulator
{
namespace
{
void demand(bool isSo, const QString& details)
{
    if (!isSo)
        throw Refusal(400, details);
}

QJsonObject onlyObject(const QJsonValue& array, const QString& details)
{
    demand(array.isArray() && array.toArray().size() == 1 && array.toArray().first().isObject(), details);
    return array.toArray().first().toObject();
}

/// The id of a reference such as "Organization/17", which has to be to that type.
QString referencedId(const QJsonValue& holder, const QString& type, const QString& details)
{
    const QString reference = holder.toObject().value(QStringLiteral("reference")).toString();
    const QString prefix = type + QLatin1Char('/');
    demand(reference.startsWith(prefix), details);
    return reference.mid(prefix.size());
}

QString patientOf(const QJsonObject& resource, const QString& details)
{
    const QJsonValue reference =
        resource.value(QStringLiteral("patient")).toObject().value(QStringLiteral("reference"));
    demand(reference.isString(), details);
    return reference.toString();
}

QDate day(const QJsonValue& value, const QString& details)
{
    const QDate date = QDate::fromString(value.toString(), QStringLiteral("yyyy-MM-dd"));
    demand(date.isValid(), details);
    return date;
}

double number(const QJsonValue& value, const QString& details)
{
    demand(value.isDouble(), details);
    return value.toDouble();
}

/// The resources of the parameters by name; none may stand twice.
QHash<QString, QJsonObject> parametersIn(const QByteArray& body)
{
    const QJsonDocument document = QJsonDocument::fromJson(body);
    demand(document.isObject(), QStringLiteral("Документ отпуска не является объектом JSON"));
    const QJsonObject root = document.object();
    demand(root.value(QStringLiteral("resourceType")) == QLatin1String("Parameters"),
           QStringLiteral("Документ отпуска не является ресурсом Parameters"));
    demand(root.value(QStringLiteral("parameter")).isArray(),
           QStringLiteral("Документ отпуска не содержит параметров"));
    QHash<QString, QJsonObject> resources;
    const QJsonArray parameters = root.value(QStringLiteral("parameter")).toArray();
    for (const auto value : parameters) {
        const QJsonObject parameter = value.toObject();
        const QString name = parameter.value(QStringLiteral("name")).toString();
        demand(name == QLatin1String("medicationDispense") || name == QLatin1String("claim"),
               QStringLiteral("Документ отпуска содержит неизвестный параметр ") + name);
        demand(!resources.contains(name), QStringLiteral("Документ отпуска дважды содержит параметр ") + name);
        resources.insert(name, parameter.value(QStringLiteral("resource")).toObject());
    }
    return resources;
}

QJsonObject contained(const QJsonObject& resource, const QString& type)
{
    const QJsonArray all = resource.value(QStringLiteral("contained")).toArray();
    for (const auto value : all) {
        if (value.toObject().value(QStringLiteral("resourceType")) == type)
            return value.toObject();
    }
    return {};
}

QString medicationCodeOf(const QJsonObject& resource)
{
    const QJsonObject medication = contained(resource, QStringLiteral("Medication"));
    demand(!medication.isEmpty(), QStringLiteral("Документ отпуска не содержит отпускаемого препарата"));
    const QString reference =
        resource.value(QStringLiteral("medication")).toObject().value(QStringLiteral("reference")).toString();
    demand(reference == QLatin1Char('#') + medication.value(QStringLiteral("id")).toString(),
           QStringLiteral("Ссылка на отпускаемый препарат не указывает на препарат документа"));
    demand(medication.value(QStringLiteral("isBrand")).isBool(),
           QStringLiteral("Не указано, назван ли отпускаемый препарат торговым наименованием"));
    const QJsonObject coding =
        onlyObject(medication.value(QStringLiteral("code")).toObject().value(QStringLiteral("coding")),
                   QStringLiteral("У отпускаемого препарата должен быть один код"));
    demand(coding.value(QStringLiteral("code")).isString(),
           QStringLiteral("Код отпускаемого препарата не является текстом"));
    return coding.value(QStringLiteral("code")).toString();
}

bool isFinalDispense(const QJsonObject& resource)
{
    const QJsonArray extensions = resource.value(QStringLiteral("extension")).toArray();
    for (const auto value : extensions) {
        const QJsonObject extension = value.toObject();
        if (extension.value(QStringLiteral("url")).toString().endsWith(QLatin1String("by-finalDispense")) &&
            extension.value(QStringLiteral("valueBoolean")).isBool())
            return extension.value(QStringLiteral("valueBoolean")).toBool();
    }
    throw Refusal(400, QStringLiteral("Не указано, полностью ли отпущен рецепт"));
}

void checkLocation(const QJsonObject& resource)
{
    const QJsonObject location = contained(resource, QStringLiteral("Location"));
    demand(!location.isEmpty(), QStringLiteral("Документ отпуска не содержит места отпуска"));
    demand(location.value(QStringLiteral("name")).isString() &&
               location.value(QStringLiteral("address")).toObject().value(QStringLiteral("text")).isString(),
           QStringLiteral("У места отпуска не указаны название и адрес"));
}

Claim claimIn(const QJsonObject& resource)
{
    demand(resource.value(QStringLiteral("resourceType")) == QLatin1String("Claim"),
           QStringLiteral("Параметр claim не содержит счёта"));
    demand(resource.value(QStringLiteral("type")) == QLatin1String("pharmacy"),
           QStringLiteral("Счёт выставлен не аптекой"));
    day(resource.value(QStringLiteral("created")), QStringLiteral("В счёте не указана дата"));
    Claim claim;
    claim.payerId = referencedId(resource.value(QStringLiteral("organization")), QStringLiteral("Organization"),
                                 QStringLiteral("В счёте не указана организация-плательщик"));
    claim.prescriptionId =
        referencedId(resource.value(QStringLiteral("originalPrescription")), QStringLiteral("MedicationPrescription"),
                     QStringLiteral("В счёте не указан рецепт"));
    claim.patientReference = patientOf(resource, QStringLiteral("В счёте не указан пациент"));

    const QJsonObject item =
        onlyObject(resource.value(QStringLiteral("item")), QStringLiteral("В счёте должна быть ровно одна позиция"));
    demand(item.value(QStringLiteral("sequence")).toInt() == 1, QStringLiteral("Позиция счёта должна иметь номер 1"));
    demand(item.value(QStringLiteral("type")).toObject().value(QStringLiteral("code")) == QLatin1String("group"),
           QStringLiteral("Неизвестный вид позиции счёта"));
    demand(item.value(QStringLiteral("service")).toObject().value(QStringLiteral("code")) == QLatin1String("2102"),
           QStringLiteral("Неизвестная услуга в позиции счёта"));
    const QJsonObject unitPrice = item.value(QStringLiteral("unitPrice")).toObject();
    const QJsonObject net = item.value(QStringLiteral("net")).toObject();
    claim.unitPrice = number(unitPrice.value(QStringLiteral("value")), QStringLiteral("В счёте не указана цена"));
    claim.factor = number(item.value(QStringLiteral("factor")), QStringLiteral("В счёте не указана доля плательщика"));
    claim.net = number(net.value(QStringLiteral("value")), QStringLiteral("В счёте не указана сумма к оплате"));
    claim.unitPriceCurrency = unitPrice.value(QStringLiteral("code")).toString();
    claim.netCurrency = net.value(QStringLiteral("code")).toString();
    return claim;
}
} // namespace

DispenseDocument DispenseDocument::read(const QByteArray& body)
{
    const QHash<QString, QJsonObject> resources = parametersIn(body);
    DispenseDocument document;
    document.dispenseResource = resources.value(QStringLiteral("medicationDispense"));
    document.claimResource = resources.value(QStringLiteral("claim"));

    const QJsonObject& dispense = document.dispenseResource;
    demand(dispense.value(QStringLiteral("resourceType")) == QLatin1String("MedicationDispense"),
           QStringLiteral("Документ отпуска не содержит ресурса MedicationDispense"));
    demand(dispense.value(QStringLiteral("status")) == QLatin1String("completed"),
           QStringLiteral("Регистрируется только завершённый отпуск"));
    const QJsonObject authorizing = onlyObject(dispense.value(QStringLiteral("authorizingPrescription")),
                                               QStringLiteral("Отпуск должен относиться к одному рецепту"));
    document.prescriptionId = referencedId(authorizing, QStringLiteral("MedicationPrescription"),
                                           QStringLiteral("В документе отпуска не указан рецепт"));
    document.patientReference = patientOf(dispense, QStringLiteral("В документе отпуска не указан пациент"));
    document.medicationCode = medicationCodeOf(dispense);
    checkLocation(dispense);
    document.isFinal = isFinalDispense(dispense);
    document.quantity = number(dispense.value(QStringLiteral("quantity")).toObject().value(QStringLiteral("value")),
                               QStringLiteral("В документе отпуска не указано количество доз"));
    document.handedOver = day(dispense.value(QStringLiteral("whenHandedOver")),
                              QStringLiteral("В документе отпуска не указана дата отпуска"));
    if (resources.contains(QStringLiteral("claim")))
        document.claim = claimIn(document.claimResource);
    return document;
}
} // namespace emulator
