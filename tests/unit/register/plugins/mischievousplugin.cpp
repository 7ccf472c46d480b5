// SPDX-License-Identifier: MIT
#include "mischievousplugin.h"

#include "actionqueuecontroller.h"
#include "activitynotifier.h"
#include "askform.h"
#include "basicdialogform.h"
#include "basicexception.h"
#include "cardterminals.h"
#include "formanswer.h"
#include "graphicaluserinterface.h"

#include <QCoreApplication>
#include <QHash>
#include <QPointer>
#include <QPushButton>
#include <QSemaphore>
#include <QStringList>

#include <chrono>
#include <optional>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace
{

constexpr auto posted = QEvent::Type(QEvent::User + 50);

QStringList wanted()
{
    const QString property = qApp->property("mischief").toString();
    return (property.isEmpty() ? qEnvironmentVariable("MISCHIEF") : property).split(u' ');
}

bool isWanted(const char* place)
{
    return wanted().constFirst() == QLatin1StringView(place);
}

void execute(int type)
{
    control::Action action{control::EActionType(type)};
    Singleton<ActionQueueController>::get()->execute(action);
}

void notify(EActivityListener::Event code)
{
    Singleton<ActivityNotifier>::get()->notify(Event(code));
}

/// The root object while there is one.
QPointer<MischievousPlugin> root;

struct Deed {
    const char* name;
    void (*perform)();
};

constexpr Deed deeds[] = {
    {"throwStandard", [] { throw std::runtime_error("Иванов Иван"); }},
    {"throwNumber", [] { throw 42; }},
    {"throwForCashier", [] { throw BasicException(tr::Tr(u"mischiefKey"_s, u"Шалость удалась"_s)); }},
    {"block", [] { QSemaphore().tryAcquire(1, 5); }},
    {"processEvents", [] { QCoreApplication::processEvents(); }},
    {"subtotal", [] { execute(control::Subtotal); }},
    {"cancel", [] { execute(control::CancelDocument); }},
    {"suspend", [] { execute(1009); }},
    {"pay", [] { execute(1008); }},
    {"executeItself", [] { execute(MischievousPlugin::ownCommand); }},
    {"enqueueItself",
     [] { Singleton<ActionQueueController>::get()->enqueue(control::Action(MischievousPlugin::ownCommand), true); }},
    {"notify", [] { notify(EActivityListener::DocumentOpened); }},
    {"beginLongWork", [] { notify(EActivityListener::LongWorkBegins); }},
    {"beginLongWorkAndThrow",
     [] {
         notify(EActivityListener::LongWorkBegins);
         throw 42;
     }},
    {"endLongWork", [] { notify(EActivityListener::LongWorkEnds); }},
    {"askForm", [] { askForm(Event(MischievousPlugin::formEvent)); }},
    {"deletePlugin", [] { delete root; }},
    {"forgetTerminals", [] { Singleton<CardTerminals>::instance = nullptr; }},
};

void misbehave(const char* place)
{
    if (!isWanted(place)) {
        return;
    }
    qApp->setProperty("mischiefDone", QLatin1StringView(place));
    for (const Deed& deed : deeds) {
        if (wanted().last() == QLatin1StringView(deed.name)) {
            deed.perform();
        }
    }
}

/// What a terminal answers wrongly.
struct OddAnswer {
    const char* name;
    void (*spoil)(CardAnswer&);
};

constexpr OddAnswer oddAnswers[] = {
    {"answerUnknownOutcome", [](CardAnswer& answer) { answer.outcome = CardAnswer::Outcome(77); }},
    {"answerNegativeOutcome", [](CardAnswer& answer) { answer.outcome = CardAnswer::Outcome(-1); }},
    {"answerWithoutTexts",
     [](CardAnswer& answer) {
         answer = {answer.outcome, {}, {}, {}};
     }},
    {"answerWholeCardNumber",
     [](CardAnswer& answer) {
         const QString number = u"4111111111111111"_s;
         answer = {answer.outcome, answer.authorizationCode, number, {tr::undefined, number}};
     }},
    {"answerHugeTexts",
     [](CardAnswer& answer) {
         const QString huge = QString(100'000, u'\n') + QString(100'000, u'x');
         answer = {answer.outcome, huge, huge, {tr::undefined, huge}};
     }},
};

CardAnswer spoilt(const char* place, CardAnswer answer)
{
    for (const OddAnswer& odd : oddAnswers) {
        if (isWanted(place) && wanted().last() == QLatin1StringView(odd.name)) {
            odd.spoil(answer);
        }
    }
    return answer;
}

/// A terminal with a bank that moves money once for each reference, remembers, and misbehaves afterwards. What
/// customers have paid in all, in kopecks, is in the property "mischiefTaken".
class MischievousTerminal : public CardTerminal
{
public:
    CardAnswer pay(const CardRequest& request) override { return move("terminalPay", request, request.amount.count()); }
    CardAnswer refund(const CardRequest& request) override
    {
        return move("terminalRefund", request, -request.amount.count());
    }
    CardAnswer find(const QString& reference) override
    {
        const bool hasMoved = m_moved.contains(reference);
        misbehave("terminalFind");
        return spoilt("terminalFind", hasMoved ? approved() : CardAnswer::declined());
    }

    std::optional<std::chrono::seconds> timeLimit() const override
    {
        misbehave("terminalTimeLimit");
        return std::chrono::seconds(30);
    }

private:
    static CardAnswer approved() { return CardAnswer::approved(u"A17"_s, u"**** 1234"_s); }

    CardAnswer move(const char* place, const CardRequest& request, qint64 kopecks)
    {
        m_moved.insert(request.reference, kopecks);
        qApp->setProperty("mischiefTaken", qApp->property("mischiefTaken").toLongLong() + kopecks);
        misbehave(place);
        return isWanted("terminalFind") ? CardAnswer::unknown() : spoilt(place, approved());
    }

    QHash<QString, qint64> m_moved;
};

/// A form that misbehaves when its button is clicked.
class MischievousForm : public BasicDialogForm
{
public:
    MischievousForm()
        : BasicDialogForm(nullptr)
    {
        misbehave("formConstructor");
        loadUI(u"message.ui"_s);
        rootWidget()->setObjectName(u"mischievousForm"_s);
        auto* button = findWidget<QPushButton>(u"okButton"_s);
        connect(button, &QPushButton::clicked, this, [this, button] {
            if (isWanted("formDeletesItsRoot")) {
                delete rootWidget();
                return;
            }
            if (isWanted("formDeletesTheSender")) {
                delete button;
                throw 42;
            }
            misbehave("formButton");
            setTitle(u"Шалость"_s);
            if (isWanted("formClose")) {
                close();
                return;
            }
            answerForm(u"data"_s, 1);
        });
    }

    void show() override
    {
        misbehave("formShow");
        BasicDialogForm::show();
    }
    void close() override
    {
        misbehave("formClose");
        BasicDialogForm::close();
    }
    bool isModalDialog() const override
    {
        misbehave("formIsModal");
        return BasicDialogForm::isModalDialog();
    }
    void setCustomProperty(const QString& name, const QVariant& value) override
    {
        misbehave("formProperty");
        BasicDialogForm::setCustomProperty(name, value);
    }
    void setTitle(const QString& title) override
    {
        misbehave("formTitle");
        BasicDialogForm::setTitle(title);
    }
};

class RootlessForm : public BasicForm
{
public:
    RootlessForm()
        : BasicForm(nullptr)
    {
    }
};

class Creator : public BasicFormCreator
{
public:
    QSharedPointer<BasicForm> create(const Event& event) override
    {
        misbehave("formCreator");
        if (event.getCode() != MischievousPlugin::formEvent) {
            return nullptr;
        }
        if (isWanted("formWithoutARoot")) {
            return QSharedPointer<RootlessForm>::create();
        }
        return QSharedPointer<MischievousForm>::create();
    }
    QSharedPointer<BasicForm> create(EContext::Code) override { return nullptr; }
};

/// Asks again and again, and counts in "mischiefAsked", until the property "mischief" is another one.
void askForEver(bool swallowsExceptions)
{
    for (int asked = 1; isWanted("askForEver") || isWanted("askForEverAndSwallow"); ++asked) {
        qApp->setProperty("mischiefAsked", asked);
        try {
            askForm(Event(MischievousPlugin::formEvent));
        } catch (...) {
            if (!swallowsExceptions) {
                throw;
            }
        }
    }
}

} // namespace

