// SPDX-License-Identifier: MIT
#include "tallotableview.h"
#include "registerstyle.h"
#include "uitest.h"

#include <QAbstractItemModelTester>
#include <QHeaderView>
#include <QHelpEvent>
#include <QStandardItemModel>
#include <QStringListModel>
#include <QStyledItemDelegate>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace
{

class TalloTableViewTest : public UiTest
{
protected:
    TalloTableViewTest()
        : model(5, 4)
        , tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal)
    {
        model.setHorizontalHeaderLabels({"Первый", "Второй", "Третий", "Четвёртый"});
        for (int row = 0; row < 5; ++row) {
            for (int column = 0; column < 4; ++column) {
                model.setItem(row, column, new QStandardItem("ячейка"));
            }
        }
        view.resize(800, 400);
    }

    void show()
    {
        view.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
    }

    QImage header() { return view.horizontalHeader()->grab().toImage(); }

    Qt::Alignment alignmentOf(int column)
    {
        struct Delegate : QStyledItemDelegate {
            using QStyledItemDelegate::initStyleOption;
        };
        QStyleOptionViewItem option;
        (static_cast<QStyledItemDelegate*>(view.itemDelegate())->*&Delegate::initStyleOption)(&option,
                                                                                              model.index(0, column));
        return option.displayAlignment;
    }

    QStandardItemModel model;
    QAbstractItemModelTester tester;
    TalloTableView view;
};

TEST_F(TalloTableViewTest, directionMarksInACell_changeNothingOfThePicture)
{
    view.setModel(&model);
    show();
    model.item(0, 0)->setText(u"Амоксидар 500 мг"_s);
    const QImage plain = view.viewport()->grab().toImage();
    model.item(0, 0)->setText(u"Амоксидар \u202e500 мг"_s);
    EXPECT_EQ(view.viewport()->grab().toImage(), plain);
}

TEST_F(TalloTableViewTest, columnsSet_areReturnedUnchanged)
{
    const QStringList columns{"name;МНН;-1;true;128", " code;;-2;true;128", " broken"};
    view.setModel(&model);
    view.setColumns(columns);
    EXPECT_EQ(view.columns(), columns);
}

TEST_F(TalloTableViewTest, widthMinusOne_takesTheRoomThatIsLeft)
{
    view.setModel(&model);
    view.setColumns({"a;;-1;true;128", "b;;100;true;128", "c;;100;true;128", "d;;100;true;128"});
    show();
    EXPECT_EQ(view.columnWidth(0), view.viewport()->width() - 300);
    view.resize(1000, 400);
    QCoreApplication::processEvents();
    EXPECT_EQ(view.columnWidth(0), view.viewport()->width() - 300);
}

TEST_F(TalloTableViewTest, twoColumnsWithMinusOne_shareTheRoom)
{
    view.setModel(&model);
    view.setColumns({"a;;-1;true;128", "b;;-1;true;128", "c;;100;true;128", "d;;100;true;128"});
    show();
    EXPECT_NEAR(view.columnWidth(0), view.columnWidth(1), 1);
    EXPECT_EQ(view.columnWidth(0) + view.columnWidth(1), view.viewport()->width() - 200);
}

TEST_F(TalloTableViewTest, widthMinusTwo_fitsTheContentsAndFollowsThem)
{
    model.item(0, 1)->setText("ячейка пошире других");
    view.setModel(&model);
    view.setColumns({"a;;-1;true;128", " b;;-2;true;128", "c;;-2;true;128", "d;;-2;true;128"});
    show();
    EXPECT_GT(view.columnWidth(1), view.columnWidth(2));
    const int before = view.columnWidth(2);
    model.item(0, 2)->setText("ячейка ещё пошире других");
    EXPECT_TRUE(QTest::qWaitFor([&] { return view.columnWidth(2) > before; }, 5000));
}

