<?xml version="1.0" encoding="utf-8"?>
<!-- SPDX-License-Identifier: MIT -->
<!DOCTYPE TS>
<TS version="2.1" language="be" sourcelanguage="ru">
<context>
    <name></name>
    <message id="registerTitle">
        <source>Касса аптеки</source>
        <translation>Каса аптэкі</translation>
    </message>
</context>
</TS>
