<?xml version="1.0" encoding="utf-8"?>
<!-- SPDX-License-Identifier: MIT -->
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="ru">
<context>
    <name></name>
    <message id="keyNewReceipt">
        <source>Новый чек</source>
        <translation>New receipt</translation>
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
    <message id="goodsCatalogueUnreadable">
        <source>Справочник товаров недоступен: %1
Проверьте базу данных товаров и повторите или позовите администратора.</source>
        <translation>The goods catalogue is not available: %1
Check the goods database and try again, or call the administrator.</translation>
    </message>
    <message id="printedTaxpayer">
        <source>ИНН %1</source>
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
        <translation>Sum without the benefit</translation>
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
        <translation>Benefit in all</translation>
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
The receipt itself is saved. Free disk space or check access to the data folder, then print it from the list of documents.</translation>
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
    <message id="goodsSelectionPageUp">
        <source>На страницу вверх</source>
        <translation>Page up</translation>
    </message>
    <message id="goodsSelectionUp">
        <source>Вверх</source>
        <translation>Up</translation>
    </message>
    <message id="goodsSelectionDown">
        <source>Вниз</source>
        <translation>Down</translation>
    </message>
    <message id="goodsSelectionPageDown">
        <source>На страницу вниз</source>
        <translation>Page down</translation>
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
        <translation>Enter a whole number of packs, 1 to %1.</translation>
    </message>
    <message id="goodsSelectionStock">
        <source>На остатке %1 уп., запрошено %2. Уменьшите количество или выберите другой товар.</source>
        <translation>%1 packs in stock, %2 asked for. Enter fewer or choose other goods.</translation>
    </message>
    <message id="goodsSelectionOutOfStock">
        <source>Этого товара нет на остатке. Выберите другой.</source>
        <translation>These goods are out of stock. Choose others.</translation>
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
    <message id="goodsOutOfStock">
        <source>нет</source>
        <translation>none</translation>
    </message>
    <message id="lockTitle">
        <source>Касса заблокирована</source>
        <translation>Register locked</translation>
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
        <translation>Enter the cashier’s code</translation>
    </message>
    <message id="lockPressKey">
        <source>Нажмите любую клавишу или коснитесь экрана</source>
        <translation>Press any key or touch the screen</translation>
    </message>
    <message id="lockWrongCode">
        <source>Код не подходит. Введите ещё раз.</source>
        <translation>Wrong code. Enter it again.</translation>
    </message>
    <message id="lockWrongCodeWait">
        <source>Код не подходит. Следующая попытка через %1 с.</source>
        <translation>Wrong code. The next try is in %1 s.</translation>
    </message>
    <message id="lockWait">
        <source>Неверный код вводили много раз. Следующая попытка через %1 с.</source>
        <translation>A wrong code was entered many times. The next try is in %1 s.</translation>
    </message>
    <message id="lockRefusesClosing">
        <source>Касса заблокирована. Введите код кассира, затем закройте окно.</source>
        <translation>The register is locked. Enter the cashier's code, then close the window.</translation>
    </message>
    <message id="pluginFolderMissing">
        <source>нет такой папки</source>
        <translation>there is no such folder</translation>
    </message>
    <message id="pluginForeign">
        <source>это не модуль кассы</source>
        <translation>this is not a plug-in of the register</translation>
    </message>
    <message id="receiptAlreadyOpen">
        <source>Чек № %1 уже открыт.</source>
        <translation>Receipt %1 is already open.</translation>
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
        <translation>“%1” needs an open receipt.
Open one and try again.</translation>
    </message>
    <message id="keyNeedsPlugin">
        <source>«%1» сейчас недоступно: нет подключённого модуля, который это умеет.
Обратитесь к администратору.</source>
        <translation>“%1” is not available now: no plug-in that does it is connected.
Call the administrator.</translation>
    </message>
    <message id="positionNotChosen">
        <source>Сначала выберите позицию чека.</source>
        <translation>Choose a position of the receipt first.</translation>
    </message>
    <message id="positionBound">
        <source>Позиция «%1» отпускается по документу, её количество и цена не меняются.
Чтобы отпустить другое количество, удалите позицию и отпустите её заново.</source>
        <translation>The position “%1” is dispensed on a document; its quantity and price do not change.
To dispense another quantity remove the position and dispense it anew.</translation>
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
        <source>Старая цена</source>
        <translation>Old price</translation>
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
    <message id="pluginProblems">
        <source>Модуль не подключён: %1</source>
        <translation>Plug-in not connected: %1</translation>
    </message>
    <message id="registerTitle">
        <source>Касса аптеки</source>
        <translation>Pharmacy register</translation>
    </message>
    <message id="savedReceiptDamaged">
        <source>Сохранённый чек повреждён и не восстановлен: %1