TEST_F(TalloTableViewTest, widthMinusTwoWithAnEndlessText_leavesRoomForTheOthers)
{
    model.item(0, 1)->setText(QString(10000, u'Ж'));
    view.setModel(&model);
    view.setColumns({"a;;-1;true;128", "b;;-2;true;128", "c;;100;true;128", "d;;100;true;128"});
    show();
    EXPECT_LT(view.columnWidth(1), view.width() / 2);
    EXPECT_GT(view.columnWidth(0), 100);
}

TEST_F(TalloTableViewTest, widthMinusThree_holdsTheWidestAmountInBoldAndFollowsTheType)
{
    view.setModel(&model);
    view.setColumns({"a;;-1;true;128", "b;;-2;true;128", "c;;-3;true;130", "d;;-2;true;128"});
    show();
    const auto widest = [this] {
        QFont bold = view.font();
        bold.setBold(true);
        return QFontMetrics(bold).horizontalAdvance(u"9\u00a0999\u00a0999,99"_s);
    };
    EXPECT_GT(view.columnWidth(2), widest());
    const int before = widest();
    QFont larger = view.font();
    larger.setPointSize(larger.pointSize() * 2);
    view.setFont(larger);
    ASSERT_GT(widest(), before);
    EXPECT_TRUE(QTest::qWaitFor([&] { return view.columnWidth(2) > widest(); }, 5000));
    EXPECT_LT(view.columnWidth(1), view.columnWidth(2));
}

TEST_F(TalloTableViewTest, longestTextInTheLastOfManyRows_fits)
{
    QStandardItemModel many(200, 2);
    many.setItem(199, 1, new QStandardItem(u"ячейка пошире других"_s));
    view.setModel(&many);
    view.setColumns({"a;;-1;true;128", "b;;-2;true;128"});
    show();
    EXPECT_GE(view.columnWidth(1), view.fontMetrics().horizontalAdvance(u"ячейка пошире других"_s));
    view.setModel(nullptr);
}

TEST_F(TalloTableViewTest, widthInPixels_isUsed)
{
    view.setModel(&model);
    view.setColumns({"a;;150;true;128", "b;;70;true;128"});
    EXPECT_EQ(view.columnWidth(0), 150);
    EXPECT_EQ(view.columnWidth(1), 70);
}

TEST_F(TalloTableViewTest, notShown_isHidden)
{
    view.setModel(&model);
    view.setColumns({"a;;150;false;128", "b;;70;true;128"});
    EXPECT_TRUE(view.isColumnHidden(0));
    EXPECT_FALSE(view.isColumnHidden(1));
    view.setColumns({"a;;150;true;128"});
    EXPECT_FALSE(view.isColumnHidden(0));
}

TEST_F(TalloTableViewTest, alignment_appliesToTheCells)
{
    view.setModel(&model);
    view.setColumns({"a;;-1;true;128", " b;;-2;true;132", "c;;-2;true;130"});
    EXPECT_EQ(alignmentOf(0), Qt::AlignVCenter | Qt::AlignLeft);
    EXPECT_EQ(alignmentOf(1), Qt::AlignVCenter | Qt::AlignHCenter);
    EXPECT_EQ(alignmentOf(2), Qt::AlignVCenter | Qt::AlignRight);
}

TEST_F(TalloTableViewTest, alignmentWithoutAHorizontalPart_onlyNumbersWithDecimalsAreAtTheRight)
{
    view.setModel(&model);
    view.setColumns({"a;;-1;true;128"});
    for (const auto& [text, alignment] :
         {std::pair{"12.000", Qt::AlignRight}, std::pair{"0,50", Qt::AlignRight}, std::pair{"2100", Qt::AlignLeft},
          std::pair{"C09AA02", Qt::AlignLeft}, std::pair{"2026-11-16", Qt::AlignLeft},
          std::pair{"1.5 мг", Qt::AlignLeft}, std::pair{"", Qt::AlignLeft}}) {
        model.item(0, 0)->setText(text);
        EXPECT_EQ(alignmentOf(0), Qt::AlignVCenter | alignment) << text;
    }
}

