<?xml version="1.0" encoding="utf-8"?>
<!-- SPDX-License-Identifier: MIT -->
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="ru">
<context>
    <name></name>
    <message id="keyNewReceipt">
        <source>Новый чек</source>
        <translation>New sale</translation>
    </message>
    <message id="keyGoods">
        <source>Товар</source>
        <translation>Goods</translation>
    </message>
    <message id="keyQuantity">
        <source>Количество</source>
        <translation>Quantity</translation>
    </message>
    <message id="keyRemove">
        <source>Удалить</source>
        <translation>Remove</translation>
    </message>
    <message id="goodsFileRefused">
        <source>Новый файл справочника товаров не читается: %1
Работа продолжается со старым. Замените файл или позовите администратора.</source>
        <translation>The new goods catalogue file cannot be read: %1
The register keeps using the old one. Replace the file or call the administrator.</translation>
    </message>
    <message id="goodsCatalogueBack">
        <source>Справочник товаров снова доступен</source>
        <translation>The goods catalogue is available again</translation>
    </message>
    <message id="goodsCatalogueBeingRead">
        <source>Читается справочник товаров</source>
        <translation>Reading the goods catalogue</translation>
    </message>
    <message id="goodsReadingStopped">
        <source>Чтение справочника товаров прекращено кассиром. Чтобы прочитать его, дайте команду ещё раз.</source>
        <translation>The cashier stopped the reading of the goods catalogue. To read it, give the command again.</translation>
    </message>
    <message id="goodsCatalogueUnreadable">
        <source>Справочник товаров недоступен: %1
Проверьте базу данных товаров и повторите или позовите администратора.</source>
        <translation>The goods catalogue is not available: %1
Check the goods database and try again, or call the administrator.</translation>
    </message>
    <message id="printedTaxpayer">
        <source>УНП %1</source>
        <translation>Taxpayer number %1</translation>
    </message>
    <message id="printedSale">
        <source>ЧЕК № %1</source>
        <translation>RECEIPT No. %1</translation>
    </message>
    <message id="printedTakeBack">
        <source>ВОЗВРАТ № %1 по чеку № %2</source>
        <translation>RETURN No. %1 of receipt No. %2</translation>
    </message>
    <message id="printedSumWithoutBenefit">
        <source>Сумма без льготы</source>
        <translation>Total without benefit</translation>
    </message>
    <message id="printedBenefit">
        <source>Льгота</source>
        <translation>Benefit</translation>
    </message>
    <message id="printedTotal">
        <source>ИТОГО</source>
        <translation>TOTAL</translation>
    </message>
    <message id="printedBenefitInAll">
        <source>Льгота всего</source>
        <translation>Total benefit</translation>
    </message>
    <message id="printedPaidOut">
        <source>Выдано</source>
        <translation>Paid out</translation>
    </message>
    <message id="printedReceived">
        <source>Получено наличными</source>
        <translation>Cash received</translation>
    </message>
    <message id="printedChange">
        <source>Сдача</source>
        <translation>Change</translation>
    </message>
    <message id="receiptNotPrinted">
        <source>Чек № %1 не напечатан: %2
Сам чек сохранён. Освободите место на диске или проверьте доступ к папке данных, затем напечатайте его из списка документов.</source>
        <translation>Receipt No. %1 was not printed: %2
The document itself is saved. Free some disk space or check access to the data folder, then print the receipt from the list of documents.</translation>
    </message>
    <message id="receiptWithoutPlugin">
        <source>Чек № %1 пока не печатается: %2, и на чеке не было бы сведений об отпуске.
Позовите администратора. Предложите покупателю подождать или зайти за чеком позже: когда модуль заработает, напечатайте чек из списка документов.</source>
        <translation>Receipt No. %1 cannot be printed yet: %2, and the receipt would lack what was dispensed.
Call the administrator. Ask the customer to wait or to come back for the receipt: once the plug-in works, print it from the list of documents.</translation>
    </message>
    <message id="pluginEndedByItself">
        <source>завершил работу из-за внутренней ошибки. Перезапустите кассу</source>
        <translation>ended because of an internal error. Restart the register</translation>
    </message>
    <message id="reportNotPrinted">
        <source>Отчёт «%1» не напечатан: %2
Освободите место на диске или проверьте доступ к папке данных и повторите действие.</source>
        <translation>The report “%1” was not printed: %2
Free disk space or check access to the data folder, then do it again.</translation>
    </message>
    <message id="goodsSelectionTitle">
        <source>Подбор товара</source>
        <translation>Choose goods</translation>
    </message>
    <message id="goodsSelectionPacks">
        <source>Упаковок:</source>
        <translation>Packs:</translation>
    </message>
    <message id="goodsSelectionOk">
        <source>Выбрать</source>
        <translation>Choose</translation>
    </message>
    <message id="goodsSelectionCancel">
        <source>Назад</source>
        <translation>Back</translation>
    </message>
    <message id="goodsSelectionFilterHint">
        <source>Название, МНН или штрихкод</source>
        <translation>Name, INN or barcode</translation>
    </message>
    <message id="goodsSelectionFilter">
        <source>Поиск товара</source>
        <translation>Search goods</translation>
    </message>
    <message id="goodsSelectionPacksField">
        <source>Количество упаковок</source>
        <translation>Number of packs</translation>
    </message>
    <message id="goodsSelectionFewer">
        <source>На упаковку меньше</source>
        <translation>One pack fewer</translation>
    </message>
    <message id="goodsSelectionMore">
        <source>На упаковку больше</source>
        <translation>One pack more</translation>
    </message>
    <message id="goodsSelectionTable">
        <source>Товары</source>
        <translation>Goods</translation>
    </message>
    <message id="goodsSelectionNothing">
        <source>Нет товара для выбора. Вернитесь назад.</source>
        <translation>There are no goods to choose from. Go back.</translation>
    </message>
    <message id="goodsSelectionNotFound">
        <source>По запросу «%1» ничего не найдено. Измените строку поиска.</source>
        <translation>Nothing was found for “%1”. Change the search.</translation>
    </message>
    <message id="goodsSelectionPacksMissing">
        <source>Введите целое количество упаковок от 1 до %1.</source>
        <translation>Type a whole number of packs from 1 to %1.</translation>
    </message>
    <message id="goodsColumnName">
        <source>Наименование</source>
        <translation>Name</translation>
    </message>
    <message id="goodsColumnNonProprietaryName">
        <source>МНН</source>
        <translation>INN</translation>
    </message>
    <message id="goodsColumnPrice">
        <source>Цена</source>
        <translation>Price</translation>
    </message>
    <message id="goodsColumnStock">
        <source>Остаток</source>
        <translation>Stock</translation>
    </message>
    <message id="goodsNoPrice">
        <source>нет цены</source>
        <translation>no price</translation>
    </message>
    <message id="goodsNotSoldCataloguePrice">
        <source>Товар «%1» не продаётся.
Его цена по каталогу: %2.
%3</source>
        <translation>“%1” cannot be sold.
Its catalogue price: %2.
%3</translation>
    </message>
    <message id="goodsNotSoldMinRetailPrice">
        <source>Товар «%1» не продаётся.
Его наименьшая цена: %2.
%3</source>
        <translation>“%1” cannot be sold.
Its lowest price: %2.
%3</translation>
    </message>
    <message id="goodsNotSoldNext">
        <source>Выберите другой товар или позовите администратора: цену исправляют в базе товаров.</source>
        <translation>Choose other goods or call the administrator: prices are corrected in the goods database.</translation>
    </message>
    <message id="goodsNotSoldPrice">
        <source>Товар «%1» не продаётся.
Его цена: %2.
%3</source>
        <translation>“%1” cannot be sold.
Its price: %2.
%3</translation>
    </message>
    <message id="goodsPriceMissing">
        <source>не указана</source>
        <translation>not given</translation>
    </message>
    <message id="goodsPriceNegative">
        <source>%1 — меньше нуля</source>
        <translation>%1 is below zero</translation>
    </message>
    <message id="goodsPriceNoNumber">
        <source>«%1» — не число</source>
        <translation>“%1” is not a number</translation>
    </message>
    <message id="goodsPriceTooFine">
        <source>%1 — больше двух знаков после запятой</source>
        <translation>%1 has more than two decimals</translation>
    </message>
    <message id="goodsPriceTooGreat">
        <source>%1 — больше 100 000 000</source>
        <translation>%1 is more than 100 000 000</translation>
    </message>
    <message id="goodsPriceZero">
        <source>%1 — не больше нуля</source>
        <translation>%1 is not above zero</translation>
    </message>
    <message id="barcodeOfSeveralGoods">
        <source>Штрихкод %1 есть у нескольких товаров. Выберите нужный.</source>
        <translation>Several goods have the barcode %1. Choose the right one.</translation>
    </message>
    <message id="beyondStockQuestion">
        <source>На остатке %1 уп., а в чеке будет %2:
%3
Всё равно продать?</source>
        <translation>There are %1 packs in stock, and the document will have %2:
%3
Sell them anyway?</translation>
    </message>
    <message id="beyondStockTitle">
        <source>Больше, чем на остатке</source>
        <translation>More than is in stock</translation>
    </message>
    <message id="manyPacksQuestion">
        <source>В чеке будет %1 уп. товара:
