// SPDX-License-Identifier: MIT
#include "functionkey.h"
#include "config.h"
#include "registeraction.h"

#include <gtest/gtest.h>

#include <iterator>
#include <tuple>
#include <utility>

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

TEST(FunctionKey, noMenuConfigured_theUsualEntriesStand)
{
    const auto entries = configuredMenuEntries(Config());
    const std::pair<const char*, int> usual[] = {
        {"putAsideEntry", registeraction::putAside},           {"documentsEntry", registeraction::showDocuments},
        {"takeBackEntry", registeraction::takeBack},           {"annulEntry", registeraction::annulByNumber},
        {"cancelReceiptEntry", registeraction::cancelReceipt},
    };
    ASSERT_EQ(entries.size(), std::size(usual));
    for (qsizetype i = 0; i < entries.size(); ++i) {
        EXPECT_EQ(entries.at(i).name, QLatin1String(usual[i].first));
        EXPECT_EQ(entries.at(i).actionType, usual[i].second) << usual[i].first;
    }
    EXPECT_EQ(entries.at(4).arguments, (QVariantMap{{QStringLiteral("by"), QStringLiteral("206")}}));
}

TEST(FunctionKey, keysAndEntries_mayChangePlaces)
{
    Config config;
    config.setForThisRun(QStringLiteral("FunctionKeys:keys"), QStringLiteral("documentsEntry"));
    config.setForThisRun(QStringLiteral("FunctionKey.documentsEntry:key"), QStringLiteral("F7"));
    config.setForThisRun(QStringLiteral("Menu:entries"), QStringLiteral("removeKey"));
    const auto keys = configuredFunctionKeys(config);
    ASSERT_EQ(keys.size(), 1);
    EXPECT_EQ(keys.at(0).actionType, registeraction::showDocuments);
    EXPECT_EQ(keys.at(0).shortcut, QKeySequence(Qt::Key_F7));
    const auto entries = configuredMenuEntries(config);
    ASSERT_EQ(entries.size(), 1);
    EXPECT_EQ(entries.at(0).actionType, registeraction::removePosition);
}

TEST(FunctionKey, moreEntriesThanDigits_theLastOnesAreLeftOut)
{
    Config config;
    config.setForThisRun(QStringLiteral("Menu:entries"),
                         QStringLiteral("goodsKey,").repeated(9) + QStringLiteral("removeKey"));
    const auto entries = configuredMenuEntries(config);
    ASSERT_EQ(entries.size(), 9);
    EXPECT_EQ(entries.last().name, QStringLiteral("goodsKey"));
}
