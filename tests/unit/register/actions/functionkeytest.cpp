// SPDX-License-Identifier: MIT
#include "functionkey.h"
#include "config.h"
#include "registeraction.h"

#include <gtest/gtest.h>

#include <iterator>
#include <tuple>
#include <utility>

using namespace Qt::StringLiterals;

TEST(FunctionKey, nothingConfigured_theDefaultKeysAreUsed)
{
    const auto keys = configuredFunctionKeys(Config());
    const std::tuple<const char*, Qt::Key, int> defaults[] = {
        {"newReceiptKey", Qt::Key_F2, registeraction::openSale},
        {"goodsKey", Qt::Key_F3, registeraction::addGoods},
        {"quantityKey", Qt::Key_F4, registeraction::changeQuantity},
        {"subtotalKey", Qt::Key_F6, control::Subtotal},
        {"removeKey", Qt::Key_F8, registeraction::askToRemovePosition},
        {"cancelReceiptKey", Qt::Key_F9, registeraction::askToCancelDocument},
        {"menuKey", Qt::Key_F10, registeraction::showMenu},
        {"paymentKey", Qt::Key_F12, control::SubtotalAndPayment},
    };
    ASSERT_EQ(keys.size(), std::size(defaults));
    for (qsizetype i = 0; i < keys.size(); ++i) {
        const auto& [name, shortcut, action] = defaults[i];
        EXPECT_EQ(keys.at(i).name, QLatin1StringView(name));
        EXPECT_EQ(keys.at(i).shortcut, QKeySequence(shortcut)) << name;
        EXPECT_EQ(keys.at(i).actionType, action) << name;
    }
    for (const FunctionKey& key : keys) {
        EXPECT_NE(key.actionType, control::PluginCommand) << qPrintable(key.name);
        EXPECT_TRUE(key.arguments.isEmpty()) << qPrintable(key.name);
    }
}

TEST(FunctionKey, configured_overridesTheDefault)
{
    Config config;
    config.setForThisRun(u"FunctionKeys:keys"_s, u" mine , goodsKey,"_s);
    config.setForThisRun(u"FunctionKey.mine:text"_s, u"Моя"_s);
    config.setForThisRun(u"FunctionKey.mine:key"_s, u"Ctrl+R"_s);
    config.setForThisRun(u"FunctionKey.mine:action"_s, u"94"_s);
    config.setForThisRun(u"FunctionKey.mine:arguments"_s, u"status=expired, x=a=b,=none"_s);
    config.setForThisRun(u"FunctionKey.goodsKey:key"_s, QString());
    const auto keys = configuredFunctionKeys(config);
    ASSERT_EQ(keys.size(), 2);
    EXPECT_EQ(keys.at(0).text, u"Моя"_s);
    EXPECT_EQ(keys.at(0).shortcut, QKeySequence(Qt::CTRL | Qt::Key_R));
    EXPECT_EQ(keys.at(0).actionType, control::PluginCommand);
    EXPECT_EQ(keys.at(0).arguments, (QVariantMap{{u"status"_s, u"expired"_s}, {u"x"_s, u"a=b"_s}}));
    EXPECT_EQ(keys.at(1).actionType, registeraction::addGoods);
    EXPECT_TRUE(keys.at(1).shortcut.isEmpty());
}

TEST(FunctionKey, withoutAnAction_isLeftOut)
{
    Config config;
    config.setForThisRun(u"FunctionKeys:keys"_s, u"unknown,goodsKey"_s);
    const auto keys = configuredFunctionKeys(config);
    ASSERT_EQ(keys.size(), 1);
    EXPECT_EQ(keys.at(0).name, u"goodsKey"_s);
}

TEST(FunctionKey, noMenuConfigured_theDefaultEntriesAreUsed)
{
    const auto entries = configuredMenuEntries(Config());
    const std::pair<const char*, int> usual[] = {
        {"putAsideEntry", registeraction::suspend},
        {"documentsEntry", registeraction::showDocuments},
        {"takeBackEntry", registeraction::returnSale},
        {"annulEntry", registeraction::voidByNumber},
        {"cancelReceiptEntry", registeraction::askToCancelDocument},
        {"lockEntry", registeraction::lock},
        {"helpEntry", registeraction::showHelp},
    };
    ASSERT_EQ(entries.size(), std::size(usual));
    for (qsizetype i = 0; i < entries.size(); ++i) {
        EXPECT_EQ(entries.at(i).name, QLatin1StringView(usual[i].first));
        EXPECT_EQ(entries.at(i).actionType, usual[i].second) << usual[i].first;
    }
    EXPECT_EQ(entries.at(4).arguments, (QVariantMap{{u"by"_s, u"206"_s}}));
}

