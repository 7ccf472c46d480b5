// SPDX-License-Identifier: MIT
#include "orderlyend.h"
#include "commandfixture.h"
#include "dialog.h"
#include "inputblocker.h"

#include <QGuiApplication>
#include <QTest>

#include <cstddef>
#include <memory>

using namespace Qt::StringLiterals;

/// The event loop runs in exec(), as in the program.
class OrderlyEndTest : public CommandFixture
{
protected:
    /// Has something happen once the event loop runs.
    template <typename Act>
    void onceRunning(Act act)
    {
        QTimer::singleShot(0, &end, act);
    }
    void handle(std::function<void()> work)
    {
        controller.object.host().setHandler(control::PluginCommand, [work = std::move(work)](control::Action&) {
            work();
            return EContext::GoOn;
        });
    }
    static void showMessage() { Dialog::create()->showMessage({tr::undefined, u"Сообщение"_s}, Dialog::Notice, 1, 0); }

    /// A request to a server, during which the system asks for the end three times.
    void requestWhileAskedToEnd()
    {
        const InputBlocker request;
        for (int signal = 0; signal < 3; ++signal) {
            end.begin();
            int looks = 0;
            EXPECT_TRUE(QTest::qWaitFor([&looks] { return ++looks == 10; })) << "events run during a request";
            EXPECT_TRUE(steps.isEmpty());
        }
        steps.append(u"answered"_s);
    }

    QStringList steps;
    std::function<void()> save = [this] { steps.append(u"saved"_s); };
    OrderlyEnd end{[this] { save(); }};
};

TEST_F(OrderlyEndTest, nothingUnderWay_savesOnceAndEnds)
{
    EXPECT_FALSE(end.hasBegun());
    onceRunning([this] {
        end.begin();
        end.begin();
    });
    EXPECT_EQ(QCoreApplication::exec(), 0);
    EXPECT_TRUE(end.hasBegun());
    EXPECT_EQ(steps, QStringList{u"saved"_s});
}

TEST_F(OrderlyEndTest, formsOpen_areCancelledOneAfterTheOtherBeforeItSaves)
{
    handle([this] {
        showMessage();
        steps.append(u"first cancelled"_s);
        showMessage();
        steps.append(u"second cancelled"_s);
    });
    controller.object.enqueue(control::Action(control::PluginCommand), false);
    cashier.onForm(u"messageForm"_s, [this](QWidget&) { end.begin(); });
    EXPECT_EQ(QCoreApplication::exec(), 0);
    EXPECT_EQ(steps, (QStringList{u"first cancelled"_s, u"second cancelled"_s, u"saved"_s}));
}

TEST_F(OrderlyEndTest, requestUnderWay_isWaitedForAlthoughItIsAskedAgain)
{
    handle([this] { requestWhileAskedToEnd(); });
    controller.object.enqueue(control::Action(control::PluginCommand), false);
    EXPECT_EQ(QCoreApplication::exec(), 0);
    EXPECT_EQ(steps, (QStringList{u"answered"_s, u"saved"_s}));
}

TEST_F(OrderlyEndTest, requestOutsideAnyAction_isWaitedFor)
{
    onceRunning([this] { requestWhileAskedToEnd(); });
    EXPECT_EQ(QCoreApplication::exec(), 0);
    EXPECT_EQ(steps, (QStringList{u"answered"_s, u"saved"_s}));
}

TEST_F(OrderlyEndTest, requestOfAForm_isAnsweredBeforeTheFormIsCancelled)
{
    handle([this] {
        showMessage();
        steps.append(u"cancelled"_s);
    });
    controller.object.enqueue(control::Action(control::PluginCommand), false);
    cashier.onForm(u"messageForm"_s, [this](QWidget& root) {
        requestWhileAskedToEnd();
        EXPECT_TRUE(root.isVisible());
    });
    EXPECT_EQ(QCoreApplication::exec(), 0);
    EXPECT_EQ(steps, (QStringList{u"answered"_s, u"cancelled"_s, u"saved"_s}));
}

TEST_F(OrderlyEndTest, savingShowsAMessage_isCancelledAndTheRegisterEnds)
{
    save = [this] {
        showMessage();
        steps.append(u"cancelled"_s);
    };
    onceRunning([this] { end.begin(); });
    EXPECT_EQ(QCoreApplication::exec(), 0);
    EXPECT_EQ(steps, QStringList{u"cancelled"_s});
}

class SessionEnd : public OrderlyEndTest
{
protected:
    SessionEnd() { end.followSession(); }

    /// Only a session manager makes one; nobody looks into it.
    QSessionManager& manager() { return reinterpret_cast<QSessionManager&>(m_storage); }

private:
    alignas(std::max_align_t) std::byte m_storage[64] = {};
};

TEST_F(SessionEnd, dataIsToBeCommitted_savesAndEnds)
{
    onceRunning([this] { emit qGuiApp->commitDataRequest(manager()); });
    EXPECT_EQ(QCoreApplication::exec(), 0);
    EXPECT_EQ(steps, QStringList{u"saved"_s});
}

TEST_F(SessionEnd, stateIsToBeSaved_savesAndGoesOn)
{
    emit qGuiApp->saveStateRequest(manager());
    EXPECT_EQ(steps, QStringList{u"saved"_s});
    EXPECT_FALSE(end.hasBegun());
}
