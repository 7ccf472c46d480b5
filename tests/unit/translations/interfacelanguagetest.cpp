// SPDX-License-Identifier: MIT
// The language of the register's screens and of the platform's forms.
#include "actionqueuecontroller.h"
#include "activitynotifier.h"
#include "askform.h"
#include "config.h"
#include "configurationreport.h"
#include "dialog.h"
#include "goodsselectionparams.h"
#include "graphicaluserinterface.h"
#include "inplace.h"
#include "looks.h"
#include "registerapplication.h"
#include "textinputparams.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;

class InterfaceLanguage : public ::testing::Test
{
protected:
    /// Starts the register.
    ///
    /// @param language lines of the configuration's section "Language"
    void start(const QByteArray& language)
    {
        QFile file(folder.filePath(u"register.ini"_s));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("[GUI]\ntouchMode=true\n[Language]\nkeyboardLayouts=en\n" + language);
        file.close();
        commandLine.config = file.fileName();
        commandLine.dataFolder = folder.path();
        commandLine.pluginFolder = folder.path();
        commandLine.windowSize = {1024, 600};
        application.reset();
        application = std::make_unique<RegisterApplication>(commandLine);
        const auto failure = application->start();
        ASSERT_FALSE(failure) << failure->message.toStdString();
        config.reset(Singleton<Config>::instance);
    }

    /// A folder with a catalogue of the integrator's own, in which the register's window has another title.
    /// @param texts a catalogue of this test
    /// @param language that it is given out for
    QByteArray ownFolder(const QString& texts, const QString& language) const
    {
        const QDir own(folder.filePath(texts));
        EXPECT_TRUE(own.mkpath(u"."_s));
        EXPECT_TRUE(QFile::copy(u":/translations/"_s + texts + u"_be.qm"_s,
                                own.filePath(u"pharmacyregister_"_s + language + u".qm"_s)));
        return own.path().toUtf8();
    }

    /// The register's window.
    static QWidget& window()
    {
        const QList<QWidget*> windows = QApplication::topLevelWidgets();
        const auto found = std::find_if(windows.cbegin(), windows.cend(),
                                        [](auto* widget) { return widget->inherits("RegisterWindow"); });
        return **found;
    }
    QSharedPointer<BasicForm> errorMessage() const
    {
        Event event(EActivityListener::ShowMessage);
        event.addArgument(u"kind"_s, Dialog::Error);
        return gui.object.createForm(event);
    }
    QSharedPointer<BasicForm> textInput() const
    {
        return gui.object.createForm(
            formEvent(EActivityListener::ShowTextInput, QVariant::fromValue(TextInputParams())));
    }
    QSharedPointer<BasicForm> goodsSelection() const
    {
        return gui.object.createForm(
            formEvent(GoodsSelectionParams::eventCode, QVariant::fromValue(GoodsSelectionParams())));
    }
    static QString textOf(const BasicForm& form, const char* label)
    {
        return form.rootWidget()->findChild<QLabel*>(QLatin1StringView(label))->text();
    }

    /// Every text of a window or form that is shown or read aloud.
    static QStringList textsIn(const QWidget& root)
    {
        return QStringList{root.windowTitle(), root.accessibleName()} + looks::textsOn(root);
    }
    static QStringList russianTextsIn(const QWidget& root)
    {
        return textsIn(root).filter(QRegularExpression(u"[А-Яа-яЁё№]"_s));
    }

    QTemporaryDir folder;
    CommandLine commandLine;
    Own<ActionQueueController> controller;
    Own<ActivityNotifier> notifier;
    Own<GraphicalUserInterface> gui;
    std::unique_ptr<Config> config; ///< the one that the register put in place
    InPlace<Config> formerConfig{Singleton<Config>::instance};
    std::unique_ptr<RegisterApplication> application;
};

TEST_F(InterfaceLanguage, english_platformAndRegisterAreInEnglish)
{
    ASSERT_NO_FATAL_FAILURE(start("interface=en\n"));
    EXPECT_EQ(window().windowTitle(), u"Pharmacy register"_s);
    EXPECT_EQ(textOf(*errorMessage(), "titleLabel"), u"Error"_s);
}

TEST_F(InterfaceLanguage, noneOrUnknown_textsAreInRussian)
{
    for (const char* language : {"", "interface=\n", "interface=xx\n"}) {
        ASSERT_NO_FATAL_FAILURE(start(language));
        EXPECT_EQ(window().windowTitle(), u"Касса аптеки"_s) << language;
        EXPECT_EQ(textOf(*errorMessage(), "titleLabel"), u"Ошибка"_s) << language;
        application.reset();
    }
}

TEST_F(InterfaceLanguage, ownCatalogueOfALanguageWithoutTexts_itsTextsAreShownAndNothingIsWrong)
{
    const QByteArray own = ownFolder(u"firsttexts"_s, u"be"_s);
    ASSERT_NO_FATAL_FAILURE(start("interface=be\ncatalogues=\"" + own + "\"\n"));
    EXPECT_EQ(window().windowTitle(), u"Каса аптэкі"_s);
    EXPECT_EQ(textOf(*errorMessage(), "titleLabel"), u"Ошибка"_s) << "it has no text of its own for that";
    EXPECT_EQ(ConfigurationReport(Config(commandLine.config), commandLine).problems.join(u' '), QString());
}

TEST_F(InterfaceLanguage, ownCatalogueOfEnglish_winsOverTheRegistersAndTheRestStaysEnglish)
{
    const QByteArray own = ownFolder(u"firsttexts"_s, u"en"_s);
    ASSERT_NO_FATAL_FAILURE(start("interface=en\ncatalogues=\"" + own + "\"\n"));
    EXPECT_EQ(window().windowTitle(), u"Каса аптэкі"_s);
    EXPECT_EQ(textOf(*errorMessage(), "titleLabel"), u"Error"_s);
}

TEST_F(InterfaceLanguage, severalOwnFolders_theFirstWins)
{
    const QByteArray first = ownFolder(u"firsttexts"_s, u"be"_s);
    const QByteArray second = ownFolder(u"secondtexts"_s, u"be"_s);
    ASSERT_NO_FATAL_FAILURE(start("interface=be\ncatalogues=\"" + first + ':' + second + "\"\n"));
    EXPECT_EQ(window().windowTitle(), u"Каса аптэкі"_s);
    ASSERT_NO_FATAL_FAILURE(start("interface=be\ncatalogues=\"" + second + ':' + first + "\"\n"));
    EXPECT_EQ(window().windowTitle(), u"Каса"_s);
}

TEST_F(InterfaceLanguage, englishRegisterEnded_textsAreInRussianAgain)
{
    ASSERT_NO_FATAL_FAILURE(start("interface=en\n"));
    application.reset();
    EXPECT_EQ(textOf(*errorMessage(), "titleLabel"), u"Ошибка"_s);
}

TEST_F(InterfaceLanguage, english_noRussianTextIsShownOrReadAloud)
{
    ASSERT_NO_FATAL_FAILURE(start("interface=en\n"));
    EXPECT_EQ(russianTextsIn(window()), QStringList());
    const auto goods = goodsSelection();
    EXPECT_EQ(russianTextsIn(*goods->rootWidget()), QStringList());
    EXPECT_EQ(russianTextsIn(*errorMessage()->rootWidget()), QStringList());
    EXPECT_EQ(russianTextsIn(*textInput()->rootWidget()), QStringList());
    EXPECT_TRUE(textsIn(*goods->rootWidget()).contains(u"Name, INN or barcode"_s));
    EXPECT_TRUE(textsIn(*goods->rootWidget()).contains(u"On-screen keyboard"_s));
}
