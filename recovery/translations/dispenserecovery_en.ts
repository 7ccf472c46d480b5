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
        <source>Ответ реестра об этом отпуске не дошёл до кассы. Ниже всё похожее, что показывает реестр. Какой отпуск в списке — этот? Если ни один, выберите последнюю строку.</source>
        <translation>The registry’s answer about this dispense did not reach the register. Below is all that the registry shows and that is like it. Which dispense in the list is this one? If none is, choose the last row.</translation>
    </message>
    <message id="dispenseChoiceNothing">
        <source>Ответ реестра об этом отпуске не дошёл до кассы, и этого рецепта реестр кассе не показывает. Спросите оператора реестра и выберите, что он ответит.</source>
        <translation>The registry’s answer about this dispense did not reach the register, and the registry does not show the prescription. Ask the registry’s operator and choose what the answer is.</translation>
    </message>
    <message id="dispenseChoiceIsRegistered">
        <source>Отпуск в реестре есть</source>
        <translation>The registry holds this dispense</translation>
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
        <source>Ни один из них — отпуска в реестре нет</source>
        <translation>None of them: the registry does not hold it</translation>
    </message>
    <message id="dispenseChoiceNotRegistered">
        <source>Отпуска в реестре нет</source>
        <translation>The registry does not hold it</translation>
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
        <translation>Record id</translation>
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
        <source>Найдите отпуск, ответ на который не дошёл: сверьте время, дозы и аптеку. Если его нет, выберите последнюю строку. Не уверены — отложите решение: чек можно отложить и обслужить следующего покупателя.</source>
        <translation>Find the dispense whose answer was lost: compare time, doses and pharmacy. If it is not there, choose the last row. If you are not sure, decide later: you can suspend the document and serve the next customer.</translation>
    </message>
    <message id="dispenseRecoveryStateUnknown">
        <source>состояние неизвестно</source>
        <translation>state unknown</translation>
    </message>
    <message id="dispenseRecoveryUndoing">
        <source>Если отпуск записан в реестре, он будет отменён.</source>
        <translation>If the registry holds the dispense, it will be cancelled.</translation>
    </message>
    <message id="dispenseRecoveryWayOnStored">
        <source>Документ остался как был. Повторите команду, когда реестр снова отвечает.</source>
        <translation>The document stays as it was. Repeat the command when the registry answers again.</translation>
    </message>
    <message id="dispenseRecoveryWayOnReturn">
        <source>Повторите подытог, когда реестр снова отвечает, или отмените возврат: продажа останется закрытой.</source>
        <translation>Repeat the subtotal when the registry answers again, or cancel the return: the sale then stays closed.</translation>
    </message>
    <message id="dispenseRecoveryWayOnSale">
        <source>Чек можно отложить и обслужить следующего покупателя; когда чек возобновят, касса спросит реестр снова.</source>
        <translation>The sale can be suspended and the next customer served; when it is resumed, the register asks the registry again.</translation>
    </message>
    <message id="dispenseRecoveryAsking">
        <source>Сверка с реестром электронных рецептов</source>
        <translation>Asking the registry of electronic prescriptions what it holds</translation>
    </message>
    <message id="dispenseRecoveryPosition">
        <source>рецепт %1, %2</source>
        <translation>prescription %1, %2</translation>
    </message>
    <message id="dispenseRecoveryRegisteredWithoutId">
        <source>Отпуск записан в реестре: %1.</source>
        <translation>The registry holds the dispense: %1.</translation>
    </message>
    <message id="dispenseRecoveryRegistered">
        <source>Отпуск записан в реестре под номером %2: %1.</source>
        <translation>The registry holds the dispense as number %2: %1.</translation>
    </message>
    <message id="dispenseRecoveryNotRegistered">
        <source>Отпуска в реестре нет: %1.</source>
        <translation>The registry does not hold the dispense: %1.</translation>
    </message>
    <message id="dispenseRecoveryCancelled">
        <source>Отпуск в реестре отменён: %1.</source>
        <translation>The dispense is cancelled in the registry: %1.</translation>
    </message>
    <message id="dispenseRecoveryNotCancelled">
        <source>Отпуск в реестре не отменён: %1.</source>
        <translation>The dispense is not cancelled in the registry: %1.</translation>
    </message>
    <message id="dispenseRecoveryUndecided">
        <source>Не решено: %1.</source>
        <translation>Undecided: %1.</translation>
    </message>
    <message id="dispenseRecoveryUnclaimed">
        <source>В реестре есть отпуск этой аптеки, которого нет в документах кассы: %1, номер отпуска %2, доз: %3. Проверьте другие кассы; лишний отпуск отменяет оператор реестра.</source>
        <translation>The registry holds a dispense of this pharmacy that no document of the register has: %1, dispense number %2, doses: %3. Look at the other registers; the registry’s operator cancels a dispense too many.</translation>
    </message>
    <message id="dispenseRecoveryReconciliation">
        <source>Сверка с реестром</source>
        <translation>Comparison with the registry</translation>
    </message>
    <message id="dispenseRecoveryOfDocument">
        <source>Документ %1. %2</source>
        <translation>Document %1. %2</translation>
    </message>
    <message id="dispenseRecoveryBrokenOff">
        <source>Сверка прервана. Сверено документов: %1. Повторите её, когда причина устранена.</source>
        <translation>The comparison was broken off. Documents compared: %1. Repeat it when the cause is removed.</translation>
    </message>
    <message id="dispenseRecoveryReconciled">
        <source>Сверка закончена. Сверено документов: %1.</source>
        <translation>The comparison is complete. Documents compared: %1.</translation>
    </message>
    <message id="dispenseRecoveryReconciledInPart">
        <source>Сверка закончена. Сверено документов: %1, не решено: %2. Повторите её, когда решение известно.</source>
        <translation>The comparison is complete. Documents compared: %1, undecided: %2. Repeat it when the decision is known.</translation>
    </message>
    <message id="dispenseRecoveryCannotAsk">
        <source>%1

Касса не знает, что записано в реестре: %2.
Ничего не отправлено. %3</source>
        <translation>%1

The register does not know what the registry holds: %2.
Nothing was sent. %3</translation>
    </message>
</context>
</TS>