TEST_F(TalloTableViewTest, captionInTheText_headerShowsTheModelsAllTheSame)
{
    view.setModel(&model);
    show();
    view.setColumns({"a;;150;true;128", "b;;150;true;128"});
    const QImage own = header();
    view.setColumns({"a;Иной;150;true;128", "b;;150;true;128"});
    EXPECT_EQ(header(), own);
    model.setHeaderData(0, Qt::Horizontal, "Иной");
    EXPECT_NE(header(), own);
}

TEST_F(TalloTableViewTest, longCaptionOfTheModel_widensAFittingColumn)
{
    model.setHeaderData(1, Qt::Horizontal, "Заголовок пошире содержимого");
    view.setModel(&model);
    view.setColumns({"a;;-2;true;128", "b;;-2;true;128"});
    show();
    EXPECT_GT(view.columnWidth(1), view.columnWidth(0) + 50);
}

TEST_F(TalloTableViewTest, textOfAnotherForm_leavesItsColumnAsItWas)
{
    view.setModel(&model);
    view.setColumns({"a;;150;true;128"});
    for (const QString broken :
         {"", "a", "a;;x;true;128", "a;;-4;true;128", "a;;90;yes;128", "a;;90;true;x", "a;;90;true;128;"}) {
        view.setColumns({broken, "b;;80;true;128"});
        EXPECT_EQ(view.columnWidth(0), 150) << broken.toStdString();
        EXPECT_FALSE(view.isColumnHidden(0)) << broken.toStdString();
        EXPECT_EQ(view.columnWidth(1), 80) << broken.toStdString();
    }
}

TEST_F(TalloTableViewTest, moreTextsThanColumns_areKeptForALaterModel)
{
    QStandardItemModel narrow(1, 1);
    view.setModel(&narrow);
    view.setColumns({"a;;150;true;128", "b;;70;true;128"});
    EXPECT_EQ(view.columnWidth(0), 150);
    view.setModel(&model);
    EXPECT_EQ(view.columnWidth(1), 70);
}

TEST_F(TalloTableViewTest, columnsSetBeforeTheModel_applyToIt)
{
    view.setColumns({"a;;150;true;128", "b;;70;false;128"});
    view.setModel(&model);
    EXPECT_EQ(view.columnWidth(0), 150);
    EXPECT_TRUE(view.isColumnHidden(1));
}

TEST_F(TalloTableViewTest, rowClicked_isCurrentAsAWholeAndAlone)
{
    view.setModel(&model);
    show();
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, view.visualRect(model.index(1, 2)).center());
    QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::ControlModifier,
                      view.visualRect(model.index(3, 0)).center());
    EXPECT_EQ(view.currentIndex().row(), 3);
    const QModelIndexList selected = view.selectionModel()->selectedRows();
    ASSERT_EQ(selected.size(), 1);
    EXPECT_EQ(selected.first().row(), 3);
}

TEST_F(TalloTableViewTest, tabKey_leavesTheTable)
{
    EXPECT_FALSE(view.tabKeyNavigation());
}

TEST_F(TalloTableViewTest, touchMode_rowsAreForFingers)
{
    view.setModel(&model);
    EXPECT_LT(view.rowHeight(0), 44);
    setTouchMode();
    TalloTableView touched;
    touched.setModel(&model);
    EXPECT_GE(touched.rowHeight(0), 44);
}

class TextColourTest : public TalloTableViewTest
{
protected:
    TextColourTest()
    {
        formerStyleSheet = qApp->styleSheet();
        qApp->setStyleSheet(registerStyleSheet(false, 12));
    }
    ~TextColourTest() override { qApp->setStyleSheet(formerStyleSheet); }

    /// The darkest colour across a cell of the selected row. Its text is full blocks, whose edges are paler.
    QColor drawnWhenSelected(const QColor& colour)
    {
        model.item(0, 0)->setText(QString(30, QChar(0x2588)));
        model.item(0, 0)->setForeground(colour);
        view.setModel(&model);
        view.setColumns({"a;;150;true;128", "b;;150;true;128"});
        view.selectRow(0);
        show();
        const QImage picture = view.viewport()->grab(view.visualRect(model.index(0, 0))).toImage();
        QColor darkest = Qt::white;
        for (int x = 0; x < picture.width(); ++x) {
            if (const QColor pixel = picture.pixelColor(x, picture.height() / 2);
                pixel.lightness() < darkest.lightness()) {
                darkest = pixel;
            }
        }
        return darkest;
    }

