<?xml version="1.0" encoding="utf-8"?>
<!-- SPDX-License-Identifier: MIT -->
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="ru">
<context>
    <name></name>
    <message id="helloGreeting">
        <source>%1
Закрыто чеков: %2</source>
        <translation>%1
Receipts closed: %2</translation>
    </message>
    <message id="helloEmptyReceipt">
        <source>В чеке нет товаров.
Добавьте товар.</source>
        <translation>The receipt is empty.
Add goods first.</translation>
    </message>
</context>
</TS>
