// SPDX-License-Identifier: MIT
#include "actionhost.h"
#include "clockdouble.h"
#include "looks.h"
#include "registeraction.h"
#include "storeddocumentcommands.h"
#include "windowfixture.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>

using namespace Qt::StringLiterals;

/// Document 1 is a sale that was returned by 2, 3 is a sale, 4 is cancelled, 5 is suspended.
class DocumentListFormTest : public WindowFixture
{
protected:
    DocumentListFormTest()
        : printer(folder.path(), marks)
        , documentCommands(*till, printer, marks)
    {
        documentCommands.offer(controller.object);
        sell();
        EXPECT_TRUE(till->returnSale(till->archive().find(1)));
        EXPECT_TRUE(till->close({Payment::cash(Kopecks{1240})}));
        sell();
        till->add(article(amoxidar));
        EXPECT_TRUE(till->cancel());
        till->add(article(amoxidar));
        till->add(article(u"2990000000026"_s));
        EXPECT_TRUE(till->suspend());
    }
    void sell()
    {
        till->add(article(amoxidar));
        EXPECT_TRUE(till->close({Payment::cash(Kopecks{1240})}));
    }

    /// Shows the list, does `act` in it, and closes it unless `act` has.
    void inList(const Cashier::Act& act)
    {
        if (!window) {
            openWindow();
        }
        cashier.onForm(u"documentListForm"_s, [this, &act](QWidget& root) {
            list = &root;
            act(root);
            gui.object.cancelForms();
        });
        controller.object.enqueue(control::Action(registeraction::showDocuments), false);
        ASSERT_TRUE(QTest::qWaitFor([this] { return cashier.isDone(); }));
        ASSERT_TRUE(becomesIdle());
    }
    QTableView* table() const { return list->findChild<QTableView*>(u"documentTable"_s); }
    QPushButton* button(const char* name) const { return list->findChild<QPushButton*>(QLatin1StringView(name)); }
    QLabel* hint() const { return list->findChild<QLabel*>(u"hintLabel"_s); }
    void search(const char* text) const
    {
        list->findChild<QLineEdit*>(u"filterLineEdit"_s)->setText(QString::fromUtf8(text));
    }
    QString number(int row) const { return table()->model()->index(row, 0).data().toString(); }
    QString current() const { return number(table()->currentIndex().row()); }
    void makeCurrent(int wanted) const
    {
        for (int row = 0; row < table()->model()->rowCount(); ++row) {
            if (number(row) == QString::number(wanted)) {
                table()->setCurrentIndex(table()->model()->index(row, 0));
            }
        }
        ASSERT_EQ(current(), QString::number(wanted));
    }
    QString state(int row) const { return table()->model()->index(row, 1).data().toString(); }
    void answerQuestion(const char* answer)
    {
        cashier.onForm(u"questionForm"_s,
                       [answer](QWidget& root) { root.findChild<QPushButton*>(QLatin1StringView(answer))->click(); });
    }

    ReceiptPrinter printer;
    StoredDocumentCommands documentCommands;
    QWidget* list = nullptr;
};

TEST_F(DocumentListFormTest, shown_latestFirstInTheContextOfStoredDocuments)
{
    inList([this](QWidget& root) {
        EXPECT_EQ(root.size(), window->size());
        EXPECT_EQ(controller.object.context(), EContext::StoredDocuments);
        EXPECT_EQ(table()->model()->rowCount(), 5);
        EXPECT_EQ(current(), u"5"_s);
        EXPECT_EQ(state(0), u"Отложен"_s);
        EXPECT_EQ(state(1), u"Отменён"_s);
        EXPECT_EQ(state(2), u"Продажа"_s);
        EXPECT_EQ(state(3), u"Возврат чека № 1"_s);
        EXPECT_EQ(state(4), u"Продажа, возвращена документом № 2"_s);
        EXPECT_EQ(QApplication::focusWidget(), root.findChild<QWidget*>(u"filterLineEdit"_s));
    });
}

TEST_F(DocumentListFormTest, current_isShownWithItsPositions)
{
    inList([this](QWidget& root) {
        const auto* positions = root.findChild<QTableView*>(u"positionsTable"_s)->model();
        EXPECT_EQ(positions->rowCount(), 2);
        EXPECT_TRUE(positions->index(0, 1).data().toString().startsWith(u"Амоксидар"_s));
        press(Qt::Key_Down);
        EXPECT_EQ(current(), u"4"_s);
        EXPECT_EQ(positions->rowCount(), 1);
    });
}

