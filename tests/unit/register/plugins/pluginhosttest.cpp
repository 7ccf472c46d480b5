// SPDX-License-Identifier: MIT
#include "pluginhost.h"
#include "abstractplugin.h"
#include "cardterminalhost.h"
#include "cardterminals.h"
#include "formhost.h"
#include "pluginscope.h"
#include "terminaldouble.h"
#include "tillfixture.h"

#include <QCoreApplication>
#include <QDir>

using namespace Qt::StringLiterals;

class PluginHostTest : public TillFixture
{
protected:
    PluginHostTest() { qApp->setProperty("testPlugin", QVariant()); }

    static QStringList shown() { return qApp->property("testPlugin").toStringList(); }
    static QString folderOf(const char* plugin)
    {
        return QString::fromUtf8(TEST_PLUGINS "/") + QLatin1StringView(plugin) + u"_folder"_s;
    }
    void load(const QString& plugins) { host.load(plugins, controller.object, marks); }

    PositionMarks marks;
    PluginHost host;
    const qsizetype registersOwnCreators = gui.object.host().creators.size();
};

TEST_F(PluginHostTest, willingPlugin_isInitialisedOnceAndItsHandlersAndTriggersAreUsed)
{
    till->add(article(amoxidar));
    load(folderOf("willing_plugin"));
    EXPECT_EQ(shown(), QStringList{u"init"_s});
    EXPECT_EQ(host.active(), QStringList{u"willing_plugin"_s});
    EXPECT_TRUE(host.problems().isEmpty());
    EXPECT_EQ(gui.object.host().creators.size(), registersOwnCreators + 1);
    EXPECT_TRUE(controller.object.isHandled(control::PluginCommand));
    control::Action cancellation(control::RemovePosition);
    EXPECT_EQ(controller.object.execute(cancellation), EContext::Stop);

    host.unload(controller.object);
    EXPECT_EQ(shown(), (QStringList{u"init"_s, u"deinit"_s, u"destroyed"_s}));
    EXPECT_FALSE(controller.object.isHandled(control::PluginCommand));
    EXPECT_TRUE(host.active().isEmpty());
}

TEST_F(PluginHostTest, handlerAndTrigger_runInTheScopeOfTheirPlugin)
{
    till->add(article(amoxidar));
    load(folderOf("willing_plugin"));
    for (const auto type : {control::PluginCommand, control::RemovePosition}) {
        control::Action action(type);
        controller.object.execute(action);
    }
    EXPECT_EQ(qApp->property("handlerScope"), u"willing_plugin"_s);
    EXPECT_EQ(qApp->property("triggerScope"), u"willing_plugin"_s);
    EXPECT_EQ(PluginScope::current(), QString());
    host.unload(controller.object);
}

TEST_F(PluginHostTest, cardTerminal_isThatOfTheFirstInitialisedPluginUntilItIsUnloaded)
{
    const Own<CardTerminals> terminals;
    const CardTerminalHost& connected = Singleton<CardTerminals>::get()->host();
    for (const char* plugin : {"idle_plugin", "throwing_plugin"}) {
        load(folderOf(plugin));
        EXPECT_FALSE(connected.terminal) << plugin;
    }
    load(folderOf("willing_plugin"));
    ASSERT_TRUE(connected.terminal);
    EXPECT_EQ(connected.plugin, u"willing_plugin"_s);
    const auto first = connected.terminal;
    Singleton<CardTerminals>::get()->add(QSharedPointer<TerminalDouble>::create());
    Singleton<CardTerminals>::get()->add(nullptr);
    EXPECT_EQ(connected.terminal, first);
    host.unload(controller.object);
    EXPECT_FALSE(connected.terminal);
}

TEST_F(PluginHostTest, willingPlugin_getsEventsUntilItIsUnloaded)
{
    load(folderOf("willing_plugin"));
    till->open();
    EXPECT_EQ(shown().last(), u"event 10"_s);
    host.unload(controller.object);
    notifier.object.notify(Event(EActivityListener::DocumentClosed));
    EXPECT_EQ(shown().last(), u"destroyed"_s);
}

