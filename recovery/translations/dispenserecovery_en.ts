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
        <source>Возврат можно отложить и обслужить следующего покупателя; когда возврат возобновят, касса спросит реестр снова.</source>
        <translation>The return can be suspended and the next customer served; when it is resumed, the register asks the registry again.</translation>
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
    <message id="dispenseRecoveryMeanwhileStored">
        <source>До тех пор документ остаётся как был.</source>
        <translation>Until then the document stays as it was.</translation>
    </message>
    <message id="dispenseRecoveryMeanwhile">
        <source>До тех пор документ можно отложить и обслужить следующего покупателя.</source>
        <translation>Until then the document can be suspended and the next customer served.</translation>
    </message>
    <message id="dispenseRecoveryIdNotShown">
        <source>реестр не сообщает</source>
        <translation>not shown by the registry</translation>
    </message>
    <message id="dispenseRecoveryHeldInVain">
        <source>Отпуск записан в реестре, а по чеку ничего не выдано: %1, номер отпуска: %2. Попросите оператора реестра отменить его и повторите сверку.</source>
        <translation>The registry holds the dispense although nothing was handed out with the sale: %1, dispense number: %2. Ask the registry’s operator to cancel it and repeat the comparison.</translation>
    </message>
    <message id="dispenseRecoveryRequest">
        <source>рецепт %1, доз: %2, отправлено %3</source>
        <translation>prescription %1, doses: %2, sent %3</translation>
    </message>
    <message id="dispenseRecoveryCancelledButSold">
        <source>Отпуск в реестре отменён, а продажа закрыта: %1. Аннулируйте продажу или оформите возврат.</source>
        <translation>The dispense is cancelled in the registry, but the sale is closed: %1. Void the sale or return it.</translation>
    </message>
    <message id="dispenseRecoveryCancellationUndecided">
        <source>Запрос не решён: отмена отпуска %1, отправлено %2. Спросите оператора реестра, отменён ли этот отпуск, и повторите сверку.</source>
        <translation>Undecided request: cancellation of dispense %1, sent %2. Ask the registry’s operator whether this dispense is cancelled, and repeat the comparison.</translation>
    </message>
    <message id="dispenseRecoveryRegistrationUndecided">
        <source>Запрос не решён: %1. Спросите оператора реестра, записан ли этот отпуск, и повторите сверку.</source>
        <translation>Undecided request: %1. Ask the registry’s operator whether the registry holds this dispense, and repeat the comparison.</translation>
    </message>
    <message id="dispenseRecoveryRequestWithoutDocument">
        <source>Запрос был без документа.</source>
        <translation>The request had no document.</translation>
    </message>
    <message id="dispenseRecoveryDocumentMissing">
        <source>Документа %1 на кассе нет.</source>
        <translation>The register has no document %1.</translation>
    </message>
    <message id="dispenseRecoveryCancelledWithoutDocument">
        <source>Отпуск %1 отменён в реестре. Если товар не возвращён, сообщите администратору.</source>
        <translation>Dispense %1 is cancelled in the registry. If the goods were not returned, tell the administrator.</translation>
    </message>
    <message id="dispenseRecoveryCardRefused">
        <source>%1

Реестр не знает карту этого документа и не показывает её рецепты: карту могли заменить или закрыть. Спросите оператора реестра, что записано, и выберите его ответ.</source>
        <translation>%1

The registry does not know the card of this document and shows none of its prescriptions: the card may have been replaced or closed. Ask the registry’s operator what it holds, and choose the answer.</translation>
    </message>
    <message id="dispenseRecoveryCardNotCompared">
        <source>Реестр не знает карту этого документа (%1): другие отпуска по ней не сверены.</source>
        <translation>The registry does not know the card of this document (%1): other dispenses of the card were not compared.</translation>
    </message>
    <message id="dispenseRecoveryWithoutIds">
        <source>Касса не может отменить отпуск, номер которого реестр не сообщил: %1.
Ничего не отправлено. Попросите оператора реестра отменить этот отпуск. Когда он отменён, повторите команду и выберите последнюю строку списка. %2</source>
        <translation>The register cannot cancel a dispense whose number the registry has not shown: %1.
Nothing was sent. Ask the registry’s operator to cancel this dispense. Once it is cancelled, repeat the command and choose the last row of the list. %2</translation>
    </message>
    <message id="dispenseRecoveryUndecidedRequests">
        <source>Не решено, что записано в реестре по запросам без документа. Дайте команду «Сверка с реестром».</source>
        <translation>It is undecided what the registry holds of requests without a document. Give the command “Comparison with the registry”.</translation>
    </message>
    <message id="dispenseRecoveryUndecidedDocuments">
        <source>Не решено, что записано в реестре. Документы: %1. Дайте команду «Сверка с реестром».</source>
        <translation>It is undecided what the registry holds. Documents: %1. Give the command “Comparison with the registry”.</translation>
    </message>
    <message id="dispenseRecoveryJournalDamaged">
        <source>Журнал запросов был повреждён: касса могла забыть запросы без ответа. Дайте команду «Сверка с реестром» и сообщите администратору.</source>
        <translation>The journal of requests was damaged: the register may have forgotten requests without an answer. Give the command “Comparison with the registry” and tell the administrator.</translation>
    </message>
    <message id="dispenseRecoveryJournalMissing">
        <source>в настройке RestClient:journal нет */MedicationDispense/*, поэтому потерянные ответы реестра не сверяются</source>
        <translation>the setting RestClient:journal lacks */MedicationDispense/*, so that lost answers of the registry are not settled</translation>
    </message>
    <message id="dispenseRecoveryPositionMissing">
        <source>Позиции этого отпуска в чеке нет</source>
        <translation>The document does not have the position of this dispense</translation>
    </message>
    <message id="dispenseRecoveryRegisteredWithoutDocument">
        <source>Отпуск записан в реестре: %1, номер отпуска: %2. Если товар не выдан, попросите оператора реестра отменить его.</source>
        <translation>The registry holds the dispense: %1, dispense number: %2. If the goods were not handed out, ask the registry’s operator to cancel it.</translation>
    </message>
</context>
</TS>