struct Possible {
    int document;
    bool resume;
    bool returnSale;
    bool voidDocument;
    bool print;
};

class DocumentButtons : public DocumentListFormTest, public ::testing::WithParamInterface<Possible>
{
};

TEST_P(DocumentButtons, areEnabledWhenTheyCanDoSomething)
{
    inList([this](QWidget&) {
        makeCurrent(GetParam().document);
        EXPECT_EQ(button("takeUpButton")->isEnabled(), GetParam().resume);
        EXPECT_EQ(button("takeBackButton")->isEnabled(), GetParam().returnSale);
        EXPECT_EQ(button("annulButton")->isEnabled(), GetParam().voidDocument);
        EXPECT_EQ(button("printButton")->isEnabled(), GetParam().print);
        const QString obstacle =
            u"Печатаются только закрытые документы, которые не аннулированы. Выберите такой документ."_s;
        EXPECT_EQ(hint()->text(), GetParam().print ? QString() : obstacle);
        EXPECT_EQ(button("printButton")->toolTip(), GetParam().print ? QString() : obstacle);
    });
}

INSTANTIATE_TEST_SUITE_P(, DocumentButtons,
                         ::testing::Values(Possible{1, false, false, false, true},
                                           Possible{2, false, false, false, true}, Possible{3, false, true, true, true},
                                           Possible{4, false, false, false, false},
                                           Possible{5, true, false, true, false}),
                         [](const auto& instance) { return "document" + std::to_string(instance.param.document); });

TEST_F(DocumentListFormTest, documentOpen_resumingAndReturningAreDisabledAndTheListSaysWhy)
{
    till->open();
    inList([this](QWidget&) {
        EXPECT_FALSE(button("takeUpButton")->isEnabled());
        EXPECT_TRUE(button("annulButton")->isEnabled());
        EXPECT_EQ(hint()->text(), u"Сначала завершите или отложите открытый чек № 6."_s);
        makeCurrent(3);
        EXPECT_FALSE(button("takeBackButton")->isEnabled());
        press(Qt::Key_Return);
        EXPECT_TRUE(gui.object.topForm());
    });
    EXPECT_EQ(till->document()->getNumber(), 6);
}

TEST_F(DocumentListFormTest, returnKeyOnASuspendedDocument_resumesIt)
{
    inList([this](QWidget&) { press(Qt::Key_Return); });
    ASSERT_TRUE(till->document());
    EXPECT_EQ(till->document()->getNumber(), 5);
    EXPECT_EQ(widget<QLabel>("receiptNumberLabel")->text(), u"Чек № 5"_s);
    EXPECT_EQ(QApplication::focusWidget(), widget<QWidget>("searchLineEdit"));
}

TEST_F(DocumentListFormTest, f6OnASuspendedDocument_resumesItAndTheButtonNamesTheKey)
{
    inList([this](QWidget&) {
        EXPECT_EQ(button("takeUpButton")->text(), u"F6 Взять в работу"_s);
        press(Qt::Key_F6);
    });
    ASSERT_TRUE(till->document());
    EXPECT_EQ(till->document()->getNumber(), 5);
}

TEST_F(DocumentListFormTest, suspendedWithALostCardAnswer_saysSoInTheRowAndOnAmberBelow)
{
    const auto lost = till->archive().find(5);
    lost->setCardOperation({.amount = Kopecks{480}, .reference = u"5-1"_s});
    ASSERT_TRUE(till->archive().saveOrShow(lost));
    inList([this](QWidget&) {
        makeCurrent(5);
        EXPECT_EQ(state(0), u"Отложен, исход по карте неизвестен"_s);
        EXPECT_EQ(hint()->text(), u"Документ № 5: неизвестно, прошла ли операция по карте.\n"
                                  "Возьмите его в работу: касса спросит терминал."_s);
        EXPECT_EQ(hint()->property("textRole"), u"waiting"_s);
    });
}

TEST_F(DocumentListFormTest, returnOpen_theHintDoesNotAdviseToSuspendIt)
{
    ASSERT_TRUE(till->returnSale(till->archive().find(3)));
    inList([this](QWidget&) {
        makeCurrent(1);
        EXPECT_EQ(hint()->text(), u"Сначала завершите открытый документ № 6: отложить его нельзя."_s);
    });
}

TEST_F(DocumentListFormTest, touchMode_buttonsNameNoKey)
{
    config.set(u"GUI:touchMode"_s, u"true"_s);
    inList([](QWidget& root) { EXPECT_EQ(looks::namesOfKeys(looks::textsOn(root)), QStringList()); });
}

