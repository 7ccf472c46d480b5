// SPDX-License-Identifier: MIT
#include "abstractplugin.h"
#include "actionhost.h"
#include "actionqueuecontroller.h"
#include "activitynotifier.h"
#include "basicplugin.h"
#include "configured.h"
#include "dialogdouble.h"
#include "documentdouble.h"
#include "documentwatcher.h"
#include "finally.h"

#include <QPluginLoader>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

const auto greetCommand = control::EActionType(1000);

EContext::Result goOn(const control::Action&)
{
    return EContext::GoOn;
}

/// The example plug-in, loaded and taken over as a register does it.
class HelloExample : public ::testing::Test
{
protected:
    void load()
    {
        m_plugin = qobject_cast<AbstractPlugin*>(m_loader.instance());
        ASSERT_NE(m_plugin, nullptr) << m_loader.errorString().toStdString();
        m_initialised = m_plugin->init();
        if (!m_initialised) {
            return;
        }
        for (const ActionHandler& handler : m_plugin->getHandlers()) {
            m_controller.host().addHandler(handler);
        }
        for (const ActionTrigger& trigger : m_plugin->getTriggers()) {
            m_controller.host().addTrigger(trigger);
        }
    }

    void TearDown() override
    {
        DocumentWatcher::setCurrentDocument(nullptr);
        m_controller.host().removePluginEntries();
        if (m_initialised) {
            m_plugin->deinit();
        }
        EXPECT_TRUE(m_loader.unload());
    }

    EContext::Result execute(control::EActionType type)
    {
        control::Action action(type);
        return m_controller.execute(action);
    }

    Configured m_config{{{u"Hello:enabled"_s, u"true"_s}, {u"Hello:greeting"_s, u"Доброе утро, %2!"_s}}};
    DialogDouble m_dialog;
    ActionQueueController m_controller;
    QPluginLoader m_loader{QString::fromUtf8(HELLO_PLUGIN)};
    AbstractPlugin* m_plugin = nullptr;
    bool m_initialised = false;
};

} // namespace

TEST(BasicPlugin, fresh_registersNothingAndInitialises)
{
    BasicPlugin plugin;
    EXPECT_TRUE(plugin.init());
    EXPECT_TRUE(plugin.getHandlers().isEmpty());
    EXPECT_TRUE(plugin.getTriggers().isEmpty());
    EXPECT_NO_THROW(plugin.deinit());
}

TEST(BasicPlugin, added_areKeptInOrderWithTheirFields)
{
    BasicPlugin plugin;
    plugin.addHandler({EContext::OpenDocument, control::PluginCommand, goOn, true});
    plugin.addHandler({EContext::Idle, greetCommand, goOn, false});
    plugin.addTrigger({EContext::OpenDocument, control::Subtotal, ActionTrigger::Before, goOn, ActionTrigger::Done, 7});

    const QList<ActionHandler> handlers = plugin.getHandlers();
    ASSERT_EQ(handlers.size(), 2);
    EXPECT_EQ(handlers[0].context, 6);
    EXPECT_EQ(handlers[0].actionType, 94);
    EXPECT_TRUE(handlers[0].enabled);
    EXPECT_EQ(handlers[0].handler(control::Action()), EContext::GoOn);
    EXPECT_EQ(handlers[1].context, 4);
    EXPECT_EQ(handlers[1].actionType, greetCommand);
    EXPECT_FALSE(handlers[1].enabled);

    const QList<ActionTrigger> triggers = plugin.getTriggers();
    ASSERT_EQ(triggers.size(), 1);
    EXPECT_EQ(triggers[0].context, 6);
    EXPECT_EQ(triggers[0].actionType, 133);
    EXPECT_EQ(triggers[0].order, ActionTrigger::Before);
    EXPECT_EQ(triggers[0].result, ActionTrigger::Done);
    EXPECT_EQ(triggers[0].priority, 7);
    EXPECT_EQ(triggers[0].handler(control::Action()), EContext::GoOn);
}

TEST(AbstractPlugin, interfaceId_endsInItsName)
{
    EXPECT_TRUE(QByteArray(AbstractPlugin_iid).endsWith(".AbstractPlugin"));
}

TEST_F(HelloExample, notEnabled_isInert)
{
    m_config.set(u"Hello:enabled"_s, u"false"_s);
    load();
    EXPECT_FALSE(m_initialised);
    EXPECT_TRUE(m_plugin->getHandlers().isEmpty());
    EXPECT_TRUE(m_plugin->getTriggers().isEmpty());
}

TEST_F(HelloExample, loaded_itsCommandShowsGreetingAndClosedReceipts)
{
    load();
    ASSERT_TRUE(m_initialised);
    EXPECT_TRUE(m_controller.isHandled(greetCommand));
    Singleton<ActivityNotifier>::get()->notify(Event(EActivityListener::DocumentClosed));
    Singleton<ActivityNotifier>::get()->notify(Event(EActivityListener::DocumentCancelled));
    EXPECT_EQ(execute(greetCommand), EContext::GoOn);
    ASSERT_EQ(m_dialog.messages().size(), 1);
    EXPECT_EQ(m_dialog.messages().first().text, u"Доброе утро, %2!\nЗакрыто чеков: 1"_s);
    EXPECT_EQ(m_dialog.messages().first().kind, 2);
}

TEST_F(HelloExample, emptyReceipt_doesNotReachTheSubtotalAndAFilledOneDoes)
{
    load();
    int subtotals = 0;
    m_controller.host().setContext(EContext::OpenDocument);
    m_controller.host().setHandler(EContext::OpenDocument, control::Subtotal, [&subtotals](control::Action&) {
        ++subtotals;
        return EContext::GoOn;
    });
    const auto receipt = QSharedPointer<DocumentDouble>::create();
    DocumentWatcher::setCurrentDocument(receipt);
    EXPECT_EQ(execute(control::Subtotal), EContext::Stop);
    EXPECT_EQ(subtotals, 0);
    EXPECT_EQ(m_dialog.messages().size(), 1);

    receipt->add({1, u"Аспирин"_s, Kopecks{1000}, {}, Kopecks{1000}, 1.0});
    EXPECT_EQ(execute(control::Subtotal), EContext::GoOn);
    EXPECT_EQ(subtotals, 1);
    EXPECT_EQ(m_dialog.messages().size(), 1);
}