Файл отложен: %2
Сообщите администратору. Можно открыть новый чек.</source>
        <translation>The saved receipt is damaged and was not restored: %1
The file was put aside: %2
Tell the administrator. You can open a new receipt.</translation>
    </message>
    <message id="receiptTable">
        <source>Позиции чека</source>
        <translation>Positions of the receipt</translation>
    </message>
    <message id="searchGoods">
        <source>Поиск товара: название, МНН или штрихкод</source>
        <translation>Search goods: name, INN or barcode</translation>
    </message>
    <message id="receiptTotal">
        <source>ИТОГО</source>
        <translation>TOTAL</translation>
    </message>
    <message id="receiptNumber">
        <source>Чек № %1</source>
        <translation>Receipt %1</translation>
    </message>
    <message id="receiptNone">
        <source>Чек не открыт</source>
        <translation>No open receipt</translation>
    </message>
    <message id="receiptMemberDamaged">
        <source>Данные «%1» отсутствуют или искажены</source>
        <translation>“%1” is missing or damaged</translation>
    </message>
    <message id="documentNotFound">
        <source>Документа № %1 нет среди отложенных и завершённых.
Проверьте номер.</source>
        <translation>There is no document No. %1 among those put aside and finished.
Check the number.</translation>
    </message>
    <message id="takeBackNotPutAside">
        <source>Возврат нельзя отложить: завершите его или отмените.</source>
        <translation>A return cannot be put aside: finish it or cancel it.</translation>
    </message>
    <message id="finishOpenReceiptFirst">
        <source>Сначала завершите или отложите открытый чек № %1.</source>
        <translation>First finish or put aside the open receipt No. %1.</translation>
    </message>
    <message id="takeBackTitle">
        <source>Возврат продажи</source>
        <translation>Return of a sale</translation>
    </message>
    <message id="takeBackMessage">
        <source>Номер чека, по которому возвращают товар</source>
        <translation>Number of the receipt that goods are returned for</translation>
    </message>
    <message id="resumeOnlySuspended">
        <source>Документ № %1 не отложен, его нельзя взять в работу.</source>
        <translation>Document No. %1 is not suspended and cannot be resumed.</translation>
    </message>
    <message id="takeBackOnlyClosedSale">
        <source>Документ № %1 — не закрытая продажа, его нельзя вернуть.</source>
        <translation>Document No. %1 is no closed sale and cannot be returned.</translation>
    </message>
    <message id="takenBackAlready">
        <source>Продажа № %1 уже возвращена документом № %2.</source>
        <translation>Sale No. %1 has already been returned by document No. %2.</translation>
    </message>
    <message id="annulTitle">
        <source>Аннулирование документа</source>
        <translation>Annul a document</translation>
    </message>
    <message id="annulMessage">
        <source>Номер отложенного чека или закрытой продажи</source>
        <translation>Number of a receipt put aside or of a closed sale</translation>
    </message>
    <message id="annulNotPossible">
        <source>Документ № %1 нельзя аннулировать: аннулируются отложенные чеки и закрытые продажи, которые не возвращены.</source>
        <translation>Document No. %1 cannot be annulled: only receipts put aside and closed sales that have not been returned can.</translation>
    </message>
    <message id="annulSaleQuestion">
        <source>Аннулировать продажу № %1 на сумму %2? Деньги возвращаются покупателю.</source>
        <translation>Annul sale No. %1 of %2? The money is given back to the customer.</translation>
    </message>
    <message id="annulSaleWithoutMoneyQuestion">
        <source>Аннулировать продажу № %1 на сумму %2?</source>
        <translation>Annul sale No. %1 of %2?</translation>
    </message>
    <message id="annulPutAsideQuestion">
        <source>Аннулировать отложенный чек № %1 на сумму %2?</source>
        <translation>Annul receipt No. %1 of %2, which was put aside?</translation>
    </message>
    <message id="annulYes">
        <source>Аннулировать</source>
        <translation>Annul</translation>
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
        <translation>Receipt No. %1 closed. Change %2</translation>
    </message>
    <message id="takeBackCancelled">
        <source>Возврат № %1 отменён</source>
        <translation>Return No. %1 cancelled</translation>
    </message>
    <message id="receiptCancelled">
        <source>Чек № %1 отменён</source>
        <translation>Receipt No. %1 cancelled</translation>
    </message>
    <message id="takeBackNumber">
        <source>Возврат № %1 (чек № %2)</source>
        <translation>Return No. %1 (receipt No. %2)</translation>
    </message>
    <message id="receiptPutAside">
        <source>Чек № %1 отложен</source>
        <translation>Receipt No. %1 put aside</translation>
    </message>
    <message id="keySubtotal">
        <source>Подытог</source>
        <translation>Subtotal</translation>
    </message>
    <message id="keyCancelReceipt">
        <source>Отмена чека</source>
        <translation>Cancel receipt</translation>
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
        <translation>%1 belongs to two keys, “%2” has it. For “%3” correct FunctionKey.%4:key in the configuration</translation>
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
        <translation>“%1” is no amount.
