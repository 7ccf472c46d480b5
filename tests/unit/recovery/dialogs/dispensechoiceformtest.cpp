// SPDX-License-Identifier: MIT
// What the cashier sees and does: keys, clicks, and every way out.
#include "dispensechoicefixture.h"

#include <QLabel>
#include <QPushButton>

namespace
{

class DispenseChoiceFormTest : public DispenseChoiceFixture
{
protected:
    static QPushButton* confirmButton(const QWidget& form) { return widget<QPushButton>(form, u"chooseButton"_s); }
    static QString text(const QWidget& form, const QString& label) { return widget<QLabel>(form, label)->text(); }
    static QStringList row(const QWidget& form, int number)
    {
        const QAbstractItemModel* model = table(form)->model();
        QStringList texts;
        for (int column = 0; column < model->columnCount(); ++column) {
            texts.append(model->index(number, column).data().toString());
        }
        return texts;
    }
    static void click(const QWidget& form, int number)
    {
        const TalloTableView* view = table(form);
        const QRect cell = view->visualRect(view->model()->index(number, 0));
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, cell.center());
    }
    static void expectNothingChosen(const QWidget& form)
    {
        EXPECT_FALSE(table(form)->currentIndex().isValid());
        EXPECT_FALSE(table(form)->selectionModel()->hasSelection());
        EXPECT_FALSE(confirmButton(form)->isEnabled());
    }
};

struct Keys {
    const char* name;
    QList<Qt::Key> keys;
    DispenseChoice::Kind kind;
    int row;
};

class DispenseChoiceKeys : public DispenseChoiceFormTest, public ::testing::WithParamInterface<Keys>
{
};

struct WayOut {
    const char* name;
    std::function<void(QWidget& form)> leave;
};

class DispenseChoiceWayOut : public DispenseChoiceFormTest, public ::testing::WithParamInterface<WayOut>
{
};

const auto nameOfInstance = [](const auto& instance) { return std::string(instance.param.name); };

} // namespace

TEST_P(DispenseChoiceKeys, arrowThenReturn_decides)
{
    const DispenseChoice choice = ask(twoDispenses(), [](QWidget&) { press(GetParam().keys); });
    EXPECT_TRUE(isAnswered);
    EXPECT_EQ(choice.kind, GetParam().kind);
    EXPECT_EQ(choice.row, GetParam().row);
}

INSTANTIATE_TEST_SUITE_P(
    , DispenseChoiceKeys,
    ::testing::Values(
        Keys{"down", {Qt::Key_Down, Qt::Key_Return}, DispenseChoice::Chosen, 0},
        Keys{"up", {Qt::Key_Up, Qt::Key_Return}, DispenseChoice::Chosen, 0},
        Keys{"enterOfTheDigits", {Qt::Key_Down, Qt::Key_Enter}, DispenseChoice::Chosen, 0},
        Keys{"downTwice", {Qt::Key_Down, Qt::Key_Down, Qt::Key_Return}, DispenseChoice::Chosen, 1},
        Keys{"thirdDown", {Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Return}, DispenseChoice::NoneOfThem, -1},
        Keys{"tabToTheButton", {Qt::Key_Down, Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Return}, DispenseChoice::Chosen, 0},
        Keys{"tabToTheWayBack", {Qt::Key_Down, Qt::Key_Tab, Qt::Key_Return}, DispenseChoice::Later, -1}),
    nameOfInstance);

TEST_P(DispenseChoiceWayOut, left_isLater)
{
    const DispenseChoice choice = ask(twoDispenses(), [](QWidget& form) {
        press({Qt::Key_Down});
        GetParam().leave(form);
    });
    EXPECT_TRUE(isAnswered);
    EXPECT_EQ(choice.kind, DispenseChoice::Later);
    EXPECT_EQ(choice.row, -1);
}

INSTANTIATE_TEST_SUITE_P(
    , DispenseChoiceWayOut,
    ::testing::Values(
        WayOut{"escape", [](QWidget& form) { QTest::keyClick(&form, Qt::Key_Escape); }},
        WayOut{"windowClosed", [](QWidget& form) { form.close(); }},
        WayOut{"laterButton", [](QWidget& form) { form.findChild<QPushButton*>(u"laterButton"_s)->click(); }},
        WayOut{"endOfTheProgram", [](QWidget&) { Singleton<GraphicalUserInterface>::get()->cancelForms(); }}),
    nameOfInstance);