%2
Количество верное?</source>
        <translation>The document will have %1 packs of:
%2
Is that right?</translation>
    </message>
    <message id="manyPacksTitle">
        <source>Много упаковок</source>
        <translation>Many packs</translation>
    </message>
    <message id="manyPacksYes">
        <source>Верное</source>
        <translation>Yes, that is right</translation>
    </message>
    <message id="goodsOutOfStock">
        <source>нет</source>
        <translation>none</translation>
    </message>
    <message id="lockTitle">
        <source>Касса заблокирована</source>
        <translation>The register is locked</translation>
    </message>
    <message id="lockCode">
        <source>Код кассира</source>
        <translation>Cashier’s code</translation>
    </message>
    <message id="lockUnlock">
        <source>Разблокировать</source>
        <translation>Unlock</translation>
    </message>
    <message id="lockEnterCode">
        <source>Введите код кассира</source>
        <translation>Type the cashier’s code</translation>
    </message>
    <message id="lockPressKey">
        <source>Нажмите любую клавишу или коснитесь экрана</source>
        <translation>Press any key or touch the screen</translation>
    </message>
    <message id="lockWrongCode">
        <source>Код не подходит. Введите ещё раз.</source>
        <translation>Wrong code. Type it again.</translation>
    </message>
    <message id="lockWrongCodeLayout">
        <source>Код не подходит. Проверьте раскладку клавиатуры и введите ещё раз.</source>
        <translation>Wrong code. Check the keyboard layout and type it again.</translation>
    </message>
    <message id="lockWrongCodeWait">
        <source>Код не подходит. Следующая попытка через %1 с.</source>
        <translation>Wrong code. You can try again in %1 s.</translation>
    </message>
    <message id="lockWrongCodeLayoutWait">
        <source>Код не подходит. Проверьте раскладку клавиатуры. Следующая попытка через %1 с.</source>
        <translation>Wrong code. Check the keyboard layout. You can try again in %1 s.</translation>
    </message>
    <message id="lockWait">
        <source>Неверный код вводили много раз. Следующая попытка через %1 с.</source>
        <translation>The wrong code was typed too many times. You can try again in %1 s.</translation>
    </message>
    <message id="lockRefusesClosing">
        <source>Касса заблокирована. Введите код кассира, затем закройте окно.</source>
        <translation>The register is locked. Type the cashier’s code, then close the window.</translation>
    </message>
    <message id="pluginFolderMissing">
        <source>нет такой папки. Проверьте параметр --plugins</source>
        <translation>the folder does not exist. Check the option --plugins</translation>
    </message>
    <message id="pluginForeign">
        <source>это не модуль кассы. Уберите файл из папки модулей</source>
        <translation>this is not a plug-in for the register. Remove the file from the plug-in folder</translation>
    </message>
    <message id="pluginOtherVersion">
        <source>модуль собран для интерфейса модулей версии %1, а у кассы версия %2. Установите модуль, собранный для этой кассы</source>
        <translation>the plug-in was built for version %1 of the plug-in interface, and the register has version %2. Install a plug-in that was built for this register</translation>
    </message>
    <message id="pluginNotLoaded">
        <source>библиотека не загружается. Переустановите модуль</source>
        <translation>the library cannot be loaded. Reinstall the plug-in</translation>
    </message>
    <message id="pluginTwice">
        <source>модуль с таким именем уже подключён. Оставьте в папке модулей один</source>
        <translation>a plug-in of this name is already connected. Keep only one in the plug-in folder</translation>
    </message>
    <message id="pluginFailed">
        <source>внутренняя ошибка модуля. Обратитесь в службу поддержки</source>
        <translation>internal error in the plug-in. Call support</translation>
    </message>
    <message id="pluginEnded">
        <source>Модуль «%1» завершил работу из-за внутренней ошибки.
Перезапустите кассу.</source>
        <translation>Plug-in “%1” stopped after an internal error.
Restart the register.</translation>
    </message>
    <message id="pluginEventFailed">
        <source>Сбой модуля «%1». %2</source>
        <translation>Plug-in “%1” failed. %2</translation>
    </message>
    <message id="documentGone">
        <source>Чек уже не открыт: модуль закрыл его во время действия.
Проверьте чек в списке документов.</source>
        <translation>The document is no longer open: a plug-in closed it during the action.
Check it in the list of documents.</translation>
    </message>
    <message id="receiptAlreadyOpen">
        <source>Чек № %1 уже открыт.
Завершите или отложите его, чтобы открыть следующий.</source>
        <translation>Sale No. %1 is already open.
Finish or suspend it to open the next one.</translation>
    </message>
    <message id="changeQuantityTitle">
        <source>Количество</source>
        <translation>Quantity</translation>
    </message>
    <message id="changeQuantityMessage">
        <source>Сколько упаковок?
%1</source>
        <translation>How many packs?
%1</translation>
    </message>
    <message id="keyNeedsReceipt">
        <source>«%1» работает при открытом чеке.
Откройте чек и повторите.</source>
        <translation>“%1” needs an open document.
Open one and try again.</translation>
    </message>
    <message id="keyNeedsPlugin">
        <source>«%1» сейчас недоступно: нет подключённого модуля, который это умеет.
Обратитесь к администратору.</source>
        <translation>“%1” is not available: no connected plug-in can do it.
Call the administrator.</translation>
    </message>
    <message id="keyNeedsNoReceipt">
        <source>«%1» работает, когда чек не открыт.
Завершите или отложите чек и повторите.</source>
        <translation>“%1” works only while no document is open.
Finish or suspend the open one and try again.</translation>
    </message>
    <message id="keyNeedsDocuments">
        <source>«%1» работает в списке документов.
Откройте его через меню и повторите.</source>
        <translation>“%1” works in the list of documents.
Open it from the menu and try again.</translation>
    </message>
    <message id="menuNeedsNoReceipt">
        <source>открыт чек</source>
        <translation>a document is open</translation>
    </message>
    <message id="menuNeedsDocuments">
        <source>только в списке документов</source>
        <translation>only in the list of documents</translation>
    </message>
    <message id="pluginCommandInReturn">
        <source>Открыт возврат, а эта команда действует только в продаже.
Завершите возврат, откройте чек и повторите.</source>
        <translation>A return is open, and this command works only in a sale.
Finish the return, open a sale and try again.</translation>
    </message>
    <message id="menuOnlyInSales">
        <source>только в продаже</source>
        <translation>only in a sale</translation>
    </message>
    <message id="positionNotChosen">
        <source>Сначала выберите позицию чека.</source>
        <translation>Choose a position first.</translation>
    </message>
    <message id="externalOrigin">
        <source>по документу</source>
        <translation>for an external document</translation>
    </message>
    <message id="positionBound">
        <source>Позиция «%1» отпускается %2, её количество и цена не меняются.
Чтобы отпустить другое количество, удалите позицию и отпустите её заново.</source>
        <translation>Position “%1” is dispensed %2; its quantity and price do not change.
To dispense another quantity, remove the position and dispense it again.</translation>
    </message>
    <message id="receiptColumnNumber">
        <source>№</source>
        <translation>No.</translation>
    </message>
    <message id="receiptColumnName">
        <source>Наименование</source>
        <translation>Name</translation>
    </message>
    <message id="receiptColumnMark">
        <source>Вид</source>
        <translation>Kind</translation>
    </message>
    <message id="receiptColumnQuantity">
        <source>Кол-во</source>
        <translation>Qty</translation>
    </message>
    <message id="receiptColumnInitialPrice">
        <source>Без льготы</source>
        <translation>Full price</translation>
    </message>
    <message id="receiptColumnPrice">
        <source>Цена</source>
        <translation>Price</translation>
    </message>
    <message id="receiptColumnSum">
        <source>Сумма</source>
        <translation>Sum</translation>
    </message>
    <message id="receiptColumnState">
        <source>Состояние</source>
        <translation>State</translation>
    </message>
    <message id="pluginsNone">
        <source>Модулей нет</source>
        <translation>No plug-ins</translation>
    </message>
    <message id="pluginsActive">
        <source>Модулей: %1</source>
        <translation>Plug-ins: %1</translation>
    </message>
    <message id="configurationProblems">
        <source>Замечаний к настройкам: %1. Сообщите администратору: подробности в журнале.</source>
        <translation>Problems in the configuration: %1. Tell the administrator: the log has the details.</translation>
    </message>
    <message id="pluginProblems">
        <source>Модуль не подключён: %1</source>
        <translation>Plug-in not connected: %1</translation>
    </message>
    <message id="keyWithoutPlugin">
        <source>«%1» не работает: нет модуля.</source>
        <translation>“%1” does not work: there is no plug-in for it.</translation>
    </message>
    <message id="pluginProblemsDetails">
        <source>Сообщите администратору. Подробности в журнале, в папке %1</source>
        <translation>Tell the administrator. The log in the folder %1 has the details</translation>
    </message>
    <message id="statusMore">
        <source>Подробнее</source>
        <translation>More</translation>
    </message>
    <message id="busySince">
        <source>Начато в %1</source>
        <translation>Started at %1</translation>
    </message>
    <message id="busySinceWithLimit">
        <source>Начато в %1. Ждём ответа %2 с, самое большее %3 с</source>
        <translation>Started at %1. Waiting for an answer for %2 s, %3 s at most</translation>
    </message>
    <message id="busyEscapeAsks">
        <source>Esc — не ждать ответа (касса переспросит)</source>
        <translation>Esc: do not wait for the answer (the register asks you first)</translation>
    </message>
    <message id="busyEscapeStops">
        <source>Esc — прекратить: ничего не записывается</source>
        <translation>Esc: stop; nothing is being recorded</translation>
    </message>
    <message id="busyTapAsks">
        <source>Коснитесь здесь, чтобы не ждать ответа (касса переспросит)</source>
        <translation>Tap here to stop waiting for the answer (the register asks you first)</translation>
    </message>
    <message id="busyTapStops">
        <source>Коснитесь здесь, чтобы прекратить: ничего не записывается</source>
        <translation>Tap here to stop; nothing is being recorded</translation>
    </message>
    <message id="busyStopTitle">
        <source>Не ждать ответа?</source>
        <translation>Stop waiting?</translation>
    </message>
    <message id="busyStopQuestion">
        <source>Запрос мог уже дойти до сервера и быть выполнен. Если не ждать ответа, касса не узнает, записано ли это: придётся выяснять, прежде чем повторять.
