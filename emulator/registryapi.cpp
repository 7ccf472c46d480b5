// SPDX-License-Identifier: MIT
#include "registryapi.h"

#include "bycardanswer.h"
#include "emulatorerror.h"
#include "percentdecoding.h"
#include "prescriptionstatus.h"
#include "refusal.h"

#include <QJsonDocument>

namespace emulator
{
namespace
{
void demandJson(const HttpRequest& request)
{
    const QByteArray type = request.header("Content-Type").split(';').first().trimmed().toLower();
    if (type != "application/json")
        throw Refusal(415, QStringLiteral("Запрос должен быть отправлен в виде JSON"));
}

QString parameter(const DecodedPairs& query, const QString& name)
{
    QString value;
    bool isFound = false;
    for (const auto& [itemName, itemValue] : query) {
        if (itemName != name)
            continue;
        if (isFound)
            throw Refusal(400, QStringLiteral("Параметр ") + name + QStringLiteral(" указан дважды"));
        isFound = true;
        value = itemValue;
    }
    return value;
}
} // namespace

RegistryApi::RegistryApi(PrescriptionStore& store, const Clock& clock, const QString& basePath)
    : m_store(store)
    , m_router(basePath)
    , m_tokens(store, clock)
    , m_register(store, clock)
{
}

HttpAnswer RegistryApi::answer(const HttpRequest& request, const Route& route)
{
    try {
        return carryOut(request, route);
    } catch (const Refusal& refusal) {
        return refusal.answer();
    } catch (const EmulatorError& error) {
        return Refusal(500, QStringLiteral("Внутренняя ошибка реестра: ") + error.message()).answer();
    }
}

HttpAnswer RegistryApi::unreadable(int status)
{
    switch (status) {
    case 413:
        return Refusal(status, QStringLiteral("Тело запроса слишком велико")).answer();
    case 431:
        return Refusal(status, QStringLiteral("Заголовки запроса слишком велики")).answer();
    case 505:
        return Refusal(status, QStringLiteral("Версия HTTP не поддерживается")).answer();
    default:
        return Refusal(status, QStringLiteral("Запрос не удалось разобрать")).answer();
    }
}

HttpAnswer RegistryApi::carryOut(const HttpRequest& request, const Route& route)
{
    if (route.endpoint == Endpoint::Unknown)
        throw Refusal(404, QStringLiteral("Адрес неизвестен реестру"));
    if (request.method != route.method) {
        throw Refusal(405, QStringLiteral("Метод ") + QString::fromLatin1(request.method) +
                               QStringLiteral(" здесь не поддерживается"))
            .with("Allow", route.method);
    }
    switch (route.endpoint) {
    case Endpoint::Token:
        return m_tokens.issue(request);
    case Endpoint::PrescriptionsByCard:
        return prescriptionsByCard(request);
    case Endpoint::DispenseRegistration:
        return registerDispense(request);
    default:
        return cancelDispense(request, route.id);
    }
}

HttpAnswer RegistryApi::prescriptionsByCard(const HttpRequest& request) const
{
    m_tokens.admit(request, m_store.rules().prescriptionScope);
    const auto query = decodeQuery(request.query());
    if (!query)
        throw Refusal(400, QStringLiteral("Параметры запроса не удалось разобрать"));
    const QString card = parameter(*query, QStringLiteral("patientIdentifier"));
    if (card.isEmpty())
        throw Refusal(400, QStringLiteral("Не указан номер карты"));
    const QString status = parameter(*query, QStringLiteral("status"));
    if (!status.isEmpty() && !prescriptionstatus::all.contains(status))
        throw Refusal(400, QStringLiteral("Неизвестный статус рецепта «") + status + QStringLiteral("»"));
    const auto patient = m_store.patientOfCard(card);
    if (!patient)
        throw Refusal(404, QStringLiteral("Карта не найдена в реестре"));
    return HttpAnswer::json(200, byCardAnswer(m_store, *patient, status));
}

HttpAnswer RegistryApi::registerDispense(const HttpRequest& request)
{
    const Access access = m_tokens.admit(request, m_store.rules().dispenseScope);
    demandJson(request);
    return m_register.book(request.body, access);
}

HttpAnswer RegistryApi::cancelDispense(const HttpRequest& request, const QString& dispenseId)
{
    const Access access = m_tokens.admit(request, m_store.rules().dispenseScope);
    demandJson(request);
    if (!QJsonDocument::fromJson(request.body).isObject())
        throw Refusal(400, QStringLiteral("Запрос отмены не является объектом JSON"));
    return m_register.cancel(dispenseId, access);
}
} // namespace emulator
