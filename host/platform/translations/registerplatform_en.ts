<?xml version="1.0" encoding="utf-8"?>
<!-- SPDX-License-Identifier: MIT -->
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="ru">
<context>
    <name></name>
    <message id="actionInternalError">
        <source>Действие прервано из-за внутренней ошибки.
Повторите действие. Если ошибка повторится, обратитесь в службу поддержки.</source>
        <translation>The action stopped because of an internal error.
Try again. If it happens again, call support.</translation>
    </message>
    <message id="formsEnded">
        <source>Действие прервано: касса закрывается.</source>
        <translation>The action was stopped: the register is closing.</translation>
    </message>
    <message id="requestJournalNotWritable">
        <source>Запрос не отправлен: он не записан в журнал запросов (%1). Освободите место на диске или позовите администратора и повторите команду.</source>
        <translation>The request was not sent: it could not be written to the request journal (%1). Free some disk space or call the administrator, then give the command again.</translation>
    </message>
    <message id="saveFolderNotConfigured">
        <source>в настройках нет Register:data</source>
        <translation>Register:data is missing in the configuration</translation>
    </message>
    <message id="saveDocumentError">
        <source>Документ не сохранён на диск, в силе прежняя запись.
Папка: %1
Причина: %2
Освободите место на диске или проверьте доступ к папке и повторите действие.</source>
        <translation>The document was not saved; the copy saved earlier still holds.
