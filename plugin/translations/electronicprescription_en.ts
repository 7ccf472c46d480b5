<?xml version="1.0" encoding="utf-8"?>
<!-- SPDX-License-Identifier: MIT -->
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="ru">
<context>
    <name></name>
    <message id="inputCardTitle">
        <source>Ввод карты</source>
        <translation>Patient’s card</translation>
    </message>
    <message id="electronicPrescriptionInputCard">
        <source>Введите номер карты</source>
        <translation>Type the card number</translation>
    </message>
    <message id="electronicPrescriptionProcessMessage">
        <source>Обращение к сервису электронных рецептов</source>
        <translation>Contacting the electronic prescription service</translation>
    </message>
    <message id="electronicPrescriptionTokenStep">
        <source>Вход в сервис электронных рецептов</source>
        <translation>Logging in to the electronic prescription service</translation>
    </message>
    <message id="electronicPrescriptionLookUpStep">
        <source>Поиск рецептов по карте</source>
        <translation>Looking up the card’s prescriptions</translation>
    </message>
    <message id="electronicPrescriptionLookUpStopped">
        <source>Поиск рецептов прекращён кассиром. В реестре ничего не изменено. Чтобы начать поиск снова, дайте команду ещё раз.</source>
        <translation>The cashier stopped the look-up. Nothing was changed in the registry. To look again, give the command again.</translation>
    </message>
    <message id="electronicPrescriptionRegistrationStep">
        <source>Регистрация отпуска %1 из %2. Рецепт %3, товар: %4</source>
        <translation>Registering dispense %1 of %2. Prescription %3, goods: %4</translation>
    </message>
    <message id="electronicPrescriptionCancellationStep">
        <source>Отмена отпуска. Рецепт %1, товар: %2</source>
        <translation>Cancelling a dispense. Prescription %1, goods: %2</translation>
    </message>
    <message id="electronicPrescriptionRegistrationUnknown">
        <source>Неизвестно, записан ли в реестре этот отпуск; чек не закрыт. Записано до него: %1 из %2. Не повторяйте подытог, пока администратор не проверит этот рецепт в реестре: повтор может записать отпуск второй раз.</source>
        <translation>It is not known whether the registry recorded this dispense; the document is not closed. Registered before it: %1 of %2. Do not repeat the subtotal before the administrator has checked this prescription in the registry: the dispense could be registered twice.</translation>
    </message>
    <message id="electronicPrescriptionRegistrationToBeSettled">
        <source>Неизвестно, записан ли в реестре этот отпуск; чек не закрыт. Записано до него: %1 из %2. Повторите команду: касса сначала спросит реестр и не запишет отпуск второй раз.</source>
        <translation>Nobody knows whether the registry holds this dispense; the document is not closed. Registered before it: %1 of %2. Repeat the command: the register asks the registry first, and does not register the dispense twice.</translation>
    </message>
    <message id="electronicPrescriptionRegistrationNotDone">
        <source>Реестр не подтвердил этот отпуск; чек не закрыт. Записано до него: %1 из %2, повторно они не отправляются. Когда причина устранена, повторите подытог.</source>
        <translation>The registry did not confirm this dispense; the document is not closed. Registered before it: %1 of %2; they are not sent again. When the cause is fixed, repeat the subtotal.</translation>
    </message>
    <message id="electronicPrescriptionCancellationUnknown">
        <source>Неизвестно, отменён ли этот отпуск в реестре. Прежде чем повторять, попросите администратора проверить этот рецепт в реестре.</source>
        <translation>It is not known whether this dispense was cancelled in the registry. Before you try again, ask the administrator to check this prescription in the registry.</translation>
    </message>
    <message id="electronicPrescriptionCancellationToBeSettled">
        <source>Реестр не подтвердил отмену. Когда причина устранена, повторите команду: касса сначала спросит реестр, отменён ли этот отпуск.</source>
        <translation>The registry has not confirmed the cancellation. When the cause is removed, repeat the command: the register first asks the registry whether the dispense is cancelled.</translation>
    </message>
    <message id="electronicPrescriptionCancellationNotDone">
        <source>Реестр не подтвердил отмену; касса по-прежнему считает отпуск записанным. Если реестр пишет, что отпуск уже отменён, позовите администратора; иначе повторите, когда причина устранена.</source>
        <translation>The registry did not confirm the cancellation; the register still counts the dispense as registered. If the registry says that the dispense is already cancelled, call the administrator; otherwise try again when the cause is fixed.</translation>
    </message>
    <message id="electronicPrescriptionNoPrescriptionsError">
        <source>Рецепты не найдены</source>
        <translation>No prescriptions found</translation>
    </message>
    <message id="inputTextFormScanError">
        <source>Ошибка разбора введенных данных, повторите сканирование</source>
        <translation>The scan could not be read; scan again</translation>
    </message>
    <message id="inputTextFormOkBtn">
        <source>ОК</source>
        <translation>OK</translation>
    </message>
    <message id="inputTextFormCancelBtn">
        <source>Отмена</source>
        <translation>Cancel</translation>
    </message>
    <message id="electronicPrescriptionChoiceFormCancelButton">
        <source>Назад</source>
        <translation>Back</translation>
    </message>
    <message id="electronicPrescriptionChoiceFormOkButton">
        <source>Выбрать</source>
        <translation>Choose</translation>
    </message>
    <message id="electronicPrescriptionChoiceFormTitle">
        <source>Выбор рецепта</source>
        <translation>Choose a prescription</translation>
    </message>
    <message id="electronicPrescriptionChoiceFormTradeNameLabel">
        <source>Торговое наименование:</source>
        <translation>Trade name:</translation>
    </message>
    <message id="electronicPrescriptionChoiceFormPatientNameLabel">
        <source>ФИО пациента:</source>
        <translation>Patient:</translation>
    </message>
    <message id="electronicPrescriptionChoiceFormPatientBirthdayLabel">
        <source>Дата рождения пациента:</source>
        <translation>Patient’s date of birth:</translation>
    </message>
    <message id="electronicPrescriptionChoiceFormPractitionerNameLabel">
        <source>ФИО врача:</source>
        <translation>Doctor:</translation>
    </message>
    <message id="electronicPrescriptionChoiceFormOrganizationLabel">
        <source>Организация:</source>
        <translation>Organization:</translation>
    </message>
    <message id="electronicPrescriptionChoiceFormFilter">
        <source>Поиск по МНН</source>
        <translation>Search by INN</translation>
    </message>
    <message id="electronicPrescriptionChoiceFormNoMatch">
        <source>Нет рецептов, где МНН содержит «%1». Измените поиск.</source>
        <translation>No prescription has “%1” in its INN. Change the search.</translation>
    </message>
    <message id="electronicPrescriptionChoiceFormTable">
        <source>Рецепты пациента</source>
        <translation>Patient’s prescriptions</translation>
    </message>
    <message id="electronicPrescriptionChoiceFormDetails">
        <source>Сведения о рецепте</source>
        <translation>Prescription details</translation>
    </message>
    <message id="electronicPrescriptionChoiceFormKeyboard">
        <source>Клавиатура</source>
        <translation>Keyboard</translation>
    </message>
    <message id="electronicPrescriptionChoiceFormInn">
        <source>МНН</source>
        <translation>INN</translation>
    </message>
    <message id="electronicPrescriptionChoiceFormInnCode">
        <source>Код</source>
        <translation>Code</translation>
    </message>
    <message id="electronicPrescriptionChoiceFormPrescriptionDate">
        <source>Дата
