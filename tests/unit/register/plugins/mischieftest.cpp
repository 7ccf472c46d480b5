// SPDX-License-Identifier: MIT
// What one plug-in does wrong, and that the register and the other plug-ins go on.
#include "dialogdouble.h"
#include "guardedapplication.h"
#include "listenerhost.h"
#include "logcapture.h"
#include "mischievousplugin.h"
#include "pluginhost.h"
#include "pluginscope.h"
#include "registeraction.h"
#include "windowfixture.h"

#include <QJsonArray>
#include <QPushButton>
#include <QSignalSpy>

#include <ostream>
#include <tuple>
#include <utility>

using namespace Qt::StringLiterals;

/// A plug-in's exception leaves through Qt's widgets, which are built without exceptions and clean nothing up on the
/// way. What they held is lost; AddressSanitizer still finds everything else.
extern "C" __attribute__((visibility("default"))) const char* __asan_default_options()
{
    return "detect_leaks=0";
}

namespace
{

constexpr auto ownCommand = MischievousPlugin::ownCommand;

class MischiefTest : public WindowFixture
{
protected:
    MischiefTest()
    {
        qApp->setProperty("mischief", QVariant());
        qApp->setProperty("mischiefDone", QVariant());
        qApp->setProperty("testPlugin", QVariant());
        for (const QString& plugin : {u"mischievous_plugin"_s, u"willing_plugin"_s}) {
            const QString library = u"lib"_s + plugin + u".so"_s;
            EXPECT_TRUE(QFile::link(QString::fromUtf8(TEST_PLUGINS) + u'/' + plugin + u"_folder/"_s + library,
                                    pluginFolder.filePath(library)));
        }
        QObject::connect(static_cast<GuardedApplication*>(qApp), &GuardedApplication::failed, &longWork,
                         &LongWork::endAfterFailure);
        openWindow();
    }
    ~MischiefTest() override
    {
        qApp->setProperty("mischief", QVariant());
        host.unload(controller.object);
    }

    /// Has the plug-in misbehave from now on.
    static void arrange(const QString& place, const QString& deed = {})
    {
        qApp->setProperty("mischief", QString(place + u' ' + deed));
    }
    /// Where the plug-in has misbehaved.
    static QString done() { return qApp->property("mischiefDone").toString(); }
    void load() { host.load(pluginFolder.path(), controller.object, marks); }
    EContext::Result execute(control::EActionType type)
    {
        control::Action action(type);
        return controller.object.execute(action);
    }
    QStringList shown() const
    {
        QStringList texts;
        for (const DialogDouble::Message& message : dialog.messages()) {
            texts.append(message.text);
        }
        return texts;
    }
    /// Presses the plug-in's button as soon as its form is on top.
    void pressButton()
    {
        cashier.onForm(u"mischievousForm"_s, [](QWidget& root) {
            QTest::mouseClick(root.findChild<QPushButton*>(u"okButton"_s), Qt::LeftButton);
        });
    }
    /// Gives each place of the plug-in an occasion.
    void provoke()
    {
        load();
        longWork.endAfterFailure();
        execute(registeraction::openSale);
        till->add(article(amoxidar));
        startPressing();
        execute(ownCommand);
        QCoreApplication::processEvents(); // not until it is idle: it may queue itself again and again
        execute(control::Subtotal);
        EXPECT_TRUE(QTest::qWaitFor([] { return !done().isEmpty(); }));
        QCoreApplication::processEvents();
    }
    /// The register sells an article, and the other plug-in serves its command and is ended in order.
    void expectAllElseWorks()
    {
        qApp->setProperty("mischief", u"nowhere"_s);
        EXPECT_TRUE(becomesIdle());
        EXPECT_FALSE(longWork.isRunning());
        EXPECT_FALSE(isSeen("busyScreen"));
        EXPECT_EQ(PluginScope::current(), QString());
        EXPECT_TRUE(host.active().contains(u"willing_plugin"_s)) << qPrintable(host.problems().join(u'\n'));

        till->open();
        qApp->setProperty("handlerScope", QVariant());
        EXPECT_EQ(execute(control::PluginCommand), EContext::GoOn);
        EXPECT_EQ(qApp->property("handlerScope"), u"willing_plugin"_s);
        expectSale();
        host.unload(controller.object);
        expectOtherPluginEnded();
    }
    void expectSale()
    {
        till->add(article(amoxidar));
        const int number = till->document()->getNumber();
        EXPECT_EQ(execute(control::SubtotalAndPayment), EContext::GoOn);
        EXPECT_EQ(execute(registeraction::pay), EContext::GoOn);
        const auto sold = till->archive().find(number);
        ASSERT_TRUE(sold);
        EXPECT_EQ(sold->getState(), Document::State::Closed);
    }
    static void expectOtherPluginEnded()
    {
        const QStringList other = qApp->property("testPlugin").toStringList();
        EXPECT_TRUE(other.contains(u"deinit"_s));
        EXPECT_EQ(other.last(), u"destroyed"_s);
    }

