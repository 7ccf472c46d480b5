// SPDX-License-Identifier: MIT
#include "transporterror_p.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace
{

constexpr int internalServerError = 500;

/// A row of a table of texts. %1 is the server's name, %2 the HTTP status.
struct ErrorText {
    const char* key;
    const char* text;

    tr::Tr tr() const { return {QString::fromUtf8(key), QString::fromUtf8(text)}; }
};

struct TransportErrorRow {
    TransportError error;
    ErrorText text;
};

struct StatusRow {
    int first;
    int last;
    ErrorText text;
};

constexpr ErrorText failed = {
    "restClientFailed",
    "Не удалось выполнить запрос к серверу %1. Повторите; если не поможет, обратитесь к администратору."};

constexpr std::array transportErrors = {
    TransportErrorRow{TransportError::AddressNotUsable,
                      {"restClientAddressNotUsable",
                       "Адрес сервера в настройках не годится: нужен адрес http или https с именем сервера и верным "
                       "портом, без имени "
                       "пользователя и пароля. Запрос не отправлен. Обратитесь к администратору."}},
    TransportErrorRow{TransportError::HeaderNotUsable,
                      {"restClientHeaderNotUsable",
                       "Запрос к серверу %1 не отправлен: в одном из его заголовков недопустимые символы. Обратитесь к "
                       "администратору: проверить нужно настройки доступа."}},
    TransportErrorRow{TransportError::CertificatesNotReadable,
                      {"restClientCertificatesNotReadable",
                       "Запрос к серверу %1 не отправлен: доверенные сертификаты не читаются. Обратитесь к "
                       "администратору."}},
    TransportErrorRow{TransportError::OptionRefused,
                      {"restClientOptionRefused",
                       "Запрос к серверу %1 не отправлен: сетевая библиотека не приняла его настройки защиты. "
                       "Обратитесь к администратору."}},

    TransportErrorRow{
        TransportError::NameNotFound,
        {"restClientNameNotFound",
         "Сервер %1 не найден. Проверьте подключение кассы к сети и повторите; если не поможет, обратитесь "
         "к администратору."}},
    TransportErrorRow{
        TransportError::NotReachable,
        {"restClientNotReachable", "Нет связи с сервером %1. Проверьте подключение кассы к сети и повторите позже."}},
    TransportErrorRow{TransportError::NotSecured,
                      {"restClientNotSecured",
                       "Не удалось установить защищённое соединение с сервером %1. Повторите позже; если не поможет, "
                       "обратитесь к администратору."}},
    TransportErrorRow{
        TransportError::CertificateNotVerified,
        {"restClientCertificateNotVerified",
         "Сертификат сервера %1 не прошёл проверку, запрос не отправлен. Проверьте дату и время на кассе и "
         "обратитесь к администратору."}},

    TransportErrorRow{TransportError::TimedOut,
                      {"restClientTimedOut", "Сервер %1 не ответил вовремя. Повторите позже."}},
    TransportErrorRow{TransportError::ConnectionLost,
                      {"restClientConnectionLost", "Связь с сервером %1 прервалась. Повторите."}},
    TransportErrorRow{
        TransportError::AnswerTooLarge,
        {"restClientAnswerTooLarge", "Ответ сервера %1 слишком велик и не принят. Обратитесь к администратору."}},
    TransportErrorRow{TransportError::AnswerNotUnderstood,
                      {"restClientAnswerNotUnderstood",
                       "Ответ сервера %1 не разобран. Повторите; если не поможет, обратитесь к администратору."}},

    TransportErrorRow{TransportError::RedirectRefused,
                      {"restClientRedirectRefused",
                       "Сервер %1 отослал запрос на адрес, которому нельзя доверять. Обратитесь к администратору."}},
    TransportErrorRow{TransportError::TooManyRedirects,
                      {"restClientTooManyRedirects",
                       "Сервер %1 слишком много раз отослал запрос на другой адрес. Обратитесь к администратору."}},
    TransportErrorRow{
        TransportError::Stopped,
        {"restClientStopped", "Запрос прекращён кассиром. На сервере %1 ничего не изменено, запрос можно повторить."}},
};

/// For a request that may have been carried out although its answer is not complete.
constexpr std::array uncertainOutcomes = {
    TransportErrorRow{TransportError::TimedOut,
                      {"restClientTimedOutUncertain",
                       "Сервер %1 не ответил вовремя. Запрос мог быть выполнен: прежде чем повторять, проверьте, "
                       "выполнен ли он."}},
    TransportErrorRow{
        TransportError::ConnectionLost,
        {"restClientConnectionLostUncertain",
         "Связь с сервером %1 прервалась до конца ответа. Запрос мог быть выполнен: прежде чем повторять, "
         "проверьте, выполнен ли он."}},
    TransportErrorRow{TransportError::AnswerTooLarge,
                      {"restClientAnswerTooLargeUncertain",
                       "Ответ сервера %1 слишком велик и не принят. Запрос мог быть выполнен: прежде чем повторять, "
                       "проверьте, выполнен ли он, и обратитесь к администратору."}},
    TransportErrorRow{
        TransportError::AnswerNotUnderstood,
        {"restClientAnswerNotUnderstoodUncertain",
         "Ответ сервера %1 не разобран. Запрос мог быть выполнен: прежде чем повторять, проверьте, выполнен "
         "ли он."}},
    TransportErrorRow{TransportError::Stopped,
                      {"restClientStoppedUncertain",
                       "Кассир не стал ждать ответа сервера %1. Запрос мог быть выполнен: прежде чем повторять, "
                       "проверьте, выполнен ли он."}},
};
constexpr ErrorText failedUncertain = {
    "restClientFailedUncertain",
    "Запрос к серверу %1 не завершён. Запрос мог быть выполнен: прежде чем повторять, проверьте, выполнен ли он."};

constexpr std::array statuses = {
    StatusRow{
        300,
        399,
        {"restClientStatusRedirect",
         "Сервер %1 отослал запрос на другой адрес (ответ %2). Обратитесь к администратору: проверить нужно адрес "
         "сервера."}},
    StatusRow{401,
              401,
              {"restClientStatusUnauthorized",
               "Сервер %1 не принял учётные данные аптеки (ответ %2). Повторите; если не поможет, обратитесь к "
               "администратору."}},
    StatusRow{
        403,
        403,
        {"restClientStatusForbidden",
         "Сервер %1 отказал в доступе (ответ %2). Обратитесь к администратору: проверить нужно настройки доступа."}},
    StatusRow{404,
              404,
              {"restClientStatusNotFound",
               "Сервер %1 не нашёл запрошенное (ответ %2). Проверьте введённые данные и повторите."}},
    StatusRow{408, 408, {"restClientStatusTimeout", "Сервер %1 не дождался запроса (ответ %2). Повторите."}},
    StatusRow{429,
              429,
              {"restClientStatusTooManyRequests",
               "Сервер %1 принял слишком много запросов (ответ %2). Подождите минуту и повторите."}},
    StatusRow{400,
              499,
              {"restClientStatusRejected",
               "Сервер %1 отклонил запрос (ответ %2). Проверьте введённые данные; если они верны, обратитесь к "
               "администратору."}},
    StatusRow{503, 503, {"restClientStatusUnavailable", "Сервер %1 временно недоступен (ответ %2). Повторите позже."}},
    StatusRow{500,
              999,
              {"restClientStatusServerError",
               "На сервере %1 произошла ошибка (ответ %2). Повторите позже; если не поможет, обратитесь к "
               "администратору."}},
};
constexpr ErrorText serverErrorUncertain = {
    "restClientStatusServerErrorUncertain",
    "На сервере %1 произошла ошибка (ответ %2). Запрос мог быть выполнен: прежде чем повторять, проверьте, выполнен ли "
    "он."};
constexpr ErrorText gatewayUncertain = {
    "restClientStatusGatewayUncertain",
    "Сервер %1 не дождался ответа от внутренней службы (ответ %2). Запрос мог быть выполнен: прежде чем повторять, "
    "проверьте, выполнен ли он."};

template <typename Table>
ErrorText find(const Table& table, TransportError error, const ErrorText& otherwise)
{
    const auto row = std::find_if(std::begin(table), std::end(table),
                                  [error](const TransportErrorRow& candidate) { return candidate.error == error; });
    return row == std::end(table) ? otherwise : row->text;
}

} // namespace

tr::Tr transportErrorText(TransportError error, const QString& host, bool mayBeCarriedOut)
{
    const ErrorText text =
        mayBeCarriedOut ? find(uncertainOutcomes, error, failedUncertain) : find(transportErrors, error, failed);
    return text.tr().arg(host);
}

tr::Tr httpStatusText(int status, const QString& host, bool changesSomething)
{
    ErrorText text = failed;
    if (changesSomething && leavesOutcomeOpen(status)) {
        text = status == internalServerError ? serverErrorUncertain : gatewayUncertain;
    } else {
        const auto row = std::find_if(statuses.begin(), statuses.end(), [status](const StatusRow& candidate) {
            return candidate.first <= status && status <= candidate.last;
        });
        if (row != statuses.end()) {
            text = row->text;
        }
    }
    return text.tr().arg(host).arg(QString::number(status));
}

bool leavesOutcomeOpen(int status)
{
    constexpr int badGateway = 502;
    constexpr int gatewayTimeout = 504;
    return status == internalServerError || status == badGateway || status == gatewayTimeout;
}