выписки</source>
        <translation>Date
written</translation>
    </message>
    <message id="electronicPrescriptionChoiceFormDoseQuantity">
        <source>Выписано
доз</source>
        <translation>Doses
prescribed</translation>
    </message>
    <message id="electronicPrescriptionChoiceFormDispensedDoseQuantity">
        <source>Отпущено
доз</source>
        <translation>Doses
dispensed</translation>
    </message>
    <message id="electronicPrescriptionConfirmDispenseFormCancelButton">
        <source>Отмена</source>
        <translation>Cancel</translation>
    </message>
    <message id="electronicPrescriptionConfirmDispenseFormCompleteDispenseButton">
        <source>Полностью</source>
        <translation>In full</translation>
    </message>
    <message id="electronicPrescriptionConfirmDispenseFormPartDispenseButton">
        <source>Частично</source>
        <translation>In part</translation>
    </message>
    <message id="electronicPrescriptionConfirmDispenseFormTitle">
        <source>Подтверждение отпуска по рецепту</source>
        <translation>Confirm the dispense</translation>
    </message>
    <message id="electronicPrescriptionConfirmDispenseFormConfirmDispenseLabel">
        <source>Лекарственный препарат по рецепту на
'%1'
отпущен</source>
        <translation>The medicine prescribed as
