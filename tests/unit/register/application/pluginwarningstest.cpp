// SPDX-License-Identifier: MIT
#include "pluginwarnings.h"
#include "pluginscope.h"
#include "windowfixture.h"

#include <QLabel>

using namespace Qt::StringLiterals;

class PluginWarningsTest : public WindowFixture
{
protected:
    void SetUp() override
    {
        openWindow();
        window->statusLine().showMessage({});
        warnings = std::make_unique<PluginWarnings>(window->statusLine());
    }
    void TearDown() override { warnings.reset(); }

    static void warn(const QString& plugin, const QString& text)
    {
        const PluginScope scope(plugin);
        Singleton<StandingWarning>::get()->set({tr::undefined, text});
    }
    QString shown() const { return widget<QLabel>("statusMessageLabel")->text(); }

    std::unique_ptr<PluginWarnings> warnings;
};

TEST_F(PluginWarningsTest, eachPlugin_hasOneUntilItSetsAnother)
{
    warn(u"alpha"_s, u"Не решено: 5"_s);
    warn(u"beta"_s, u"Нет бумаги"_s);
    EXPECT_EQ(shown(), u"Не решено: 5\nНет бумаги"_s);
    warn(u"alpha"_s, u"Не решено:\n6"_s);
    EXPECT_EQ(shown(), u"Не решено: 6\nНет бумаги"_s);
    warn(u"alpha"_s, {});
    EXPECT_EQ(shown(), u"Нет бумаги"_s);
}

TEST_F(PluginWarningsTest, pluginThatIsNotActive_hasNone)
{
    warn(u"alpha"_s, u"Не решено: 5"_s);
    warn(u"beta"_s, u"Нет бумаги"_s);
    warnings->keepThoseOf({u"beta"_s});
    EXPECT_EQ(shown(), u"Нет бумаги"_s);
}

TEST_F(PluginWarningsTest, gone_theFormerObjectIsBack)
{
    warnings.reset();
    warn(u"alpha"_s, u"Не решено: 5"_s);
    EXPECT_EQ(shown(), QString());
}