Надёжнее дождаться ответа.</source>
        <translation>The request may have reached the server and been carried out. Without the answer the register does not know whether it was: you will have to find out before you try again.
It is safer to wait for the answer.</translation>
    </message>
    <message id="busyStopYes">
        <source>Не ждать</source>
        <translation>Stop waiting</translation>
    </message>
    <message id="busyStopNo">
        <source>Ждать дальше</source>
        <translation>Keep waiting</translation>
    </message>
    <message id="registerTitle">
        <source>Касса аптеки</source>
        <translation>Pharmacy register</translation>
    </message>
    <message id="savedReceiptDamaged">
        <source>Сохранённый чек повреждён и не восстановлен: %1
Файл отложен: %2
Сообщите администратору. Можно открыть новый чек.</source>
        <translation>The saved document is damaged and was not restored: %1
Its file was renamed: %2
Tell the administrator. You can open a new sale.</translation>
    </message>
    <message id="receiptTable">
        <source>Позиции чека</source>
        <translation>Positions of the document</translation>
    </message>
    <message id="searchGoods">
        <source>Поиск товара: название, МНН или штрихкод</source>
        <translation>Search goods: name, INN or barcode</translation>
    </message>
    <message id="receiptTotal">
        <source>ИТОГО</source>
        <translation>TOTAL</translation>
    </message>
    <message id="returnTotal">
        <source>К возврату</source>
        <translation>To pay out</translation>
    </message>
    <message id="returnNext">
        <source>Проверьте позиции возврата, затем выплатите деньги</source>
        <translation>Check the positions of the return, then pay out the money</translation>
    </message>
    <message id="returnNextKey">
        <source>Проверьте позиции возврата, затем %1 — выплата</source>
        <translation>Check the positions of the return, then %1: pay out</translation>
    </message>
    <message id="receiptNumber">
        <source>Чек № %1</source>
        <translation>Sale No. %1</translation>
    </message>
    <message id="receiptNone">
        <source>Чек не открыт</source>
        <translation>No document is open</translation>
    </message>
    <message id="receiptMemberDamaged">
        <source>Данные «%1» отсутствуют или искажены</source>
        <translation>“%1” is missing or damaged</translation>
    </message>
    <message id="documentNotFound">
        <source>Документа № %1 нет среди отложенных и завершённых.
Проверьте номер.</source>
        <translation>No suspended or finished document has No. %1.
Check the number.</translation>
    </message>
    <message id="takeBackNotPutAside">
        <source>Возврат нельзя отложить: завершите его или отмените.</source>
        <translation>A return cannot be suspended: finish it or cancel it.</translation>
    </message>
    <message id="finishOpenReceiptFirst">
        <source>Сначала завершите или отложите открытый чек № %1.</source>
        <translation>First finish or suspend the open sale No. %1.</translation>
    </message>
    <message id="takeBackTitle">
        <source>Возврат продажи</source>
        <translation>Return a sale</translation>
    </message>
    <message id="takeBackMessage">
        <source>Номер чека, по которому возвращают товар</source>
        <translation>Number of the receipt for the returned goods</translation>
    </message>
    <message id="resumeOnlySuspended">
        <source>Документ № %1 не отложен, его нельзя взять в работу.
Выберите отложенный.</source>
        <translation>Document No. %1 is not suspended and cannot be resumed.
Choose a suspended one.</translation>
    </message>
    <message id="takeBackOnlyClosedSale">
        <source>Документ № %1 — не закрытая продажа, его нельзя вернуть.
Проверьте номер чека.</source>
        <translation>Document No. %1 is not a closed sale and cannot be returned.
Check the number of the receipt.</translation>
    </message>
    <message id="takenBackAlready">
        <source>Продажа № %1 уже возвращена документом № %2.
Проверьте номер чека.</source>
        <translation>Sale No. %1 has already been returned by document No. %2.
Check the number of the receipt.</translation>
    </message>
    <message id="takeBackDamaged">
        <source>Возврат № %1 по чеку № %2 повреждён: неизвестно, что вернули и выданы ли деньги.
Файл: %3
Позовите администратора: он исправит файл или, если деньги не выданы, уберёт его из папки данных.</source>
        <translation>Return No. %1 of sale No. %2 is damaged: it is not known what was returned and whether the money was paid out.
File: %3
Call the administrator, who corrects the file or, if no money was paid out, removes it from the data folder.</translation>
    </message>
    <message id="annulTitle">
        <source>Аннулирование документа</source>
        <translation>Void a document</translation>
    </message>
    <message id="annulMessage">
        <source>Номер отложенного чека или закрытой продажи</source>
        <translation>Number of a suspended document or a closed sale</translation>
    </message>
    <message id="annulNotPossible">
        <source>Документ № %1 нельзя аннулировать: аннулируются отложенные чеки и закрытые продажи, которые не возвращены.
Выберите другой документ.</source>
        <translation>Document No. %1 cannot be voided: only suspended sales, and closed sales that have not been returned, can.
Choose another document.</translation>
    </message>
    <message id="annulSaleQuestion">
        <source>Аннулировать продажу № %1 на сумму %2? Деньги возвращаются покупателю.</source>
        <translation>Void sale No. %1 of %2? The customer gets the money back.</translation>
    </message>
    <message id="annulSaleWithoutMoneyQuestion">
        <source>Аннулировать продажу № %1 на сумму %2?</source>
        <translation>Void sale No. %1 of %2?</translation>
    </message>
    <message id="annulPutAsideQuestion">
        <source>Аннулировать отложенный чек № %1 на сумму %2?</source>
        <translation>Void suspended sale No. %1 of %2?</translation>
    </message>
    <message id="annulPutAsideChargedQuestion">
        <source>Аннулировать отложенный чек № %1 на сумму %2?
Оплата картой вернётся на карту покупателя.</source>
        <translation>Void suspended sale No. %1 of %2?
The card payment goes back to the customer’s card.</translation>
    </message>
    <message id="annulYes">
        <source>Аннулировать</source>
        <translation>Void</translation>
    </message>
    <message id="questionNo">
        <source>Нет</source>
        <translation>No</translation>
    </message>
    <message id="takeBackClosed">
        <source>Возврат № %1 закрыт. Выдано покупателю %2</source>
        <translation>Return No. %1 closed. Paid out to the customer: %2</translation>
    </message>
    <message id="receiptClosed">
        <source>Чек № %1 закрыт. Сдача %2</source>
        <translation>Sale No. %1 closed. Change %2</translation>
    </message>
    <message id="receiptClosedByCard">
        <source>Чек № %1 закрыт. Картой оплачено %2</source>
        <translation>Sale No. %1 closed. Paid by card: %2</translation>
    </message>
    <message id="takeBackCancelled">
        <source>Возврат № %1 отменён</source>
        <translation>Return No. %1 cancelled</translation>
    </message>
    <message id="receiptCancelled">
        <source>Чек № %1 отменён</source>
        <translation>Sale No. %1 cancelled</translation>
    </message>
    <message id="takeBackNumber">
        <source>Возврат № %1 (чек № %2)</source>
        <translation>Return No. %1 (sale No. %2)</translation>
    </message>
    <message id="takeBackPutAside">
        <source>Возврат № %1 отложен</source>
        <translation>Return No. %1 suspended</translation>
    </message>
    <message id="receiptPutAside">
        <source>Чек № %1 отложен</source>
        <translation>Sale No. %1 suspended</translation>
    </message>
    <message id="keySubtotal">
        <source>Подытог</source>
        <translation>Subtotal</translation>
    </message>
    <message id="keyCancelReceipt">
        <source>Отмена чека</source>
        <translation>Cancel document</translation>
    </message>
    <message id="keyMenu">
        <source>Меню</source>
        <translation>Menu</translation>
    </message>
    <message id="keyPayment">
        <source>Оплата</source>
        <translation>Payment</translation>
    </message>
    <message id="keyShortcutTwice">
        <source>%1 назначена двум кнопкам, работает «%2». Для «%3» исправьте в настройках FunctionKey.%4:key</source>
        <translation>%1 is assigned to two keys; “%2” has it. For “%3” correct FunctionKey.%4:key in the configuration</translation>
    </message>
    <message id="takeBackTakesNoGoods">
        <source>Открыт возврат: товары в него не добавляются.
