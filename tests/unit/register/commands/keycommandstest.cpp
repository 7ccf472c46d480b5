// SPDX-License-Identifier: MIT
#include "keycommands.h"
#include "commandfixture.h"
#include "dialogdouble.h"
#include "registeraction.h"

using namespace Qt::StringLiterals;

namespace
{

constexpr auto foreignAction = control::EActionType(5000);

FunctionKey keyOf(control::EActionType type)
{
    return {.name = u"key"_s, .text = u"Рецепт %1"_s, .shortcut = {}, .actionType = type, .arguments = {}};
}

} // namespace

class KeyCommandsTest : public CommandFixture
{
protected:
    /// Has a plug-in handle an action in a context; its arguments are in `given`.
    void serve(EContext::Code context, control::EActionType type)
    {
        controller.object.host().addHandler({context, type,
                                             [this](const control::Action& command) {
                                                 given = command.toMap();
                                                 contextOfCommand = controller.object.context();
                                                 return answer;
                                             },
                                             true});
    }
    /// Presses a key, as the function key bar and the menu do.
    EContext::Result pressKey(const FunctionKey& key, int position = 0)
    {
        control::Action command = actionOf(key, position);
        return controller.object.execute(command);
    }
    /// What the cashier reads after that key.
    QString said(const FunctionKey& key)
    {
        const DialogDouble dialog;
        pressKey(key);
        EXPECT_EQ(dialog.messages().size(), 1);
        return dialog.messages().isEmpty() ? QString() : dialog.messages().first().text;
    }

    QVariantMap given;
    EContext::Result answer = EContext::GoOn;
    EContext::Code contextOfCommand = EContext::Idle;
};

TEST_F(KeyCommandsTest, nobodyHandlesTheKey_theMissingPluginIsNamedAsTheReasonWithAndWithoutADocument)
{
    for (const auto type : {control::PluginCommand, foreignAction}) {
        EXPECT_TRUE(said(keyOf(type)).startsWith(u"«Рецепт %1» сейчас недоступно: нет подключённого модуля"_s));
    }
    till->open();
    for (const auto type : {control::PluginCommand, foreignAction}) {
        EXPECT_TRUE(said(keyOf(type)).startsWith(u"«Рецепт %1» сейчас недоступно: нет подключённого модуля"_s));
    }
}

TEST_F(KeyCommandsTest, keyOfAnotherContext_theContextIsNamedAsTheReason)
{
    serve(EContext::OpenDocument, foreignAction);
    EXPECT_TRUE(said(keyOf(foreignAction)).startsWith(u"«Рецепт %1» работает при открытом чеке"_s));
    serve(EContext::Idle, control::EActionType(5001));
    serve(EContext::StoredDocuments, control::EActionType(5002));
    till->open();
    EXPECT_EQ(said(keyOf(control::EActionType(5001))),
              u"«Рецепт %1» работает, когда чек не открыт.\nЗавершите или отложите чек и повторите."_s);
    EXPECT_TRUE(said(keyOf(control::EActionType(5002))).startsWith(u"«Рецепт %1» работает в списке документов"_s));
    EXPECT_TRUE(given.isEmpty());
}

TEST_F(KeyCommandsTest, keyOfTheIdleContextInAReturn_doesNotAdviseToSuspendIt)
{
    serve(EContext::Idle, control::EActionType(5001));
    ASSERT_TRUE(till->returnSale(archived(sold())));
    EXPECT_EQ(said(keyOf(control::EActionType(5001))),
              u"«Рецепт %1» работает, когда чек не открыт.\nЗавершите открытый документ и повторите."_s);
}

TEST_F(KeyCommandsTest, ownCommandWithoutADocument_wantsAnOpenReceipt)
{
    EXPECT_TRUE(said(keyOf(control::Subtotal)).startsWith(u"«Рецепт %1» работает при открытом чеке"_s));
}