Folder: %1
Reason: %2
Free some disk space or check access to the folder, then try again.</translation>
    </message>
    <message id="restClientFailed">
        <source>Не удалось выполнить запрос к серверу %1. Повторите; если не поможет, обратитесь к администратору.</source>
        <translation>The request to server %1 failed. Try again; if that does not help, call the administrator.</translation>
    </message>
    <message id="restClientAddressNotUsable">
        <source>Адрес сервера в настройках не годится: нужен адрес http или https с именем сервера и верным портом, без имени пользователя и пароля. Запрос не отправлен. Обратитесь к администратору.</source>
        <translation>The server’s address in the configuration cannot be used: it must be an http or https address with the server’s name and a valid port, without a user name or password. Nothing was sent. Call the administrator.</translation>
    </message>
    <message id="restClientHeaderNotUsable">
        <source>Запрос к серверу %1 не отправлен: в одном из его заголовков недопустимые символы. Обратитесь к администратору: проверить нужно настройки доступа.</source>
        <translation>Nothing was sent to server %1: one of the request’s headers has characters that are not allowed. Call the administrator to check the access configuration.</translation>
    </message>
    <message id="restClientCertificatesNotReadable">
        <source>Запрос к серверу %1 не отправлен: доверенные сертификаты не читаются. Обратитесь к администратору.</source>
        <translation>Nothing was sent to server %1: the trusted certificates cannot be read. Call the administrator.</translation>
    </message>
    <message id="restClientOptionRefused">
        <source>Запрос к серверу %1 не отправлен: сетевая библиотека не приняла его настройки защиты. Обратитесь к администратору.</source>
        <translation>Nothing was sent to server %1: the network library did not accept its security configuration. Call the administrator.</translation>
    </message>
    <message id="restClientNameNotFound">
        <source>Сервер %1 не найден. Проверьте подключение кассы к сети и повторите; если не поможет, обратитесь к администратору.</source>
        <translation>Server %1 was not found. Check the register’s network connection and try again; if that does not help, call the administrator.</translation>
    </message>
    <message id="restClientNotReachable">
        <source>Нет связи с сервером %1. Проверьте подключение кассы к сети и повторите позже.</source>
        <translation>Server %1 cannot be reached. Check the register’s network connection and try again later.</translation>
    </message>
    <message id="restClientNotSecured">
        <source>Не удалось установить защищённое соединение с сервером %1. Повторите позже; если не поможет, обратитесь к администратору.</source>
        <translation>No secure connection to server %1 could be made. Try again later; if that does not help, call the administrator.</translation>
    </message>
    <message id="restClientCertificateNotVerified">
        <source>Сертификат сервера %1 не прошёл проверку, запрос не отправлен. Проверьте дату и время на кассе и обратитесь к администратору.</source>
        <translation>The certificate of server %1 could not be verified; nothing was sent. Check the register’s date and time and call the administrator.</translation>
    </message>
    <message id="restClientTimedOut">
        <source>Сервер %1 не ответил вовремя. Повторите позже.</source>
        <translation>Server %1 did not answer in time. Try again later.</translation>
    </message>
    <message id="restClientConnectionLost">
        <source>Связь с сервером %1 прервалась. Повторите.</source>
        <translation>The connection to server %1 was lost. Try again.</translation>
    </message>
    <message id="restClientAnswerTooLarge">
        <source>Ответ сервера %1 слишком велик и не принят. Обратитесь к администратору.</source>
        <translation>The answer of server %1 was too large and was not accepted. Call the administrator.</translation>
    </message>
    <message id="restClientAnswerNotUnderstood">
        <source>Ответ сервера %1 не разобран. Повторите; если не поможет, обратитесь к администратору.</source>
        <translation>The answer of server %1 was not understood. Try again; if that does not help, call the administrator.</translation>
    </message>
    <message id="restClientRedirectRefused">
        <source>Сервер %1 отослал запрос на адрес, которому нельзя доверять. Обратитесь к администратору.</source>
        <translation>Server %1 sent the request on to an address that cannot be trusted. Call the administrator.</translation>
    </message>
    <message id="restClientTooManyRedirects">
        <source>Сервер %1 слишком много раз отослал запрос на другой адрес. Обратитесь к администратору.</source>
        <translation>Server %1 sent the request on to another address too many times. Call the administrator.</translation>
    </message>
    <message id="restClientStopped">
        <source>Запрос прекращён кассиром. На сервере %1 ничего не изменено, запрос можно повторить.</source>
        <translation>The cashier stopped the request. Nothing was changed on server %1; the request can be sent again.</translation>
    </message>
    <message id="restClientTimedOutUncertain">
        <source>Сервер %1 не ответил вовремя. Запрос мог быть выполнен: прежде чем повторять, проверьте, выполнен ли он.</source>
        <translation>Server %1 did not answer in time. The request may have been carried out: check before you try again.</translation>
    </message>
    <message id="restClientStoppedUncertain">
        <source>Кассир не стал ждать ответа сервера %1. Запрос мог быть выполнен: прежде чем повторять, проверьте, выполнен ли он.</source>
        <translation>The cashier did not wait for the answer of server %1. The request may have been carried out: check before you try again.</translation>
    </message>
    <message id="restClientConnectionLostUncertain">
        <source>Связь с сервером %1 прервалась до конца ответа. Запрос мог быть выполнен: прежде чем повторять, проверьте, выполнен ли он.</source>
        <translation>The connection to server %1 was lost before the answer was complete. The request may have been carried out: check before you try again.</translation>
    </message>
    <message id="restClientAnswerTooLargeUncertain">
        <source>Ответ сервера %1 слишком велик и не принят. Запрос мог быть выполнен: прежде чем повторять, проверьте, выполнен ли он, и обратитесь к администратору.</source>
        <translation>The answer of server %1 was too large and was not accepted. The request may have been carried out: check before you try again, and call the administrator.</translation>
    </message>
    <message id="restClientAnswerNotUnderstoodUncertain">
        <source>Ответ сервера %1 не разобран. Запрос мог быть выполнен: прежде чем повторять, проверьте, выполнен ли он.</source>
        <translation>The answer of server %1 was not understood. The request may have been carried out: check before you try again.</translation>
    </message>
    <message id="restClientFailedUncertain">
        <source>Запрос к серверу %1 не завершён. Запрос мог быть выполнен: прежде чем повторять, проверьте, выполнен ли он.</source>
        <translation>The request to server %1 was not completed. It may have been carried out: check before you try again.</translation>
    </message>
    <message id="restClientStatusRedirect">
        <source>Сервер %1 отослал запрос на другой адрес (ответ %2). Обратитесь к администратору: проверить нужно адрес сервера.</source>
        <translation>Server %1 sent the request on to another address (answer %2). Call the administrator to check the server’s address.</translation>
    </message>
    <message id="restClientStatusUnauthorized">
        <source>Сервер %1 не принял учётные данные аптеки (ответ %2). Повторите; если не поможет, обратитесь к администратору.</source>
        <translation>Server %1 did not accept the pharmacy’s credentials (answer %2). Try again; if that does not help, call the administrator.</translation>
    </message>
    <message id="restClientStatusForbidden">
        <source>Сервер %1 отказал в доступе (ответ %2). Обратитесь к администратору: проверить нужно настройки доступа.</source>
        <translation>Server %1 refused access (answer %2). Call the administrator to check the access configuration.</translation>
    </message>
    <message id="restClientStatusNotFound">
        <source>Сервер %1 не нашёл запрошенное (ответ %2). Проверьте введённые данные и повторите.</source>
        <translation>Server %1 did not find what was asked for (answer %2). Check what you entered and try again.</translation>
    </message>
    <message id="restClientStatusTimeout">
        <source>Сервер %1 не дождался запроса (ответ %2). Повторите.</source>
        <translation>Server %1 did not receive the request in time (answer %2). Try again.</translation>
    </message>
    <message id="restClientStatusTooManyRequests">
        <source>Сервер %1 принял слишком много запросов (ответ %2). Подождите минуту и повторите.</source>
        <translation>Server %1 has had too many requests (answer %2). Wait a minute and try again.</translation>
    </message>
    <message id="restClientStatusRejected">
        <source>Сервер %1 отклонил запрос (ответ %2). Проверьте введённые данные; если они верны, обратитесь к администратору.</source>
        <translation>Server %1 rejected the request (answer %2). Check what you entered; if it is right, call the administrator.</translation>
    </message>
    <message id="restClientStatusUnavailable">
        <source>Сервер %1 временно недоступен (ответ %2). Повторите позже.</source>
        <translation>Server %1 is not available at the moment (answer %2). Try again later.</translation>
    </message>
    <message id="restClientStatusServerError">
        <source>На сервере %1 произошла ошибка (ответ %2). Повторите позже; если не поможет, обратитесь к администратору.</source>
        <translation>An error occurred on server %1 (answer %2). Try again later; if that does not help, call the administrator.</translation>
    </message>
    <message id="restClientStatusServerErrorUncertain">
        <source>На сервере %1 произошла ошибка (ответ %2). Запрос мог быть выполнен: прежде чем повторять, проверьте, выполнен ли он.</source>
        <translation>An error occurred on server %1 (answer %2). The request may have been carried out: check before you try again.</translation>
    </message>
    <message id="restClientStatusGatewayUncertain">
        <source>Сервер %1 не дождался ответа от внутренней службы (ответ %2). Запрос мог быть выполнен: прежде чем повторять, проверьте, выполнен ли он.</source>
        <translation>Server %1 got no answer from a service behind it (answer %2). The request may have been carried out: check before you try again.</translation>
    </message>
    <message id="formUnknownError">
        <source>Нет формы для события %1.
