// SPDX-License-Identifier: MIT
#include "abstractplugin.h"
#include "activitynotifier.h"
#include "baseactivitylistener.h"
#include "basicplugin.h"
#include "configured.h"
#include "graphicaluserinterface.h"

#include <QJsonObject>
#include <QLibrary>
#include <QPluginLoader>
#include <QPointer>
#include <QProcess>
#include <QRegularExpression>

#include <gtest/gtest.h>

namespace
{

class UserInterfaceDouble : public GraphicalUserInterface
{
public:
    QList<QSharedPointer<BasicFormCreator>> creators;

    void addFormCreator(const QSharedPointer<BasicFormCreator>& creator) override { creators << creator; }
};

class NotifierDouble : public ActivityNotifier
{
public:
    QList<BaseActivityListener*> listeners;

    void subscribe(BaseActivityListener* listener) override { listeners << listener; }
};

/// The library as it was built, loaded by Qt's plug-in loader; the object is destroyed after each test.
class PluginModule : public ::testing::Test
{
protected:
    ~PluginModule() override
    {
        userInterface.creators.clear();
        if (loader.isLoaded()) {
            delete loader.instance();
        }
    }

    QObject* load()
    {
        QObject* const object = loader.instance();
        EXPECT_NE(object, nullptr) << qPrintable(loader.errorString());
        return object;
    }

    Configured config;
    UserInterfaceDouble userInterface;
    NotifierDouble notifier;
    InPlace<GraphicalUserInterface> userInterfaceInPlace{&userInterface};
    InPlace<ActivityNotifier> notifierInPlace{&notifier};
    QPluginLoader loader{PLUGIN_FILE};
};

TEST_F(PluginModule, metadata_namesInterfaceAndClassAndHasNothingAttached)
{
    const QJsonObject metadata = loader.metaData();

    EXPECT_EQ(metadata["IID"], "ElectronicPrescription");
    EXPECT_EQ(metadata["className"], "ElectronicPrescriptionService");
    EXPECT_FALSE(metadata.contains("MetaData")) << qPrintable(metadata["MetaData"].toString());
    EXPECT_EQ(metadata["version"].toInt() >> 8, QT_VERSION >> 8) << "of the Qt that it was built with";
}

TEST_F(PluginModule, exportedFunctions_areTheTwoThatTheLoaderLooksUp)
{
    QProcess lister;
    lister.start(SYMBOL_LISTER, {"-D", "--defined-only", PLUGIN_FILE});
    ASSERT_TRUE(lister.waitForFinished()) << qPrintable(lister.errorString());
    ASSERT_EQ(lister.exitCode(), 0);

    QStringList functions;
    const QString symbols = QString::fromLocal8Bit(lister.readAllStandardOutput());
    auto function = QRegularExpression("^\\S+ T (\\S+)$", QRegularExpression::MultilineOption).globalMatch(symbols);
    while (function.hasNext()) {
        functions << function.next().captured(1);
    }
    EXPECT_EQ(functions, (QStringList{"qt_plugin_instance", "qt_plugin_query_metadata_v2"}));
}

TEST_F(PluginModule, object_isTheServiceAndEveryBaseOfIt)
{
    QObject* const object = load();
    ASSERT_NE(object, nullptr);

    EXPECT_STREQ(object->metaObject()->className(), "ElectronicPrescriptionService");
    EXPECT_EQ(object->parent(), nullptr);
    EXPECT_NE(qobject_cast<AbstractPlugin*>(object), nullptr);
    EXPECT_EQ(qobject_cast<AbstractPlugin*>(object), dynamic_cast<AbstractPlugin*>(object));
    EXPECT_NE(qobject_cast<BaseActivityListener*>(object), nullptr);
    EXPECT_EQ(object->qt_metacast("BasicPlugin"), static_cast<void*>(dynamic_cast<BasicPlugin*>(object)));
    EXPECT_NE(object->qt_metacast("DocumentWatcher"), nullptr);
    EXPECT_EQ(object->qt_metacast("AnotherPlugin"), nullptr);
}

/// Nothing of the plug-in has been in a QVariant yet: no dialog was asked for.
TEST_F(PluginModule, loaded_dialogRecordsAreFoundByName)
{
    load();

    for (const char* name : {"ElectronicPrescriptionChoiceParams", "ElectronicPrescriptionParams",
                             "ElectronicPrescriptionConfirmDispenseParams"}) {
        EXPECT_TRUE(QMetaType::fromName(name).isValid()) << name;
    }
}

TEST_F(PluginModule, askedTwice_givesTheSameObject)
{
    QObject* const object = load();

    EXPECT_EQ(loader.instance(), object);
    EXPECT_EQ(QPluginLoader(PLUGIN_FILE).instance(), object);
    const auto instance = reinterpret_cast<QObject* (*)()>(QLibrary::resolve(PLUGIN_FILE, "qt_plugin_instance"));
    ASSERT_NE(instance, nullptr);
    EXPECT_EQ(instance(), object);
}

TEST_F(PluginModule, askedAfterTheObjectWasDestroyed_makesANewOne)
{
    const QPointer<QObject> first = load();
    delete first;

    QObject* const second = load();

    ASSERT_NE(second, nullptr);
    EXPECT_TRUE(first.isNull());
    EXPECT_STREQ(second->metaObject()->className(), "ElectronicPrescriptionService");
}

TEST_F(PluginModule, withPharmacy_initRegistersEverything)
{
    config.setForThisRun("plugins:pharmacy", "true");
    QObject* const object = load();
    auto* const plugin = qobject_cast<AbstractPlugin*>(object);
    ASSERT_NE(plugin, nullptr);

    EXPECT_TRUE(plugin->init());

    EXPECT_EQ(plugin->getHandlers().size(), 1);
    EXPECT_EQ(plugin->getTriggers().size(), 8);
    EXPECT_EQ(userInterface.creators.size(), 1);
    EXPECT_EQ(notifier.listeners, QList<BaseActivityListener*>{qobject_cast<BaseActivityListener*>(object)});
}

TEST_F(PluginModule, withoutPharmacy_initRegistersNothing)
{
    auto* const plugin = qobject_cast<AbstractPlugin*>(load());
    ASSERT_NE(plugin, nullptr);

    EXPECT_FALSE(plugin->init());

    EXPECT_TRUE(plugin->getHandlers().isEmpty());
    EXPECT_TRUE(plugin->getTriggers().isEmpty());
    EXPECT_TRUE(userInterface.creators.isEmpty());
    EXPECT_TRUE(notifier.listeners.isEmpty());
}

} // namespace