“%1”
has been dispensed</translation>
    </message>
    <message id="electronicPrescriptionConfirmDispenseFormPrescribedDoses">
        <source>Выписано доз: %1
Отпущено ранее: %2</source>
        <translation>Doses prescribed: %1
Dispensed before: %2</translation>
    </message>
    <message id="electronicPrescriptionConfirmDispenseFormChoiceHint">
        <source>Выберите ответ стрелкой и нажмите «Ввод»</source>
        <translation>Choose an answer with an arrow key and press Enter</translation>
    </message>
    <message id="electronicPrescriptionFormCancelButton">
        <source>Назад</source>
        <translation>Back</translation>
    </message>
    <message id="electronicPrescriptionFormChooseButton">
        <source>Подобрать</source>
        <translation>Choose goods</translation>
    </message>
    <message id="electronicPrescriptionFormTitle">
        <source>Электронный рецепт</source>
        <translation>Electronic prescription</translation>
    </message>
    <message id="electronicPrescriptionFormInnLabel">
        <source>МНН:</source>
        <translation>INN:</translation>
    </message>
    <message id="electronicPrescriptionFormInnCodeLabel">
        <source>Код для МНН:</source>
        <translation>INN code:</translation>
    </message>
    <message id="electronicPrescriptionFormMedicineDictCodeLabel">
        <source>Код справочника
АИС «ЭЛЕКТРОННЫЙ РЕЦЕПТ»:</source>
        <translation>Code in the dictionary of
AIS “ELECTRONIC PRESCRIPTION”:</translation>
    </message>
    <message id="electronicPrescriptionFormMedicineDictNameLabel">
        <source>Наименование справочника
АИС «ЭЛЕКТРОННЫЙ РЕЦЕПТ»:</source>
        <translation>Name in the dictionary of
