// SPDX-License-Identifier: MIT
#include "tablecolumn.h"

#include <gtest/gtest.h>

TEST(TableColumnTest, everyMember_isInTheText)
{
    const TableColumn column{
        .name = "price", .width = 140, .alignment = Qt::AlignVCenter | Qt::AlignRight, .caption = "Цена"};
    EXPECT_EQ(column.text(), "price;Цена;140;true;130");
    EXPECT_EQ(TableColumn({.name = "searchText", .width = 0, .isShown = false}).text(), "searchText;;0;false;128");
}

TEST(TableColumnTest, onlyNamed_takesTheRemainingRoom)
{
    EXPECT_EQ(TableColumn{.name = "name"}.text(), "name;;-1;true;128");
}

TEST(TableColumnTest, texts_areInTheColumnsOrder)
{
    EXPECT_EQ(TableColumn::texts({{.name = "a", .width = TableColumn::fittingContents}, {.name = "b"}}),
              QStringList({"a;;-2;true;128", "b;;-1;true;128"}));
}

TEST(TableColumnTest, readFromAText_isTheSameColumn)
{
    for (const QString text :
         {"price;Цена;140;true;130", "searchText;;0;false;128", " code;;-2;true;132", "sum;;-3;true;130"}) {
        const auto column = TableColumn::fromText(text);
        ASSERT_TRUE(column) << text.toStdString();
        EXPECT_EQ(column->text(), text);
    }
}

TEST(TableColumnTest, blanksAroundNumbers_doNotCount)
{
    const auto column = TableColumn::fromText("a;; 90 ; true ; 128 ");
    ASSERT_TRUE(column);
    EXPECT_EQ(column->text(), "a;;90;true;128");
}

TEST(TableColumnTest, textOfAnotherForm_isNoColumn)
{
    for (const QString text :
         {"", "a", "a;;x;true;128", "a;;-4;true;128", "a;;90;yes;128", "a;;90;true;x", "a;;90;true;128;"}) {
        EXPECT_FALSE(TableColumn::fromText(text)) << text.toStdString();
    }
}