TEST_F(PluginHostTest, pluginThatIsNotInitialised_getsNoEventsAndOthersDo)
{
    for (const char* plugin : {"idle_plugin", "throwing_plugin"}) {
        qApp->setProperty("testPlugin", QVariant());
        witness.seen.clear();
        load(folderOf(plugin));
        notifier.object.notify(Event(EActivityListener::DocumentOpened));
        EXPECT_EQ(shown(), QStringList{u"init"_s}) << plugin;
        EXPECT_EQ(witness.codes(), QList<int>{EActivityListener::DocumentOpened}) << plugin;
    }
    host.unload(controller.object);
}

TEST_F(PluginHostTest, idlePlugin_nothingOfItIsUsedAndItIsNotDeinitialised)
{
    till->open();
    load(folderOf("idle_plugin"));
    EXPECT_EQ(gui.object.host().creators.size(), registersOwnCreators);
    EXPECT_FALSE(controller.object.isHandled(control::PluginCommand));
    EXPECT_TRUE(host.active().isEmpty());
    EXPECT_EQ(host.problems(), QStringList{u"idle_plugin: выключен в настройках или не смог начать работу"_s});
    host.unload(controller.object);
    EXPECT_EQ(shown(), (QStringList{u"init"_s, u"destroyed"_s}));
}

TEST_F(PluginHostTest, throwingPlugin_isShownAndStaysIdle)
{
    till->open();
    load(folderOf("throwing_plugin"));
    EXPECT_EQ(gui.object.host().creators.size(), registersOwnCreators);
    EXPECT_EQ(host.problems(), QStringList{u"throwing_plugin: нет связи"_s});
    EXPECT_TRUE(host.active().isEmpty());
    EXPECT_FALSE(controller.object.isHandled(control::PluginCommand));
    host.unload(controller.object);
}

TEST_F(PluginHostTest, foreignPlugin_isShownAndSkipped)
{
    load(folderOf("foreign_plugin"));
    EXPECT_EQ(host.problems(), QStringList{u"foreign_plugin: это не модуль кассы. Уберите файл из папки модулей"_s});
    host.unload(controller.object);
}

