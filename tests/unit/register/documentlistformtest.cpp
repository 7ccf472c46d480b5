// SPDX-License-Identifier: MIT
#include "documentcommands.h"
#include "registeraction.h"
#include "shownmessages.h"
#include "tillwindow.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>

/// On disk: № 1 sold and taken back by № 2, № 3 sold, № 4 cancelled, № 5 put aside.
class DocumentListFormTest : public TillWindow
{
protected:
    DocumentListFormTest()
        : printer(folder.path(), marks)
        , documentCommands(*sale, printer, marks)
    {
        documentCommands.offer(controller.object);
        sell();
        EXPECT_TRUE(sale->takeBack(sale->archive().find(1)));
        EXPECT_TRUE(sale->close(1240));
        sell();
        sale->add(article(amoxidar));
        EXPECT_TRUE(sale->cancel());
        sale->add(article(amoxidar));
        sale->add(article(QStringLiteral("2990000000026")));
        EXPECT_TRUE(sale->putAside());
    }
    void sell()
    {
        sale->add(article(amoxidar));
        EXPECT_TRUE(sale->close(1240));
    }

    /// Shows the list, does `act` in it, and leaves it, if `act` has not.
    void inList(const Cashier::Act& act)
    {
        if (!window)
            openWindow();
        cashier.onForm(QStringLiteral("documentListForm"), [this, &act](QWidget& root) {
            list = &root;
            act(root);
            gui.object.cancelForms();
        });
        controller.object.enqueue(control::Action(registeraction::showDocuments), false);
        ASSERT_TRUE(QTest::qWaitFor([this] { return cashier.isDone(); }));
        ASSERT_TRUE(becomesIdle());
    }
    QTableView* table() const { return list->findChild<QTableView*>(QStringLiteral("documentTable")); }
    QPushButton* button(const char* name) const { return list->findChild<QPushButton*>(QLatin1String(name)); }
    QLabel* hint() const { return list->findChild<QLabel*>(QStringLiteral("hintLabel")); }
    void search(const char* text) const
    {
        list->findChild<QLineEdit*>(QStringLiteral("filterLineEdit"))->setText(QString::fromUtf8(text));
    }
    QString number(int row) const { return table()->model()->index(row, 0).data().toString(); }
    QString current() const { return number(table()->currentIndex().row()); }
    void makeCurrent(int wanted) const
    {
        for (int row = 0; row < table()->model()->rowCount(); ++row)
            if (number(row) == QString::number(wanted))
                table()->setCurrentIndex(table()->model()->index(row, 0));
        ASSERT_EQ(current(), QString::number(wanted));
    }
    QString state(int row) const { return table()->model()->index(row, 1).data().toString(); }
    void answerQuestion(const char* answer)
    {
        cashier.onForm(QStringLiteral("questionForm"),
                       [answer](QWidget& root) { root.findChild<QPushButton*>(QLatin1String(answer))->click(); });
    }

    ReceiptPrinter printer;
    DocumentCommands documentCommands;
    QWidget* list = nullptr;
};

TEST_F(DocumentListFormTest, shown_latestFirstInTheContextOfStoredDocuments)
{
    inList([this](QWidget& root) {
        EXPECT_EQ(root.size(), window->size());
        EXPECT_EQ(controller.object.context(), EContext::StoredDocuments);
        EXPECT_EQ(table()->model()->rowCount(), 5);
        EXPECT_EQ(current(), QStringLiteral("5"));
        EXPECT_EQ(state(0), QStringLiteral("Отложен"));
        EXPECT_EQ(state(1), QStringLiteral("Отменён"));
        EXPECT_EQ(state(2), QStringLiteral("Продажа"));
        EXPECT_EQ(state(3), QStringLiteral("Возврат чека № 1"));
        EXPECT_EQ(state(4), QStringLiteral("Продажа, возвращена документом № 2"));
        EXPECT_EQ(QApplication::focusWidget(), root.findChild<QWidget*>(QStringLiteral("filterLineEdit")));
    });
}

TEST_F(DocumentListFormTest, current_isShownWithItsPositions)
{
    inList([this](QWidget& root) {
        const auto* positions = root.findChild<QTableView*>(QStringLiteral("positionsTable"))->model();
        EXPECT_EQ(positions->rowCount(), 2);
        EXPECT_TRUE(positions->index(0, 1).data().toString().startsWith(QStringLiteral("Амоксидар")));
        press(Qt::Key_Down);
        EXPECT_EQ(current(), QStringLiteral("4"));
        EXPECT_EQ(positions->rowCount(), 1);
    });
}