MischievousPlugin::MischievousPlugin()
{
    root = this;
    Singleton<ActivityNotifier>::get()->subscribe(this);
    misbehave("constructor");
}

MischievousPlugin::~MischievousPlugin()
{
    misbehave("destructor");
}

bool MischievousPlugin::init()
{
    Singleton<GraphicalUserInterface>::get()->addFormCreator(QSharedPointer<Creator>::create());
    Singleton<CardTerminals>::get()->add(QSharedPointer<MischievousTerminal>::create());
    addHandler({EContext::OpenDocument, ownCommand, [this](const control::Action&) { return serve(); }, true});
    for (const auto action : {control::Subtotal, control::SubtotalAndPayment, control::CancelDocument}) {
        for (const auto order : {ActionTrigger::Before, ActionTrigger::After}) {
            const char* place = order == ActionTrigger::Before ? "triggerBefore" : "triggerAfter";
            addTrigger({EContext::OpenDocument, action, order,
                        [place](const control::Action&) {
                            misbehave(place);
                            return EContext::GoOn;
                        },
                        ActionTrigger::Any, 1});
        }
    }
    connect(&m_timer, &QTimer::timeout, [this] {
        m_timer.stop();
        misbehave("slot");
    });
    qApp->installEventFilter(this);
    misbehave("init");
    return true;
}