AIS “ELECTRONIC PRESCRIPTION”:</translation>
    </message>
    <message id="electronicPrescriptionFormTradeNameLabel">
        <source>Торговое наименование:</source>
        <translation>Trade name:</translation>
    </message>
    <message id="electronicPrescriptionFormTradeNameCodeLabel">
        <source>Код для торгового наименования:</source>
        <translation>Trade name code:</translation>
    </message>
    <message id="electronicPrescriptionFormPrescribedByInnOrTradeNameLabel">
        <source>Рецепт выписан по:</source>
        <translation>Prescribed by:</translation>
    </message>
    <message id="electronicPrescriptionFormPatientNameLabel">
        <source>ФИО пациента:</source>
        <translation>Patient:</translation>
    </message>
    <message id="electronicPrescriptionFormPatientBirthdayLabel">
        <source>Дата рождения пациента:</source>
        <translation>Patient’s date of birth:</translation>
    </message>
    <message id="electronicPrescriptionFormPrescriptionDateLabel">
        <source>Дата выписки рецепта:</source>
        <translation>Date written:</translation>
    </message>
    <message id="electronicPrescriptionFormExpirationDateLabel">
        <source>Срок действия рецепта:</source>
        <translation>Valid until:</translation>
    </message>
    <message id="electronicPrescriptionFormPractitionerNameLabel">
        <source>ФИО врача:</source>
        <translation>Doctor:</translation>
    </message>
    <message id="electronicPrescriptionFormDigitalSignatureLabel">
        <source>Рецепт подписан ЭЦП:</source>
        <translation>Digitally signed:</translation>
    </message>
    <message id="electronicPrescriptionFormDiscountLabel">
        <source>Процент льготы:</source>
        <translation>Benefit:</translation>
    </message>
    <message id="electronicPrescriptionFormOrganizationLabel">
        <source>Организация:</source>
        <translation>Organization:</translation>
    </message>
    <message id="electronicPrescriptionFormDoseQuantityLabel">
        <source>Количество выписанных доз:</source>
        <translation>Doses prescribed:</translation>
    </message>
    <message id="electronicPrescriptionFormDispensedDoseQuantityLabel">
        <source>Количество отпущенных доз:</source>
        <translation>Doses dispensed:</translation>
    </message>
    <message id="electronicPrescriptionFormInstructionsLabel">
        <source>Инструкция по применению:</source>
        <translation>Directions:</translation>
    </message>
    <message id="electronicPrescriptionFormMedicationDispenseDatesLabel">
        <source>Даты отпуска препарата по рецепту:</source>
        <translation>Dispensed on:</translation>
    </message>
    <message id="electronicPrescriptionFormDetails">
        <source>Сведения о рецепте</source>
        <translation>Prescription details</translation>
    </message>
    <message id="electronicPrescriptionFormPrescribedByInn">
        <source>МНН</source>
        <translation>INN</translation>
    </message>
    <message id="electronicPrescriptionFormPrescribedByTradeName">
        <source>Торговому наименованию</source>
        <translation>Trade name</translation>
    </message>
    <message id="electronicPrescriptionFormDigitalSignatureYes">
        <source>Да</source>
        <translation>Yes</translation>
    </message>
    <message id="electronicPrescriptionFormDigitalSignatureNo">
        <source>Нет</source>
        <translation>No</translation>
    </message>
    <message id="electronicPrescriptionFormExpired">
        <source>Срок действия истёк</source>
        <translation>The prescription has expired</translation>
    </message>
    <message id="electronicPrescriptionInputDispensedDoseQuantityFormTitle">
        <source>Ввод количества отпущенных доз</source>
        <translation>Doses dispensed</translation>
    </message>
    <message id="electronicPrescriptionInputDispensedDoseQuantityFormMessage">
        <source>Введите количество отпущенных доз по рецепту на
'%1 / %2'
(выписано %3/отпущено ранее %4)</source>
        <translation>Type the number of doses dispensed for the prescription of
“%1 / %2”
(prescribed %3, dispensed before %4)</translation>
    </message>
    <message id="electronicPrescriptionInputDispensedDoseQuantityError">
        <source>Введено некорректное количество доз
Повторите ввод</source>
        <translation>The number of doses is not valid
