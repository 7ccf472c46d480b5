// SPDX-License-Identifier: MIT
#include "functionkey.h"
#include "config.h"
#include "registeraction.h"

#include <gtest/gtest.h>

TEST(FunctionKey, nothingConfigured_theDefaultKeysStand)
{
    const auto keys = configuredFunctionKeys(Config());
    ASSERT_EQ(keys.size(), 4);
    EXPECT_EQ(keys.at(0).name, QStringLiteral("newReceiptKey"));
    EXPECT_EQ(keys.at(0).shortcut, QKeySequence(Qt::Key_F2));
    EXPECT_EQ(keys.at(0).actionType, registeraction::openReceipt);
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