    QString formerStyleSheet;
};

TEST_F(TextColourTest, selectedRow_keepsTheModelsColour)
{
    EXPECT_EQ(drawnWhenSelected(QColor(0x1b, 0x6e, 0x3c)).name(), u"#1b6e3c"_s);
}

TEST_F(TextColourTest, selectedRow_colourTooPaleForIt_isDarkenedUntilItCanBeRead)
{
    const QColor drawn = drawnWhenSelected(QColor(0x2e, 0xb0, 0x60));
    EXPECT_GE(RegisterColours::contrast(drawn, RegisterColours().selection), 4.5) << qPrintable(drawn.name());
    EXPECT_NEAR(drawn.hue(), QColor(0x2e, 0xb0, 0x60).hue(), 5) << "still green";
}

class ToolTipTest : public TalloTableViewTest
{
protected:
    QString toolTipAt(int row, int column)
    {
        const QPoint place = view.visualRect(model.index(row, column)).center();
        QHelpEvent help(QEvent::ToolTip, place, view.viewport()->mapToGlobal(place));
        QCoreApplication::sendEvent(view.viewport(), &help);
        const QString text = QToolTip::text();
        QToolTip::hideText();
        return text;
    }
};

TEST_F(ToolTipTest, textThatIsCutOff_isInTheToolTipLiterally)
{
    model.item(0, 0)->setText("<b>" + QString(200, u'Ж') + "</b>");
    view.setModel(&model);
    view.setColumns({"a;;150;true;128", "b;;150;true;128"});
    show();
    EXPECT_EQ(toolTipAt(0, 0), "<qt>&lt;b&gt;" + QString(200, u'Ж') + "&lt;/b&gt;</qt>");
}

TEST_F(ToolTipTest, textThatFits_hasNone)
{
    view.setModel(&model);
    view.setColumns({"a;;150;true;128", "b;;150;true;128"});
    show();
    EXPECT_EQ(toolTipAt(0, 1), "");
}

TEST_F(ToolTipTest, modelsOwnToolTip_isShown)
{
    model.item(0, 0)->setToolTip("своя подсказка");
    view.setModel(&model);
    show();
    EXPECT_EQ(toolTipAt(0, 0), "своя подсказка");
}

/// Remembers the rows that a view reads.
class CountingModel : public QAbstractTableModel
{
public:
    int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : 10000; }
    int columnCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : 5; }
    QVariant data(const QModelIndex& index, int role) const override
    {
        if (role != Qt::DisplayRole) {
            return {};
        }
        looks.insert(index.row());
        return u"ячейка"_s;
    }
    mutable QSet<int> looks;
};

TEST_F(TalloTableViewTest, tenThousandRows_onlyTheFirstOnesAreRead)
{
    CountingModel many;
    QAbstractItemModelTester manyTester(&many, QAbstractItemModelTester::FailureReportingMode::Fatal);
    many.looks.clear();
    view.setModel(&many);
    view.setColumns({"a;;-1;true;128", "b;;-2;true;128", "c;;-2;true;128", "d;;-2;true;128", "e;;-2;true;128"});
    show();
    view.grab();
    EXPECT_GT(many.looks.size(), 5);
    EXPECT_LT(many.looks.size(), 200);
}

} // namespace

TEST_F(TalloTableViewTest, pressBesideTheRows_leavesTheCurrentRowSelected)
{
    view.setModel(&model);
    show();
    view.selectRow(2);
    const QPoint beside(20, view.viewport()->height() - 5);
    ASSERT_FALSE(view.indexAt(beside).isValid());
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, beside);
    EXPECT_EQ(view.currentIndex().row(), 2);
    EXPECT_TRUE(view.selectionModel()->isRowSelected(2));
}
