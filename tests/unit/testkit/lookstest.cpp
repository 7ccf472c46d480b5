// SPDX-License-Identifier: MIT
// What is measured on screens finds what it is for.
#include "looks.h"
#include "styledscreen.h"

#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QStandardItemModel>
#include <QTableView>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

#include <memory>

using namespace Qt::StringLiterals;

class Looks : public ::testing::Test
{
protected:
    Looks()
    {
        model.setHorizontalHeaderLabels({u"Название"_s, u"Цена"_s});
        model.appendRow({new QStandardItem(u"Амоксидар"_s), new QStandardItem(u"12,40"_s)});
        table->setObjectName(u"table"_s);
        table->setModel(&model);
        field->setObjectName(u"field"_s);
        field->setPlaceholderText(u"Название"_s);
        button->setObjectName(u"button"_s);
        button->setEnabled(false);
        label->setObjectName(u"label"_s);
        auto* layout = new QVBoxLayout(&screen);
        for (QWidget* widget : {static_cast<QWidget*>(label), static_cast<QWidget*>(table),
                                static_cast<QWidget*>(field), static_cast<QWidget*>(button)}) {
            layout->addWidget(widget);
        }
        screen.resize(640, 480);
        screen.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&screen));
        field->setFocus();
        table->selectRow(0);
        QApplication::processEvents();
    }
    /// The names of the widgets in these lines.
    static QString widgetsIn(const QStringList& found)
    {
        QStringList names;
        for (const QString& line : found) {
            names.append(line.section(u' ', 0, 0));
        }
        names.removeDuplicates();
        return names.join(u' ');
    }
    void paint(const char* sheet)
    {
        screen.setStyleSheet(QString::fromLatin1(sheet));
        QApplication::processEvents();
    }

    StyledScreen styled{{1024, 600}};
    QStandardItemModel model;
    QWidget screen;
    QLabel* label = new QLabel(u"Итого"_s, &screen);
    QTableView* table = new QTableView(&screen);
    QLineEdit* field = new QLineEdit(&screen);
    QPushButton* button = new QPushButton(u"Закрыть чек"_s, &screen);
};

TEST_F(Looks, everythingInTheRegistersStyle_isGood)
{
    EXPECT_EQ(looks::faint(screen), QStringList());
    EXPECT_EQ(looks::cutOff(screen), QStringList());
    EXPECT_EQ(looks::textsInSight(screen).size(), 7) << "label, field, button, two headers, two cells";
}

TEST_F(Looks, paleLabelDisabledButtonOrHeader_isFaint)
{
    paint("QLabel { color: #b0b0b0; }");
    EXPECT_EQ(widgetsIn(looks::faint(screen)), u"label"_s);
    paint("QPushButton:disabled { color: #b0b0b0; }");
    EXPECT_EQ(widgetsIn(looks::faint(screen)), u"button"_s);
    paint("QHeaderView::section { color: #b0b0b0; }");
    EXPECT_EQ(looks::faint(screen).size(), 2);
}

TEST_F(Looks, paleCellWhetherSelectedOrNot_isFaint)
{
    model.item(0, 1)->setForeground(QColor(0xb0, 0xb0, 0xb0));
    table->clearSelection();
    ASSERT_EQ(looks::faint(screen).size(), 1);
    EXPECT_TRUE(looks::faint(screen).first().contains(u"12,40"_s));
    model.item(0, 1)->setForeground(QColor(Qt::black));
    paint("QTableView { selection-color: #b0c0d0; }");
    EXPECT_EQ(looks::faint(screen), QStringList());
    table->selectRow(0);
    EXPECT_EQ(looks::faint(screen).size(), 2);
}

TEST_F(Looks, paleHintOrTypedTextBesideADarkCaret_isFaint)
{
    QPalette palette = field->palette();
    palette.setColor(QPalette::PlaceholderText, QColor(0xb0, 0xb0, 0xb0));
    field->setPalette(palette);
    QApplication::processEvents();
    ASSERT_TRUE(field->hasFocus());
    EXPECT_EQ(widgetsIn(looks::faint(screen)), u"field"_s);
    field->setText(u"амо"_s);
    EXPECT_EQ(looks::faint(screen), QStringList());
    paint("QLineEdit { color: #b0b0b0; }");
    EXPECT_EQ(widgetsIn(looks::faint(screen)), u"field"_s);
}

TEST_F(Looks, hintWiderThanItsField_isCutOffUntilSomethingIsTyped)
{
    field->setPlaceholderText(u"Название, номер или день "_s.repeated(10));
    EXPECT_EQ(widgetsIn(looks::cutOff(screen)), u"field"_s);
    field->setText(u"амо"_s);
    EXPECT_EQ(looks::cutOff(screen), QStringList());
}

TEST_F(Looks, buttonOrLabelSmallerThanItsText_isCutOff)
{
    button->setFixedWidth(20);
    label->setFixedHeight(4);
    QApplication::processEvents();
    EXPECT_EQ(widgetsIn(looks::cutOff(screen)), u"label button"_s);
}

TEST_F(Looks, lowRows_areHardToHitUnlessNothingIsChosenByThem)
{
    table->setRowHeight(0, 43);
    EXPECT_TRUE(looks::hardToHit(screen).join(u' ').contains(u"table"_s));
    table->setSelectionMode(QAbstractItemView::NoSelection);
    EXPECT_FALSE(looks::hardToHit(screen).join(u' ').contains(u"table"_s));
    table->setSelectionMode(QAbstractItemView::SingleSelection);
    table->setRowHeight(0, 44);
    EXPECT_FALSE(looks::hardToHit(screen).join(u' ').contains(u"table"_s));
}

TEST_F(Looks, hintThatStopsTheWaiting_isATarget)
{
    label->setProperty("stopsWaiting", true);
    label->setFixedHeight(20);
    QApplication::processEvents();
    EXPECT_TRUE(looks::hardToHit(screen).join(u' ').contains(u"label"_s));
}
