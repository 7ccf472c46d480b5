// SPDX-License-Identifier: MIT
#include "pluginhost.h"
#include "till.h"

#include <QCoreApplication>
#include <QDir>

class PluginHostTest : public Till
{
protected:
    PluginHostTest() { qApp->setProperty("testPlugin", QVariant()); }

    static QStringList told() { return qApp->property("testPlugin").toStringList(); }
    static QString folderOf(const char* plugin)
    {
        return QStringLiteral(TEST_PLUGINS "/") + QLatin1String(plugin) + QStringLiteral("_folder");
    }
    void load(const QString& plugins) { host.load(plugins, controller.object, marks); }

    PositionMarks marks;
    PluginHost host;
    const int registersOwnCreators = gui.object.formCreators();
};

TEST_F(PluginHostTest, willingPlugin_isInitialisedOnceAndItsEntriesHold)
{
    sale->add(article(amoxidar));
    load(folderOf("willing_plugin"));
    EXPECT_EQ(told(), QStringList{QStringLiteral("init")});
    EXPECT_EQ(host.active(), QStringList{QStringLiteral("willing_plugin")});
    EXPECT_TRUE(host.problems().isEmpty());
    EXPECT_EQ(gui.object.formCreators(), registersOwnCreators + 1);
    EXPECT_TRUE(controller.object.isHandled(control::PluginCommand));
    control::Action storno(control::StornoPosition);
    EXPECT_EQ(controller.object.execute(storno), EContext::Stop);

    host.unload(controller.object);
    EXPECT_EQ(told(), (QStringList{QStringLiteral("init"), QStringLiteral("deinit"), QStringLiteral("destroyed")}));
    EXPECT_FALSE(controller.object.isHandled(control::PluginCommand));
    EXPECT_TRUE(host.active().isEmpty());
}

TEST_F(PluginHostTest, willingPlugin_hearsEventsUntilItIsUnloaded)
{
    load(folderOf("willing_plugin"));
    sale->open();
    EXPECT_EQ(told().last(), QStringLiteral("event 10"));
    host.unload(controller.object);
    notifier.object.notify(Event(EActivityListener::ReceiptClosed));
    EXPECT_EQ(told().last(), QStringLiteral("destroyed"));
}

TEST_F(PluginHostTest, pluginThatCannotBegin_hearsNoEventAndOthersDo)
{
    for (const char* plugin : {"idle_plugin", "throwing_plugin"}) {
        qApp->setProperty("testPlugin", QVariant());
        witness.seen.clear();
        load(folderOf(plugin));
        notifier.object.notify(Event(EActivityListener::ReceiptOpened));
        EXPECT_EQ(told(), QStringList{QStringLiteral("init")}) << plugin;
        EXPECT_EQ(witness.codes(), QList<int>{EActivityListener::ReceiptOpened}) << plugin;
    }
    host.unload(controller.object);
}

TEST_F(PluginHostTest, idlePlugin_nothingOfItIsTakenOverAndItIsNotDeinitialised)
{
    sale->open();
    load(folderOf("idle_plugin"));
    EXPECT_EQ(gui.object.formCreators(), registersOwnCreators);
    EXPECT_FALSE(controller.object.isHandled(control::PluginCommand));
    EXPECT_TRUE(host.active().isEmpty());
    EXPECT_TRUE(host.problems().isEmpty());
    host.unload(controller.object);
    EXPECT_EQ(told(), (QStringList{QStringLiteral("init"), QStringLiteral("destroyed")}));
}

TEST_F(PluginHostTest, throwingPlugin_isToldAndStaysIdle)
{
    sale->open();
    load(folderOf("throwing_plugin"));
    EXPECT_EQ(gui.object.formCreators(), registersOwnCreators);
    EXPECT_EQ(host.problems(), QStringList{QStringLiteral("throwing_plugin: нет связи")});
    EXPECT_FALSE(controller.object.isHandled(control::PluginCommand));
    host.unload(controller.object);
}

TEST_F(PluginHostTest, foreignPlugin_isToldAndSkipped)
{
    load(folderOf("foreign_plugin"));
    EXPECT_EQ(host.problems(), QStringList{QStringLiteral("foreign_plugin: это не модуль кассы")});
    host.unload(controller.object);
}

TEST_F(PluginHostTest, garbageInTheFolder_isToldAndTheRestIsLoaded)
{
    const QDir plugins(folder.path());
    QFile garbage(plugins.filePath(QStringLiteral("libbroken.so")));
    ASSERT_TRUE(garbage.open(QIODevice::WriteOnly));
    garbage.write(QByteArray(10'000, 'x'));
    garbage.close();
    ASSERT_TRUE(QFile::link(folderOf("willing_plugin") + QStringLiteral("/libwilling_plugin.so"),
                            plugins.filePath(QStringLiteral("libwilling_plugin.so"))));
    load(plugins.path());
    ASSERT_EQ(host.problems().size(), 1);
    EXPECT_TRUE(host.problems().first().startsWith(QStringLiteral("broken: ")));
    EXPECT_EQ(host.active(), QStringList{QStringLiteral("willing_plugin")});
    host.unload(controller.object);
}

TEST_F(PluginHostTest, folderBesideThePlugin_bringsLayoutsAndMarks)
{
    const QDir plugins(folder.path());
    ASSERT_TRUE(QFile::link(folderOf("willing_plugin") + QStringLiteral("/libwilling_plugin.so"),
                            plugins.filePath(QStringLiteral("libwilling_plugin.so"))));
    ASSERT_TRUE(plugins.mkdir(QStringLiteral("willing_plugin")));
    QFile json(plugins.filePath(QStringLiteral("willing_plugin/positionmarks.json")));
    ASSERT_TRUE(json.open(QIODevice::WriteOnly));
    json.write(R"({"positions": [{"tag": "t", "mark": "М"}]})");
    json.close();
    config.set(QStringLiteral("GUI:layouts"), QStringLiteral("/mine"));
    load(plugins.path());
    EXPECT_EQ(Singleton<Config>::get()->getString(QStringLiteral("GUI:layouts")),
              QStringLiteral("/mine:") + plugins.filePath(QStringLiteral("willing_plugin")));
    ReceiptPosition position({}, {});
    position.setTag(QStringLiteral("t"));
    EXPECT_EQ(marks.look(position).mark, QStringLiteral("М"));
    host.unload(controller.object);
}

TEST_F(PluginHostTest, folderMissing_isTold)
{
    load(folder.filePath(QStringLiteral("absent")));
    ASSERT_EQ(host.problems().size(), 1);
    EXPECT_TRUE(host.problems().first().endsWith(QStringLiteral("нет такой папки")));
}

TEST_F(PluginHostTest, emptyFolder_isNoProblem)
{
    const QTemporaryDir empty;
    load(empty.path());
    EXPECT_TRUE(host.problems().isEmpty());
    EXPECT_TRUE(host.active().isEmpty());
}