Завершите возврат или отмените его.</source>
        <translation>A return is open: no goods are added to it.
Finish the return or cancel it.</translation>
    </message>
    <message id="receivedUnreadable">
        <source>«%1» — не сумма.
Введите полученные деньги, например 50 или 12,40.</source>
        <translation>“%1” is not an amount.
Type the money received, for example 50 or 12.40.</translation>
    </message>
    <message id="receivedTooLittle">
        <source>Получено %1, а к оплате %2.
Не хватает %3.</source>
        <translation>Received %1, but %2 is due.
%3 is missing.</translation>
    </message>
    <message id="positionOfNoPlugin">
        <source>Документ № %1: позиция № %2 отпускается %3, а ни один модуль не работает.
Позовите администратора и повторите, когда модуль заработает.%4</source>
        <translation>Document No. %1: position No. %2 is dispensed %3, and no plug-in works.
Call the administrator, and try again when the plug-in works.%4</translation>
    </message>
    <message id="positionOfIdlePlugin">
        <source>Документ № %1: позицию № %2 ведёт модуль «%3», а он не работает.
Позовите администратора и повторите, когда модуль заработает.%4</source>
        <translation>Document No. %1: position No. %2 belongs to plug-in “%3”, which does not work.
Call the administrator, and try again when the plug-in works.%4</translation>
    </message>
    <message id="menuPluginsIdle">
        <source>модули не работают</source>
        <translation>no plug-in works</translation>
    </message>
    <message id="menuPluginIdle">
        <source>не работает модуль «%1»</source>
        <translation>plug-in “%1” does not work</translation>
    </message>
    <message id="terminalBusyAtRefund">
        <source>Терминал занят, деньги на карту не возвращены.
Дождитесь, пока он освободится, и повторите.</source>
        <translation>The terminal is busy; no money went back to the card.
Wait until it is free and try again.</translation>
    </message>
    <message id="voidingNotRefunded">
        <source>Аннулирование документа № %1 не завершено: деньги возвращены не все.
Повторите аннулирование, когда терминал ответит.</source>
        <translation>The voiding of document No. %1 is not finished: not all the money has been given back.
Void it again when the terminal answers.</translation>
    </message>
    <message id="voidingNotFinished">
        <source>Аннулирование документа № %1 не завершено: деньги возвращены не все, а отпуск %2 мог быть отменён.
Повторите аннулирование, когда терминал ответит.</source>
        <translation>The voiding of document No. %1 is not finished: not all the money has been given back, and what was dispensed %2 may have been cancelled.
Void it again when the terminal answers.</translation>
    </message>
    <message id="voidingNotDone">
        <source>Документ № %1 не аннулирован: деньги на карту не возвращены.
Повторите аннулирование, когда терминал ответит.</source>
        <translation>Document No. %1 was not voided: no money went back to the card.
Void it again when the terminal answers.</translation>
    </message>
    <message id="documentChangedMeanwhile">
        <source>Документ № %1 изменился, пока касса ждала ответа.
Проверьте его в списке документов и повторите.</source>
        <translation>Document No. %1 changed while the register waited for an answer.
Check it in the list of documents and try again.</translation>
    </message>
    <message id="takeBackSuspended">
        <source>Возврат продажи № %1 начат и отложен, его номер %2.
Возьмите его в работу из списка документов.</source>
        <translation>The return of sale No. %1 has begun and is suspended as No. %2.
Resume it from the list of documents.</translation>
    </message>
    <message id="totalBelowZero">
        <source>Сумма чека меньше нуля: %1.
Удалите позицию с отрицательной ценой или позовите администратора.</source>
        <translation>The total of the sale is below zero: %1.
Remove the position with the negative price, or call the administrator.</translation>
    </message>
    <message id="totalTooLarge">
        <source>Сумма чека слишком велика: %1.
Проверьте цены и количество или разделите покупку на несколько чеков.</source>
        <translation>The total of the sale is too large: %1.
Check prices and packs, or split the purchase into several sales.</translation>
    </message>
    <message id="returnBelowZero">
        <source>Сумма возврата меньше нуля: %1.
Отмените возврат и верните эту позицию вместе с другими.</source>
        <translation>The total of the return is below zero: %1.
Cancel the return, and return this position together with others.</translation>
    </message>
    <message id="menuTotalBelowZero">
        <source>сумма меньше нуля</source>
        <translation>the total is below zero</translation>
    </message>
    <message id="menuTotalTooLarge">
        <source>сумма слишком велика</source>
        <translation>the total is too large</translation>
    </message>
    <message id="menuReceiptEmpty">
        <source>в чеке нет позиций</source>
        <translation>there are no positions</translation>
    </message>
    <message id="pluginInert">
        <source>выключен в настройках или не смог начать работу</source>
        <translation>switched off in the configuration, or could not start</translation>
    </message>
    <message id="receiptEmpty">
        <source>В чеке нет позиций.
Добавьте товар или отмените чек.</source>
        <translation>The document has no positions.
Add goods or cancel it.</translation>
    </message>
    <message id="paymentReceived">
        <source>Получено:</source>
        <translation>Received:</translation>
    </message>
    <message id="paymentReceivedField">
        <source>Получено от покупателя</source>
        <translation>Received from the customer</translation>
    </message>
    <message id="paymentBack">
        <source>Назад</source>
        <translation>Back</translation>
    </message>
    <message id="paymentSubtotal">
        <source>ПОДЫТОГ</source>
        <translation>SUBTOTAL</translation>
    </message>
    <message id="paymentGoOnPayingOut">
        <source>К выплате</source>
        <translation>Go to pay-out</translation>
    </message>
    <message id="paymentGoOn">
        <source>К оплате</source>
        <translation>Go to payment</translation>
    </message>
    <message id="paymentSubtotalHint">
        <source>Ввод — дальше, Esc — назад к позициям.</source>
        <translation>Enter: go on, Esc: back to the positions.</translation>
    </message>
    <message id="paymentSubtotalKeyHint">
        <source>%1 или Ввод — дальше, Esc — назад к позициям.</source>
        <translation>%1 or Enter: go on, Esc: back to the positions.</translation>
    </message>
    <message id="paymentDue">
        <source>К ОПЛАТЕ</source>
        <translation>DUE</translation>
    </message>
    <message id="paymentPay">
        <source>Закрыть чек</source>
        <translation>Close sale</translation>
    </message>
    <message id="paymentPayOut">
        <source>К ВОЗВРАТУ</source>
        <translation>TO PAY OUT</translation>
    </message>
    <message id="paymentPaidOut">
        <source>Деньги выданы</source>
        <translation>Money paid out</translation>
    </message>
    <message id="paymentPayOutHint">
        <source>Выдайте деньги покупателю. Ввод — закрыть возврат, Esc — назад к позициям.</source>
        <translation>Pay the customer the money. Enter: close the return, Esc: back to the positions.</translation>
    </message>
    <message id="paymentNoAmount">
        <source>Не сумма</source>
        <translation>Not an amount</translation>
    </message>
    <message id="paymentMissing">
        <source>Не хватает %1</source>
        <translation>%1 missing</translation>
    </message>
    <message id="paymentChange">
        <source>Сдача %1</source>
        <translation>Change %1</translation>
    </message>
    <message id="paymentInputRefused">
        <source>Вводите только цифры и запятую, не больше двух цифр после неё.</source>
        <translation>Type only digits and a comma, with at most two digits after it.</translation>
    </message>
    <message id="paymentHint">
        <source>Ввод — закрыть чек, Esc — назад к позициям. Пустое поле — ровно сумма к оплате.</source>
        <translation>Enter: close the sale, Esc: back to the positions. Empty field: exactly the amount due.</translation>
    </message>
    <message id="paymentScanRefused">
        <source>Отсканирован штрихкод, он не считается. Чтобы добавить товар, вернитесь к позициям.</source>
        <translation>A barcode was scanned; it does not count. To add goods, go back to the positions.</translation>
    </message>
    <message id="outOfStockTitle">
        <source>Товара нет на остатке</source>
        <translation>Out of stock</translation>
    </message>
    <message id="outOfStockQuestion">
        <source>На остатке нет товара:
%1
Всё равно продать?</source>
        <translation>These goods are not in stock:
%1
Sell them anyway?</translation>
    </message>
    <message id="outOfStockYes">
        <source>Продать</source>
        <translation>Sell</translation>
    </message>
    <message id="removeBoundTitle">
        <source>Удаление позиции</source>
        <translation>Remove a position</translation>
    </message>
    <message id="removeBoundQuestion">
        <source>Позиция отпускается %2:
%1
Удалить её?</source>
        <translation>The position is dispensed %2:
%1
Remove it?</translation>
    </message>
    <message id="removeBoundYes">
        <source>Удалить</source>
        <translation>Remove</translation>
    </message>
    <message id="cancelBegunTakeBackQuestion">
        <source>Возврат № %1 на сумму %2 уже выполнен частично, и это останется в силе.
Правильно завершить его: ответьте «Нет» и перейдите к оплате.
Всё равно отменить возврат?</source>
        <translation>Return No. %1 of %2 has been carried out in part, and that stands.
The right thing is to finish it: answer “No” and go to the payment.
Cancel the return anyway?</translation>
    </message>
    <message id="cancelTakeBackTitle">
        <source>Отмена возврата</source>
        <translation>Cancel the return</translation>
    </message>
    <message id="cancelTakeBackYes">
        <source>Отменить возврат</source>
        <translation>Cancel return</translation>
    </message>
    <message id="putAsideAnnulled">
        <source>Отложенный чек № %1 аннулирован</source>
        <translation>Suspended sale No. %1 voided</translation>
    </message>
    <message id="putAsideAnnulledPaidBack">
        <source>Отложенный чек № %1 аннулирован. Верните покупателю наличными %2</source>
        <translation>Suspended sale No. %1 voided. Give the customer %2 back in cash</translation>
    </message>
    <message id="putAsideAnnulledRefunded">
        <source>Отложенный чек № %1 аннулирован. На карту возвращено %2</source>
        <translation>Suspended sale No. %1 voided. %2 went back to the card</translation>
    </message>
    <message id="putAsideAnnulledPaidBackBoth">
        <source>Отложенный чек № %1 аннулирован. На карту возвращено %2, верните наличными %3</source>
        <translation>Suspended sale No. %1 voided. %2 went back to the card; give %3 back in cash</translation>
    </message>
    <message id="saleWithoutMoneyAnnulled">
        <source>Чек № %1 аннулирован</source>
        <translation>Sale No. %1 voided</translation>
    </message>
    <message id="saleAnnulled">
        <source>Чек № %1 аннулирован. Верните покупателю %2</source>
        <translation>Sale No. %1 voided. Give the customer %2 back</translation>
    </message>
    <message id="takeBackRestored">
        <source>Возврат № %1 восстановлен после перезапуска. Проверьте позиции и продолжайте.</source>
        <translation>Return No. %1 was restored after a restart. Check the positions and go on.</translation>
    </message>
    <message id="receiptRestored">
        <source>Чек № %1 восстановлен после перезапуска. Проверьте позиции и продолжайте.</source>
        <translation>Sale No. %1 was restored after a restart. Check the positions and go on.</translation>
    </message>
    <message id="printedCopy">
        <source>КОПИЯ</source>
        <translation>COPY</translation>
    </message>
    <message id="documentPrinted">
        <source>Документ № %1 напечатан: %2</source>
        <translation>Document No. %1 was printed: %2</translation>
    </message>
    <message id="documentsPrintClosed">
        <source>Печатаются только закрытые документы, которые не аннулированы. Выберите такой документ.</source>
        <translation>Only closed documents that have not been voided are printed. Choose one of them.</translation>
    </message>
    <message id="cancelTakeBackQuestion">
        <source>Отменить возврат № %1 на сумму %2?</source>
        <translation>Cancel return No. %1 of %2?</translation>
    </message>
    <message id="cancelReceiptQuestion">
        <source>Отменить чек № %1 на сумму %2?</source>
        <translation>Cancel sale No. %1 of %2?</translation>
    </message>
    <message id="cancelReceiptTitle">
        <source>Отмена чека</source>
        <translation>Cancel the sale</translation>
    </message>
    <message id="cancelReceiptYes">
        <source>Отменить чек</source>
        <translation>Cancel sale</translation>
    </message>
    <message id="takeBackIsWhole">
        <source>Позиции возврата не меняются.
Чтобы вернуть другие, отмените возврат и начните его заново.</source>
        <translation>The positions of a return do not change.
To return others, cancel the return and start it again.</translation>
    </message>
    <message id="actionSubtotal">
        <source>Подытог не выполнен</source>
        <translation>The subtotal was not done</translation>
    </message>
    <message id="actionPayment">
        <source>Оплата не выполнена</source>
        <translation>The payment was not done</translation>
    </message>
    <message id="actionStornoPosition">
        <source>Удаление позиции не выполнено</source>
        <translation>The position was not removed</translation>
    </message>
    <message id="actionStornoAll">
        <source>Отмена не выполнена</source>
        <translation>The document was not cancelled</translation>
    </message>
    <message id="actionAnnulDocument">
        <source>Аннулирование не выполнено</source>
        <translation>The document was not voided</translation>
    </message>
    <message id="actionUnnamed">
        <source>Действие не выполнено</source>
        <translation>The action was not done</translation>
    </message>
    <message id="actionStopped">
        <source>%1. Сообщение: %2</source>
        <translation>%1. Message: %2</translation>
    </message>
    <message id="actionStoppedSilently">
        <source>%1: модуль остановил это действие. Если остановили не вы, повторите.</source>
        <translation>%1: a plug-in stopped this action. If it was not you who stopped it, try again.</translation>
    </message>
    <message id="actionNotFound">
        <source>%1: модуль не нашёл у себя эту позицию или этот чек. Чек не изменён.
Проверьте, что выбрана нужная строка, и повторите. Если не поможет, позовите администратора.</source>
        <translation>%1: the plug-in does not know this position or document. The document has not changed.
Check that the right row is chosen and try again. If that does not help, call the administrator.</translation>
    </message>
    <message id="documentsTitle">
        <source>Документы</source>
        <translation>Documents</translation>
    </message>
    <message id="documentsTakeUp">
        <source>Взять в работу</source>
        <translation>Resume</translation>
    </message>
    <message id="documentsTakeBack">
        <source>Вернуть</source>
        <translation>Return</translation>
    </message>
    <message id="documentsAnnul">
        <source>Аннулировать</source>
        <translation>Void</translation>
    </message>
    <message id="documentsPrint">
        <source>Печать копии</source>
        <translation>Print copy</translation>
    </message>
    <message id="documentsCancel">
        <source>Назад</source>
        <translation>Back</translation>
    </message>
    <message id="documentsFilterHint">
        <source>Номер, день (29.02.2024), состояние или товар</source>
        <translation>Number, day (29.02.2024), state or goods</translation>
    </message>
    <message id="documentsFilter">
        <source>Поиск документа</source>
        <translation>Search for a document</translation>
    </message>
    <message id="documentsTable">
        <source>Список документов</source>
        <translation>List of documents</translation>
    </message>
    <message id="documentsPositions">
        <source>Позиции документа</source>
        <translation>Positions of the document</translation>
    </message>
    <message id="documentsNone">
        <source>Отложенных и завершённых документов нет.</source>
        <translation>There are no suspended or finished documents.</translation>
    </message>
    <message id="documentsNotFound">
        <source>Ничего не найдено. Измените строку поиска; давние документы ищут по номеру или дню.</source>
        <translation>Nothing was found. Change the search; old documents are found by number or day.</translation>
    </message>
    <message id="documentColumnNumber">
        <source>№</source>
        <translation>No.</translation>
    </message>
    <message id="documentColumnState">
        <source>Документ</source>
        <translation>Document</translation>
    </message>
    <message id="documentColumnPositions">
        <source>Позиций</source>
        <translation>Positions</translation>
    </message>
    <message id="documentColumnSum">
        <source>Сумма</source>
        <translation>Sum</translation>
    </message>
    <message id="documentTakeBack">
        <source>Возврат чека № %1</source>
        <translation>Return of sale No. %1</translation>
    </message>
    <message id="documentTakenBack">
        <source>Продажа, возвращена документом № %1</source>
        <translation>Sale, returned by document No. %1</translation>
    </message>
    <message id="documentSale">
        <source>Продажа</source>
        <translation>Sale</translation>
    </message>
    <message id="documentOpen">
        <source>Открыт</source>
        <translation>Open</translation>
    </message>
    <message id="documentPutAside">
        <source>Отложен</source>
        <translation>Suspended</translation>
    </message>
    <message id="documentTakeBackPutAside">
        <source>Возврат отложен</source>
        <translation>Return, suspended</translation>
    </message>
    <message id="documentTakeBackCancelled">
        <source>Возврат отменён</source>
        <translation>Return cancelled</translation>
    </message>
    <message id="documentCancelled">
        <source>Отменён</source>
        <translation>Cancelled</translation>
    </message>
    <message id="documentAnnulled">
        <source>Аннулирован</source>
        <translation>Voided</translation>
    </message>
    <message id="menuPutAside">
        <source>Отложить чек</source>
        <translation>Suspend document</translation>
    </message>
    <message id="menuDocuments">
        <source>Документы</source>
        <translation>Documents</translation>
    </message>
    <message id="menuTakeBack">
        <source>Возврат продажи</source>
        <translation>Return a sale</translation>
    </message>
    <message id="menuAnnul">
        <source>Аннулировать по номеру</source>
        <translation>Void by number</translation>
    </message>
    <message id="menuCancelReceipt">
        <source>Отменить чек</source>
        <translation>Cancel document</translation>
    </message>
    <message id="menuReceiptOpen">
        <source>сначала завершите чек № %1</source>
        <translation>first finish document No. %1</translation>
    </message>
    <message id="menuTakeBackOpen">
        <source>возврат не откладывают</source>
        <translation>a return is not suspended</translation>
    </message>
    <message id="menuTakeBackDamaged">
        <source>возврат повреждён</source>
        <translation>the return is damaged</translation>
    </message>
    <message id="menuNoPlugin">
        <source>нет модуля</source>
        <translation>no plug-in</translation>
    </message>
    <message id="menuNoReceipt">
        <source>чек не открыт</source>
        <translation>no document is open</translation>
    </message>
    <message id="menuTitle">
        <source>Меню</source>
        <translation>Menu</translation>
    </message>
    <message id="menuCancel">
        <source>Назад</source>
        <translation>Back</translation>
    </message>
    <message id="documentColumnTime">
        <source>Время</source>
        <translation>Time</translation>
    </message>
    <message id="documentOpened">
        <source>Открыт %1</source>
        <translation>Opened %1</translation>
    </message>
    <message id="documentFinishedAt">
        <source>завершён %1</source>
        <translation>finished %1</translation>
    </message>
    <message id="documentAnnulledAt">
        <source>аннулирован %1</source>
        <translation>voided %1</translation>
    </message>
    <message id="cardTitle">
        <source>Операция по карте</source>
        <translation>Card operation</translation>
    </message>
    <message id="terminalBusy">
        <source>Терминал занят, деньги не списаны.
