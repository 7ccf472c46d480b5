// SPDX-License-Identifier: MIT
#include "refusalcatalogue.h"

namespace emulator
{
namespace
{
using Code = RefusalCode;

/// @param challenge value of WWW-Authenticate
constexpr RefusalRow tokenRequest(Code code, int status, const char16_t* text, const char* error,
                                  const char* description, const char* challenge = "")
{
    return {code, status, text, {error, description}, challenge};
}

constexpr RefusalRow catalogue[] = {
    // Bytes that are no request
    {Code::RequestUnreadable, 400, u"Запрос не удалось разобрать"},
    {Code::RequestNotInTime, 408, u"Запрос не пришёл целиком вовремя"},
    {Code::BodyTooLarge, 413, u"Тело запроса слишком велико"},
    {Code::HeadersTooLarge, 431, u"Заголовки запроса слишком велики"},
    {Code::HttpVersionUnknown, 505, u"Версия HTTP не поддерживается"},

    // Any request
    {Code::PathUnknown, 404, u"Адрес неизвестен реестру"},
    {Code::MethodWrong, 405, u"Метод %1 здесь не поддерживается"},
    {Code::RegistryFailed, 500, u"Внутренняя ошибка реестра: %1"},

    // Token requests
    tokenRequest(Code::TokenRequestOaisMissing, 401, u"В запросе токена не указан токен ОАИС", "invalid_client",
                 "the OAIS token is missing", "Bearer"),
    tokenRequest(Code::TokenRequestOaisWrong, 401, u"Токен ОАИС в запросе токена не принят", "invalid_client",
                 "the OAIS token is wrong", "Bearer error=\"invalid_token\""),
    tokenRequest(Code::TokenRequestNoForm, 400, u"Запрос токена должен быть отправлен в виде формы", "invalid_request",
                 "the body has to be a form"),
    tokenRequest(Code::TokenRequestUndecodable, 400, u"Запрос токена не удалось разобрать", "invalid_request",
                 "the form is not percent-encoded UTF-8"),
    tokenRequest(Code::TokenParameterTwice, 400, u"В запросе токена дважды указан параметр %1", "invalid_request",
                 "a parameter stands twice"),
    tokenRequest(Code::TokenParameterMissing, 400, u"В запросе токена не указан параметр %1", "invalid_request",
                 "%1 is missing"),
    tokenRequest(Code::GrantTypeUnknown, 400, u"Запрошен неизвестный способ авторизации", "unsupported_grant_type",
                 "only client_credentials is known"),
    tokenRequest(Code::ClientUnknown, 401, u"Клиент не зарегистрирован в АИС «ЭЛЕКТРОННЫЙ РЕЦЕПТ»", "invalid_client",
                 "the client is unknown"),
    tokenRequest(Code::ClientSecretWrong, 401, u"Неверный секрет клиента", "invalid_client", "the secret is wrong"),
    tokenRequest(Code::OrganizationWrong, 400, u"Клиент не может работать от имени указанной организации",
                 "unauthorized_client", "the client does not act for that organization"),
    tokenRequest(Code::ScopeNotAllowed, 400, u"Клиенту не разрешена область доступа %1", "invalid_scope",
                 "the client may not ask for that scope"),

    // The tokens of resource requests
    {Code::TokenMissing, 401, u"Запрос без токена авторизации", {}, "Bearer"},
    {Code::TokenUnknown, 401, u"Токен авторизации неизвестен", {}, "Bearer error=\"invalid_token\""},
    {Code::TokenExpired, 401, u"Срок действия токена авторизации истёк", {}, "Bearer error=\"invalid_token\""},
    {Code::OaisMissing, 401, u"Запрос без токена ОАИС"},
    {Code::OaisWrong, 401, u"Токен ОАИС не принят"},
    {Code::ScopeMissing, 403, u"Для операции нужна область доступа %1", {}, "Bearer error=\"insufficient_scope\""},

    // Prescriptions by card
    {Code::QueryUndecodable, 400, u"Параметры запроса не удалось разобрать"},
    {Code::QueryParameterTwice, 400, u"Параметр %1 указан дважды"},
    {Code::CardMissing, 400, u"Не указан номер карты"},
    {Code::StatusUnknown, 400, u"Неизвестный статус рецепта «%1»"},
    {Code::CardUnknown, 404, u"Карта не найдена в реестре"},

    // Both dispense requests
    {Code::BodyNotJson, 415, u"Запрос должен быть отправлен в виде JSON"},

    // The form of a dispense document
    {Code::DocumentNoObject, 400, u"Документ отпуска не является объектом JSON"},
    {Code::DocumentNoParametersResource, 400, u"Документ отпуска не является ресурсом Parameters"},
    {Code::DocumentWithoutParameters, 400, u"Документ отпуска не содержит параметров"},
    {Code::DocumentParameterUnknown, 400, u"Документ отпуска содержит неизвестный параметр %1"},
    {Code::DocumentParameterTwice, 400, u"Документ отпуска дважды содержит параметр %1"},
    {Code::DispenseMissing, 400, u"Документ отпуска не содержит ресурса MedicationDispense"},
    {Code::DispenseNotCompleted, 400, u"Регистрируется только завершённый отпуск"},
    {Code::PrescriptionNotOne, 400, u"Отпуск должен относиться к одному рецепту"},
    {Code::PrescriptionMissing, 400, u"В документе отпуска не указан рецепт"},
    {Code::PatientMissing, 400, u"В документе отпуска не указан пациент"},
    {Code::MedicationMissing, 400, u"Документ отпуска не содержит отпускаемого препарата"},
    {Code::MedicationReferenceWrong, 400, u"Ссылка на отпускаемый препарат не указывает на препарат документа"},
    {Code::MedicationBrandMissing, 400, u"Не указано, назван ли отпускаемый препарат торговым наименованием"},
    {Code::MedicationCodeNotOne, 400, u"У отпускаемого препарата должен быть один код"},
    {Code::MedicationCodeNoText, 400, u"Код отпускаемого препарата не является текстом"},
    {Code::LocationMissing, 400, u"Документ отпуска не содержит места отпуска"},
    {Code::LocationIncomplete, 400, u"У места отпуска не указаны название и адрес"},
    {Code::FinalMissing, 400, u"Не указано, полностью ли отпущен рецепт"},
    {Code::QuantityMissing, 400, u"В документе отпуска не указано количество доз"},
    {Code::HandedOverMissing, 400, u"В документе отпуска не указана дата отпуска"},
    {Code::ClaimMissing, 400, u"Параметр claim не содержит счёта"},
    {Code::ClaimTypeWrong, 400, u"Счёт выставлен не аптекой"},
    {Code::ClaimDateMissing, 400, u"В счёте не указана дата"},
    {Code::ClaimPayerMissing, 400, u"В счёте не указана организация-плательщик"},
    {Code::ClaimPrescriptionMissing, 400, u"В счёте не указан рецепт"},
    {Code::ClaimPatientMissing, 400, u"В счёте не указан пациент"},
    {Code::ClaimItemNotOne, 400, u"В счёте должна быть ровно одна позиция"},
    {Code::ClaimItemNumberWrong, 400, u"Позиция счёта должна иметь номер 1"},
    {Code::ClaimItemTypeUnknown, 400, u"Неизвестный вид позиции счёта"},
    {Code::ClaimServiceUnknown, 400, u"Неизвестная услуга в позиции счёта"},
    {Code::ClaimPriceMissing, 400, u"В счёте не указана цена"},
    {Code::ClaimFactorMissing, 400, u"В счёте не указана доля плательщика"},
    {Code::ClaimNetMissing, 400, u"В счёте не указана сумма к оплате"},

    // The rules of a dispense
    {Code::PrescriptionUnknown, 404, u"Рецепт %1 не найден в реестре"},
    {Code::PatientWrong, 422, u"Рецепт %1 выписан другому пациенту"},
    {Code::PrescriptionCompleted, 422, u"Рецепт %1 уже отпущен полностью"},
    {Code::PrescriptionNotActive, 422, u"Рецепт %1 не действует, его статус «%2»"},
    {Code::PrescriptionExpired, 422, u"Срок действия рецепта %1 истёк %2"},
    {Code::HandedOverBeforeWritten, 422, u"Дата отпуска раньше даты выписки рецепта"},
    {Code::HandedOverInFuture, 422, u"Дата отпуска ещё не наступила"},
    {Code::QuantityNotPositive, 422, u"Количество отпускаемых доз должно быть больше нуля"},
    {Code::QuantityAboveRest, 422, u"По рецепту %1 осталось доз: %2, отпускается: %3"},
    {Code::MedicationCodeMissing, 422, u"В документе отпуска не указан код препарата"},
    {Code::MedicationNotPrescribed, 422, u"Препарат с кодом %1 не назначен рецептом %2"},
    {Code::ClaimNotDue, 422, u"Рецепт отпускается за полную стоимость, счёт не нужен"},
    {Code::ClaimDue, 422, u"К отпуску льготного рецепта не приложен счёт"},
    {Code::ClaimPrescriptionWrong, 422, u"Счёт относится к другому рецепту"},
    {Code::ClaimPatientWrong, 422, u"Счёт относится к другому пациенту"},
    {Code::PayerUnknown, 422, u"Организация-плательщик неизвестна"},
    {Code::PayerWrong, 422, u"Льготу по рецепту оплачивает другая организация"},
    {Code::CurrencyWrong, 422, u"Суммы счёта должны быть в белорусских рублях"},
    {Code::AmountNegative, 422, u"Суммы счёта не могут быть отрицательными"},
    {Code::AmountNotInCents, 422, u"Суммы счёта должны быть в целых копейках"},
    {Code::FactorWrong, 422, u"Доля плательщика в счёте не соответствует рецепту"},
    {Code::NetWrong, 422, u"Сумма счёта не соответствует цене и доле плательщика"},

    // Cancelling a dispense
    {Code::CancellationNoObject, 400, u"Запрос отмены не является объектом JSON"},
    {Code::DispenseIdMissing, 400, u"Не указано, какой отпуск отменяется"},
    {Code::DispenseUnknown, 404, u"Отпуск %1 не найден в реестре"},
    {Code::DispenseAlreadyCancelled, 409, u"Отпуск %1 уже отменён"},
    {Code::DispenseOfOtherPharmacy, 403, u"Отпуск %1 зарегистрирован другой организацией"},
};

constexpr bool isInOrderOfCodes()
{
    int next = 0;
    for (const RefusalRow& row : catalogue) {
        if (row.code != Code(next++)) {
            return false;
        }
    }
    return true;
}
static_assert(isInOrderOfCodes(), "each code has one row, and the rows are in the order of the codes");
} // namespace

std::span<const RefusalRow> refusalCatalogue()
{
    return catalogue;
}

const RefusalRow& refusalRow(RefusalCode code)
{
    return catalogue[std::size_t(code)];
}
} // namespace emulator
