// SPDX-License-Identifier: MIT
#include "functionkey.h"
#include "config.h"
#include "registeraction.h"

#include <gtest/gtest.h>

#include <iterator>
#include <tuple>

TEST(FunctionKey, nothingConfigured_theDefaultKeysStand)
{
    const auto keys = configuredFunctionKeys(Config());
    const std::tuple<const char*, Qt::Key, int> defaults[] = {
        {"newReceiptKey", Qt::Key_F2, registeraction::openReceipt},
        {"goodsKey", Qt::Key_F3, registeraction::addGoods},
        {"quantityKey", Qt::Key_F4, registeraction::changeQuantity},
        {"subtotalKey", Qt::Key_F6, control::Subtotal},
        {"removeKey", Qt::Key_F8, registeraction::removePosition},
        {"cancelReceiptKey", Qt::Key_F9, registeraction::cancelReceipt},
        {"menuKey", Qt::Key_F10, registeraction::showMenu},
        {"paymentKey", Qt::Key_F12, control::SubtotalAndPayment},
    };
    ASSERT_EQ(keys.size(), std::size(defaults));
    for (qsizetype i = 0; i < keys.size(); ++i) {
        const auto& [name, shortcut, action] = defaults[i];
        EXPECT_EQ(keys.at(i).name, QLatin1String(name));
        EXPECT_EQ(keys.at(i).shortcut, QKeySequence(shortcut)) << name;
        EXPECT_EQ(keys.at(i).actionType, action) << name;
    }
    for (const FunctionKey& key : keys) {
        EXPECT_NE(key.actionType, control::PluginCommand) << qPrintable(key.name);
        EXPECT_TRUE(key.arguments.isEmpty()) << qPrintable(key.name);
    }
}

TEST(FunctionKey, configured_winsOverTheDefault)
{
    Config config;
    config.setForThisRun(QStringLiteral("FunctionKeys:keys"), QStringLiteral(" mine , goodsKey,"));
    config.setForThisRun(QStringLiteral("FunctionKey.mine:text"), QStringLiteral("Моя"));
    config.setForThisRun(QStringLiteral("FunctionKey.mine:key"), QStringLiteral("Ctrl+R"));
    config.setForThisRun(QStringLiteral("FunctionKey.mine:action"), QStringLiteral("94"));
    config.setForThisRun(QStringLiteral("FunctionKey.mine:arguments"), QStringLiteral("status=expired, x=a=b,=none"));
    config.setForThisRun(QStringLiteral("FunctionKey.goodsKey:key"), QString());
    const auto keys = configuredFunctionKeys(config);
    ASSERT_EQ(keys.size(), 2);
    EXPECT_EQ(keys.at(0).text, QStringLiteral("Моя"));
    EXPECT_EQ(keys.at(0).shortcut, QKeySequence(Qt::CTRL | Qt::Key_R));
    EXPECT_EQ(keys.at(0).actionType, control::PluginCommand);
    EXPECT_EQ(keys.at(0).arguments, (QVariantMap{{QStringLiteral("status"), QStringLiteral("expired")},
                                                 {QStringLiteral("x"), QStringLiteral("a=b")}}));
    EXPECT_EQ(keys.at(1).actionType, registeraction::addGoods);
    EXPECT_TRUE(keys.at(1).shortcut.isEmpty());
}

TEST(FunctionKey, withoutAnAction_isLeftOut)
{
    Config config;
    config.setForThisRun(QStringLiteral("FunctionKeys:keys"), QStringLiteral("unknown,goodsKey"));
    const auto keys = configuredFunctionKeys(config);
    ASSERT_EQ(keys.size(), 1);
    EXPECT_EQ(keys.at(0).name, QStringLiteral("goodsKey"));
}