Type it again</translation>
    </message>
    <message id="electronicPrescriptionAuthorizationTokenError">
        <source>Ошибка при получении токена для авторизации</source>
        <translation>The authorization token could not be obtained</translation>
    </message>
    <message id="electronicPrescriptionDispenseError">
        <source>Ошибка при отпуске лекарственного препарата по рецепту</source>
        <translation>The dispense could not be registered</translation>
    </message>
    <message id="electronicPrescriptionCancelError">
        <source>Ошибка при отмене отпуска лекарственного препарата по рецепту</source>
        <translation>The dispense could not be cancelled</translation>
    </message>
    <message id="electronicPrescriptionGetPrescriptionsError">
        <source>Ошибка при получении списка рецептов</source>
        <translation>The list of prescriptions could not be obtained</translation>
    </message>
    <message id="electronicPrescriptionMark">
        <source>ЭР</source>
        <translation>eRx</translation>
    </message>
    <message id="electronicPrescriptionMarkDescription">
        <source>Электронный рецепт</source>
        <translation>Electronic prescription</translation>
    </message>
    <message id="electronicPrescriptionMarkOrigin">
        <source>по рецепту</source>
        <translation>for a prescription</translation>
    </message>
    <message id="electronicPrescriptionStateNotRegistered">
        <source>не зарегистрирован</source>
        <translation>not registered</translation>
    </message>
    <message id="electronicPrescriptionStateRegistered">
        <source>зарегистрирован</source>
        <translation>registered</translation>
    </message>
    <message id="electronicPrescriptionDispenseUndoing">
        <source>Отпуск будет отменён.</source>
        <translation>The dispense will be cancelled.</translation>
    </message>
    <message id="electronicPrescriptionStateDispenseCancelled">
        <source>отпуск отменён</source>
        <translation>dispense cancelled</translation>
    </message>
    <message id="electronicPrescriptionReceiptDiscount">
        <source>Скидка по рецепту</source>
        <translation>Prescription benefit</translation>
    </message>
    <message id="electronicPrescriptionReceiptDoses">
        <source>Отпущено доз</source>
        <translation>Doses dispensed</translation>
    </message>
    <message id="electronicPrescriptionReceiptOrganization">
        <source>Организация</source>
        <translation>Organization</translation>
    </message>
    <message id="electronicPrescriptionReceiptSerialNumber">
        <source>Рецепт</source>
        <translation>Prescription</translation>
    </message>
    <message id="electronicPrescriptionDocumentCard">
        <source>Карта</source>
        <translation>Card</translation>
    </message>
    <message id="electronicPrescriptionHelpBack">
        <source>назад</source>
        <translation>back</translation>
    </message>
    <message id="electronicPrescriptionHelpChoiceRow">
        <source>выбрать рецепт</source>
        <translation>choose a prescription</translation>
    </message>
    <message id="electronicPrescriptionHelpChoiceEnter">
        <source>открыть выбранный рецепт</source>
        <translation>open the chosen prescription</translation>
    </message>
    <message id="electronicPrescriptionHelpChoiceNext">
        <source>Выберите рецепт; чтобы сузить список, введите часть МНН. Затем касса покажет сведения о рецепте.</source>
        <translation>Choose a prescription; type part of the INN to shorten the list. The register then shows its details.</translation>
    </message>
    <message id="electronicPrescriptionHelpDetailsEnter">
        <source>подобрать товар по рецепту</source>
        <translation>choose goods for the prescription</translation>
    </message>
    <message id="electronicPrescriptionHelpDetailsScroll">
        <source>прокрутить сведения</source>
        <translation>scroll the details</translation>
    </message>
    <message id="electronicPrescriptionHelpDetailsNext">
        <source>Сверьте рецепт с пациентом. Затем подберите товар и введите отпущенные дозы.</source>
        <translation>Compare the prescription with the patient. Then choose the goods and enter the doses dispensed.</translation>
    </message>
    <message id="electronicPrescriptionHelpDetailsReadOnly">
        <source>Этот рецепт можно только посмотреть: товар по нему не подбирают.</source>
        <translation>You can only look at this prescription: no goods are chosen for it.</translation>
    </message>
    <message id="electronicPrescriptionHelpConfirmationArrows">
        <source>выбрать «Частично» или «Полностью»</source>
        <translation>choose “In part” or “In full”</translation>
    </message>
    <message id="electronicPrescriptionHelpConfirmationEnter">
        <source>подтвердить выбранное</source>
        <translation>confirm your choice</translation>
    </message>
    <message id="electronicPrescriptionHelpConfirmationNext">
        <source>«Полностью» закрывает рецепт: остаток доз больше не отпустить. «Частично» оставляет его открытым.</source>
        <translation>“In full” closes the prescription: no more doses can be dispensed. “In part” leaves it open.</translation>
    </message>
    <message id="electronicPrescriptionDosesHint">
        <source>Число больше 0, не больше двух знаков после запятой или точки</source>
        <translation>A number above 0 with at most two decimals, after a comma or a point</translation>
    </message>
</context>
</TS>