TEST_F(DocumentListFormTest, returnKeyOnASale_doesNothing)
{
    inList([this](QWidget&) {
        makeCurrent(3);
        press(Qt::Key_Return);
        EXPECT_TRUE(gui.object.topForm());
    });
    EXPECT_FALSE(till->document());
}

struct Act {
    const char* name;
    bool byTouch;
};

class DocumentAct : public DocumentListFormTest, public ::testing::WithParamInterface<Act>
{
protected:
    DocumentAct() { config.set(u"GUI:touchMode"_s, QLatin1StringView(GetParam().byTouch ? "true" : "false")); }
    void act(const char* name, Qt::Key key)
    {
        if (GetParam().byTouch) {
            QTest::mouseClick(button(name), Qt::LeftButton);
        } else {
            press(key);
        }
    }
};

TEST_P(DocumentAct, returnSale_opensTheReturn)
{
    inList([this](QWidget&) {
        makeCurrent(3);
        act("takeBackButton", Qt::Key_F7);
    });
    ASSERT_TRUE(till->document());
    EXPECT_EQ(till->document()->getReturnedSale(), 3);
    EXPECT_EQ(widget<QLabel>("receiptNumberLabel")->text(), u"Возврат № 6 (чек № 3)"_s);
}

TEST_P(DocumentAct, voidDocument_asksAndKeepsTheRowCurrent)
{
    inList([this](QWidget&) {
        makeCurrent(3);
        answerQuestion("noButton");
        act("annulButton", Qt::Key_F8);
        EXPECT_EQ(state(2), u"Продажа"_s);
        answerQuestion("yesButton");
        act("annulButton", Qt::Key_F8);
        EXPECT_EQ(current(), u"3"_s);
        EXPECT_EQ(state(2), u"Аннулирован"_s);
        EXPECT_FALSE(button("annulButton")->isEnabled());
        EXPECT_FALSE(button("printButton")->isEnabled());
        EXPECT_EQ(hint()->text(), u"Чек № 3 аннулирован. Верните покупателю 12,40"_s);
        EXPECT_EQ(controller.object.context(), EContext::StoredDocuments);
    });
    EXPECT_EQ(till->archive().find(3)->getState(), Document::State::Voided);
}

TEST_P(DocumentAct, print_printsACopyAndTheListStaysOpen)
{
    QDir(folder.filePath(u"printed"_s)).removeRecursively();
    inList([this](QWidget&) {
        makeCurrent(3);
        act("printButton", Qt::Key_F9);
        EXPECT_TRUE(gui.object.topForm());
        EXPECT_EQ(current(), u"3"_s);
        EXPECT_EQ(hint()->text(), u"Документ № 3 напечатан: printed/00000003.pdf"_s);
        act("printButton", Qt::Key_F9);
        EXPECT_EQ(hint()->text(), u"Документ № 3 напечатан: printed/00000003-copy.pdf"_s);
    });
    for (const char* file : {"00000003.txt", "00000003.pdf", "00000003-copy.txt", "00000003-copy.pdf"}) {
        EXPECT_TRUE(QFile::exists(folder.filePath(u"printed/"_s + QLatin1StringView(file)))) << file;
    }
}

INSTANTIATE_TEST_SUITE_P(, DocumentAct, ::testing::Values(Act{"byKey", false}, Act{"byTouch", true}),
                         [](const auto& instance) { return std::string(instance.param.name); });

TEST_F(DocumentListFormTest, pluginStopsVoiding_theListSaysSoWhileThatDocumentIsCurrent)
{
    controller.object.host().addTrigger({EContext::StoredDocuments, control::VoidDocument, ActionTrigger::Before,
                                         [](const control::Action&) { return EContext::Stop; }, ActionTrigger::Any, 1});
    inList([this](QWidget&) {
        makeCurrent(3);
        answerQuestion("yesButton");
        press(Qt::Key_F8);
        EXPECT_EQ(current(), u"3"_s);
        EXPECT_EQ(state(2), u"Продажа"_s);
        EXPECT_TRUE(hint()->text().startsWith(u"Аннулирование не выполнено: модуль остановил"_s))
            << qPrintable(hint()->text());
        EXPECT_EQ(hint()->property("textRole").toString(), u"waiting"_s);
        press(Qt::Key_Down);
        EXPECT_TRUE(hint()->text().isEmpty());
    });
}

