// SPDX-License-Identifier: MIT
#include "orderlyend.h"
#include "commandfixture.h"
#include "dialog.h"
#include "inputblocker.h"
#include "registeraction.h"
#include "terminaldouble.h"

#include <QGuiApplication>
#include <QJsonArray>
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

/// A sale over 12,40 that is being paid by card when the system asks for the end.
class EndWhileATerminalWaits : public OrderlyEndTest
{
protected:
    void payByCardAndEnd(const CardAnswer& answer)
    {
        till->add(article(amoxidar));
        till->setPhase(Till::Phase::Payment);
        terminal->onMove = [this, answer](const auto&, const auto& move) {
            requestWhileAskedToEnd();
            move();
            return answer;
        };
        control::Action pay(registeraction::pay);
        pay.insert(u"method"_s, u"card"_s);
        controller.object.enqueue(pay, false);
        EXPECT_EQ(QCoreApplication::exec(), 0);
        EXPECT_EQ(steps, (QStringList{u"answered"_s, u"saved"_s}));
    }

    ConnectedTerminal terminal;
};

TEST_F(EndWhileATerminalWaits, approved_saleIsClosedBeforeTheEnd)
{
    payByCardAndEnd(TerminalDouble::approved());
    const auto sale = till->archive().find(1);
    ASSERT_TRUE(sale);
    EXPECT_EQ(sale->ending().payments, QList<Payment>{Payment::card(Kopecks{1240})});
    EXPECT_EQ(terminal->taken(), 1240);
}

TEST_F(EndWhileATerminalWaits, answerLost_questionIsCancelledAndTheNextStartFindsTheMoney)
{
    terminal->onFind = [](const auto&) { return CardAnswer::unknown(); };
    payByCardAndEnd(CardAnswer::unknown());
    EXPECT_EQ(savedDocument()["cardOperations"_L1][0]["state"_L1].toString(), u"asked"_s);

    terminal->onFind = {};
    DocumentWatcher::setCurrentDocument(nullptr);
    Till next(folder.path());
    next.restore(OpenDocumentFile(folder.path()).load());
    cashier.onForm(u"messageForm"_s, [](QWidget& root) { press(root, "okButton"); });
    PaymentCommands(next).settleRestored();
    ASSERT_TRUE(next.document());
    EXPECT_EQ(next.due(), Kopecks{0});
    EXPECT_EQ(terminal->count("pay"), 1);
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