Enter the money received, for example 50 or 12.40.</translation>
    </message>
    <message id="receivedTooLittle">
        <source>Получено %1, а к оплате %2.
Не хватает %3.</source>
        <translation>Received %1, due %2.
%3 is missing.</translation>
    </message>
    <message id="receiptEmpty">
        <source>В чеке нет позиций.
Добавьте товар или отмените чек.</source>
        <translation>The receipt has no positions.
Add goods or cancel the receipt.</translation>
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
        <translation>To paying out</translation>
    </message>
    <message id="paymentGoOn">
        <source>К оплате</source>
        <translation>To payment</translation>
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
        <translation>TO PAY</translation>
    </message>
    <message id="paymentPay">
        <source>Закрыть чек</source>
        <translation>Close receipt</translation>
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
        <translation>No amount</translation>
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
        <translation>Only digits and a comma, and no more than two digits after it.</translation>
    </message>
    <message id="paymentHint">
        <source>Ввод — закрыть чек, Esc — назад к позициям. Пустое поле — ровно сумма чека.</source>
        <translation>Enter: close the receipt, Esc: back to the positions. Empty: exactly the sum of the receipt.</translation>
    </message>
    <message id="paymentScanRefused">
        <source>Отсканирован штрихкод, он не считается. Чтобы добавить товар, вернитесь к позициям.</source>
        <translation>A barcode was scanned, it does not count. To add goods go back to the positions.</translation>
    </message>
    <message id="outOfStockTitle">
        <source>Товара нет на остатке</source>
        <translation>Out of stock</translation>
    </message>
    <message id="outOfStockQuestion">
        <source>На остатке нет товара:
%1
Всё равно продать?</source>
        <translation>None of these goods are in stock:
%1
Sell them all the same?</translation>
    </message>
    <message id="outOfStockYes">
        <source>Продать</source>
        <translation>Sell</translation>
    </message>
    <message id="removeBoundTitle">
        <source>Удаление позиции</source>
        <translation>Remove position</translation>
    </message>
    <message id="removeBoundQuestion">
        <source>Позиция отпускается по документу:
%1
Удалить её и отменить отпуск?</source>
        <translation>The position is dispensed on a document:
%1
Remove it and cancel the dispensing?</translation>
    </message>
    <message id="removeBoundYes">
        <source>Удалить</source>
        <translation>Remove</translation>
    </message>
    <message id="cancelBegunTakeBackQuestion">
        <source>Возврат № %1 на сумму %2 уже выполнен частично, и это останется в силе.
Правильно завершить его: «Нет», затем «Оплата».
Всё равно отменить возврат?</source>
        <translation>Return No. %1 of %2 has been done in part already, and that stands.
The right thing is to finish it: “No”, then “Payment”.
Cancel the return all the same?</translation>
    </message>
    <message id="cancelTakeBackTitle">
        <source>Отмена возврата</source>
        <translation>Cancel return</translation>
    </message>
    <message id="cancelTakeBackYes">
        <source>Отменить возврат</source>
        <translation>Cancel return</translation>
    </message>
    <message id="putAsideAnnulled">
        <source>Отложенный чек № %1 аннулирован</source>
        <translation>Receipt No. %1, put aside, was annulled</translation>
    </message>
    <message id="saleWithoutMoneyAnnulled">
        <source>Чек № %1 аннулирован</source>
        <translation>Receipt No. %1 was annulled</translation>
    </message>
    <message id="saleAnnulled">
        <source>Чек № %1 аннулирован. Верните покупателю %2</source>
        <translation>Receipt No. %1 was annulled. Give the customer %2 back</translation>
    </message>
    <message id="takeBackRestored">
        <source>Возврат № %1 восстановлен после перезапуска. Проверьте позиции и продолжайте.</source>
        <translation>Return No. %1 was restored after a restart. Check the positions and go on.</translation>
    </message>
    <message id="receiptRestored">
        <source>Чек № %1 восстановлен после перезапуска. Проверьте позиции и продолжайте.</source>
        <translation>Receipt No. %1 was restored after a restart. Check the positions and go on.</translation>
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
        <source>Печатаются только закрытые документы, которые не аннулированы.</source>
        <translation>Only closed documents that were not annulled are printed.</translation>
    </message>
    <message id="cancelTakeBackQuestion">
        <source>Отменить возврат № %1 на сумму %2?</source>
        <translation>Cancel return No. %1 of %2?</translation>
    </message>
    <message id="cancelReceiptQuestion">
        <source>Отменить чек № %1 на сумму %2?</source>
        <translation>Cancel receipt No. %1 of %2?</translation>
    </message>
    <message id="cancelReceiptTitle">
        <source>Отмена чека</source>
        <translation>Cancel receipt</translation>
    </message>
    <message id="cancelReceiptYes">
        <source>Отменить чек</source>
        <translation>Cancel receipt</translation>
    </message>
    <message id="takeBackIsWhole">
        <source>Продажа возвращается целиком: позиции возврата не меняются.</source>
        <translation>A sale is returned as a whole: the positions of a return do not change.</translation>
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
        <translation>The cancellation was not done</translation>
    </message>
    <message id="actionAnnulDocument">
        <source>Аннулирование не выполнено</source>
        <translation>The annulment was not done</translation>
    </message>
    <message id="actionUnnamed">
        <source>Действие не выполнено</source>
        <translation>The action was not done</translation>
    </message>
    <message id="actionStopped">
        <source>%1. Устраните причину, названную в сообщении, и повторите.</source>
        <translation>%1. Mend the cause that the message named, and try again.</translation>
    </message>
    <message id="actionNotFound">
        <source>%1: модуль не нашёл у себя эту позицию или этот чек. Чек не изменён.