TEST_F(PluginHostTest, garbageInTheFolder_isShownAndTheRestIsLoaded)
{
    const QDir plugins(folder.path());
    QFile garbage(plugins.filePath(u"libbroken.so"_s));
    ASSERT_TRUE(garbage.open(QIODevice::WriteOnly));
    garbage.write(QByteArray(10'000, 'x'));
    garbage.close();
    ASSERT_TRUE(QFile::link(folderOf("willing_plugin") + u"/libwilling_plugin.so"_s,
                            plugins.filePath(u"libwilling_plugin.so"_s)));
    load(plugins.path());
    ASSERT_EQ(host.problems().size(), 1);
    EXPECT_EQ(host.problems().first(), u"broken: библиотека не загружается. Переустановите модуль"_s);
    EXPECT_EQ(host.active(), QStringList{u"willing_plugin"_s});
    host.unload(controller.object);
}

TEST_F(PluginHostTest, folderBesideThePlugin_itsLayoutsAndMarksAreUsed)
{
    const QDir plugins(folder.path());
    ASSERT_TRUE(QFile::link(folderOf("willing_plugin") + u"/libwilling_plugin.so"_s,
                            plugins.filePath(u"libwilling_plugin.so"_s)));
    ASSERT_TRUE(plugins.mkdir(u"willing_plugin"_s));
    QFile json(plugins.filePath(u"willing_plugin/positionmarks.json"_s));
    ASSERT_TRUE(json.open(QIODevice::WriteOnly));
    json.write(R"({"positions": [{"tag": "t", "mark": "М"}]})");
    json.close();
    config.set(u"GUI:layouts"_s, u"/mine"_s);
    load(plugins.path());
    EXPECT_EQ(Singleton<Config>::get()->getString(u"GUI:layouts"_s),
              u"/mine:"_s + plugins.filePath(u"willing_plugin"_s));
    Position position({}, {});
    position.setTag(u"t"_s);
    EXPECT_EQ(marks.look(position).mark, u"М"_s);
    host.unload(controller.object);
}

TEST_F(PluginHostTest, folderMissing_isShown)
{
    load(folder.filePath(u"absent"_s));
    ASSERT_EQ(host.problems().size(), 1);
    EXPECT_TRUE(host.problems().first().endsWith(u"нет такой папки. Проверьте параметр --plugins"_s));
}

TEST_F(PluginHostTest, emptyFolder_isFine)
{
    const QTemporaryDir empty;
    load(empty.path());
    EXPECT_TRUE(host.problems().isEmpty());
    EXPECT_TRUE(host.active().isEmpty());
}

class PluginOfAnotherVersion : public PluginHostTest, public ::testing::WithParamInterface<const char*>
{
};

TEST_P(PluginOfAnotherVersion, isRefusedWithBothVersionsBeforeItsObjectIsMade)
{
    qApp->setProperty("otherSdkPluginMade", false);
    load(folderOf(GetParam()));
    ASSERT_EQ(host.problems().size(), 1);
    EXPECT_EQ(host.problems().first(),
              QLatin1StringView(GetParam()) +
                  u": модуль собран для интерфейса модулей версии 0, а у кассы версия %1. Установите модуль, "
                  "собранный для этой кассы"_s.arg(QLatin1StringView(REGISTER_SDK_VERSION)));
    EXPECT_EQ(qApp->property("otherSdkPluginMade"), false);
    EXPECT_TRUE(host.active().isEmpty());
    host.unload(controller.object);
}

INSTANTIATE_TEST_SUITE_P(, PluginOfAnotherVersion, ::testing::Values("other_id_plugin", "other_link_plugin"),
                         [](const auto& row) { return std::string(row.param); });

TEST_F(PluginHostTest, foreignPlugin_noObjectOfItIsMade)
{
    qApp->setProperty("foreignPluginMade", false);
    load(folderOf("foreign_plugin"));
    EXPECT_EQ(qApp->property("foreignPluginMade"), false);
}

TEST_F(PluginHostTest, libraryWithVersionLinks_isInitialisedOnce)
{
    const QDir plugins(folder.path());
    const QString real = plugins.filePath(u"libwilling_plugin.so.1.0"_s);
    ASSERT_TRUE(QFile::copy(folderOf("willing_plugin") + u"/libwilling_plugin.so"_s, real));
    for (const char* link : {"libwilling_plugin.so", "libwilling_plugin.so.1"}) {
        ASSERT_TRUE(QFile::link(real, plugins.filePath(QLatin1StringView(link))));
    }
    load(plugins.path());
    EXPECT_EQ(shown(), QStringList{u"init"_s});
    EXPECT_EQ(host.active(), QStringList{u"willing_plugin"_s});
    EXPECT_TRUE(host.problems().isEmpty()) << qPrintable(host.problems().join(u'\n'));
    host.unload(controller.object);
    EXPECT_EQ(shown(), (QStringList{u"init"_s, u"deinit"_s, u"destroyed"_s}));
}

TEST_F(PluginHostTest, twoLibrariesOfOneName_theFirstIsUsedAndTheSecondIsShown)
{
    const QDir plugins(folder.path());
    for (const char* copy : {"libwilling_plugin.so", "libwilling_plugin.so.1"}) {
        ASSERT_TRUE(QFile::copy(folderOf("willing_plugin") + u"/libwilling_plugin.so"_s,
                                plugins.filePath(QLatin1StringView(copy))));
    }
    load(plugins.path());
    EXPECT_EQ(shown(), QStringList{u"init"_s});
    EXPECT_EQ(host.problems(), QStringList(u"willing_plugin: модуль с таким именем уже подключён. Оставьте в папке "
                                           "модулей один"_s));
    host.unload(controller.object);
}