TEST_F(DispenseChoiceFormTest, hastyReturns_decideNothing)
{
    ask(twoDispenses(), [](QWidget& form) {
        EXPECT_EQ(QApplication::focusWidget(), table(form));
        expectNothingChosen(form);
        press({Qt::Key_Return, Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space, Qt::Key_Return});
        expectNothingChosen(form);
    });
    EXPECT_FALSE(isAnswered);
}

TEST_F(DispenseChoiceFormTest, typedAmountAndReturn_decideNothing)
{
    ask(twoDispenses(), [](QWidget& form) {
        QTest::keyClicks(table(form), u"29.02"_s);
        press({Qt::Key_Return});
        expectNothingChosen(form);
    });
    EXPECT_FALSE(isAnswered);
}

TEST_F(DispenseChoiceFormTest, focusComesBackToTheTable_stillNothingIsChosen)
{
    ask(twoDispenses(), [](QWidget& form) {
        press({Qt::Key_Tab});
        EXPECT_EQ(QApplication::focusWidget(), widget<QWidget>(form, u"laterButton"_s));
        press({Qt::Key_Tab});
        EXPECT_EQ(QApplication::focusWidget(), table(form));
        press({Qt::Key_Return});
        expectNothingChosen(form);
    });
    EXPECT_FALSE(isAnswered);
}

TEST_F(DispenseChoiceFormTest, rowClicked_buttonConfirmsIt)
{
    const DispenseChoice choice = ask(twoDispenses(), [](QWidget& form) {
        EXPECT_EQ(confirmButton(form)->toolTip(), u"<qt>Сначала выберите строку.</qt>"_s);
        click(form, 1);
        EXPECT_TRUE(confirmButton(form)->isEnabled());
        EXPECT_TRUE(confirmButton(form)->toolTip().isEmpty());
        confirmButton(form)->click();
    });
    EXPECT_TRUE(isAnswered);
    EXPECT_EQ(choice.kind, DispenseChoice::Chosen);
    EXPECT_EQ(choice.row, 1);
}

TEST_F(DispenseChoiceFormTest, rowClickedTwice_isOnlyChosen)
{
    ask(twoDispenses(), [](QWidget& form) {
        const TalloTableView* view = table(form);
        click(form, 0);
        QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, view->visualRect(view->model()->index(0, 0)).center());
        EXPECT_TRUE(confirmButton(form)->isEnabled());
    });
    EXPECT_FALSE(isAnswered);
}

TEST_F(DispenseChoiceFormTest, shown_saysWhatWasAskedAndWhatTheRegistryHolds)
{
    ask(twoDispenses(), [](QWidget& form) {
        EXPECT_EQ(text(form, u"titleLabel"_s), u"Отпуск по рецепту: что записано в реестре"_s);
        EXPECT_EQ(text(form, u"goodsLabel"_s), u"Амоксидар, капсулы 500 мг № 16"_s);
        EXPECT_EQ(text(form, u"requestLabel"_s), u"Доз: 10 · запрос отправлен: 29.02.2024 12:30:05 · рецепт 4500-1"_s);
        EXPECT_TRUE(text(form, u"questionLabel"_s).contains(u"Какой отпуск в списке — этот?"_s));
        ASSERT_EQ(table(form)->model()->rowCount(), 3);
        EXPECT_EQ(row(form, 0), (QStringList{u"29.02.2024 12:30"_s, u"10"_s, u"Аптека № 7"_s, u"d-71"_s}));
        EXPECT_EQ(row(form, 1), (QStringList{u"29.02.2024"_s, u"10"_s, u"Аптека № 8"_s, u"реестр не сообщает"_s}));
        EXPECT_EQ(row(form, 2).first(), u"Ни один из них — отпуска в реестре нет"_s);
        EXPECT_EQ(table(form)->columnSpan(2, 0), 4);
        EXPECT_EQ(confirmButton(form)->text(), u"Выбрать"_s);
        EXPECT_EQ(widget<QPushButton>(form, u"laterButton"_s)->text(), u"Отложить решение"_s);
    });
}

TEST_F(DispenseChoiceFormTest, registryDoesNotShowThePrescription_cashierConfirmsThatThereIsNoDispense)
{
    const DispenseChoice choice = ask(noDispenses(), [](QWidget& form) {
        EXPECT_TRUE(text(form, u"questionLabel"_s).contains(u"этого рецепта реестр кассе не показывает"_s));
        ASSERT_EQ(table(form)->model()->rowCount(), 2);
        EXPECT_EQ(row(form, 0).first(), u"Отпуск в реестре есть"_s);
        EXPECT_EQ(row(form, 1).first(), u"Отпуска в реестре нет"_s);
        EXPECT_EQ(table(form)->columnSpan(0, 0), 4);
        EXPECT_EQ(table(form)->columnSpan(1, 0), 4);
        press({Qt::Key_Return});
        expectNothingChosen(form);
        press({Qt::Key_Down, Qt::Key_Down, Qt::Key_Return});
    });
    EXPECT_TRUE(isAnswered);
    EXPECT_EQ(choice.kind, DispenseChoice::NoneOfThem);
}