Дождитесь, пока он освободится, и повторите.</source>
        <translation>The terminal is busy; no money has moved.
Wait until it is free and try again.</translation>
    </message>
    <message id="cardDeclined">
        <source>Чек № %1: терминал отклонил оплату %2. %3
Деньги не списаны. Возьмите другую карту или наличные.</source>
        <translation>Sale No. %1: the terminal declined the payment of %2. %3
No money was taken. Take another card, or cash.</translation>
    </message>
    <message id="cardDocumentChanged">
        <source>Документ № %1 изменился до операции по карте. Терминал не запрошен.
Проверьте документ и повторите.</source>
        <translation>Document No. %1 changed before the card operation. The terminal was not asked.
Check the document and try again.</translation>
    </message>
    <message id="cardRefundDeclined">
        <source>Документ № %1: терминал отклонил возврат %2 на карту. %3</source>
        <translation>Document No. %1: the terminal declined the refund of %2 to the card. %3</translation>
    </message>
    <message id="cardFoundApproved">
        <source>Чек № %1: оплата картой %2 прошла, она учтена в чеке.</source>
        <translation>Sale No. %1: the card payment of %2 went through; it counts.</translation>
    </message>
    <message id="cardFoundDeclined">
        <source>Чек № %1: оплата картой %2 не прошла, деньги не списаны.</source>
        <translation>Sale No. %1: the card payment of %2 did not go through; no money was taken.</translation>
    </message>
    <message id="cardRefundFoundApproved">
        <source>Документ № %1: возврат %2 на карту выполнен.</source>
        <translation>Document No. %1: the refund of %2 to the card was made.</translation>
    </message>
    <message id="cardRefundFoundDeclined">
        <source>Документ № %1: возврат %2 на карту не выполнен.</source>
        <translation>Document No. %1: the refund of %2 to the card was not made.</translation>
    </message>
    <message id="cardLostQuestion">
        <source>Чек № %1: неизвестно, списал ли терминал %2 с карты.
Посмотрите на терминал или на его чек. Деньги списаны?</source>
        <translation>Sale No. %1: it is not known whether the terminal took %2 from the card.
Look at the terminal or at its slip. Was the money taken?</translation>
    </message>
    <message id="cardRefundLostQuestion">
        <source>Документ № %1: неизвестно, вернул ли терминал %2 на карту.
Посмотрите на терминал или на его чек. Деньги возвращены?</source>
        <translation>Document No. %1: it is not known whether the terminal gave %2 back to the card.
Look at the terminal or at its slip. Was the money given back?</translation>
    </message>
    <message id="cardLostYes">
        <source>Списаны</source>
        <translation>Taken</translation>
    </message>
    <message id="cardRefundLostYes">
        <source>Возвращены</source>
        <translation>Given back</translation>
    </message>
    <message id="cardLostNo">
        <source>Нет или не знаю</source>
        <translation>No, or I do not know</translation>
    </message>
    <message id="cardNotMovedQuestion">
        <source>Чек № %1: терминал точно не списал %2?
Если не знаете, вернитесь: касса спросит ещё раз.</source>
        <translation>Sale No. %1: is it certain that the terminal did not take %2?
If you do not know, go back: the register will ask again.</translation>
    </message>
    <message id="cardRefundNotMovedQuestion">
        <source>Документ № %1: терминал точно не вернул %2?
Если не знаете, вернитесь: касса спросит ещё раз.</source>
        <translation>Document No. %1: is it certain that the terminal did not give back %2?
If you do not know, go back: the register will ask again.</translation>
    </message>
    <message id="cardNotMovedYes">
        <source>Точно не списаны</source>
        <translation>Certainly not taken</translation>
    </message>
    <message id="cardRefundNotMovedYes">
        <source>Точно не возвращены</source>
        <translation>Certainly not given back</translation>
    </message>
    <message id="cardNotMovedNo">
        <source>Назад</source>
        <translation>Back</translation>
    </message>
    <message id="cardFinding">
        <source>Терминал проверяет операцию…</source>
        <translation>The terminal is checking the operation…</translation>
    </message>
    <message id="terminalBusyFinding">
        <source>Терминал занят и не может сказать, прошла ли операция.
Подождите, пока он освободится, и повторите. Если у вас есть чек терминала, скажите по нему.</source>
        <translation>The terminal is busy and cannot say whether the operation went through.
Wait until it is free and try again. If you have the slip from the terminal, say what it shows.</translation>
    </message>
    <message id="terminalBusyKnown">
        <source>Знаю по чеку терминала</source>
        <translation>I have the slip</translation>
    </message>
    <message id="terminalBusyWait">
        <source>Подождать</source>
        <translation>Wait</translation>
    </message>
    <message id="terminalNone">
        <source>Терминал не подключён.
Примите наличные или позовите администратора.</source>
        <translation>No card terminal is connected.
Take cash, or call the administrator.</translation>
    </message>
    <message id="cardPaying">
        <source>Оплата картой: следуйте указаниям терминала…</source>
        <translation>Card payment: follow the instructions on the terminal…</translation>
    </message>
    <message id="cardRefunding">
        <source>Возврат на карту: следуйте указаниям терминала…</source>
        <translation>Refund to the card: follow the instructions on the terminal…</translation>
    </message>
    <message id="cardCashQuestion">
        <source>Документ № %1: вернуть %2 на карту нельзя.
Вернуть эти деньги наличными? Их выдают в конце, когда касса об этом скажет.</source>
        <translation>Document No. %1: %2 cannot be given back to the card.
Give this money back in cash? It is paid out at the end, when the register says so.</translation>
    </message>
    <message id="cardCashYes">
        <source>Вернуть наличными</source>
        <translation>Give back in cash</translation>
    </message>
    <message id="cardCashNo">
        <source>Назад</source>
        <translation>Back</translation>
    </message>
    <message id="cancelChargedQuestion">
        <source>Отменить чек № %1 на сумму %2?
Оплата картой вернётся на карту покупателя.</source>
        <translation>Cancel sale No. %1 of %2?
The card payment goes back to the customer’s card.</translation>
    </message>
    <message id="cardOvercharged">
        <source>С карты списано %1, а сумма чека теперь %2.
Отмените чек: деньги вернутся на карту. Затем продайте заново.</source>
        <translation>%1 was taken from the card, and the total is now %2.
Cancel the sale: the money goes back to the card. Then sell again.</translation>
    </message>
    <message id="sumRaisedDuringPayment">
        <source>Сумма чека выросла во время оплаты: остаётся оплатить %1.
Примите остаток: наличными или картой.</source>
        <translation>The total of the sale rose during the payment: %1 is still due.
Take the rest in cash or by card.</translation>
    </message>
    <message id="changedDuringPayment">
        <source>Чек № %1 изменился во время оплаты.
Проверьте позиции и перейдите к оплате ещё раз.</source>
        <translation>Sale No. %1 changed during the payment.
Check the positions and go to the payment again.</translation>
    </message>
    <message id="absurdTitle">
        <source>Слишком много денег</source>
        <translation>Too much money</translation>
    </message>
    <message id="absurdQuestion">
        <source>Получено %1, к оплате %2.
Выдать сдачу %3?</source>
        <translation>Received %1, due %2.
