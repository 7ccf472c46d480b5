// SPDX-License-Identifier: MIT
#include "taptips.h"
#include "tallotableview.h"
#include "uitest.h"
#include "wrappedlabel.h"

#include <QPushButton>
#include <QStandardItemModel>
#include <QToolTip>
#include <QVBoxLayout>

namespace
{

class TapTipsTest : public UiTest
{
protected:
    TapTipsTest()
    {
        model.appendRow(new QStandardItem(longName));
        table.setModel(&model);
        table.setColumns({u"name;;80;true;129"_s});
        label.setText(longName);
        label.setFixedSize(60, 20);
        button.setToolTip(u"почему нельзя"_s);
        auto* layout = new QVBoxLayout(&window);
        for (QWidget* widget :
             {static_cast<QWidget*>(&table), static_cast<QWidget*>(&label), static_cast<QWidget*>(&button)}) {
            layout->addWidget(widget);
        }
        window.show();
    }
    ~TapTipsTest() override { QToolTip::hideText(); }

    void tap(QWidget& widget, const QPoint& place)
    {
        QToolTip::hideText();
        QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, widget.mapTo(&window, place));
        QApplication::processEvents();
    }
    void tapCell() { tap(*table.viewport(), table.visualRect(model.index(0, 0)).center()); }

    const QString longName = u"Ацетилсалициловая кислота, таблетки кишечнорастворимые 100 мг №30"_s;
    QStandardItemModel model;
    QWidget window;
    TalloTableView table{&window};
    WrappedLabel label{&window};
    QPushButton button{&window};
};

TEST_F(TapTipsTest, cutOffCellOrLabelTapped_isShownWhole)
{
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    const TapTips tips(nullptr);
    tapCell();
    EXPECT_TRUE(QToolTip::text().contains(longName)) << qPrintable(QToolTip::text());
    tap(label, {5, 5});
    EXPECT_TRUE(QToolTip::text().contains(longName)) << qPrintable(QToolTip::text());
}

TEST_F(TapTipsTest, withoutThem_aTapShowsNothing)
{
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    tapCell();
    EXPECT_EQ(QToolTip::text(), QString());
}

TEST_F(TapTipsTest, buttonTapped_saysWhyItIsDisabledAndOtherwiseNothing)
{
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    const TapTips tips(nullptr);
    tap(button, button.rect().center());
    EXPECT_EQ(QToolTip::text(), QString());
    button.setEnabled(false);
    tap(button, button.rect().center());
    EXPECT_EQ(QToolTip::text(), u"почему нельзя"_s);
}

TEST_F(TapTipsTest, widgetGoneAfterTheTap_doesNoHarm)
{
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    const TapTips tips(nullptr);
    auto passing = std::make_unique<WrappedLabel>(&window);
    passing->setText(longName);
    passing->setGeometry(0, 0, 60, 20);
    passing->show();
    QTest::mouseClick(passing.get(), Qt::LeftButton);
    passing.reset();
    QApplication::processEvents();
    EXPECT_EQ(QToolTip::text(), QString());
}

} // namespace