void MischievousPlugin::deinit()
{
    misbehave("deinit");
}

QList<ActionHandler> MischievousPlugin::getHandlers() const
{
    misbehave("getHandlers");
    QList<ActionHandler> handlers = BasicPlugin::getHandlers();
    if (isWanted("emptyFunctions")) {
        handlers.append({EContext::OpenDocument, control::EActionType(5002), {}, true});
    }
    return handlers;
}

QList<ActionTrigger> MischievousPlugin::getTriggers() const
{
    misbehave("getTriggers");
    QList<ActionTrigger> triggers = BasicPlugin::getTriggers();
    if (isWanted("emptyFunctions")) {
        triggers.append({EContext::OpenDocument, control::Subtotal, ActionTrigger::Before, {}, ActionTrigger::Any, 1});
    }
    return triggers;
}

void MischievousPlugin::handleEvent(const Event& event)
{
    if (event.getCode() == EActivityListener::DocumentOpened && isWanted("listenerDeletesItself")) {
        qApp->setProperty("mischiefDone", u"listenerDeletesItself"_s);
        delete this;
        return;
    }
    if (event.getCode() == EActivityListener::DocumentOpened) {
        misbehave("handleEvent");
    }
}

bool MischievousPlugin::event(QEvent* event)
{
    if (event->type() == posted) {
        misbehave("event");
    }
    return BaseActivityListener::event(event);
}

bool MischievousPlugin::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == this && event->type() == posted) {
        misbehave("eventFilter");
    }
    return BaseActivityListener::eventFilter(watched, event);
}

void MischievousPlugin::timerEvent(QTimerEvent* event)
{
    killTimer(event->timerId());
    misbehave("timer");
}

EContext::Result MischievousPlugin::serve()
{
    if (isWanted("timer")) {
        startTimer(0);
    } else if (isWanted("slot")) {
        m_timer.start(0);
    } else if (isWanted("event") || isWanted("eventFilter")) {
        QCoreApplication::postEvent(this, new QEvent(posted));
    } else if (isWanted("handlerDeletesThePlugin")) {
        delete this;
    } else if (isWanted("askForEver") || isWanted("askForEverAndSwallow")) {
        askForEver(isWanted("askForEverAndSwallow"));
    } else if (wanted().constFirst().startsWith("form"_L1)) {
        askForm(Event(formEvent));
    } else if (isWanted("oddResult")) {
        return EContext::Result(77);
    } else {
        misbehave("handler");
    }
    return EContext::GoOn;
}