struct Search {
    const char* name;
    const char* text;
    QList<int> found;
};

class DocumentSearch : public DocumentListFormTest, public ::testing::WithParamInterface<Search>
{
};

TEST_P(DocumentSearch, findsByNumberStateAndGoods)
{
    inList([this](QWidget&) {
        search(GetParam().text);
        QList<int> found;
        for (int row = 0; row < table()->model()->rowCount(); ++row) {
            found.append(number(row).toInt());
        }
        EXPECT_EQ(found, GetParam().found);
        EXPECT_EQ(current().toInt(), GetParam().found.first());
    });
}

INSTANTIATE_TEST_SUITE_P(, DocumentSearch,
                         ::testing::Values(Search{"number", "3", {3}}, Search{"state", "отлож", {5}},
                                           Search{"goods", "Борвит", {5}},
                                           Search{"wordsInAnyOrder", "борвит  отлож", {5}},
                                           Search{"wordsOfTwoGoods", "борвит амоксидар", {5}},
                                           Search{"wrongLayout", "<jhdbn", {5}},
                                           Search{"oneWordInTheWrongLayout", "отлож ,jhdbn", {5}},
                                           Search{"yoForYe", "отложён", {5}}, Search{"yeForYo", "отменен", {4}}),
                         [](const auto& instance) { return std::string(instance.param.name); });

/// More documents than the list shows: 600 sales of long ago, one a day, before those of today.
class OldDocuments : public DocumentListFormTest
{
protected:
    OldDocuments()
    {
        for (const char* place : {"putaside", "finished"}) {
            QDir(folder.filePath(QLatin1StringView(place))).removeRecursively();
        }
        QDir(folder.path()).mkpath(u"finished"_s);
        for (int number = 1; number <= count; ++number) {
            Document document(number, QDateTime(firstDay.addDays(number - 1), {9, 0}));
            document.setEnding({.state = Document::State::Closed, .finished = document.getOpened()});
            QFile file(folder.filePath(document.fileName()));
            EXPECT_TRUE(file.open(QIODevice::WriteOnly));
            file.write(QJsonDocument(document.toJson()).toJson());
        }
    }
    QList<int> found() const
    {
        QList<int> numbers;
        for (int row = 0; row < table()->model()->rowCount(); ++row) {
            numbers.append(number(row).toInt());
        }
        return numbers;
    }

    static constexpr int count = 600;
    const QDate firstDay{2023, 1, 1};
    ClockDouble clock{QDateTime({2024, 2, 3}, {12, 0})};
};

TEST_F(OldDocuments, beforeASearch_theLatestAreShown)
{
    inList([this](QWidget&) {
        EXPECT_EQ(table()->model()->rowCount(), 500);
        EXPECT_EQ(current(), u"600"_s);
    });
}

TEST_F(OldDocuments, numberTyped_isFoundAndCurrent)
{
    inList([this](QWidget&) {
        search("7");
        EXPECT_EQ(current(), u"7"_s);
        search("601");
        EXPECT_TRUE(found().isEmpty());
        search("");
        EXPECT_EQ(table()->model()->rowCount(), 501) << "one that was found stays in the list";
    });
}

struct TypedDay {
    const char* name;
    const char* text;
    int document;
};

class OldDay : public OldDocuments, public ::testing::WithParamInterface<TypedDay>
{
};

TEST_P(OldDay, typed_itsDocumentIsFound)
{
    inList([this](QWidget&) {
        search(GetParam().text);
        EXPECT_EQ(found(), QList<int>{GetParam().document});
        EXPECT_EQ(current().toInt(), GetParam().document);
    });
}

INSTANTIATE_TEST_SUITE_P(, OldDay,
                         ::testing::Values(TypedDay{"whole", "05.01.2023", 5}, TypedDay{"short", "5.1.23", 5},
                                           TypedDay{"commas", " 05,01,2023 ", 5}, TypedDay{"ofThisYear", "03.02", 399},
                                           TypedDay{"withoutAYearYet", "04.02.", 35},
                                           TypedDay{"ofTheLatest", "22.08.2024", 600}),
                         [](const auto& instance) { return std::string(instance.param.name); });

TEST_F(OldDocuments, dayWithoutDocuments_nothingIsFound)
{
    inList([this](QWidget&) {
        search("31.12.2022");
        EXPECT_TRUE(found().isEmpty());
        EXPECT_TRUE(hint()->text().startsWith(u"Ничего не найдено"_s));
        search("31.02.2023");
        EXPECT_TRUE(found().isEmpty());
    });
}