Проверьте, что выбрана нужная строка, и повторите. Если не поможет, позовите администратора.</source>
        <translation>%1: the plug-in knows nothing of this position or receipt. The receipt is unchanged.
Check that the right row is chosen and try again. If that does not help, call the administrator.</translation>
    </message>
    <message id="documentsTitle">
        <source>Документы</source>
        <translation>Documents</translation>
    </message>
    <message id="documentsTakeUp">
        <source>Взять в работу</source>
        <translation>Take up</translation>
    </message>
    <message id="documentsTakeBack">
        <source>Вернуть</source>
        <translation>Return</translation>
    </message>
    <message id="documentsAnnul">
        <source>Аннулировать</source>
        <translation>Annul</translation>
    </message>
    <message id="documentsPrint">
        <source>Печать копии</source>
        <translation>Print a copy</translation>
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
    <message id="documentsPageUp">
        <source>На страницу вверх</source>
        <translation>Page up</translation>
    </message>
    <message id="documentsUp">
        <source>Вверх</source>
        <translation>Up</translation>
    </message>
    <message id="documentsDown">
        <source>Вниз</source>
        <translation>Down</translation>
    </message>
    <message id="documentsPageDown">
        <source>На страницу вниз</source>
        <translation>Page down</translation>
    </message>
    <message id="documentsNone">
        <source>Отложенных и завершённых документов нет.</source>
        <translation>There are no documents put aside or finished.</translation>
    </message>
    <message id="documentsNotFound">
        <source>Ничего не найдено. Измените строку поиска; давние документы ищут по номеру или дню.</source>
        <translation>Nothing was found. Change the search; old documents are found by number or day.</translation>
    </message>
    <message id="documentsReceiptOpen">
        <source>Открыт чек № %1: взять в работу и вернуть можно, когда он завершён или отложен.</source>
        <translation>Receipt No. %1 is open: documents can be taken up and returned when it is finished or put aside.</translation>
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
        <translation>Return of receipt No. %1</translation>
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
        <translation>Put aside</translation>
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
        <translation>Annulled</translation>
    </message>
    <message id="menuPutAside">
        <source>Отложить чек</source>
        <translation>Put receipt aside</translation>
    </message>
    <message id="menuDocuments">
        <source>Документы</source>
        <translation>Documents</translation>
    </message>
    <message id="menuTakeBack">
        <source>Возврат продажи</source>
        <translation>Return of a sale</translation>
    </message>
    <message id="menuAnnul">
        <source>Аннулировать по номеру</source>
        <translation>Annul by number</translation>
    </message>
    <message id="menuCancelReceipt">
        <source>Отменить чек</source>
        <translation>Cancel receipt</translation>
    </message>
    <message id="menuReceiptOpen">
        <source>сначала завершите чек № %1</source>
        <translation>first finish receipt No. %1</translation>
    </message>
    <message id="menuTakeBackOpen">
        <source>возврат не откладывают</source>
        <translation>a return is not put aside</translation>
    </message>
    <message id="menuNoPlugin">
        <source>нет модуля</source>
        <translation>no plug-in does it</translation>
    </message>
    <message id="menuNoReceipt">
        <source>чек не открыт</source>
        <translation>no receipt is open</translation>
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
        <translation>annulled %1</translation>
    </message>
</context>
</TS>