struct Possible {
    int document;
    bool takeUp;
    bool takeBack;
    bool annul;
    bool print;
};

class DocumentButtons : public DocumentListFormTest, public ::testing::WithParamInterface<Possible>
{
};

TEST_P(DocumentButtons, areUsableWhereTheyDoSomething)
{
    inList([this](QWidget&) {
        makeCurrent(GetParam().document);
        EXPECT_EQ(button("takeUpButton")->isEnabled(), GetParam().takeUp);
        EXPECT_EQ(button("takeBackButton")->isEnabled(), GetParam().takeBack);
        EXPECT_EQ(button("annulButton")->isEnabled(), GetParam().annul);
        EXPECT_EQ(button("printButton")->isEnabled(), GetParam().print);
        const QString obstacle = QStringLiteral("Печатаются только закрытые документы, которые не аннулированы.");
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

TEST_F(DocumentListFormTest, receiptOpen_nothingIsTakenUpOrBackAndTheListSaysWhy)
{
    sale->open();
    inList([this](QWidget&) {
        EXPECT_FALSE(button("takeUpButton")->isEnabled());
        EXPECT_TRUE(button("annulButton")->isEnabled());
        EXPECT_TRUE(hint()->text().startsWith(QStringLiteral("Открыт чек № 6"))) << qPrintable(hint()->text());
        makeCurrent(3);
        EXPECT_FALSE(button("takeBackButton")->isEnabled());
        press(Qt::Key_Return);
        EXPECT_TRUE(gui.object.topForm());
    });
    EXPECT_EQ(sale->receipt()->getNumber(), 6);
}

TEST_F(DocumentListFormTest, returnOnWhatWasPutAside_takesItUp)
{
    inList([this](QWidget&) { press(Qt::Key_Return); });
    ASSERT_TRUE(sale->receipt());
    EXPECT_EQ(sale->receipt()->getNumber(), 5);
    EXPECT_EQ(widget<QLabel>("receiptNumberLabel")->text(), QStringLiteral("Чек № 5"));
    EXPECT_EQ(QApplication::focusWidget(), widget<QWidget>("searchLineEdit"));
}

TEST_F(DocumentListFormTest, returnOnASale_doesNothing)
{
    inList([this](QWidget&) {
        makeCurrent(3);
        press(Qt::Key_Return);
        EXPECT_TRUE(gui.object.topForm());
    });
    EXPECT_FALSE(sale->receipt());
}

struct Act {
    const char* name;
    bool byTouch;
};

class DocumentAct : public DocumentListFormTest, public ::testing::WithParamInterface<Act>
{
protected:
    DocumentAct() { config.set(QStringLiteral("GUI:touchMode"), QLatin1String(GetParam().byTouch ? "true" : "false")); }
    void act(const char* name, Qt::Key key)
    {
        if (GetParam().byTouch)
            QTest::mouseClick(button(name), Qt::LeftButton);
        else
            press(key);
    }
};

TEST_P(DocumentAct, takeBack_opensTheCancellingDocument)
{
    inList([this](QWidget&) {
        makeCurrent(3);
        act("takeBackButton", Qt::Key_F7);
    });
    ASSERT_TRUE(sale->receipt());
    EXPECT_EQ(sale->receipt()->getTakesBack(), 3);
    EXPECT_EQ(widget<QLabel>("receiptNumberLabel")->text(), QStringLiteral("Возврат № 6 (чек № 3)"));
}

TEST_P(DocumentAct, annul_asksAndShowsTheSameRowAnew)
{
    inList([this](QWidget&) {
        makeCurrent(3);
        answerQuestion("noButton");
        act("annulButton", Qt::Key_F8);
        EXPECT_EQ(state(2), QStringLiteral("Продажа"));
        answerQuestion("yesButton");
        act("annulButton", Qt::Key_F8);
        EXPECT_EQ(current(), QStringLiteral("3"));
        EXPECT_EQ(state(2), QStringLiteral("Аннулирован"));
        EXPECT_FALSE(button("annulButton")->isEnabled());
        EXPECT_FALSE(button("printButton")->isEnabled());
        EXPECT_EQ(hint()->text(), QStringLiteral("Чек № 3 аннулирован. Верните покупателю 12,40"));
        EXPECT_EQ(controller.object.context(), EContext::StoredDocuments);
    });
    EXPECT_EQ(sale->archive().find(3)->getState(), Receipt::State::Annulled);
}

TEST_P(DocumentAct, print_printsACopyAndTheListStays)
{
    QDir(folder.filePath(QStringLiteral("printed"))).removeRecursively();
    inList([this](QWidget&) {
        makeCurrent(3);
        act("printButton", Qt::Key_F9);
        EXPECT_TRUE(gui.object.topForm());
        EXPECT_EQ(current(), QStringLiteral("3"));
        EXPECT_EQ(hint()->text(), QStringLiteral("Документ № 3 напечатан: printed/00000003.pdf"));
        act("printButton", Qt::Key_F9);
        EXPECT_EQ(hint()->text(), QStringLiteral("Документ № 3 напечатан: printed/00000003-copy.pdf"));
    });
    for (const char* file : {"00000003.txt", "00000003.pdf", "00000003-copy.txt", "00000003-copy.pdf"})
        EXPECT_TRUE(QFile::exists(folder.filePath(QStringLiteral("printed/") + QLatin1String(file)))) << file;
}

INSTANTIATE_TEST_SUITE_P(, DocumentAct, ::testing::Values(Act{"byKey", false}, Act{"byTouch", true}),
                         [](const auto& instance) { return std::string(instance.param.name); });

TEST_F(DocumentListFormTest, pluginStopsTheAnnulling_theListSaysSoAtThatDocument)
{
    controller.object.addTrigger({EContext::StoredDocuments, control::AnnulDocument, ActionTrigger::Before,
                                  [](const control::Action&) { return EContext::Stop; }, ActionTrigger::Any, 1});
    inList([this](QWidget&) {
        makeCurrent(3);
        answerQuestion("yesButton");
        press(Qt::Key_F8);
        EXPECT_EQ(current(), QStringLiteral("3"));
        EXPECT_EQ(state(2), QStringLiteral("Продажа"));
        EXPECT_TRUE(hint()->text().startsWith(QStringLiteral("Аннулирование не выполнено. Устраните причину")))
            << qPrintable(hint()->text());
        EXPECT_EQ(hint()->property("textRole").toString(), QStringLiteral("waiting"));
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
        for (int row = 0; row < table()->model()->rowCount(); ++row)
            found.append(number(row).toInt());
        EXPECT_EQ(found, GetParam().found);
        EXPECT_EQ(current().toInt(), GetParam().found.first());
    });
}

INSTANTIATE_TEST_SUITE_P(, DocumentSearch,
                         ::testing::Values(Search{"number", "3", {3}}, Search{"state", "отлож", {5}},
                                           Search{"goods", "Борвит", {5}}),
                         [](const auto& instance) { return std::string(instance.param.name); });

TEST_F(DocumentListFormTest, nothingFound_isSaidAndNothingCanBeDone)
{
    inList([this](QWidget&) {
        search("нет такого");
        EXPECT_EQ(hint()->text(), QStringLiteral("Ничего не найдено. Измените строку поиска."));
        for (const char* name : {"takeUpButton", "takeBackButton", "annulButton", "printButton"})
            EXPECT_FALSE(button(name)->isEnabled()) << name;
        press(Qt::Key_Return);
        EXPECT_TRUE(gui.object.topForm());
    });
}

TEST_F(DocumentListFormTest, noDocuments_isSaid)
{
    for (const char* place : {"putaside", "finished"})
        QDir(folder.filePath(QLatin1String(place))).removeRecursively();
    inList([this](QWidget&) {
        EXPECT_EQ(hint()->text(), QStringLiteral("Отложенных и завершённых документов нет."));
        EXPECT_TRUE(hint()->isVisible());
    });
}

TEST_F(DocumentListFormTest, left_nothingHappens)
{
    inList([this](QWidget&) { press(Qt::Key_Escape); });
    inList([this](QWidget&) { QTest::mouseClick(button("cancelButton"), Qt::LeftButton); });
    EXPECT_FALSE(sale->receipt());
    EXPECT_EQ(QApplication::focusWidget(), widget<QWidget>("searchLineEdit"));
}

TEST_F(DocumentListFormTest, byTouch_fitsTheSmallestScreenAndScrollsByButtons)
{
    config.set(QStringLiteral("GUI:touchMode"), QStringLiteral("true"));
    inList([this](QWidget& root) {
        EXPECT_EQ(window->size(), QSize(1024, 600));
        EXPECT_LE(root.minimumSizeHint().width(), 1024);
        EXPECT_LE(root.minimumSizeHint().height(), 600);
        QTest::mouseClick(button("scrollDownButton"), Qt::LeftButton);
        EXPECT_EQ(current(), QStringLiteral("4"));
        QTest::mouseClick(button("key_3"), Qt::LeftButton);
        EXPECT_EQ(current(), QStringLiteral("3"));
    });
}
