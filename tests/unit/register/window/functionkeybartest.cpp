// SPDX-License-Identifier: MIT
#include "functionkeybar.h"
#include "configured.h"
#include "styledscreen.h"

#include <QApplication>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

#include <optional>

#include <set>

using namespace Qt::StringLiterals;

/// The screens that the register is made for, each with and without touch mode.
class FunctionKeyBarTest : public ::testing::TestWithParam<std::tuple<QSize, bool>>
{
protected:
    FunctionKeyBarTest()
    {
        const auto& [size, touch] = GetParam();
        config.set(u"GUI:touchMode"_s, touch ? u"true"_s : u"false"_s);
        config.set(u"FunctionKeys:keys"_s, u"newReceiptKey,goodsKey,quantityKey,foreignKey,subtotalKey,removeKey,"
                                           "cancelReceiptKey,menuKey,paymentKey"_s);
        config.set(u"FunctionKey.foreignKey:text"_s, u"Электронный рецепт"_s);
        config.set(u"FunctionKey.foreignKey:key"_s, u"F5"_s);
        config.set(u"FunctionKey.foreignKey:action"_s, u"94"_s);
        styled.emplace(size);
    }
    static int width() { return std::get<0>(GetParam()).width() - 2 * 16; }
    static bool isTouch() { return std::get<1>(GetParam()); }

    void show(FunctionKeyBar& bar)
    {
        bar.resize(width(), bar.heightForWidth(width()));
        bar.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&bar));
    }
    static std::set<int> tops(const FunctionKeyBar& bar)
    {
        std::set<int> tops;
        for (const auto* key : bar.findChildren<QPushButton*>()) {
            tops.insert(key->y());
        }
        return tops;
    }
    static void expectRoomForAll(const FunctionKeyBar& bar)
    {
        const auto keys = bar.findChildren<QPushButton*>();
        for (const auto* key : keys) {
            EXPECT_GE(key->width(), key->sizeHint().width()) << qPrintable(key->objectName());
            EXPECT_GE(key->height(), key->sizeHint().height()) << qPrintable(key->objectName());
            EXPECT_TRUE(bar.rect().contains(key->geometry())) << qPrintable(key->objectName());
            for (const auto* other : keys) {
                if (other == key) {
                    continue;
                }
                EXPECT_FALSE(key->geometry().adjusted(0, 0, 7, 7).intersects(other->geometry()))
                    << qPrintable(key->objectName() + u' ' + other->objectName());
            }
        }
    }

    Configured config;

    std::optional<StyledScreen> styled; ///< made when the mode is configured
};

TEST_P(FunctionKeyBarTest, nineKeys_fitIntoOneRowWithNothingCutOff)
{
    FunctionKeyBar bar(configuredFunctionKeys(*Singleton<Config>::get()));
    show(bar);
    expectRoomForAll(bar);
    EXPECT_EQ(tops(bar).size(), 1U);
    EXPECT_EQ(bar.findChildren<QPushButton*>().size(), 9);
    if (isTouch()) {
        for (const auto* key : bar.findChildren<QPushButton*>()) {
            EXPECT_GE(key->width(), 44) << qPrintable(key->objectName());
            EXPECT_GE(key->height(), 44) << qPrintable(key->objectName());
        }
    }
}

TEST_P(FunctionKeyBarTest, moreKeysThanFitIntoARow_areInTwoRowsOfSimilarLength)
{
    config.set(u"FunctionKey.foreignKey:text"_s,
               u"Электронный рецепт по карте покупателя из другой области, с доверенностью"_s);
    for (const char* key : {"goodsKey", "quantityKey", "menuKey"}) {
        config.set(u"FunctionKey.%1:text"_s.arg(QLatin1StringView(key)), u"Подбор товара по веществу и цене"_s);
    }
    FunctionKeyBar bar(configuredFunctionKeys(*Singleton<Config>::get()));
    show(bar);
    expectRoomForAll(bar);
    EXPECT_GE(tops(bar).size(), 2U);
    EXPECT_LE(tops(bar).size(), 3U);
}

INSTANTIATE_TEST_SUITE_P(, FunctionKeyBarTest,
                         ::testing::Combine(::testing::Values(QSize(1024, 600), QSize(1280, 800), QSize(1920, 1080)),
                                            ::testing::Bool()),
                         [](const auto& instance) {
                             const int width = std::get<0>(instance.param).width();
                             return std::to_string(width) + (std::get<1>(instance.param) ? "touch" : "keys");
                         });