TEST(FunctionKey, keysAndEntries_canBeSwapped)
{
    Config config;
    config.setForThisRun(u"FunctionKeys:keys"_s, u"documentsEntry"_s);
    config.setForThisRun(u"FunctionKey.documentsEntry:key"_s, u"F7"_s);
    config.setForThisRun(u"Menu:entries"_s, u"removeKey"_s);
    const auto keys = configuredFunctionKeys(config);
    ASSERT_EQ(keys.size(), 1);
    EXPECT_EQ(keys.at(0).actionType, registeraction::showDocuments);
    EXPECT_EQ(keys.at(0).shortcut, QKeySequence(Qt::Key_F7));
    const auto entries = configuredMenuEntries(config);
    ASSERT_EQ(entries.size(), 1);
    EXPECT_EQ(entries.at(0).actionType, registeraction::askToRemovePosition);
}

TEST(FunctionKey, moreEntriesThanDigits_theLastOnesAreLeftOut)
{
    Config config;
    config.setForThisRun(u"Menu:entries"_s, u"goodsKey,"_s.repeated(9) + u"removeKey"_s);
    const auto entries = configuredMenuEntries(config);
    ASSERT_EQ(entries.size(), 9);
    EXPECT_EQ(entries.last().name, u"goodsKey"_s);
}

TEST(FunctionKey, twoWithOneShortcut_theFirstHasItAndTheConflictIsNamed)
{
    Config config;
    config.setForThisRun(u"FunctionKeys:keys"_s, u"newReceiptKey,goodsKey,quantityKey"_s);
    config.setForThisRun(u"FunctionKey.goodsKey:key"_s, u"f2"_s);
    const auto keys = configuredFunctionKeys(config);
    EXPECT_EQ(keys.at(0).shortcut, QKeySequence(Qt::Key_F2));
    EXPECT_TRUE(keys.at(0).lostTo.isEmpty());
    EXPECT_TRUE(keys.at(1).shortcut.isEmpty());
    EXPECT_EQ(keys.at(2).shortcut, QKeySequence(Qt::Key_F4));
    EXPECT_TRUE(keys.at(2).lostTo.isEmpty());
    EXPECT_EQ(shortcutConflict(keys.at(1)).ui(),
              u"F2 назначена двум кнопкам, работает «Новый чек». Для «Товар» исправьте "
              "в настройках FunctionKey.goodsKey:key"_s);
}

TEST(FunctionKey, oneShortcutBeginsAnother_theFirstHasIt)
{
    Config config;
    config.setForThisRun(u"FunctionKeys:keys"_s, u"newReceiptKey,goodsKey"_s);
    config.setForThisRun(u"FunctionKey.newReceiptKey:key"_s, u"Ctrl+K, Ctrl+N"_s);
    config.setForThisRun(u"FunctionKey.goodsKey:key"_s, u"Ctrl+K"_s);
    EXPECT_TRUE(configuredFunctionKeys(config).at(1).shortcut.isEmpty());
}

TEST(FunctionKey, twoWithoutAShortcut_areNoConflict)
{
    Config config;
    config.setForThisRun(u"FunctionKeys:keys"_s, u"newReceiptKey,goodsKey"_s);
    config.setForThisRun(u"FunctionKey.newReceiptKey:key"_s, QString());
    config.setForThisRun(u"FunctionKey.goodsKey:key"_s, QString());
    for (const FunctionKey& key : configuredFunctionKeys(config)) {
        EXPECT_TRUE(key.lostTo.isEmpty());
    }
}

TEST(FunctionKey, shortcutOfTheRegistersOwn_isFoundAmongTheKeys)
{
    Config config;
    EXPECT_EQ(keyWithShortcut(configuredFunctionKeys(config), helpKey), nullptr);
    EXPECT_EQ(keyWithShortcut(configuredFunctionKeys(config), cardPaymentKey), nullptr);
    config.setForThisRun(u"FunctionKey.goodsKey:key"_s, u"f11"_s);
    const auto keys = configuredFunctionKeys(config);
    const FunctionKey* found = keyWithShortcut(keys, cardPaymentKey);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->name, u"goodsKey"_s);
}
