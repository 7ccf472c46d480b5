<?xml version="1.0" encoding="utf-8"?>
<!-- SPDX-License-Identifier: MIT -->
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="ru">
<context>
    <name></name>
    <message id="dispenseChoiceTitle">
        <source>Отпуск по рецепту: что записано в реестре</source>
        <translation>Dispense on a prescription: what the registry holds</translation>
    </message>
    <message id="dispenseChoiceRequest">
        <source>Доз: %1 · запрос отправлен: %2 · рецепт %3</source>
        <translation>Doses: %1 · request sent: %2 · prescription %3</translation>
    </message>
    <message id="dispenseChoiceQuestion">
        <source>Ответ реестра на этот отпуск не дошёл до кассы. Ниже всё, что реестр показывает по рецепту. Какой отпуск в списке — этот? Если ни один, выберите последнюю строку: касса запишет отпуск заново.</source>
        <translation>The registry’s answer to this dispense did not reach the register. Below is all that the registry shows of the prescription. Which dispense in the list is this one? If none is, choose the last row: the register will register the dispense anew.</translation>
    </message>
    <message id="dispenseChoiceNothing">
        <source>Ответ реестра на этот отпуск не дошёл до кассы, и реестр не показывает по рецепту ни одного отпуска. Подтвердите, что отпуск не записан: касса запишет его заново.</source>
        <translation>The registry’s answer to this dispense did not reach the register, and the registry shows no dispense of the prescription. Confirm that the dispense is not registered: the register will register it anew.</translation>
    </message>
    <message id="dispenseChoiceHint">
        <source>Выберите строку стрелками и нажмите «Ввод». Esc — отложить: до решения в реестр ничего не отправляется.</source>
        <translation>Choose a row with the arrow keys and press Enter. Esc: decide later. Before you decide nothing is sent to the registry.</translation>
    </message>
    <message id="dispenseChoiceTouchHint">
        <source>Коснитесь строки, затем кнопки «Выбрать». Пока решение отложено, в реестр ничего не отправляется.</source>
        <translation>Tap a row, then the button “Choose”. While the decision is put off, nothing is sent to the registry.</translation>
    </message>
    <message id="dispenseChoiceNoneOfThem">
        <source>Ни один из них — отпуск не записан</source>
        <translation>None of them: the dispense is not registered</translation>
    </message>
    <message id="dispenseChoiceNotRegistered">
        <source>Отпуск не записан</source>
        <translation>The dispense is not registered</translation>
    </message>
    <message id="dispenseChoiceHandedOver">
        <source>Отпущено</source>
        <translation>Dispensed</translation>
    </message>
    <message id="dispenseChoiceDoses">
        <source>Доз</source>
        <translation>Doses</translation>
    </message>
    <message id="dispenseChoicePharmacy">
        <source>Аптека</source>
        <translation>Pharmacy</translation>
    </message>
    <message id="dispenseChoiceId">
        <source>Номер записи</source>
        <translation>Record number</translation>
    </message>
    <message id="dispenseChoiceWithoutId">
        <source>реестр не сообщает</source>
        <translation>not shown by the registry</translation>
    </message>
    <message id="dispenseChoiceConfirm">
        <source>Выбрать</source>
        <translation>Choose</translation>
    </message>
    <message id="dispenseChoiceLater">
        <source>Отложить решение</source>
        <translation>Decide later</translation>
    </message>
    <message id="dispenseChoiceNoRow">
        <source>Сначала выберите строку.</source>
        <translation>Choose a row first.</translation>
    </message>
    <message id="dispenseChoiceTable">
        <source>Отпуск по рецепту в реестре</source>
        <translation>Dispenses of the prescription in the registry</translation>
    </message>
    <message id="dispenseChoicePageUp">
        <source>На страницу вверх</source>
        <translation>Page up</translation>
    </message>
    <message id="dispenseChoiceUp">
        <source>Вверх</source>
        <translation>Up</translation>
    </message>
    <message id="dispenseChoiceDown">
        <source>Вниз</source>
        <translation>Down</translation>
    </message>
    <message id="dispenseChoicePageDown">
        <source>На страницу вниз</source>
        <translation>Page down</translation>
    </message>
    <message id="dispenseChoiceHelpRow">
        <source>выбрать отпуск</source>
        <translation>choose a dispense</translation>
    </message>
    <message id="dispenseChoiceHelpEnter">
        <source>подтвердить выбранный</source>
        <translation>confirm the chosen one</translation>
    </message>
    <message id="dispenseChoiceHelpLater">
        <source>отложить решение</source>
        <translation>decide later</translation>
    </message>
    <message id="dispenseChoiceHelpNext">
        <source>Найдите отпуск, ответ на который не дошёл: сверьте время, дозы и аптеку. Если его нет, выберите последнюю строку: касса запишет отпуск заново. Не уверены — отложите решение: чек можно отложить и обслужить следующего покупателя.</source>
        <translation>Find the dispense whose answer was lost: compare time, doses and pharmacy. If it is not there, choose the last row: the register will register the dispense anew. If you are not sure, decide later: you can suspend the receipt and serve the next customer.</translation>
    </message>
    <message id="dispenseRecoveryStateUnknown">
        <source>состояние неизвестно</source>
        <translation>state unknown</translation>
    </message>
    <message id="dispenseRecoveryUndoing">
        <source>Если отпуск записан в реестре, он будет отменён.</source>
        <translation>If the registry holds the dispense, it will be cancelled.</translation>
    </message>
</context>
</TS>
