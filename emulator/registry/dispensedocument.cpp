// SPDX-License-Identifier: MIT
#include "dispensedocument.h"

#include "refusal.h"

#include <QJsonArray>
#include <QJsonDocument>

using namespace Qt::StringLiterals;

namespace emulator
{
namespace
{
void demand(bool isSo, const QString& details)
{
    if (!isSo) {
        throw Refusal(400, details);
    }
}

QJsonObject onlyObject(const QJsonValue& array, const QString& details)
{
    demand(array.isArray() && array.toArray().size() == 1 && array.toArray().first().isObject(), details);
    return array.toArray().first().toObject();
}

/// The id of a reference such as "Organization/17", which has to be to that type.
QString referencedId(const QJsonValue& holder, const QString& type, const QString& details)
{
    const QString reference = holder.toObject().value(u"reference"_s).toString();
    const QString prefix = type + u'/';
    demand(reference.startsWith(prefix), details);
    return reference.mid(prefix.size());
}

QString patientOf(const QJsonObject& resource, const QString& details)
{
    const QJsonValue reference = resource.value(u"patient"_s).toObject().value(u"reference"_s);
    demand(reference.isString(), details);
    return reference.toString();
}

QDate day(const QJsonValue& value, const QString& details)
{
    const QDate date = QDate::fromString(value.toString(), u"yyyy-MM-dd"_s);
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
    demand(document.isObject(), u"Документ отпуска не является объектом JSON"_s);
    const QJsonObject root = document.object();
    demand(root.value(u"resourceType"_s) == "Parameters"_L1, u"Документ отпуска не является ресурсом Parameters"_s);
    demand(root.value(u"parameter"_s).isArray(), u"Документ отпуска не содержит параметров"_s);
    QHash<QString, QJsonObject> resources;
    const QJsonArray parameters = root.value(u"parameter"_s).toArray();
    for (const auto value : parameters) {
        const QJsonObject parameter = value.toObject();
        const QString name = parameter.value(u"name"_s).toString();
        demand(name == "medicationDispense"_L1 || name == "claim"_L1,
               u"Документ отпуска содержит неизвестный параметр "_s + name);
        demand(!resources.contains(name), u"Документ отпуска дважды содержит параметр "_s + name);
        resources.insert(name, parameter.value(u"resource"_s).toObject());
    }
    return resources;
}

QJsonObject contained(const QJsonObject& resource, const QString& type)
{
    const QJsonArray all = resource.value(u"contained"_s).toArray();
    for (const auto value : all) {
        if (value.toObject().value(u"resourceType"_s) == type) {
            return value.toObject();
        }
    }
    return {};
}

QString medicationCodeOf(const QJsonObject& resource)
{
    const QJsonObject medication = contained(resource, u"Medication"_s);
    demand(!medication.isEmpty(), u"Документ отпуска не содержит отпускаемого препарата"_s);
    const QString reference = resource.value(u"medication"_s).toObject().value(u"reference"_s).toString();
    demand(reference == u'#' + medication.value(u"id"_s).toString(),
           u"Ссылка на отпускаемый препарат не указывает на препарат документа"_s);
    demand(medication.value(u"isBrand"_s).isBool(),
           u"Не указано, назван ли отпускаемый препарат торговым наименованием"_s);
    const QJsonObject coding = onlyObject(medication.value(u"code"_s).toObject().value(u"coding"_s),
                                          u"У отпускаемого препарата должен быть один код"_s);
    demand(coding.value(u"code"_s).isString(), u"Код отпускаемого препарата не является текстом"_s);
    return coding.value(u"code"_s).toString();
}

bool isFinalDispense(const QJsonObject& resource)
{
    const QJsonArray extensions = resource.value(u"extension"_s).toArray();
    for (const auto value : extensions) {
        const QJsonObject extension = value.toObject();
        if (extension.value(u"url"_s).toString().endsWith("by-finalDispense"_L1) &&
            extension.value(u"valueBoolean"_s).isBool()) {
            return extension.value(u"valueBoolean"_s).toBool();
        }
    }
    throw Refusal(400, u"Не указано, полностью ли отпущен рецепт"_s);
}

void checkLocation(const QJsonObject& resource)
{
    const QJsonObject location = contained(resource, u"Location"_s);
    demand(!location.isEmpty(), u"Документ отпуска не содержит места отпуска"_s);
    demand(location.value(u"name"_s).isString() && location.value(u"address"_s).toObject().value(u"text"_s).isString(),
           u"У места отпуска не указаны название и адрес"_s);
}

Claim claimIn(const QJsonObject& resource)
{
    demand(resource.value(u"resourceType"_s) == "Claim"_L1, u"Параметр claim не содержит счёта"_s);
    demand(resource.value(u"type"_s) == "pharmacy"_L1, u"Счёт выставлен не аптекой"_s);
    day(resource.value(u"created"_s), u"В счёте не указана дата"_s);
    Claim claim;
    claim.payerId = referencedId(resource.value(u"organization"_s), u"Organization"_s,
                                 u"В счёте не указана организация-плательщик"_s);
    claim.prescriptionId = referencedId(resource.value(u"originalPrescription"_s), u"MedicationPrescription"_s,
                                        u"В счёте не указан рецепт"_s);
    claim.patientReference = patientOf(resource, u"В счёте не указан пациент"_s);

    const QJsonObject item = onlyObject(resource.value(u"item"_s), u"В счёте должна быть ровно одна позиция"_s);
    demand(item.value(u"sequence"_s).toInt() == 1, u"Позиция счёта должна иметь номер 1"_s);
    demand(item.value(u"type"_s).toObject().value(u"code"_s) == "group"_L1, u"Неизвестный вид позиции счёта"_s);
    demand(item.value(u"service"_s).toObject().value(u"code"_s) == "2102"_L1, u"Неизвестная услуга в позиции счёта"_s);
    const QJsonObject unitPrice = item.value(u"unitPrice"_s).toObject();
    const QJsonObject net = item.value(u"net"_s).toObject();
    claim.unitPrice = number(unitPrice.value(u"value"_s), u"В счёте не указана цена"_s);
    claim.factor = number(item.value(u"factor"_s), u"В счёте не указана доля плательщика"_s);
    claim.net = number(net.value(u"value"_s), u"В счёте не указана сумма к оплате"_s);
    claim.unitPriceCurrency = unitPrice.value(u"code"_s).toString();
    claim.netCurrency = net.value(u"code"_s).toString();
    return claim;
}
} // namespace

DispenseDocument DispenseDocument::read(const QByteArray& body)
{
    const QHash<QString, QJsonObject> resources = parametersIn(body);
    DispenseDocument document;
    document.dispenseResource = resources.value(u"medicationDispense"_s);
    document.claimResource = resources.value(u"claim"_s);

    const QJsonObject& dispense = document.dispenseResource;
    demand(dispense.value(u"resourceType"_s) == "MedicationDispense"_L1,
           u"Документ отпуска не содержит ресурса MedicationDispense"_s);
    demand(dispense.value(u"status"_s) == "completed"_L1, u"Регистрируется только завершённый отпуск"_s);
    const QJsonObject authorizing =
        onlyObject(dispense.value(u"authorizingPrescription"_s), u"Отпуск должен относиться к одному рецепту"_s);
    document.prescriptionId =
        referencedId(authorizing, u"MedicationPrescription"_s, u"В документе отпуска не указан рецепт"_s);
    document.patientReference = patientOf(dispense, u"В документе отпуска не указан пациент"_s);
    document.medicationCode = medicationCodeOf(dispense);
    checkLocation(dispense);
    document.isFinal = isFinalDispense(dispense);
    document.quantity = number(dispense.value(u"quantity"_s).toObject().value(u"value"_s),
                               u"В документе отпуска не указано количество доз"_s);
    document.handedOver = day(dispense.value(u"whenHandedOver"_s), u"В документе отпуска не указана дата отпуска"_s);
    if (resources.contains(u"claim"_s)) {
        document.claim = claimIn(document.claimResource);
    }
    return document;
}
} // namespace emulator