TEST_F(KeyCommandsTest, pluginCommandWithoutADocument_opensASaleAndRunsInIt)
{
    serve(EContext::OpenDocument, control::PluginCommand);
    FunctionKey key = keyOf(control::PluginCommand);
    key.arguments.insert(u"status"_s, u"active"_s);
    EXPECT_EQ(pressKey(key), EContext::GoOn);
    ASSERT_TRUE(till->document());
    EXPECT_FALSE(till->document()->isReturn());
    EXPECT_EQ(given, (QVariantMap{{u"status"_s, u"active"_s}}));
    EXPECT_EQ(contextOfCommand, EContext::OpenDocument);
    EXPECT_EQ(witness.codes(), QList<int>{EActivityListener::DocumentOpened});
    const auto document = till->document();
    answer = EContext::Stop;
    EXPECT_EQ(pressKey(key, 3), EContext::Stop);
    EXPECT_EQ(till->document(), document) << "an open document is used";
    EXPECT_EQ(given, (QVariantMap{{u"status"_s, u"active"_s}, {u"positionNumber"_s, 3}}));
}

TEST_F(KeyCommandsTest, pluginCommandIsLeft_theEmptySaleThatItOpenedIsCancelled)
{
    serve(EContext::OpenDocument, control::PluginCommand);
    answer = EContext::Stop;
    EXPECT_EQ(pressKey(keyOf(control::PluginCommand)), EContext::Stop);
    EXPECT_EQ(contextOfCommand, EContext::OpenDocument);
    EXPECT_FALSE(till->document());
    EXPECT_EQ(witness.codes(), (QList<int>{EActivityListener::DocumentOpened, EActivityListener::DocumentCancelled}));
}

TEST_F(KeyCommandsTest, pluginCommandStopsAfterItAddedGoods_theSaleStaysOpen)
{
    controller.object.host().addHandler({EContext::OpenDocument, control::PluginCommand,
                                         [this](const control::Action&) {
                                             till->add(article(amoxidar));
                                             return EContext::Stop;
                                         },
                                         true});
    EXPECT_EQ(pressKey(keyOf(control::PluginCommand)), EContext::Stop);
    ASSERT_TRUE(till->document());
    EXPECT_EQ(till->document()->positions().size(), 1);
}

TEST_F(KeyCommandsTest, pluginCommandThatAPluginHandlesWithoutADocument_opensNothing)
{
    serve(EContext::Idle, control::PluginCommand);
    serve(EContext::OpenDocument, control::PluginCommand);
    EXPECT_EQ(pressKey(keyOf(control::PluginCommand)), EContext::GoOn);
    EXPECT_FALSE(till->document());
}

TEST_F(KeyCommandsTest, pluginCommandInAReturn_saysWhyNotAndReachesNoPlugin)
{
    serve(EContext::OpenDocument, control::PluginCommand);
    ASSERT_TRUE(till->returnSale(archived(sold())));
    EXPECT_TRUE(said(keyOf(control::PluginCommand)).startsWith(u"Открыт возврат, а эта команда действует только"_s));
    EXPECT_TRUE(given.isEmpty());
}

TEST_F(KeyCommandsTest, pluginCommandInASaleWithACardPayment_saysWhyNotAndReachesNoPlugin)
{
    serve(EContext::OpenDocument, control::PluginCommand);
    till->add(article(amoxidar));
    till->document()->setCardOperation(
        {.state = CardOperation::State::Approved, .amount = Kopecks{1240}, .reference = u"1-1"_s});
    EXPECT_TRUE(said(keyOf(control::PluginCommand)).startsWith(u"По чеку № 1 уже есть оплата картой"_s));
    EXPECT_TRUE(given.isEmpty());
}

TEST_F(KeyCommandsTest, menuEntries_haveTheSameReasonsInFewWords)
{
    serve(EContext::OpenDocument, foreignAction);
    serve(EContext::OpenDocument, control::PluginCommand);
    const auto brief = [this](control::EActionType type) {
        const auto obstacle = obstacleToKey(keyOf(type), *till);
        return obstacle ? obstacle->shortest().ui() : QString();
    };
    EXPECT_EQ(brief(foreignAction), u"чек не открыт"_s);
    EXPECT_EQ(brief(control::EActionType(5009)), u"нет модуля"_s);
    EXPECT_EQ(brief(control::PluginCommand), QString()) << "a sale is opened for it";
}

TEST_F(KeyCommandsTest, keysThatNobodyServesAnywhere_areListed)
{
    const QList<FunctionKey> keys = {keyOf(control::Subtotal), keyOf(control::PluginCommand)};
    EXPECT_EQ(unservedKeys(keys), QStringList{u"Рецепт %1"_s});
    serve(EContext::OpenDocument, control::PluginCommand);
    EXPECT_EQ(unservedKeys(keys), QStringList());
}
