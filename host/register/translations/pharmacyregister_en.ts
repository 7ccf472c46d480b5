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
        <source>Введите количество упаковок от 1 до %1.</source>
        <translation>Enter the number of packs, 1 to %1.</translation>
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
        <translation>The scan could not be read, scan again</translation>
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
        <source>Позиция № %1 отпускается по документу: её количество не меняется и она не удаляется.</source>
        <translation>Position %1 is dispensed under a document: its quantity cannot be changed, and it cannot be removed.</translation>
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
</context>
</TS>