TEST_F(OldDocuments, foundByItsDayAndVoided_staysCurrent)
{
    inList([this](QWidget&) {
        search("05.01.2023");
        answerQuestion("yesButton");
        press(Qt::Key_F8);
        EXPECT_EQ(current(), u"5"_s);
        EXPECT_EQ(state(0), u"Аннулирован"_s);
    });
}

TEST_F(DocumentListFormTest, nothingFound_isShownAndAllButtonsAreDisabled)
{
    inList([this](QWidget&) {
        search("нет такого");
        EXPECT_EQ(hint()->text(),
                  u"Ничего не найдено. Измените строку поиска; давние документы ищут по номеру или дню."_s);
        for (const char* name : {"takeUpButton", "takeBackButton", "annulButton", "printButton"}) {
            EXPECT_FALSE(button(name)->isEnabled()) << name;
        }
        press(Qt::Key_Return);
        EXPECT_TRUE(gui.object.topForm());
    });
}

TEST_F(DocumentListFormTest, noDocuments_isShown)
{
    for (const char* place : {"putaside", "finished"}) {
        QDir(folder.filePath(QLatin1StringView(place))).removeRecursively();
    }
    inList([this](QWidget&) {
        EXPECT_EQ(hint()->text(), u"Отложенных и завершённых документов нет."_s);
        EXPECT_TRUE(hint()->isVisible());
    });
}

TEST_F(DocumentListFormTest, left_nothingHappens)
{
    inList([this](QWidget&) { press(Qt::Key_Escape); });
    inList([this](QWidget&) { QTest::mouseClick(button("cancelButton"), Qt::LeftButton); });
    EXPECT_FALSE(till->document());
    EXPECT_EQ(QApplication::focusWidget(), widget<QWidget>("searchLineEdit"));
}

TEST_F(DocumentListFormTest, touchMode_lettersAreTypedOnAWideKeyboardBelowTheList)
{
    config.set(u"GUI:touchMode"_s, u"true"_s);
    inList([this](QWidget& root) {
        QApplication::processEvents();
        const auto seenKey = [&root](const QString& name) -> QPushButton* {
            for (auto* key : root.findChildren<QPushButton*>(u"key_"_s + name)) {
                if (key->isVisible()) {
                    return key;
                }
            }
            return nullptr;
        };
        QTest::mouseClick(seenKey(u"layout"_s), Qt::LeftButton);
        QApplication::processEvents();
        EXPECT_EQ(window->size(), QSize(1024, 600));
        EXPECT_FALSE(root.findChild<QWidget*>(u"positionsTable"_s)->isVisible());
        EXPECT_GE(table()->viewport()->height(), 3 * table()->rowHeight(0));
        EXPECT_GE(table()->width(), 900);
        for (const char* key : {"ё", "б", "enter", "backspace"}) {
            const auto* button = seenKey(QString::fromUtf8(key));
            ASSERT_NE(button, nullptr) << key;
            EXPECT_EQ(button->visibleRegion().boundingRect(), button->rect()) << key;
        }
        for (const char* key : {"б", "о", "р"}) {
            QTest::mouseClick(seenKey(QString::fromUtf8(key)), Qt::LeftButton);
        }
        EXPECT_EQ(root.findChild<QLineEdit*>(u"filterLineEdit"_s)->text(), u"бор"_s);
        EXPECT_EQ(table()->model()->rowCount(), 1);
        for (int layout = 0; layout < 2; ++layout) { // English, digits again
            QTest::mouseClick(seenKey(u"layout"_s), Qt::LeftButton);
        }
        EXPECT_TRUE(root.findChild<QWidget*>(u"positionsTable"_s)->isVisible());
    });
}

TEST_F(DocumentListFormTest, touchMode_fitsTheSmallestScreenAndScrollsByButtons)
{
    config.set(u"GUI:touchMode"_s, u"true"_s);
    inList([this](QWidget& root) {
        EXPECT_EQ(window->size(), QSize(1024, 600));
        EXPECT_LE(root.minimumSizeHint().width(), 1024);
        EXPECT_LE(root.minimumSizeHint().height(), 600);
        QTest::mouseClick(button("scrollDownButton"), Qt::LeftButton);
        EXPECT_EQ(current(), u"4"_s);
        QTest::mouseClick(button("key_3"), Qt::LeftButton);
        EXPECT_EQ(current(), u"3"_s);
    });
}
