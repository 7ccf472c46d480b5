<?xml version="1.0" encoding="utf-8"?>
<!-- SPDX-License-Identifier: MIT -->
<!DOCTYPE TS>
<TS version="2.1" language="ru" sourcelanguage="en">
<context>
    <name></name>
    <message id="doctorNotReached">
        <source>not checked, since "%1" failed</source>
        <translation>не проверено: не прошла проверка «%1»</translation>
    </message>
    <message id="doctorTimeIsUp">
        <source>not checked: the time limit of %1 s is over</source>
        <translation>не проверено: истекли отведённые %1 с</translation>
    </message>
    <message id="doctorTimeIsUpAdvice">
        <source>Look at the slow steps above, or allow more with --time-limit.</source>
        <translation>Посмотрите, какие шаги выше долгие, или дайте больше времени: --time-limit.</translation>
    </message>
    <message id="doctorSettingsGood">
        <source>has everything that the plug-in needs</source>
        <translation>есть всё, что нужно модулю</translation>
    </message>
    <message id="doctorSettingsUnreadable">
        <source>cannot be read: %1</source>
        <translation>не читается: %1</translation>
    </message>
    <message id="doctorSettingsUnreadableAdvice">
        <source>Name the INI file of the till with --config.</source>
        <translation>Укажите INI-файл кассы в --config.</translation>
    </message>
    <message id="doctorSettingWrong">
        <source>%1</source>
        <translation>%1</translation>
    </message>
    <message id="doctorSettingWrongAdvice">
        <source>Correct this in the configuration.</source>
        <translation>Исправьте это в настройках.</translation>
    </message>
    <message id="doctorSettingMissing">
        <source>%1 is missing or empty</source>
        <translation>%1 не указан или пуст</translation>
    </message>
    <message id="doctorSettingMissingAdvice">
        <source>Set %1. Addresses, client, secret and organization identifier come from the operator of the registry.</source>
        <translation>Укажите %1. Адреса, клиента, секрет и идентификатор организации сообщает оператор реестра.</translation>
    </message>
    <message id="doctorPluginOff">
        <source>[plugins] pharmacy is not true: the plug-in is switched off</source>
        <translation>[plugins] pharmacy не равен true: модуль выключен</translation>
    </message>
    <message id="doctorPluginOffAdvice">
        <source>Set it to true.</source>
        <translation>Укажите true.</translation>
    </message>
    <message id="doctorAddressWithUser">
        <source>%1 has a user name or a password: the till sends nothing there</source>
        <translation>в %1 есть имя пользователя или пароль: касса ничего туда не отправит</translation>
    </message>
    <message id="doctorAddressWithUserAdvice">
        <source>Remove everything before the @ of %1.</source>
        <translation>Уберите из %1 всё до знака @.</translation>
    </message>
    <message id="doctorNameFound">
        <source>%2</source>
        <translation>%2</translation>
    </message>
    <message id="doctorNameFoundIpv6Only">
        <source>%2 (IPv6 only)</source>
        <translation>%2 (только IPv6)</translation>
    </message>
    <message id="doctorNameIsAddress">
        <source>an address: there is no name to look up</source>
        <translation>это адрес, искать имя не нужно</translation>
    </message>
    <message id="doctorNameNotFound">
        <source>the name %1 is not found</source>
        <translation>имя %1 не найдено</translation>
    </message>
    <message id="doctorNameNotFoundAdvice">
        <source>Can the name servers that the till asks resolve %1? If nobody's can, compare the name with what the operator of the registry gave.</source>
        <translation>Могут ли серверы имён, к которым обращается касса, найти %1? Если его не находит никто, сверьте имя с тем, что сообщил оператор реестра.</translation>
    </message>
    <message id="doctorNameServerSilent">
        <source>no name server answered in time</source>
        <translation>ни один сервер имён не ответил вовремя</translation>
    </message>
    <message id="doctorNameServerSilentAdvice">
        <source>Which name servers is the till to ask, and does the network let it (port 53)?</source>
        <translation>К каким серверам имён должна обращаться касса, и пропускает ли их сеть (порт 53)?</translation>
    </message>
    <message id="doctorConnectionMade">
        <source>connected to %3</source>
        <translation>соединение с %3</translation>
    </message>
    <message id="doctorConnectionRefused">
        <source>nothing accepts connections at port %2</source>
        <translation>на порту %2 никто не принимает соединений</translation>
    </message>
    <message id="doctorConnectionRefusedAdvice">
        <source>Nothing accepts our connections at %1, port %2. Is this the right address, and is the service running?</source>
        <translation>На %1, порт %2, никто не принимает наших соединений. Верен ли адрес и работает ли служба?</translation>
    </message>
    <message id="doctorConnectionSilent">
        <source>no answer in time: a firewall may drop the packets</source>
        <translation>вовремя нет ответа: возможно, пакеты отбрасывает межсетевой экран</translation>
    </message>
    <message id="doctorConnectionSilentAdvice">
        <source>Please let the till connect to %1, TCP port %2.</source>
        <translation>Разрешите кассе соединения с %1, порт TCP %2.</translation>
    </message>
    <message id="doctorConnectionIpv6Only">
        <source>cannot be reached: %1 has IPv6 addresses only</source>
        <translation>недоступен: у %1 есть только адреса IPv6</translation>
    </message>
    <message id="doctorConnectionIpv6OnlyAdvice">
        <source>Please give the till a route to IPv6. Without one, the operator of the registry has to offer %1 over IPv4.</source>
        <translation>Дайте кассе выход в IPv6. Если это невозможно, оператор реестра должен открыть %1 по IPv4.</translation>
    </message>
    <message id="doctorConnectionUnreachable">
        <source>cannot be reached: %3</source>
        <translation>недоступен: %3</translation>
    </message>
    <message id="doctorConnectionUnreachableAdvice">
        <source>Please let the till reach %1, TCP port %2.</source>
        <translation>Разрешите кассе доступ к %1, порт TCP %2.</translation>
    </message>
    <message id="doctorProxyUnusable">
        <source>the proxy does not connect: %3</source>
        <translation>прокси не соединяет: %3</translation>
    </message>
    <message id="doctorProxyUnusableAdvice">
        <source>Is the address in [RestClient] proxy right, and may the till reach %1, port %2, through this proxy?</source>
        <translation>Верен ли адрес в [RestClient] proxy и может ли касса через этот прокси обращаться к %1, порт %2?</translation>
    </message>
    <message id="doctorTlsGood">
        <source>%3, the certificate is valid for %5 days, until %4</source>
        <translation>%3, сертификат действует ещё %5 дн., до %4</translation>
    </message>
    <message id="doctorTlsEndsSoon">
        <source>%3, but the certificate ends in %5 days, on %4</source>
        <translation>%3, но сертификат закончится через %5 дн., %4</translation>
    </message>
    <message id="doctorTlsEndsSoonAdvice">
        <source>The certificate of %1, port %2, ends on %4. When will it be replaced, and will the same authority sign the new one?</source>
        <translation>Сертификат %1, порт %2, заканчивается %4. Когда его заменят и подпишет ли новый тот же центр?</translation>
    </message>
    <message id="doctorTlsNotNeeded">
        <source>not used: http on this machine</source>
        <translation>не нужен: http на этой же машине</translation>
    </message>
    <message id="doctorTlsNotUsed">
        <source>not used: over http everyone on the way can read the secret and the cards</source>
        <translation>не используется: по http секрет и карты может прочитать любой на пути</translation>
    </message>
    <message id="doctorTlsNotUsedAdvice">
        <source>What is the https address of %1?</source>
        <translation>Какой адрес https у %1?</translation>
    </message>
    <message id="doctorCertificateExpired">
        <source>the certificate ended on %3; by the till's clock it is %4</source>
        <translation>сертификат закончился %3; по часам кассы сегодня %4</translation>
    </message>
    <message id="doctorCertificateExpiredAdvice">
        <source>The certificate of %1, port %2, ended on %3. Please install a new one.</source>
        <translation>Сертификат %1, порт %2, закончился %3. Установите новый.</translation>
    </message>
    <message id="doctorCertificateNotYetValid">
        <source>the certificate begins on %3; by the till's clock it is %4</source>
        <translation>сертификат действует с %3; по часам кассы сегодня %4</translation>
    </message>
    <message id="doctorCertificateNotYetValidAdvice">
        <source>Is the till's date right? If it is, the operator of the registry has to know: the certificate of %1, port %2, is valid from %3 only.</source>
        <translation>Верна ли дата на кассе? Если верна, сообщите оператору реестра: сертификат %1, порт %2, действует только с %3.</translation>
    </message>
    <message id="doctorCertificateOtherHost">
        <source>the certificate is for another host: %3</source>
        <translation>сертификат выдан на другое имя: %3</translation>
    </message>
    <message id="doctorCertificateOtherHostAdvice">
        <source>Does the address have the host name that the operator of the registry gave? If it does, tell the operator: the certificate of %1, port %2, is for %3.</source>
        <translation>То ли имя сервера в адресе, которое сообщил оператор реестра? Если то, напишите ему: сертификат %1, порт %2, выдан на %3.</translation>
    </message>
    <message id="doctorCertificateUnknownAuthority">
        <source>the system does not know the authority that signed: %3</source>
        <translation>система не знает центра, который подписал: %3</translation>
    </message>
    <message id="doctorCertificateUnknownAuthorityAdvice">
        <source>The certificate that we see at %1, port %2, is signed by %3. Is that yours? If it is, please send the authority's certificate as a PEM file, for [RestClient] caFile, and see that your server sends its whole chain. If it is not, something in our own network opens the connection.</source>
        <translation>Сертификат, который мы видим на %1, порт %2, подписан: %3. Это ваш центр? Если да, пришлите его сертификат в файле PEM для [RestClient] caFile и проверьте, что сервер присылает всю цепочку. Если нет, соединение вскрывает что-то в нашей сети.</translation>
    </message>
    <message id="doctorCertificateOtherAuthority">
        <source>not signed by an authority of [RestClient] caFile, but by %3</source>
        <translation>подписан не центром из [RestClient] caFile, а другим: %3</translation>
    </message>
    <message id="doctorCertificateOtherAuthorityAdvice">
        <source>The certificate that we see at %1, port %2, is signed by %3. Has your authority changed, or does your server not send its whole chain? Please send the authority's certificate as a PEM file.</source>
        <translation>Сертификат, который мы видим на %1, порт %2, подписан: %3. Не сменился ли ваш центр и присылает ли сервер всю цепочку? Пришлите сертификат центра в файле PEM.</translation>
    </message>
    <message id="doctorCertificateRefused">
        <source>the certificate is refused: %3</source>
        <translation>сертификат не принят: %3</translation>
    </message>
    <message id="doctorCertificateRefusedAdvice">
        <source>The certificate of %1, port %2, does not pass verification: %3. Please correct it.</source>
        <translation>Сертификат %1, порт %2, не проходит проверку: %3. Исправьте его.</translation>
    </message>
    <message id="doctorAuthoritiesUnreadable">
        <source>the file of [RestClient] caFile holds no certificates that can be read</source>
        <translation>в файле из [RestClient] caFile нет сертификатов, которые можно прочитать</translation>
    </message>
    <message id="doctorAuthoritiesUnreadableAdvice">
        <source>Name the PEM file of the registry's authority, and let the till's account read it.</source>
        <translation>Укажите файл PEM с сертификатом центра реестра и дайте учётной записи кассы читать его.</translation>
    </message>
    <message id="doctorTlsNotSpoken">
        <source>the address says https, but port %2 does not speak TLS</source>
        <translation>в адресе https, но порт %2 не говорит на TLS</translation>
    </message>
    <message id="doctorTlsNotSpokenAdvice">
        <source>Compare scheme and port of the address with what the operator of the registry gave.</source>
        <translation>Сверьте схему и порт адреса с тем, что сообщил оператор реестра.</translation>
    </message>
    <message id="doctorTlsClosed">
        <source>the server closes the connection before TLS is set up</source>
        <translation>сервер закрывает соединение прежде, чем установлен TLS</translation>
    </message>
    <message id="doctorTlsClosedAdvice">
        <source>%1, port %2, closes our connection during the TLS handshake. Our till speaks TLS 1.2 and 1.3. Is our address admitted?</source>
        <translation>%1, порт %2, закрывает наше соединение при установке TLS. Касса говорит на TLS 1.2 и 1.3. Допущен ли наш адрес?</translation>
    </message>
    <message id="doctorTlsSilent">
        <source>the server accepts the connection, but does not set up TLS in time</source>
        <translation>сервер принимает соединение, но вовремя не устанавливает TLS</translation>
    </message>
    <message id="doctorTlsSilentAdvice">
        <source>%1, port %2, accepts our connection, but does not answer the TLS handshake. Is the service running?</source>
        <translation>%1, порт %2, принимает наше соединение, но не отвечает при установке TLS. Работает ли служба?</translation>
    </message>
    <message id="doctorTlsFailed">
        <source>TLS cannot be set up: %3</source>
        <translation>TLS не устанавливается: %3</translation>
    </message>
    <message id="doctorTlsFailedAdvice">
        <source>TLS with %1, port %2, cannot be set up: %3. Our till speaks TLS 1.2 and 1.3.</source>
        <translation>TLS с %1, порт %2, не устанавливается: %3. Касса говорит на TLS 1.2 и 1.3.</translation>
    </message>
    <message id="doctorAnswerGood">
        <source>HTTP, status %3</source>
        <translation>HTTP, статус %3</translation>
    </message>
    <message id="doctorAnswerSilent">
        <source>the server accepts the connection, but does not answer in time</source>
        <translation>сервер принимает соединение, но вовремя не отвечает</translation>
    </message>
    <message id="doctorAnswerSilentAdvice">
        <source>%1, port %2, accepts our connection, but does not answer requests. Is the service running?</source>
        <translation>%1, порт %2, принимает наше соединение, но не отвечает на запросы. Работает ли служба?</translation>
    </message>
    <message id="doctorAnswerClosed">
        <source>the server closes the connection without an answer</source>
        <translation>сервер закрывает соединение без ответа</translation>
    </message>
    <message id="doctorAnswerClosedAdvice">
        <source>%1, port %2, closes our connection without an answer. Is the service running, and is our address admitted?</source>
        <translation>%1, порт %2, закрывает наше соединение без ответа. Работает ли служба и допущен ли наш адрес?</translation>
    </message>
    <message id="doctorAnswerExpectsTls">
        <source>the address says http, but port %2 speaks TLS</source>
        <translation>в адресе http, но порт %2 говорит на TLS</translation>
    </message>
    <message id="doctorAnswerExpectsTlsAdvice">
        <source>Write https in the address.</source>
        <translation>Укажите в адресе https.</translation>
    </message>
    <message id="doctorAnswerNotHttp">
        <source>something answers, but not in HTTP</source>
        <translation>что-то отвечает, но не по HTTP</translation>
    </message>
    <message id="doctorAnswerNotHttpAdvice">
        <source>Compare host and port of the address with what the operator of the registry gave.</source>
        <translation>Сверьте имя и порт адреса с тем, что сообщил оператор реестра.</translation>
    </message>
    <message id="doctorAnswerElsewhere">
        <source>the answer leads to %3: a sign-in page is in front of the registry</source>
        <translation>ответ ведёт на %3: перед реестром стоит страница входа</translation>
    </message>
    <message id="doctorAnswerElsewhereAdvice">
        <source>Please let the till reach %1, port %2, without a sign-in page or portal.</source>
        <translation>Пропускайте кассу к %1, порт %2, без страницы входа и портала.</translation>
    </message>
    <message id="doctorAnswerLeadsToHttps">
        <source>the address says http, and the server sends to https</source>
        <translation>в адресе http, а сервер отсылает на https</translation>
    </message>
    <message id="doctorAnswerLeadsToHttpsAdvice">
        <source>Write https in the address.</source>
        <translation>Укажите в адресе https.</translation>
    </message>
    <message id="doctorAnswerPage">
        <source>a web page answers in the place of the registry</source>
        <translation>вместо реестра отвечает веб-страница</translation>
    </message>
    <message id="doctorAnswerPageAdvice">
        <source>Does a proxy or a filter answer for %1, port %2? Please let the till through. If there is none, compare the address with what the operator of the registry gave.</source>
        <translation>Отвечает ли за %1, порт %2, прокси или фильтр? Пропустите кассу. Если такого нет, сверьте адрес с тем, что сообщил оператор реестра.</translation>
    </message>
    <message id="doctorAnswerProxyLogin">
        <source>a proxy wants a user name and a password</source>
        <translation>прокси требует имя пользователя и пароль</translation>
    </message>
    <message id="doctorAnswerProxyLoginAdvice">
        <source>Please let the till reach %1, port %2, without them.</source>
        <translation>Пропускайте кассу к %1, порт %2, без них.</translation>
    </message>
    <message id="doctorAnswerUnavailable">
        <source>the service is not available (status %3)</source>
        <translation>служба недоступна (статус %3)</translation>
    </message>
    <message id="doctorAnswerUnavailableAdvice">
        <source>%1, port %2, answers with status %3. When will the service be back?</source>
        <translation>%1, порт %2, отвечает статусом %3. Когда служба заработает?</translation>
    </message>
    <message id="doctorClockGood">
        <source>till and server are %1 apart</source>
        <translation>касса и сервер расходятся на %1</translation>
    </message>
    <message id="doctorClockUnknown">
        <source>not checked: the server does not say what time it is</source>
        <translation>не проверено: сервер не сообщает, который час</translation>
    </message>
    <message id="doctorClockDrifts">
        <source>till and server are %1 apart</source>
        <translation>касса и сервер расходятся на %1</translation>
    </message>
    <message id="doctorClockDriftsAdvice">
        <source>Let the till take its time from a time server (NTP).</source>
        <translation>Пусть касса берёт время с сервера времени (NTP).</translation>
    </message>
    <message id="doctorClockAhead">
        <source>the till's clock is %1 ahead of the server's</source>
        <translation>часы кассы спешат относительно сервера на %1</translation>
    </message>
    <message id="doctorClockAheadAdvice">
        <source>Set the date and the time of the till, and let it take them from a time server (NTP).</source>
        <translation>Установите на кассе дату и время, и пусть она берёт их с сервера времени (NTP).</translation>
    </message>
    <message id="doctorClockBehind">
        <source>the till's clock is %1 behind the server's</source>
        <translation>часы кассы отстают от сервера на %1</translation>
    </message>
    <message id="doctorClockBehindAdvice">
        <source>Set the date and the time of the till, and let it take them from a time server (NTP).</source>
        <translation>Установите на кассе дату и время, и пусть она берёт их с сервера времени (NTP).</translation>
    </message>
    <message id="doctorTokenGood">
        <source>granted</source>
        <translation>выдан</translation>
    </message>
    <message id="doctorTokenSettingsMissing">
        <source>not checked: clientId or clientSecret is missing</source>
        <translation>не проверено: не указан clientId или clientSecret</translation>
    </message>
    <message id="doctorTokenOaisFirst">
        <source>not checked: the registry stops at the OAIS token</source>
        <translation>не проверено: реестр остановился на токене ОАИС</translation>
    </message>
    <message id="doctorClientRefused">
        <source>the registry refuses client or secret: %2</source>
        <translation>реестр не принимает клиента или секрет: %2</translation>
    </message>
    <message id="doctorClientRefusedAdvice">
        <source>Our token request to %1 is refused: %2. Is our client registered, and is its secret still valid? (First compare clientId and clientSecret with what you sent us.)</source>
        <translation>Наш запрос токена к %1 отклонён: %2. Зарегистрирован ли наш клиент и действует ли его секрет? (Сначала сверьте clientId и clientSecret с тем, что вам прислали.)</translation>
    </message>
    <message id="doctorOrganizationRefused">
        <source>the registry refuses the organization: %2</source>
        <translation>реестр не принимает организацию: %2</translation>
    </message>
    <message id="doctorOrganizationRefusedAdvice">
        <source>Our token request to %1 is refused: %2. For which organization identifier may our client act? (First compare organizationIdentifier with what you sent us.)</source>
        <translation>Наш запрос токена к %1 отклонён: %2. От имени какой организации может работать наш клиент? (Сначала сверьте organizationIdentifier с тем, что вам прислали.)</translation>
    </message>
    <message id="doctorScopeRefused">
        <source>the registry refuses the scope: %2</source>
        <translation>реестр не принимает область доступа: %2</translation>
    </message>
    <message id="doctorScopeRefusedAdvice">
        <source>Our token request to %1 is refused: %2. Which scopes does our client have?</source>
        <translation>Наш запрос токена к %1 отклонён: %2. Какие области доступа есть у нашего клиента?</translation>
    </message>
    <message id="doctorScopeNotGranted">
        <source>granted, but without the scope %2</source>
        <translation>выдан, но без области доступа %2</translation>
    </message>
    <message id="doctorScopeNotGrantedAdvice">
        <source>%1 grants our client a token without the scope %2. Please add it.</source>
        <translation>%1 выдаёт нашему клиенту токен без области доступа %2. Добавьте её.</translation>
    </message>
    <message id="doctorTokenRequestRefused">
        <source>the registry refuses the token request: %2</source>
        <translation>реестр отклоняет запрос токена: %2</translation>
    </message>
    <message id="doctorTokenRequestRefusedAdvice">
        <source>Our token request (client credentials, RFC 6749, 4.4) to %1 is refused: %2. What does it lack?</source>
        <translation>Наш запрос токена (client credentials, RFC 6749, 4.4) к %1 отклонён: %2. Чего в нём не хватает?</translation>
    </message>
    <message id="doctorTokenPathUnknown">
        <source>there is no token service under [ElectronicPrescription] authorizationUrl</source>
        <translation>под [ElectronicPrescription] authorizationUrl нет службы токенов</translation>
    </message>
    <message id="doctorTokenPathUnknownAdvice">
        <source>%1 does not know the path of our token request. Under which address does /connect/token lie?</source>
        <translation>%1 не знает пути нашего запроса токена. По какому адресу находится /connect/token?</translation>
    </message>
    <message id="doctorTokenNotJson">
        <source>the answer to the token request is no JSON</source>
        <translation>ответ на запрос токена не является JSON</translation>
    </message>
    <message id="doctorTokenNotJsonAdvice">
        <source>%1 answers our token request with status 200, but not in JSON. Does the service work?</source>
        <translation>%1 отвечает на наш запрос токена со статусом 200, но не в JSON. Работает ли служба?</translation>
    </message>
    <message id="doctorTokenMissing">
        <source>the answer to the token request has no access_token</source>
        <translation>в ответе на запрос токена нет access_token</translation>
    </message>
    <message id="doctorTokenMissingAdvice">
        <source>%1 answers our token request with JSON that has no access_token. Does the service work?</source>
        <translation>%1 отвечает на наш запрос токена в JSON, но без access_token. Работает ли служба?</translation>
    </message>
    <message id="doctorOaisGood">
        <source>not refused with the token request</source>
        <translation>не отклонён с запросом токена</translation>
    </message>
    <message id="doctorOaisNotUsed">
        <source>none configured, none asked for</source>
        <translation>не указан, и реестр его не требует</translation>
    </message>
    <message id="doctorOaisMissing">
        <source>none configured, but the registry wants one: %2</source>
        <translation>не указан, но реестр его требует: %2</translation>
    </message>
    <message id="doctorOaisMissingAdvice">
        <source>%1 refuses our request: %2. Please send us an OAIS token.</source>
        <translation>%1 отклоняет наш запрос: %2. Пришлите нам токен ОАИС.</translation>
    </message>
    <message id="doctorOaisRefused">
        <source>refused: %2</source>
        <translation>отклонён: %2</translation>
    </message>
    <message id="doctorOaisRefusedAdvice">
        <source>%1 refuses our OAIS token: %2. Is it still valid? (First compare oais with what you sent us.)</source>
        <translation>%1 отклоняет наш токен ОАИС: %2. Действует ли он ещё? (Сначала сверьте oais с тем, что вам прислали.)</translation>
    </message>
    <message id="doctorCardGood">
        <source>prescriptions found: %2</source>
        <translation>найдено рецептов: %2</translation>
    </message>
    <message id="doctorCardWithoutPrescriptions">
        <source>known, without active prescriptions</source>
        <translation>известна, действующих рецептов нет</translation>
    </message>
    <message id="doctorCardNotGiven">
        <source>not checked: name a test card with --card</source>
        <translation>не проверено: укажите пробную карту в --card</translation>
    </message>
    <message id="doctorCardUnknown">
        <source>the registry does not know this card</source>
        <translation>реестр не знает этой карты</translation>
    </message>
    <message id="doctorCardUnknownAdvice">
        <source>%1 does not know our test card. Which test cards are there?</source>
        <translation>%1 не знает нашей пробной карты. Какие пробные карты есть?</translation>
    </message>
    <message id="doctorCardPathUnknown">
        <source>there is no registry under [ElectronicPrescription] requestsUrl</source>
        <translation>под [ElectronicPrescription] requestsUrl нет реестра</translation>
    </message>
    <message id="doctorCardPathUnknownAdvice">
        <source>%1 does not know the path of our request. Under which address does /MedicationPrescription/$by-card lie?</source>
        <translation>%1 не знает пути нашего запроса. По какому адресу находится /MedicationPrescription/$by-card?</translation>
    </message>
    <message id="doctorCardScopeMissing">
        <source>the registry forbids the look-up: the token lacks a scope</source>
        <translation>реестр запрещает поиск: у токена нет нужной области доступа</translation>
    </message>
    <message id="doctorCardScopeMissingAdvice">
        <source>%1 answers our look-up of prescriptions with status 403. Which scope does it need, and does our client have it?</source>
        <translation>%1 отвечает на наш поиск рецептов статусом 403. Какая область доступа для него нужна и есть ли она у нашего клиента?</translation>
    </message>
    <message id="doctorCardTokenRefused">
        <source>the registry refuses the token that it has just granted</source>
        <translation>реестр не принимает токен, который только что выдан</translation>
    </message>
    <message id="doctorCardTokenRefusedAdvice">
        <source>%1 refuses a token that your authorization server has just granted. Do the two belong together?</source>
        <translation>%1 не принимает токен, который только что выдал ваш сервер авторизации. Относятся ли они друг к другу?</translation>
    </message>
    <message id="doctorCardOaisRefused">
        <source>the registry refuses the look-up for its OAIS token</source>
        <translation>реестр отклоняет поиск из-за токена ОАИС</translation>
    </message>
    <message id="doctorCardOaisRefusedAdvice">
        <source>%1 refuses our look-up of prescriptions for its OAIS token. Which token is our pharmacy to use?</source>
        <translation>%1 отклоняет наш поиск рецептов из-за токена ОАИС. Какой токен должна указывать наша аптека?</translation>
    </message>
    <message id="doctorCardRefused">
        <source>the registry refuses the look-up (status %2)</source>
        <translation>реестр отклоняет поиск (статус %2)</translation>
    </message>
    <message id="doctorCardRefusedAdvice">
        <source>%1 answers our look-up of prescriptions by card with status %2. Why?</source>
        <translation>%1 отвечает на наш поиск рецептов по карте статусом %2. Почему?</translation>
    </message>
    <message id="doctorCardAnswerUnusable">
        <source>the answer is no Bundle with prescriptions</source>
        <translation>ответ не является списком рецептов (Bundle)</translation>
    </message>
    <message id="doctorCardAnswerUnusableAdvice">
        <source>%1 answers our look-up of prescriptions by card, but not with a Bundle. Does the service work?</source>
        <translation>%1 отвечает на наш поиск рецептов по карте, но не ресурсом Bundle. Работает ли служба?</translation>
    </message>
    <message id="doctorRequestElsewhere">
        <source>the request is sent elsewhere: something is in front of the registry</source>
        <translation>запрос отсылают на другой адрес: перед реестром что-то стоит</translation>
    </message>
    <message id="doctorRequestElsewhereAdvice">
        <source>Please let the till reach %1 without a portal or a proxy in between.</source>
        <translation>Пропускайте кассу к %1 без портала и прокси на пути.</translation>
    </message>
    <message id="doctorRequestFailed">
        <source>the request fails; the till shows: %2</source>
        <translation>запрос не удался; касса показывает: %2</translation>
    </message>
    <message id="doctorRequestFailedAdvice">
        <source>Does something between the till and %1 end connections or hold answers back?</source>
        <translation>Не обрывает ли соединения и не задерживает ли ответы что-то между кассой и %1?</translation>
    </message>
    <message id="doctorRegistryBusy">
        <source>the registry has had too many requests (status 429)</source>
        <translation>реестр получил слишком много запросов (статус 429)</translation>
    </message>
    <message id="doctorRegistryBusyAdvice">
        <source>%1 answers with status 429. How many requests may our tills send?</source>
        <translation>%1 отвечает статусом 429. Сколько запросов могут отправлять наши кассы?</translation>
    </message>
    <message id="doctorRegistryUnavailable">
        <source>the registry fails (status %2)</source>
        <translation>реестр не справляется (статус %2)</translation>
    </message>
    <message id="doctorRegistryUnavailableAdvice">
        <source>%1 answers with status %2. When will the service be back?</source>
        <translation>%1 отвечает статусом %2. Когда служба заработает?</translation>
    </message>
    <message id="doctorSeconds">
        <source>%1 s</source>
        <translation>%1 с</translation>
    </message>
    <message id="doctorDays">
        <source>%1 d</source>
        <translation>%1 д</translation>
    </message>
    <message id="doctorHours">
        <source>%1 h</source>
        <translation>%1 ч</translation>
    </message>
    <message id="doctorMinutes">
        <source>%1 min</source>
        <translation>%1 мин</translation>
    </message>
    <message id="doctorStateGood">
        <source>OK</source>
        <translation>ОК</translation>
    </message>
    <message id="doctorStateWarning">
        <source>WARNING</source>
        <translation>ВНИМАНИЕ</translation>
    </message>
    <message id="doctorStateWrong">
        <source>WRONG</source>
        <translation>ОШИБКА</translation>
    </message>
    <message id="doctorStateNotChecked">
        <source>--</source>
        <translation>--</translation>
    </message>
    <message id="doctorKindNone">
        <source>all well</source>
        <translation>всё в порядке</translation>
    </message>
    <message id="doctorKindConfiguration">
        <source>configuration</source>
        <translation>настройки</translation>
    </message>
    <message id="doctorKindNetwork">
        <source>network</source>
        <translation>сеть</translation>
    </message>
    <message id="doctorKindTls">
        <source>TLS</source>
        <translation>TLS</translation>
    </message>
    <message id="doctorKindClock">
        <source>clock</source>
        <translation>часы</translation>
    </message>
    <message id="doctorKindCredentials">
        <source>credentials</source>
        <translation>доступ</translation>
    </message>
    <message id="doctorKindRegistry">
        <source>the answer of the registry</source>
        <translation>ответ реестра</translation>
    </message>
    <message id="doctorAskNobody">
        <source>Nobody is to be asked</source>
        <translation>Спрашивать никого не нужно</translation>
    </message>
    <message id="doctorAskIntegrator">
        <source>For the integrator, who wrote the configuration</source>
        <translation>Интегратору, который писал настройки</translation>
    </message>
    <message id="doctorAskNetworkAdministrator">
        <source>Ask the network administrator</source>
        <translation>Спросите администратора сети</translation>
    </message>
    <message id="doctorAskTillAdministrator">
        <source>For the administrator of the till</source>
        <translation>Администратору кассы</translation>
    </message>
    <message id="doctorAskOperator">
        <source>Write to the operator of the registry</source>
        <translation>Напишите оператору реестра</translation>
    </message>
    <message id="doctorMilliseconds">
        <source>%1 ms</source>
        <translation>%1 мс</translation>
    </message>
    <message id="doctorSummary">
        <source>Good: %1, warnings: %2, wrong: %3, not checked: %4. Exit status %5: %6.</source>
        <translation>В порядке: %1, предупреждений: %2, ошибок: %3, не проверено: %4. Статус завершения %5: %6.</translation>
    </message>
</context>
</TS>