TEST_F(DispenseChoiceFormTest, registryDoesNotShowThePrescription_cashierConfirmsThatThereIsADispense)
{
    const DispenseChoice choice = ask(noDispenses(), [](QWidget&) { press({Qt::Key_Down, Qt::Key_Return}); });
    EXPECT_EQ(choice.kind, DispenseChoice::HeldUnseen);
    EXPECT_EQ(choice.row, -1);
}

TEST_F(DispenseChoiceFormTest, textsWithMarkupAndDirectionMarks_areShownAsPlainText)
{
    DispenseChoiceParams params = twoDispenses();
    params.goods = u"<b>Амоксидар</b>\u202e%1 № 16"_s;
    params.prescription = u"<a href='x'>\u20664500</a>"_s;
    ask(params, [](QWidget& form) {
        EXPECT_EQ(text(form, u"goodsLabel"_s), u"<b>Амоксидар</b>%1 № 16"_s);
        EXPECT_TRUE(text(form, u"requestLabel"_s).endsWith(u"рецепт <a href='x'>4500</a>"_s));
        for (const auto* label : form.findChildren<QLabel*>()) {
            EXPECT_EQ(label->textFormat(), Qt::PlainText) << qPrintable(label->objectName());
        }
    });
}

TEST_F(DispenseChoiceFormTest, withoutTouchMode_hintNamesTheKeys)
{
    ask(twoDispenses(), [](QWidget& form) {
        EXPECT_TRUE(text(form, u"hintLabel"_s).contains(u"«Ввод»"_s));
        EXPECT_TRUE(text(form, u"hintLabel"_s).contains(u"Esc"_s));
        EXPECT_EQ(form.findChild<QWidget*>(u"scrollUpButton"_s), nullptr);
    });
}

TEST_F(DispenseChoiceFormTest, touchMode_hintNamesTheButtonAndNoKey)
{
    setTouchMode(true);
    const DispenseChoice choice = ask(twoDispenses(), [](QWidget& form) {
        const QString hint = text(form, u"hintLabel"_s);
        EXPECT_TRUE(hint.contains(u'«' + confirmButton(form)->text() + u'»')) << qPrintable(hint);
        for (const auto& key : {u"Ввод"_s, u"Esc"_s, u"стрел"_s}) {
            EXPECT_FALSE(hint.contains(key)) << qPrintable(hint);
        }
        widget<QPushButton>(form, u"scrollDownButton"_s)->click();
        EXPECT_EQ(table(form)->currentIndex().row(), 0);
        confirmButton(form)->click();
    });
    EXPECT_TRUE(isAnswered);
    EXPECT_EQ(choice.row, 0);
}

TEST_F(DispenseChoiceFormTest, fiftyDispenses_lastRowIsReachedAndMeansNone)
{
    DispenseChoiceParams params = twoDispenses();
    params.dispenses = QList<DispenseChoiceRow>(50, params.dispenses.first());
    const DispenseChoice choice = ask(params, [](QWidget& form) {
        press(QList<Qt::Key>(51, Qt::Key_Down));
        EXPECT_EQ(table(form)->currentIndex().row(), 50);
        EXPECT_TRUE(table(form)->viewport()->rect().contains(table(form)->visualRect(table(form)->currentIndex())));
        press({Qt::Key_Return});
    });
    EXPECT_TRUE(isAnswered);
    EXPECT_EQ(choice.kind, DispenseChoice::NoneOfThem);
}

TEST_F(DispenseChoiceFormTest, help_saysTheKeysAndWhatComesNext)
{
    ask(twoDispenses(), [this](QWidget&) {
        const FormHelp help = gui.object.topForm()->help();
        QStringList keys;
        for (const FormHelp::Key& key : help.keys) {
            keys.append(key.key);
            EXPECT_FALSE(key.does.ui().isEmpty());
        }
        EXPECT_EQ(keys, (QStringList{FormHelp::arrowKeys(), FormHelp::enterKey(), u"Esc"_s}));
        EXPECT_TRUE(help.next.ui().contains(u"отложите решение"_s));
    });
}
