// SPDX-License-Identifier: MIT
#include "activitynotifier.h"
#include "listenerhost.h"
#include "logcapture.h"
#include "pluginscope.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace
{

class Listener : public BaseActivityListener
{
public:
    explicit Listener(std::function<void(const Event&)> reaction = {})
        : m_reaction(std::move(reaction))
    {
    }
    void handleEvent(const Event& event) override
    {
        codes.append(event.getCode());
        if (m_reaction) {
            m_reaction(event);
        }
    }

    QList<int> codes;

private:
    std::function<void(const Event&)> m_reaction;
};

const Event opened(EActivityListener::DocumentOpened);

} // namespace

TEST(Event, arguments_areReplacedByNameAndHaveDefaults)
{
    Event event(EActivityListener::LongWorkBegins);
    event.addArgument(u"message"_s, 1).addArgument(u"other"_s, u"x"_s).addArgument(u"message"_s, 2);
    EXPECT_EQ(event.getCode(), 72);
    EXPECT_EQ(event.value(u"message"_s).toInt(), 2);
    EXPECT_EQ(event.value(u"other"_s).toString(), u"x"_s);
    EXPECT_FALSE(event.value(u"none"_s).isValid());
    EXPECT_EQ(event.value(u"none"_s, 5).toInt(), 5);
}

TEST(Event, copy_isIndependent)
{
    Event event(EActivityListener::Event(196));
    Event copy = event;
    copy.addArgument(u"a"_s, 1);
    EXPECT_FALSE(event.value(u"a"_s).isValid());
    EXPECT_EQ(QVariant::fromValue(copy).value<Event>().value(u"a"_s).toInt(), 1);
    EXPECT_EQ(copy.getCode(), 196);
}

TEST(ActivityNotifier, notify_reachesListenersInOrderOfSubscription)
{
    ActivityNotifier notifier;
    QStringList order;
    Listener first([&order](const Event&) { order += u"first"_s; });
    Listener second([&order](const Event&) { order += u"second"_s; });
    notifier.subscribe(&second);
    notifier.subscribe(&first);
    notifier.notify(opened);
    EXPECT_EQ(order, QStringList({u"second"_s, u"first"_s}));
    EXPECT_EQ(first.codes, QList<int>{10});
}

TEST(ActivityNotifier, subscribedTwiceOrNull_isCalledOnce)
{
    ActivityNotifier notifier;
    Listener listener;
    notifier.subscribe(nullptr);
    notifier.subscribe(&listener);
    notifier.subscribe(&listener);
    notifier.notify(opened);
    EXPECT_EQ(listener.codes.size(), 1);
}

TEST(ActivityNotifier, listenerDestroyed_dropsOut)
{
    ActivityNotifier notifier;
    Listener staying;
    {
        Listener leaving;
        notifier.subscribe(&leaving);
        notifier.subscribe(&staying);
    }
    notifier.notify(opened);
    EXPECT_EQ(staying.codes.size(), 1);
}

TEST(ActivityNotifier, listenerDestroysTheNextDuringNotify_nextIsNotCalledAndOthersAre)
{
    ActivityNotifier notifier;
    auto victim = std::make_unique<Listener>();
    Listener killer([&victim](const Event&) { victim.reset(); });
    Listener last;
    notifier.subscribe(&killer);
    notifier.subscribe(victim.get());
    notifier.subscribe(&last);
    notifier.notify(opened);
    notifier.notify(opened);
    EXPECT_EQ(last.codes.size(), 2);
}

TEST(ActivityNotifier, listenerDestroysItselfDuringNotify_othersAreCalled)
{
    ActivityNotifier notifier;
    Listener* own = new Listener([&own](const Event&) {
        Listener* self = own;
        own = nullptr;
        delete self;
    });
    Listener last;
    notifier.subscribe(own);
    notifier.subscribe(&last);
    notifier.notify(opened);
    notifier.notify(opened);
    EXPECT_EQ(own, nullptr);
    EXPECT_EQ(last.codes.size(), 2);
}

TEST(ActivityNotifier, listenerSubscribesAnotherDuringNotify_newOneHearsTheNextEvent)
{
    ActivityNotifier notifier;
    Listener added;
    Listener adding([&](const Event&) { notifier.subscribe(&added); });
    notifier.subscribe(&adding);
    notifier.notify(opened);
    EXPECT_TRUE(added.codes.isEmpty());
    notifier.notify(Event(EActivityListener::DocumentClosed));
    EXPECT_EQ(added.codes, QList<int>{12});
}