Give %3 change?</translation>
    </message>
    <message id="absurdYes">
        <source>Выдать сдачу</source>
        <translation>Give the change</translation>
    </message>
    <message id="absurdNo">
        <source>Исправить</source>
        <translation>Correct</translation>
    </message>
    <message id="takeBackClosedToCard">
        <source>Возврат № %1 закрыт. На карту %2, верните наличными %3</source>
        <translation>Return No. %1 closed. %2 to the card; give %3 back in cash</translation>
    </message>
    <message id="takeBackClosedWhollyToCard">
        <source>Возврат № %1 закрыт. На карту возвращено %2</source>
        <translation>Return No. %1 closed. %2 went back to the card</translation>
    </message>
    <message id="takeBackClosedPaidBack">
        <source>Возврат № %1 закрыт. Верните покупателю наличными %2</source>
        <translation>Return No. %1 closed. Give the customer %2 back in cash</translation>
    </message>
    <message id="receiptCancelledPaidBack">
        <source>Чек № %1 отменён. Верните покупателю наличными %2</source>
        <translation>Sale No. %1 cancelled. Give the customer %2 back in cash</translation>
    </message>
    <message id="receiptCancelledPaidBackBoth">
        <source>Чек № %1 отменён. На карту возвращено %2, верните наличными %3</source>
        <translation>Sale No. %1 cancelled. %2 went back to the card; give %3 back in cash</translation>
    </message>
    <message id="receiptCancelledRefunded">
        <source>Чек № %1 отменён. На карту возвращено %2</source>
        <translation>Sale No. %1 cancelled. %2 went back to the card</translation>
    </message>
    <message id="documentPartlyTakenBack">
        <source>Продажа, возвращена частично</source>
        <translation>Sale, partly returned</translation>
    </message>
    <message id="documentAnnulmentBegun">
        <source>Продажа, аннулирование не завершено</source>
        <translation>Sale, voiding not finished</translation>
    </message>
    <message id="documentPutAsideCharged">
        <source>Отложен, есть оплата картой</source>
        <translation>Suspended, with a card payment</translation>
    </message>
    <message id="saleAnnulledToCard">
        <source>Чек № %1 аннулирован. На карту возвращено %2, верните наличными %3</source>
        <translation>Sale No. %1 voided. %2 went back to the card; give %3 back in cash</translation>
    </message>
    <message id="saleAnnulledWhollyToCard">
        <source>Чек № %1 аннулирован. На карту возвращено %2</source>
        <translation>Sale No. %1 voided. %2 went back to the card</translation>
    </message>
    <message id="printedByCard">
        <source>Картой</source>
        <translation>By card</translation>
    </message>
    <message id="printedBackToCard">
        <source>Возвращено на карту</source>
        <translation>Refunded to the card</translation>
    </message>
    <message id="returnTitle">
        <source>Возврат товара. %1: что возвращают</source>
        <translation>Return of goods. %1: what is returned</translation>
    </message>
    <message id="returnColumnChosen">
        <source>Вернуть</source>
        <translation>Return</translation>
    </message>
    <message id="returnColumnNumber">
        <source>№</source>
        <translation>No.</translation>
    </message>
    <message id="returnColumnName">
        <source>Наименование</source>
        <translation>Name</translation>
    </message>
    <message id="returnColumnPacks">
        <source>Упаковок</source>
        <translation>Packs</translation>
    </message>
    <message id="returnColumnSum">
        <source>Сумма</source>
        <translation>Sum</translation>
    </message>
    <message id="returnCancel">
        <source>Назад</source>
        <translation>Back</translation>
    </message>
    <message id="returnConfirm">
        <source>Вернуть выбранные</source>
        <translation>Return chosen</translation>
    </message>
    <message id="returnAll">
        <source>Выбрать все</source>
        <translation>Choose all</translation>
    </message>
    <message id="returnNone">
        <source>Снять все</source>
        <translation>Choose none</translation>
    </message>
    <message id="returnHint">
        <source>Выбрано %1 из %2 на сумму %3. Пробел — выбрать строку или снять, Ввод — вернуть выбранные, Esc — назад.</source>
        <translation>%1 of %2 chosen, for %3. Space: choose a row or leave it out, Enter: return what is chosen, Esc: back.</translation>
    </message>
    <message id="returnTouchHint">
        <source>Выбрано %1 из %2 на сумму %3. Коснитесь строки, чтобы выбрать её или снять, затем кнопки «Вернуть выбранные».</source>
        <translation>%1 of %2 chosen, for %3. Tap a row to choose it or leave it out, then tap “Return chosen”.</translation>
    </message>
    <message id="returnNotNow">
        <source>Позицию № %1 пока нельзя вернуть: %2.</source>
        <translation>Position No. %1 cannot be returned now: %2.</translation>
    </message>
    <message id="returnColumnMark">
        <source>Вид</source>
        <translation>Kind</translation>
    </message>
    <message id="returnPositions">
        <source>Позиции продажи</source>
        <translation>Positions of the sale</translation>
    </message>
    <message id="printedCardPart">
        <source>из них</source>
        <translation>of which</translation>
    </message>
    <message id="printedCard">
        <source>Карта: %1</source>
        <translation>Card: %1</translation>
    </message>
    <message id="printedAuthorization">
        <source>Код авторизации: %1</source>
        <translation>Authorization code: %1</translation>
    </message>
    <message id="cashIsEnough">
        <source>Получено наличными %1, к оплате %2: карта не нужна.
Закройте чек наличными или исправьте сумму наличных.</source>
        <translation>%1 received in cash, %2 due: no card is needed.
Close the sale with cash, or correct the amount of cash.</translation>
    </message>
    <message id="chargedNotChanged">
        <source>По чеку № %1 уже есть оплата картой, он не меняется.
Завершите оплату. Чтобы изменить чек, отмените его: деньги вернутся на карту.</source>
        <translation>Sale No. %1 already has a card payment and does not change.
Finish the payment. To change the sale, cancel it: the money goes back to the card.</translation>
    </message>
    <message id="menuCharged">
        <source>есть оплата картой</source>
        <translation>there is a card payment</translation>
    </message>
    <message id="voidingBegun">
        <source>Аннулирование продажи № %1 начато, деньги возвращены или могли быть возвращены.
Завершите его: аннулируйте продажу ещё раз.</source>
        <translation>The voiding of sale No. %1 has begun; the money went back or may have gone back.
Finish it: void the sale again.</translation>
    </message>
    <message id="voidingNotEnded">
        <source>Аннулирование продажи № %1 начато и не завершено.
Аннулируйте её ещё раз или оформите возврат.</source>
        <translation>The voiding of sale No. %1 has begun and is not finished.
Void it again, or return it.</translation>
    </message>
    <message id="saleUnsettled">
        <source>Продажа № %1: неизвестно, прошла ли операция по карте.
Повторите возврат: касса спросит терминал.</source>
        <translation>Sale No. %1: it is not known whether the card operation went through.
Try the return again: the register asks the terminal.</translation>
    </message>
    <message id="refundedNotCancelled">
        <source>По возврату уже возвращали деньги, он не отменяется.
Завершите его: перейдите к оплате.</source>
        <translation>Money has already been given back for this return; it cannot be cancelled.
Finish it: go to the payment.</translation>
    </message>
    <message id="paymentByCard">
        <source>Картой</source>
        <translation>By card</translation>
    </message>
    <message id="paymentByCardName">
        <source>Остаток картой</source>
        <translation>Pay the rest by card</translation>
    </message>
    <message id="paymentCharged">
        <source>Картой оплачено %1</source>
        <translation>Paid by card %1</translation>
    </message>
    <message id="paymentToCards">
        <source>На карту %1, наличными %2</source>
        <translation>To the card %1, in cash %2</translation>
    </message>
    <message id="paymentToCardsAlone">
        <source>На карту %1</source>
        <translation>To the card %1</translation>
    </message>
    <message id="paymentRefund">
        <source>Вернуть деньги</source>
        <translation>Give the money back</translation>
    </message>
    <message id="paymentRefundHint">
        <source>Ввод — вернуть деньги на карту и закрыть возврат, Esc — назад к позициям.</source>
        <translation>Enter: give the money back to the card and close the return, Esc: back to the positions.</translation>
    </message>
    <message id="paymentCardHint">
        <source>Ввод — закрыть чек, %1 — остаток картой, Esc — назад к позициям. Пустое поле — ровно сумма к оплате.</source>
        <translation>Enter: close the sale, %1: pay the rest by card, Esc: back to the positions. Empty field: exactly the amount due.</translation>
    </message>
    <message id="cancellingBegun">
        <source>Отмена чека № %1 начата, деньги возвращены или могли быть возвращены.
Завершите её: отмените чек ещё раз.</source>
        <translation>The cancelling of sale No. %1 has begun; the money went back or may have gone back.
