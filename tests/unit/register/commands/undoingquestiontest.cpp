// SPDX-License-Identifier: MIT
// What questions and messages say of the part that plug-ins undo: only what there is.
#include "commandfixture.h"
#include "dialogdouble.h"
#include "registeraction.h"
#include "storeddocumentcommands.h"
#include "terminaldouble.h"

#include <QLabel>

using namespace Qt::StringLiterals;

class UndoingQuestion : public CommandFixture
{
protected:
    UndoingQuestion()
    {
        storedDocumentCommands.offer(controller.object);
        QFile file(folder.filePath(u"marks.json"_s));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(R"({"positions": [{"tag": "paper", "origin": "по накладной", "states": [
            {"option": "status", "value": "done", "text": "выдан", "undoing": "Выдача будет отменена."}]}]})");
        file.close();
        marks.load(file.fileName());
        till->setMarks(marks);
    }

    /// Adds a position from an external document.
    void addExternal(const QString& options)
    {
        till->add(article(amoxidar));
        const auto position = till->document()->positions().last();
        position->setTag(u"paper"_s);
        position->setSoftCheckId(u"rx-1"_s);
        position->setExtendedOptions(options);
    }
    int soldExternal(const QString& options)
    {
        addExternal(options);
        const int number = till->document()->getNumber();
        EXPECT_TRUE(till->close({Payment::cash(Kopecks{1240})}));
        return number;
    }
    /// The question that the action asks; the answer is no.
    QString questionOf(control::EActionType type, const QVariantMap& arguments = {})
    {
        QString question;
        cashier.onForm(u"questionForm"_s, [&question](QWidget& root) {
            question = root.findChild<QLabel*>(u"messageLabel"_s)->text();
            press(root, "noButton");
        });
        EXPECT_EQ(run(type, arguments), EContext::Stop);
        return question;
    }

    const QString done = uR"({"status": "done"})"_s;
    PositionMarks marks;
    ReceiptPrinter printer{folder.path(), marks};
    StoredDocumentCommands storedDocumentCommands{*till, printer, marks};
};

TEST_F(UndoingQuestion, removal_namesTheOriginAndWhatIsUndone)
{
    addExternal(done);
    addExternal({});
    const QString name = article(amoxidar).goods.name;
    EXPECT_EQ(questionOf(registeraction::askToRemovePosition, positionNumber(1)),
              u"Позиция отпускается по накладной:\n%1\nУдалить её?\nВыдача будет отменена."_s.arg(name));
    EXPECT_EQ(questionOf(registeraction::askToRemovePosition, positionNumber(2)),
              u"Позиция отпускается по накладной:\n%1\nУдалить её?"_s.arg(name))
        << "nothing was done yet";
}

TEST_F(UndoingQuestion, cancelling_namesWhatIsUndoneOnce)
{
    addExternal({});
    EXPECT_EQ(questionOf(registeraction::askToCancelDocument), u"Отменить чек № 1 на сумму 12,40?"_s);
    addExternal(done);
    addExternal(done);
    EXPECT_EQ(questionOf(registeraction::askToCancelDocument),
              u"Отменить чек № 1 на сумму 37,20?\nВыдача будет отменена."_s);
}

TEST_F(UndoingQuestion, cancellingOfAReturn_undoesNothing)
{
    soldExternal(done);
    ASSERT_TRUE(till->returnSale(archived(1)));
    EXPECT_EQ(questionOf(registeraction::askToCancelDocument), u"Отменить возврат № 2 на сумму 12,40?"_s);
}

TEST_F(UndoingQuestion, voiding_namesWhatIsUndone)
{
    const int registered = soldExternal(done);
    const int other = soldExternal({});
    EXPECT_EQ(questionOf(registeraction::voidByNumber, {{u"number"_s, registered}}),
              u"Аннулировать продажу № 1 на сумму 12,40? Деньги возвращаются покупателю.\nВыдача будет отменена."_s);
    EXPECT_EQ(questionOf(registeraction::voidByNumber, {{u"number"_s, other}}),
              u"Аннулировать продажу № 2 на сумму 12,40? Деньги возвращаются покупателю."_s);
}

TEST_F(UndoingQuestion, voidingWithoutTheRefund_speaksOfADispenseOnlyWhenThereIsOne)
{
    addHook(EContext::Idle, control::VoidDocument, [](const control::Action& voiding) {
        const auto document = voiding.value(u"document"_s).value<QSharedPointer<AbstractDocument>>();
        document->getPosition(1)->setExtendedOptions(uR"({"status": "undone"})"_s);
        return EContext::GoOn;
    });
    ConnectedTerminal terminal;
    const DialogDouble dialog;
    const auto sellByCard = [this] {
        till->setPhase(Till::Phase::Payment);
        EXPECT_EQ(run(registeraction::pay, {{u"method"_s, u"card"_s}}), EContext::GoOn);
    };
    till->add(article(amoxidar));
    sellByCard();
    addExternal(done);
    sellByCard();
    terminal->onMove = [](const auto&, const auto&) { return CardAnswer::declined(); };
    const auto lastMessageOfVoiding = [this, &dialog](int number) {
        answerQuestion("yesButton");
        answerQuestion("noButton"); // cash instead
        EXPECT_EQ(run(registeraction::voidByNumber, {{u"number"_s, number}}), EContext::Stop);
        return dialog.messages().value(dialog.messages().size() - 1).text;
    };
    EXPECT_EQ(lastMessageOfVoiding(1), u"Аннулирование документа № 1 не завершено: деньги возвращены не все.\n"
                                       "Повторите аннулирование, когда терминал ответит."_s);
    EXPECT_EQ(lastMessageOfVoiding(2),
              u"Аннулирование документа № 2 не завершено: деньги возвращены не все, а "
              "отпуск по накладной мог быть отменён.\nПовторите аннулирование, когда терминал ответит."_s);
}