Обратитесь к администратору: проверить нужно модули кассы.</source>
        <translation>There is no form for event %1.
Call the administrator to check the register’s plug-ins.</translation>
    </message>
    <message id="formUiMissing">
        <source>файла нет</source>
        <translation>the file does not exist</translation>
    </message>
    <message id="formUiLoadError">
        <source>Не удалось загрузить форму «%1»: %2
Обратитесь к администратору: проверить нужно папки форм в настройках.</source>
        <translation>Form “%1” could not be loaded: %2
Call the administrator to check the layout folders in the configuration.</translation>
    </message>
    <message id="formUiWidgetNotFoundError">
        <source>Не найден виджет %1</source>
        <translation>Widget %1 is missing</translation>
    </message>
    <message id="formUiWidgetCastError">
        <source>Ошибка загрузки виджета '%1'. Не удалось '%2' привести к типу '%3'</source>
        <translation>Widget “%1” could not be loaded. “%2” is not a “%3”</translation>
    </message>
    <message id="messageFormErrorTitle">
        <source>Ошибка</source>
        <translation>Error</translation>
    </message>
    <message id="messageFormNoticeTitle">
        <source>Сообщение</source>
        <translation>Notice</translation>
    </message>
    <message id="messageFormErrorWithoutText">
        <source>Произошла ошибка, её причина не названа. Повторите действие. Если ошибка повторится, обратитесь к администратору.</source>
        <translation>An error occurred, and its cause was not given. Try again. If it happens again, call the administrator.</translation>
    </message>
    <message id="messageFormNoticeWithoutText">
        <source>Пришло сообщение без текста. Можно работать дальше.</source>
        <translation>A message without text arrived. You can go on working.</translation>
    </message>
    <message id="messageFormText">
        <source>Текст сообщения</source>
        <translation>Message text</translation>
    </message>
    <message id="messageFormOkButton">
        <source>ОК</source>
        <translation>OK</translation>
    </message>
    <message id="keyboardBackspace">
        <source>Стереть символ</source>
        <translation>Backspace</translation>
    </message>
    <message id="keyboardEnter">
        <source>Ввод</source>
        <translation>Enter</translation>
    </message>
    <message id="keyboardShift">
        <source>Заглавные буквы</source>
        <translation>Capital letters</translation>
    </message>
    <message id="keyboardSpace">
        <source>Пробел</source>
        <translation>Space</translation>
    </message>
    <message id="keyboardLayout">
        <source>Сменить раскладку</source>
        <translation>Switch layout</translation>
    </message>
    <message id="keyboardName">
        <source>Экранная клавиатура</source>
        <translation>On-screen keyboard</translation>
    </message>
    <message id="inputTextFormOkBtn">
        <source>ОК</source>
        <translation>OK</translation>
    </message>
    <message id="inputTextFormCancelBtn">
        <source>Отмена</source>
        <translation>Cancel</translation>
    </message>
    <message id="inputTextFormScanError">
        <source>Ошибка разбора введенных данных, повторите сканирование</source>
        <translation>The scan could not be read; scan again</translation>
    </message>
    <message id="inputTextFormScanRefused">
        <source>Штрихкод не принят: это значение вводят вручную</source>
        <translation>Barcode not accepted: this value has to be typed</translation>
    </message>
    <message id="inputTextFormIncomplete">
        <source>Введите значение полностью</source>
        <translation>Type the whole value</translation>
    </message>
    <message id="inputTextFormWrong">
        <source>Введено неверно, исправьте значение</source>
        <translation>This is not valid; correct it</translation>
    </message>
    <message id="inputTextFormEmpty">
        <source>Поле пустое. Введите или отсканируйте значение</source>
        <translation>The field is empty. Type or scan a value</translation>
    </message>
    <message id="databaseErrorWithoutReason">
        <source>причина не названа</source>
        <translation>no reason was given</translation>
    </message>
    <message id="databaseServerSilent">
        <source>сервер не ответил за %1 с</source>
        <translation>the server did not answer within %1 s</translation>
    </message>
    <message id="databaseColumnMissing">
        <source>нет столбца %1</source>
        <translation>column %1 is missing</translation>
    </message>
    <message id="configNotReadable">
        <source>Настройки в файле %1 не прочитаны.
