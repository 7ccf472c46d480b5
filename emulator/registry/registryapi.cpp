// SPDX-License-Identifier: MIT
#include "registryapi.h"

#include "bycardanswer.h"
#include "emulatorerror.h"
#include "percentdecoding.h"
#include "prescriptionstatus.h"
#include "refusal.h"

#include <QJsonDocument>

using namespace Qt::StringLiterals;

namespace emulator
{
namespace
{
void demandJson(const HttpRequest& request)
{
    const QByteArray type = request.header("Content-Type").split(';').first().trimmed().toLower();
    if (type != "application/json") {
        throw Refusal(415, u"Запрос должен быть отправлен в виде JSON"_s);
    }
}

QString parameter(const DecodedPairs& query, const QString& name)
{
    QString value;
    bool isFound = false;
    for (const auto& [itemName, itemValue] : query) {
        if (itemName != name) {
            continue;
        }
        if (isFound) {
            throw Refusal(400, u"Параметр "_s + name + u" указан дважды"_s);
        }
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
        return Refusal(500, u"Внутренняя ошибка реестра: "_s + error.message()).answer();
    }
}

HttpAnswer RegistryApi::unreadable(int status)
{
    switch (status) {
    case 413:
        return Refusal(status, u"Тело запроса слишком велико"_s).answer();
    case 431:
        return Refusal(status, u"Заголовки запроса слишком велики"_s).answer();
    case 505:
        return Refusal(status, u"Версия HTTP не поддерживается"_s).answer();
    default:
        return Refusal(status, u"Запрос не удалось разобрать"_s).answer();
    }
}

HttpAnswer RegistryApi::carryOut(const HttpRequest& request, const Route& route)
{
    if (route.endpoint == Endpoint::Unknown) {
        throw Refusal(404, u"Адрес неизвестен реестру"_s);
    }
    if (request.method != route.method) {
        throw Refusal(405, u"Метод "_s + QString::fromLatin1(request.method) + u" здесь не поддерживается"_s)
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
    if (!query) {
        throw Refusal(400, u"Параметры запроса не удалось разобрать"_s);
    }
    const QString card = parameter(*query, u"patientIdentifier"_s);
    if (card.isEmpty()) {
        throw Refusal(400, u"Не указан номер карты"_s);
    }
    const QString status = parameter(*query, u"status"_s);
    if (!status.isEmpty() && !prescriptionstatus::all.contains(status)) {
        throw Refusal(400, u"Неизвестный статус рецепта «"_s + status + u"»"_s);
    }
    const auto patient = m_store.patientOfCard(card);
    if (!patient) {
        throw Refusal(404, u"Карта не найдена в реестре"_s);
    }
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
    if (!QJsonDocument::fromJson(request.body).isObject()) {
        throw Refusal(400, u"Запрос отмены не является объектом JSON"_s);
    }
    return m_register.cancel(dispenseId, access);
}
} // namespace emulator