TEST(ActivityNotifier, listenerNotifiesAgain_innerEventIsDeliveredFirst)
{
    ActivityNotifier notifier;
    Listener chaining([&](const Event& event) {
        if (event.getCode() == EActivityListener::DocumentOpened) {
            notifier.notify(Event(EActivityListener::DocumentCancelled));
        }
    });
    Listener last;
    notifier.subscribe(&chaining);
    notifier.subscribe(&last);
    notifier.notify(opened);
    EXPECT_EQ(last.codes, (QList<int>{22, 10}));
}

TEST(ActivityNotifier, hostPutsFormerListenersBack_laterOneHearsNothing)
{
    ActivityNotifier notifier;
    QStringList order;
    Listener first([&order](const Event&) { order += u"first"_s; });
    Listener second([&order](const Event&) { order += u"second"_s; });
    Listener later;
    auto destroyed = std::make_unique<Listener>();
    notifier.subscribe(destroyed.get());
    notifier.subscribe(&first);
    notifier.subscribe(&second);
    const QList<ListenerHost::Subscription> before = notifier.host().listeners;
    destroyed.reset();
    notifier.subscribe(&later);
    notifier.host().listeners = before;
    notifier.notify(opened);
    EXPECT_EQ(order, QStringList({u"first"_s, u"second"_s}));
    EXPECT_TRUE(later.codes.isEmpty());
}

TEST(ActivityNotifier, subscribedByAPlugin_isCalledInItsScopeWhoeverNotifies)
{
    ActivityNotifier notifier;
    QStringList scopes;
    const auto note = [&scopes](const Event&) { scopes += PluginScope::current(); };
    Listener ofThePlugin(note);
    Listener ofTheRegister(note);
    {
        const PluginScope scope(u"prescriptions"_s);
        notifier.subscribe(&ofThePlugin);
    }
    notifier.subscribe(&ofTheRegister);
    notifier.notify(opened);
    {
        const PluginScope other(u"discounts"_s);
        notifier.notify(opened);
        EXPECT_EQ(PluginScope::current(), u"discounts"_s);
    }
    EXPECT_EQ(scopes, (QStringList{u"prescriptions"_s, QString(), u"prescriptions"_s, QString()}));
}

TEST(ActivityNotifier, listenerThrows_isLoggedAndOthersHearTheEvent)
{
    ActivityNotifier notifier;
    Listener failing([](const Event&) { throw std::runtime_error("name of a patient"); });
    Listener failingOddly([](const Event&) { throw 5; });
    Listener last;
    notifier.subscribe(&failing);
    notifier.subscribe(&failingOddly);
    notifier.subscribe(&last);
    const LogCapture log;
    EXPECT_NO_THROW(notifier.notify(opened));
    EXPECT_EQ(last.codes, QList<int>{10});
    const QString line = u"ERROR activity BaseActivityListener failed in event 10: an exception of the type "_s;
    EXPECT_EQ(log.lines(), QStringList({line + u"std::runtime_error"_s, line + u"int"_s}));
}

TEST(ActivityNotifier, listenerOfAPluginThrows_theLogNamesThePluginAndTheHostHearsOfIt)
{
    ActivityNotifier notifier;
    QStringList heard;
    notifier.host().failed = [&heard](const QString& plugin, const tr::Tr& text) { heard += {plugin, text.key()}; };
    Listener failing([](const Event&) { throw std::runtime_error("name of a patient"); });
    {
        const PluginScope scope(u"discounts"_s);
        notifier.subscribe(&failing);
    }
    const LogCapture log;
    notifier.notify(opened);
    EXPECT_EQ(log.lines(), QStringList{u"ERROR activity BaseActivityListener of the plug-in discounts failed in event "
                                       "10: an exception of the type std::runtime_error"_s});
    EXPECT_EQ(heard, (QStringList{u"discounts"_s, u"actionInternalError"_s}));
}

TEST(ActivityNotifier, listenerAnswersEveryEventWithAnEvent_endsAndOthersHearTheEvent)
{
    ActivityNotifier notifier;
    Listener answering([&notifier](const Event& event) { notifier.notify(event); });
    Listener last;
    notifier.subscribe(&answering);
    notifier.subscribe(&last);
    notifier.notify(opened);
    EXPECT_EQ(last.codes.last(), 10);
    const auto heard = last.codes.size();
    notifier.notify(opened);
    EXPECT_EQ(last.codes.size(), 2 * heard) << "the next event is reported as the first one was";
}