    /// From now on the plug-in's button is pressed whenever its form is on top, and questions are answered with no.
    void startPressing()
    {
        QObject::connect(&m_presser, &QTimer::timeout, [this] { pressTopButton(); });
        m_presser.start(1);
    }

    QTemporaryDir pluginFolder;
    DialogDouble dialog;
    PluginHost host;

private:
    void pressTopButton()
    {
        const auto form = gui.object.topForm();
        if (!form || !form->rootWidget()) {
            return;
        }
        for (const auto& [name, button] :
             {std::pair(u"mischievousForm"_s, u"okButton"_s), std::pair(u"questionForm"_s, u"noButton"_s)}) {
            if (form->rootWidget()->objectName() == name) {
                QTest::mouseClick(form->rootWidget()->findChild<QPushButton*>(button), Qt::LeftButton);
                return;
            }
        }
    }

private:
    QTimer m_presser;
};

/// Where, and what.
using Mischief = std::tuple<const char*, const char*>;

std::string nameOf(const ::testing::TestParamInfo<Mischief>& info)
{
    return std::string(std::get<0>(info.param)) + '_' + std::get<1>(info.param);
}

class EveryMischief : public MischiefTest, public ::testing::WithParamInterface<Mischief>
{
};

TEST_P(EveryMischief, registerAndOtherPluginsGoOn)
{
    const auto [place, deed] = GetParam();
    const LogCapture log;
    arrange(QLatin1StringView(place), QLatin1StringView(deed));
    provoke();
    EXPECT_EQ(done(), QLatin1StringView(place));
    EXPECT_FALSE(log.text().contains(u"Иванов"_s)) << "what() may name a patient";
    expectAllElseWorks();
}

const auto deeds = ::testing::Values("throwStandard", "throwNumber", "throwForCashier", "block", "processEvents",
                                     "subtotal", "cancel", "suspend", "pay", "executeItself", "enqueueItself", "notify",
                                     "beginLongWorkAndThrow", "endLongWork");

INSTANTIATE_TEST_SUITE_P(, EveryMischief,
                         ::testing::Combine(::testing::Values("constructor", "init", "getHandlers", "getTriggers",
                                                              "handleEvent", "handler", "triggerBefore", "triggerAfter",
                                                              "timer", "slot", "event", "eventFilter", "formCreator",
                                                              "formConstructor", "formShow", "formButton", "formClose",
                                                              "formIsModal", "formProperty", "formTitle"),
                                            deeds),
                         nameOf);

/// A terminal that does something wrong after the money has moved, or when it is asked what has become of it.
class MischievousCardTerminal : public MischiefTest, public ::testing::WithParamInterface<Mischief>
{
protected:
    MischievousCardTerminal()
    {
        qApp->setProperty("mischiefTaken", QVariant());
        startPressing();
        load();
    }

    static qint64 taken() { return qApp->property("mischiefTaken").toLongLong(); }
    static bool isAboutRefunds() { return std::get<0>(GetParam()) == "terminalRefund"_L1; }
    EContext::Result payByCard()
    {
        EXPECT_EQ(execute(control::SubtotalAndPayment), EContext::GoOn);
        control::Action action(registeraction::pay);
        action.insert(u"method"_s, u"card"_s);
        return controller.object.execute(action);
    }
    void provokeTheTerminal()
    {
        till->add(article(amoxidar));
        number = till->document()->getNumber();
        if (isAboutRefunds()) {
            EXPECT_EQ(payByCard(), EContext::GoOn);
            EXPECT_TRUE(till->returnSale(till->archive().find(number)));
            number = till->document()->getNumber();
        }
        arrange(QLatin1StringView(std::get<0>(GetParam())), QLatin1StringView(std::get<1>(GetParam())));
        payByCard();
        EXPECT_EQ(done(), QLatin1StringView(std::get<0>(GetParam())));
        qApp->setProperty("mischief", u"nowhere"_s);
    }
    /// Its file.
    QString savedText() const
    {
        QFile file(folder.filePath(u"finished/%1.json"_s.arg(number, 8, 10, QChar(u'0'))));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }

    int number = 0; ///< of the document that the terminal spoils
};

TEST_P(MischievousCardTerminal, moneyIsMovedOnceAndIsOnTheDocumentAndAllElseWorks)
{
    const LogCapture log;
    provokeTheTerminal();
    if (till->document()) {
        EXPECT_EQ(till->document()->getNumber(), number);
        EXPECT_EQ(payByCard(), EContext::GoOn) << "the terminal works again";
    }
    const auto document = till->archive().find(number);
    ASSERT_TRUE(document);
    EXPECT_EQ(document->getState(), Document::State::Closed);
    EXPECT_FALSE(document->unsettledCardOperation());
    EXPECT_EQ(document->ending().payments, QList<Payment>{Payment::card(Kopecks{1240})});
    EXPECT_EQ(taken(), isAboutRefunds() ? 0 : 1240);
    const QString records = savedText() + log.text();
    EXPECT_FALSE(records.contains(u"Иванов"_s)) << "what() may name a customer";
    EXPECT_FALSE(records.contains(u"4111111111111111"_s)) << "the whole number of a card";
    EXPECT_LT(records.size(), 50'000) << "a terminal's text is no longer than a receipt can show";
    expectAllElseWorks();
}

INSTANTIATE_TEST_SUITE_P(
    , MischievousCardTerminal,
    ::testing::Combine(::testing::Values("terminalPay", "terminalRefund", "terminalFind"),
                       ::testing::Values("throwStandard", "throwNumber", "throwForCashier", "block", "processEvents",
                                         "subtotal", "cancel", "suspend", "pay", "executeItself", "enqueueItself",
                                         "notify", "beginLongWorkAndThrow", "endLongWork", "askForm", "deletePlugin",
                                         "forgetTerminals", "answerUnknownOutcome", "answerNegativeOutcome",
                                         "answerWithoutTexts", "answerWholeCardNumber", "answerHugeTexts")),
    nameOf);

INSTANTIATE_TEST_SUITE_P(BeforeTheOperation, MischievousCardTerminal,
                         ::testing::Combine(::testing::Values("terminalTimeLimit"),
                                            ::testing::Values("throwStandard", "throwNumber", "throwForCashier",
                                                              "block", "processEvents", "subtotal", "executeItself",
                                                              "enqueueItself", "notify", "beginLongWorkAndThrow",
                                                              "endLongWork", "askForm", "deletePlugin",
                                                              "forgetTerminals")),
                         nameOf);

/// A terminal that ends the document when it is asked how long it takes.
class DocumentEndedByATerminal : public MischievousCardTerminal
{
};

TEST_P(DocumentEndedByATerminal, cardIsNotChargedAndTheCashierIsTold)
{
    provokeTheTerminal();
    EXPECT_EQ(taken(), 0);
    EXPECT_FALSE(till->document());
    EXPECT_EQ(shown().filter(u"Терминал не запрошен"_s).size(), 1) << qPrintable(shown().join(u'\n'));
    const auto document = till->archive().find(number);
    ASSERT_TRUE(document);
    EXPECT_TRUE(document->cardOperations().isEmpty());
    expectAllElseWorks();
}

INSTANTIATE_TEST_SUITE_P(, DocumentEndedByATerminal,
                         ::testing::Combine(::testing::Values("terminalTimeLimit"),
                                            ::testing::Values("cancel", "suspend", "pay")),
                         nameOf);

class MischiefAtTheEnd : public MischiefTest, public ::testing::WithParamInterface<const char*>
{
};

TEST_P(MischiefAtTheEnd, otherPluginIsEndedInOrderAndTheRegisterSells)
{
    load();
    arrange(u"deinit"_s, QLatin1StringView(GetParam()));
    host.unload(controller.object);
    EXPECT_EQ(done(), u"deinit"_s);
    expectOtherPluginEnded();
    longWork.endAfterFailure();
    EXPECT_TRUE(becomesIdle());
    expectSale();
}

INSTANTIATE_TEST_SUITE_P(, MischiefAtTheEnd, deeds, [](const auto& row) { return std::string(row.param); });

/// Places whose exceptions no action catches.
class ThrowingAlone : public MischiefTest, public ::testing::WithParamInterface<const char*>
{
};

TEST_P(ThrowingAlone, pluginIsNamedInTheLogAndReportedOnce)
{
    QSignalSpy failed(static_cast<GuardedApplication*>(qApp), &GuardedApplication::failed);
    load();
    till->add(article(amoxidar));
    arrange(QLatin1StringView(GetParam()), u"throwForCashier"_s);
    const LogCapture log;
    execute(ownCommand);
    ASSERT_TRUE(QTest::qWaitFor([&failed] { return !failed.isEmpty(); }));
    EXPECT_EQ(failed.size(), 1);
    EXPECT_EQ(failed.first().at(0), u"mischievous_plugin"_s);
    EXPECT_EQ(failed.first().at(1).value<tr::Tr>().ui(), u"Шалость удалась"_s);
    EXPECT_TRUE(log.text().contains(u"plug-in mischievous_plugin: an exception with the message mischiefKey"_s))
        << log.text().toStdString();
    EXPECT_TRUE(dialog.messages().isEmpty());
    expectAllElseWorks();
}

INSTANTIATE_TEST_SUITE_P(, ThrowingAlone, ::testing::Values("timer", "slot", "event", "eventFilter"),
                         [](const auto& row) { return std::string(row.param); });

/// Places where a plug-in fails at its start.
class ThrowingAtTheStart : public MischiefTest, public ::testing::WithParamInterface<const char*>
{
};

TEST_P(ThrowingAtTheStart, pluginIsShownAndNothingOfItStays)
{
    const auto creators = gui.object.host().creators.size();
    const auto listeners = notifier.object.host().listeners.size();
    arrange(QLatin1StringView(GetParam()), u"throwForCashier"_s);
    load();
    EXPECT_EQ(host.problems(), QStringList(u"mischievous_plugin: Шалость удалась"_s));
    EXPECT_EQ(host.active(), QStringList(u"willing_plugin"_s));
    EXPECT_EQ(gui.object.host().creators.size(), creators + 1) << "that of the other plug-in";
    EXPECT_EQ(notifier.object.host().listeners.size(), listeners + 1) << "the other plug-in";
    till->add(article(amoxidar));
    EXPECT_FALSE(controller.object.isHandled(ownCommand));
    expectAllElseWorks();
}

INSTANTIATE_TEST_SUITE_P(, ThrowingAtTheStart, ::testing::Values("constructor", "init", "getHandlers", "getTriggers"),
                         [](const auto& row) { return std::string(row.param); });

TEST_F(MischiefTest, deinitThrows_isLoggedWithItsName)
{
    load();
    arrange(u"deinit"_s, u"throwStandard"_s);
    const LogCapture log;
    host.unload(controller.object);
    EXPECT_EQ(log.lines().filter(u"ERROR"_s),
              QStringList(u"ERROR register Plug-in failed in deinit(): mischievous_plugin: an exception of the type "
                          "std::runtime_error"_s));
    EXPECT_EQ(qApp->property("testPlugin").toStringList(), QStringList({u"init"_s, u"deinit"_s, u"destroyed"_s}));
}

TEST_F(MischiefTest, handlerThrows_pluginIsNamedInTheLogWithoutTheText)
{
    load();
    till->add(article(amoxidar));
    arrange(u"handler"_s, u"throwStandard"_s);
    const LogCapture log;
    EXPECT_EQ(execute(ownCommand), EContext::Stop);
    EXPECT_EQ(log.lines().first(),
              u"ERROR action Plug-in mischievous_plugin, action 5001: an exception of the type std::runtime_error"_s);
    EXPECT_EQ(dialog.messages().size(), 1);
    expectAllElseWorks();
}

TEST_F(MischiefTest, formsButtonThrows_itsRunEndsWithTheExceptionAndTheCashierReadsIt)
{
    const QSignalSpy failed(static_cast<GuardedApplication*>(qApp), &GuardedApplication::failed);
    load();
    till->add(article(amoxidar));
    arrange(u"formButton"_s, u"throwForCashier"_s);
    pressButton();
    EXPECT_EQ(execute(ownCommand), EContext::Stop);
    EXPECT_EQ(shown(), QStringList(u"Шалость удалась"_s));
    QCoreApplication::processEvents();
    EXPECT_TRUE(failed.isEmpty()) << "it is shown once";
    expectAllElseWorks();
}

TEST_F(MischiefTest, timerThrowsWhileAnotherFormIsOpen_theFormStays)
{
    QSignalSpy failed(static_cast<GuardedApplication*>(qApp), &GuardedApplication::failed);
    load();
    till->add(article(amoxidar));
    arrange(u"timer"_s, u"throwNumber"_s);
    execute(ownCommand);
    bool isOpen = false;
    cashier.onForm(u"goodsSelectionForm"_s, [&](QWidget&) {
        isOpen = QTest::qWaitFor([&failed] { return !failed.isEmpty(); }) && gui.object.topForm();
        gui.object.cancelForms();
    });
    EXPECT_EQ(execute(control::SelectGoods), EContext::Stop);
    EXPECT_TRUE(isOpen);
    EXPECT_TRUE(shown().isEmpty());
    expectAllElseWorks();
}

TEST_F(MischiefTest, formDeletesItsRoot_isNoAnswer)
{
    load();
    till->add(article(amoxidar));
    arrange(u"formDeletesItsRoot"_s);
    pressButton();
    EXPECT_EQ(execute(ownCommand), EContext::GoOn);
    expectAllElseWorks();
}

TEST_F(MischiefTest, formDeletesTheSenderAndThrows_isReportedAndTheFormCanBeClosed)
{
    QSignalSpy failed(static_cast<GuardedApplication*>(qApp), &GuardedApplication::failed);
    load();
    till->add(article(amoxidar));
    arrange(u"formDeletesTheSender"_s);
    cashier.onForm(u"mischievousForm"_s, [&](QWidget& root) {
        QTest::mouseClick(root.findChild<QPushButton*>(u"okButton"_s), Qt::LeftButton);
        EXPECT_TRUE(QTest::qWaitFor([&failed] { return !failed.isEmpty(); }));
        gui.object.cancelForms();
    });
    EXPECT_EQ(execute(ownCommand), EContext::GoOn);
    EXPECT_EQ(failed.size(), 1);
    expectAllElseWorks();
}

TEST_F(MischiefTest, formWithoutARoot_isNoAnswer)
{
    load();
    till->add(article(amoxidar));
    arrange(u"formWithoutARoot"_s);
    EXPECT_EQ(execute(ownCommand), EContext::GoOn);
    expectAllElseWorks();
}

TEST_F(MischiefTest, creatorThrowsAtEverything_otherFormsAreShown)
{
    load();
    arrange(u"formCreator"_s, u"throwNumber"_s);
    MockFactory<Dialog>::mocked = {};
    bool isShown = false;
    cashier.onForm(u"messageForm"_s, [&](QWidget& root) {
        isShown = true;
        QTest::mouseClick(root.findChild<QPushButton*>(u"okButton"_s), Qt::LeftButton);
    });
    Dialog::create()->showMessage({tr::undefined, u"Текст"_s}, Dialog::Notice, 0, 0);
    EXPECT_TRUE(isShown);
    expectAllElseWorks();
}

TEST_F(MischiefTest, listenerDeletesItsPlugin_itIsNotUsedAnyMore)
{
    load();
    arrange(u"listenerDeletesItself"_s);
    till->open();
    EXPECT_EQ(done(), u"listenerDeletesItself"_s);
    EXPECT_EQ(host.active(), QStringList(u"willing_plugin"_s));
    expectAllElseWorks();
}

TEST_F(MischiefTest, handlerDeletesItsPlugin_theNextOneStopsAndSaysSo)
{
    load();
    till->add(article(amoxidar));
    arrange(u"handlerDeletesThePlugin"_s);
    EXPECT_EQ(execute(ownCommand), EContext::GoOn);
    EXPECT_EQ(execute(ownCommand), EContext::Stop);
    ASSERT_EQ(shown().size(), 1);
    EXPECT_TRUE(shown().first().startsWith(u"Модуль «mischievous_plugin» завершил работу"_s));
    host.unload(controller.object);
    EXPECT_EQ(qApp->property("testPlugin").toStringList().last(), u"destroyed"_s);
}

TEST_F(MischiefTest, pluginEndsByItself_itIsAProblemFromThenOnAndOthersAreNot)
{
    load();
    int ended = 0;
    host.onEnded([&ended] { ++ended; });
    ASSERT_TRUE(host.problems().isEmpty());
    arrange(u"handlerDeletesThePlugin"_s);
    till->add(article(amoxidar));
    EXPECT_EQ(execute(ownCommand), EContext::GoOn);
    EXPECT_EQ(ended, 0) << "its code may still be on the stack";
    EXPECT_TRUE(QTest::qWaitFor([&ended] { return ended > 0; }));
    EXPECT_EQ(host.active(), QStringList(u"willing_plugin"_s));
    EXPECT_EQ(host.problems(),
              QStringList(u"mischievous_plugin: завершил работу из-за внутренней ошибки. Перезапустите кассу"_s));

    host.unload(controller.object);
    QCoreApplication::processEvents();
    EXPECT_EQ(ended, 1) << "the other one is ended by the register";
    EXPECT_EQ(host.problems().size(), 1);
}

TEST_F(MischiefTest, functionsAreEmpty_theyArePassedOverAndLogged)
{
    arrange(u"emptyFunctions"_s);
    const LogCapture log;
    load();
    EXPECT_EQ(log.lines().filter(u"mischievous_plugin has no function for action"_s).size(), 2);
    till->add(article(amoxidar));
    EXPECT_FALSE(controller.object.isHandled(control::EActionType(5002)));
    EXPECT_EQ(execute(control::Subtotal), EContext::GoOn);
    expectAllElseWorks();
}

TEST_F(MischiefTest, handlerReturnsAnUnknownResult_isReturned)
{
    load();
    till->add(article(amoxidar));
    arrange(u"oddResult"_s);
    EXPECT_EQ(execute(ownCommand), EContext::Result(77));
    expectAllElseWorks();
}

TEST_F(MischiefTest, throwsBetweenBeginningAndEndOfLongWork_theBusyScreenIsGone)
{
    load();
    till->add(article(amoxidar));
    arrange(u"handler"_s, u"beginLongWorkAndThrow"_s);
    EXPECT_EQ(execute(ownCommand), EContext::Stop);
    EXPECT_FALSE(isSeen("busyScreen"));
    expectAllElseWorks();
}

TEST_F(MischiefTest, handlerLeavesLongWorkOpen_theBusyScreenIsGone)
{
    load();
    till->add(article(amoxidar));
    arrange(u"handler"_s, u"beginLongWork"_s);
    EXPECT_EQ(execute(ownCommand), EContext::GoOn);
    EXPECT_FALSE(isSeen("busyScreen"));
    expectAllElseWorks();
}

TEST_F(MischiefTest, asksAgainWheneverItIsCancelled_theWindowClosesAndTheDocumentIsSaved)
{
    load();
    till->add(article(amoxidar));
    arrange(u"askForEver"_s);
    cashier.onForm(u"mischievousForm"_s, [this](QWidget&) { EXPECT_FALSE(window->close()); });
    controller.object.enqueue(control::Action(ownCommand), false);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !window->isVisible(); }, 30'000));
    EXPECT_EQ(qApp->property("mischiefAsked"), 51);
    EXPECT_EQ(shown(), QStringList(u"Действие прервано: касса закрывается."_s));
    EXPECT_EQ(savedDocument().value(u"positions"_s).toArray().size(), 1);
    expectAllElseWorks();
}

TEST_F(MischiefTest, asksAgainWhateverItGets_theHostIsToldToGiveUp)
{
    load();
    till->add(article(amoxidar));
    arrange(u"askForEverAndSwallow"_s);
    bool isGivenUp = false;
    gui.object.host().giveUp = [&isGivenUp] {
        isGivenUp = true;
        qApp->setProperty("mischief", u"nowhere"_s);
    };
    cashier.onForm(u"mischievousForm"_s, [this](QWidget&) { EXPECT_FALSE(window->close()); });
    controller.object.enqueue(control::Action(ownCommand), false);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !window->isVisible(); }, 30'000));
    EXPECT_TRUE(isGivenUp);
    expectAllElseWorks();
}

TEST_F(MischiefTest, queuesItselfAgain_theWindowCloses)
{
    load();
    till->add(article(amoxidar));
    arrange(u"handler"_s, u"enqueueItself"_s);
    execute(ownCommand);
    EXPECT_FALSE(window->close());
    EXPECT_TRUE(QTest::qWaitFor([this] { return !window->isVisible(); }, 30'000));
    expectAllElseWorks();
}

} // namespace