Finish it: cancel the sale again.</translation>
    </message>
    <message id="helpBack">
        <source>назад</source>
        <translation>back</translation>
    </message>
    <message id="helpBackToPositions">
        <source>назад к позициям</source>
        <translation>back to the positions</translation>
    </message>
    <message id="helpPosition">
        <source>выбрать позицию</source>
        <translation>choose a position</translation>
    </message>
    <message id="helpIdleEnter">
        <source>найти введённый товар и открыть чек</source>
        <translation>find the goods you typed and open a sale</translation>
    </message>
    <message id="helpIdleNext">
        <source>Отсканируйте товар или введите его название, МНН или штрихкод: чек откроется сам.</source>
        <translation>Scan goods, or type their name, INN or barcode: a sale opens by itself.</translation>
    </message>
    <message id="helpPositionsEnter">
        <source>добавить введённый товар</source>
        <translation>add the goods you typed</translation>
    </message>
    <message id="helpPositionsEsc">
        <source>очистить поиск</source>
        <translation>clear the search</translation>
    </message>
    <message id="helpPositionsNext">
        <source>Добавьте все товары, затем переходите к подытогу и оплате.</source>
        <translation>Add all goods, then go on to the subtotal and the payment.</translation>
    </message>
    <message id="helpSubtotalEnter">
        <source>к оплате</source>
        <translation>go to the payment</translation>
    </message>
    <message id="helpSubtotalNext">
        <source>Проверьте позиции и сумму, затем переходите к оплате.</source>
        <translation>Check the positions and the total, then go on to the payment.</translation>
    </message>
    <message id="helpPaymentEnter">
        <source>закрыть чек; пустое поле — ровно сумма к оплате</source>
        <translation>close the sale; an empty field is exactly the amount due</translation>
    </message>
    <message id="helpPaymentByCard">
        <source>остаток картой</source>
        <translation>pay the rest by card</translation>
    </message>
    <message id="helpPaymentNext">
        <source>Введите полученные деньги: касса покажет сдачу. Затем закройте чек.</source>
        <translation>Type the money received: the register shows the change. Then close the sale.</translation>
    </message>
    <message id="helpPayOutEnter">
        <source>закрыть возврат</source>
        <translation>close the return</translation>
    </message>
    <message id="helpPayOutNext">
        <source>Верните деньги покупателю и закройте возврат.</source>
        <translation>Give the customer the money back and close the return.</translation>
    </message>
    <message id="helpGoodsRow">
        <source>выбрать товар</source>
        <translation>choose goods</translation>
    </message>
    <message id="helpGoodsPacks">
        <source>к количеству упаковок</source>
        <translation>to the number of packs</translation>
    </message>
    <message id="helpGoodsEnter">
        <source>взять выбранный товар</source>
        <translation>take the chosen goods</translation>
    </message>
    <message id="helpGoodsAll">
        <source>все товары, если с этим МНН ничего нет</source>
        <translation>all goods, if none have this INN</translation>
    </message>
    <message id="helpGoodsNext">
        <source>Найдите товар по названию, МНН или штрихкоду и укажите упаковки.</source>
        <translation>Find the goods by name, INN or barcode, and type the number of packs.</translation>
    </message>
    <message id="helpDocumentsRow">
        <source>выбрать документ</source>
        <translation>choose a document</translation>
    </message>
    <message id="helpDocumentsResume">
        <source>взять отложенный в работу (также Ввод)</source>
        <translation>resume a suspended document (also Enter)</translation>
    </message>
    <message id="helpDocumentsReturn">
        <source>вернуть продажу</source>
        <translation>return a sale</translation>
    </message>
    <message id="helpDocumentsVoid">
        <source>аннулировать</source>
        <translation>void</translation>
    </message>
    <message id="helpDocumentsPrint">
        <source>напечатать копию</source>
        <translation>print a copy</translation>
    </message>
    <message id="helpDocumentsNext">
        <source>Найдите документ по номеру, дню или товару и выберите, что с ним сделать.</source>
        <translation>Find the document by number, day or goods, and choose what to do with it.</translation>
    </message>
    <message id="helpMenuDigit">
        <source>выбрать по номеру</source>
        <translation>choose by number</translation>
    </message>
    <message id="helpMenuRow">
        <source>к другому пункту</source>
        <translation>to another entry</translation>
    </message>
    <message id="helpMenuEnter">
        <source>выполнить пункт в рамке</source>
        <translation>run the framed entry</translation>
    </message>
    <message id="helpMenuNext">
        <source>Выберите, что сделать. У серых пунктов указано, почему они недоступны.</source>
        <translation>Choose what to do. Grey entries say why they are not available.</translation>
    </message>
    <message id="helpQuestionTab">
        <source>к другому ответу</source>
        <translation>to the other answer</translation>
    </message>
    <message id="helpQuestionEnter">
        <source>ответить кнопкой в рамке</source>
        <translation>answer with the framed button</translation>
    </message>
    <message id="helpQuestionEsc">
        <source>ничего не менять</source>
        <translation>change nothing</translation>
    </message>
    <message id="helpQuestionNext">
        <source>Прочитайте вопрос и выберите ответ.</source>
        <translation>Read the question and choose an answer.</translation>
    </message>
    <message id="helpSpaceKey">
        <source>Пробел</source>
        <translation>Space</translation>
    </message>
    <message id="helpReturnSpace">
        <source>выбрать позицию или снять</source>
        <translation>choose the position or leave it out</translation>
    </message>
    <message id="helpReturnAll">
        <source>выбрать все или снять все</source>
        <translation>choose all or none</translation>
    </message>
    <message id="helpReturnEnter">
        <source>вернуть выбранные</source>
        <translation>return what is chosen</translation>
    </message>
    <message id="helpReturnNext">
        <source>Сначала выбраны все позиции, которые можно вернуть. Снимите лишние, затем верните выбранные.</source>
        <translation>At first all positions that can be returned are chosen. Leave out the others, then return what is chosen.</translation>
    </message>
    <message id="helpAnyTab">
        <source>к следующему полю или кнопке</source>
        <translation>to the next field or button</translation>
    </message>
    <message id="helpAnyEnter">
        <source>нажать кнопку в рамке</source>
        <translation>press the framed button</translation>
    </message>
    <message id="helpTitle">
        <source>Справка</source>
        <translation>Help</translation>
    </message>
    <message id="helpTitleOf">
        <source>Справка: %1</source>
        <translation>Help: %1</translation>
    </message>
    <message id="helpHelpKey">
        <source>показать или закрыть справку</source>
        <translation>show or close the help</translation>
    </message>
    <message id="helpClose">
        <source>Закрыть</source>
        <translation>Close</translation>
    </message>
    <message id="idleHelpKey">
        <source>%1 — какие клавиши работают, на любом экране.</source>
        <translation>%1: which keys work, on every screen.</translation>
    </message>
    <message id="goodsSelectionAllShown">
        <source>Показаны все товары, не только с МНН «%1». Сверьте действующее вещество.</source>
        <translation>All goods are shown, not only those with the INN “%1”. Compare the active substance.</translation>
    </message>
    <message id="goodsSelectionAll">
        <source>Все товары</source>
        <translation>All goods</translation>
    </message>
    <message id="goodsSelectionNoneOfName">
        <source>Нет товаров с МНН «%1». Можно показать все товары.</source>
        <translation>No goods have the INN “%1”. You can show all goods.</translation>
    </message>
    <message id="goodsSelectionNoMatchOfName">
        <source>Среди товаров с МНН «%1» нет «%2». Измените поиск или покажите все товары.</source>
        <translation>None of the goods with the INN “%1” match “%2”. Change the search or show all goods.</translation>
    </message>
    <message id="menuLock">
        <source>Заблокировать кассу</source>
        <translation>Lock the register</translation>
    </message>
    <message id="menuHelp">
        <source>Справка</source>
        <translation>Help</translation>
    </message>
    <message id="helpStatusMore">
        <source>прочитать сообщение внизу целиком</source>
        <translation>read the whole message at the bottom</translation>
    </message>
    <message id="helpAnyNext">
        <source>Прочитайте, что написано на экране, и нажмите нужную кнопку.</source>
        <translation>Read what the screen says, then press the button you need.</translation>
    </message>
    <message id="suspendMeanwhile">
        <source>Открытый документ пока можно отложить.</source>
        <translation>Until then you can suspend the open document.</translation>
    </message>
    <message id="documentAlreadyOpen">
        <source>Документ № %1 уже открыт, отложить его нельзя.
Завершите его, чтобы открыть следующий чек.</source>
        <translation>Document No. %1 is already open and cannot be suspended.
Finish it to open the next sale.</translation>
    </message>
    <message id="finishOpenDocumentFirst">
        <source>Сначала завершите открытый документ № %1: отложить его нельзя.</source>
        <translation>First finish the open document No. %1: it cannot be suspended.</translation>
    </message>
    <message id="takeBackSuspendedIdle">
        <source>Возврат продажи № %1 начат и отложен, его номер %2: %3.
Позовите администратора. Когда модуль заработает, возьмите возврат в работу из списка документов.</source>
        <translation>The return of sale No. %1 has begun and is suspended as No. %2: %3.
Call the administrator. When the plug-in works, resume the return from the list of documents.</translation>
    </message>
    <message id="documentTakeBackPutAsideUnsettled">
        <source>Возврат отложен, исход по карте неизвестен</source>
        <translation>Return, suspended, card outcome unknown</translation>
    </message>
    <message id="documentPutAsideUnsettled">
        <source>Отложен, исход по карте неизвестен</source>
        <translation>Suspended, card outcome unknown</translation>
    </message>
    <message id="suspendedUnsettled">
        <source>Документ № %1: неизвестно, прошла ли операция по карте.
Возьмите его в работу: касса спросит терминал.</source>
        <translation>Document No. %1: it is not known whether the card operation went through.
Resume it: the register asks the terminal.</translation>
    </message>
    <message id="keyNeedsNoDocument">
        <source>«%1» работает, когда чек не открыт.
Завершите открытый документ и повторите.</source>
        <translation>“%1” works only while no document is open.
Finish the open one and try again.</translation>
    </message>
</context>
</TS>