Обратитесь к администратору.</source>
        <translation>The configuration file %1 could not be read.
Call the administrator.</translation>
    </message>
    <message id="jsonFileNotReadable">
        <source>Файл %1 не читается: %2
Обратитесь к администратору.</source>
        <translation>File %1 cannot be read: %2
Call the administrator.</translation>
    </message>
    <message id="jsonFileDamaged">
        <source>Файл %1 повреждён.
Обратитесь к администратору.</source>
        <translation>File %1 is damaged.
Call the administrator.</translation>
    </message>
    <message id="helpEnterKey">
        <source>Ввод</source>
        <translation>Enter</translation>
    </message>
    <message id="helpTextInputEnter">
        <source>принять введённое</source>
        <translation>accept what you typed</translation>
    </message>
    <message id="helpTextInputEsc">
        <source>отказаться от ввода</source>
        <translation>leave without typing anything</translation>
    </message>
    <message id="helpTextInputNext">
        <source>Введите значение и примите его: касса продолжит работу с ним.</source>
        <translation>Type the value and accept it: the register goes on with it.</translation>
    </message>
    <message id="helpMessageEnter">
        <source>закрыть сообщение</source>
        <translation>close the message</translation>
    </message>
    <message id="helpMessageEsc">
        <source>закрыть сообщение</source>
        <translation>close the message</translation>
    </message>
    <message id="helpMessageNext">
        <source>Прочитайте сообщение и закройте его: касса продолжит с того же места.</source>
        <translation>Read the message and close it: the register goes on where it was.</translation>
    </message>
    <message id="databaseDriverMissing">
        <source>нет драйвера %1</source>
        <translation>there is no driver %1</translation>
    </message>
    <message id="formPageUp">
        <source>На страницу вверх</source>
        <translation>Page up</translation>
    </message>
    <message id="formScrollUp">
        <source>Вверх</source>
        <translation>Up</translation>
    </message>
    <message id="formScrollDown">
        <source>Вниз</source>
        <translation>Down</translation>
    </message>
    <message id="formPageDown">
        <source>На страницу вниз</source>
        <translation>Page down</translation>
    </message>
    <message id="databaseWaiting">
        <source>Связь с базой данных</source>
        <translation>Connecting to the database</translation>
    </message>
    <message id="databaseKeyMissing">
        <source>%1 не задано в настройках</source>
        <translation>%1 is not set in the configuration</translation>
    </message>
</context>
</TS>
