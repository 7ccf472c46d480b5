// SPDX-License-Identifier: MIT
#include "serverthread_p.h"

#include "activitynotifier.h"
#include "finally.h"
#include "inputblocker.h"
#include "runningrequest.h"
#include "tr.h"
#include "workstep.h"

#include <QDeadlineTimer>
#include <QEventLoop>
#include <QSqlDriver>
#include <QTimer>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace
{

/// The cashier notices no shorter wait.
constexpr std::chrono::milliseconds unnoticed = 300ms;

constexpr std::chrono::milliseconds lookInterval = 10ms;

/// Lets events run until the thread ends or the cashier stops the waiting, behind the busy screen.
void waitBusy(const QThread& thread, std::chrono::seconds limit)
{
    const RunningRequest request(limit, false, WorkStep::currentText());
    auto* notifier = Singleton<ActivityNotifier>::get();
    const tr::Tr message(u"databaseWaiting"_s, u"Связь с базой данных"_s);
    notifier->notify(Event(EActivityListener::LongWorkBegins)
                         .addArgument(u"message"_s, QVariant::fromValue(message))
                         .addArgument(u"seconds"_s, int(limit.count())));
    const Finally end([notifier] { notifier->notify(Event(EActivityListener::LongWorkEnds)); });
    const InputBlocker throwsInputAway;
    QEventLoop loop;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &loop, [&] {
        if (thread.isFinished() || request.isStopped()) {
            loop.quit();
        }
    });
    look.start(lookInterval);
    loop.exec();
}

} // namespace

ServerThread::ServerThread(const QSqlDatabase& connection, const std::function<void()>& job)
{
    QSqlDriver* const driver = connection.driver();
    QThread* const home = QThread::currentThread();
    m_thread.reset(QThread::create([driver, home, job] {
        job();
        driver->moveToThread(home);
    }));
    driver->moveToThread(m_thread.get());
    m_thread->start();
}

ServerThread::~ServerThread()
{
    m_thread->wait();
}

bool ServerThread::wait(std::chrono::seconds limit)
{
    if (!m_thread->wait(QDeadlineTimer(unnoticed))) {
        waitBusy(*m_thread, limit);
    }
    return isDone();
}

void ServerThread::whenDone(QObject* context, const std::function<void()>& function) const
{
    QObject::connect(m_thread.get(), &QThread::finished, context, function, Qt::QueuedConnection);
    if (isDone()) { // perhaps before it was connected
        QMetaObject::invokeMethod(context, function, Qt::QueuedConnection);
    }
}
