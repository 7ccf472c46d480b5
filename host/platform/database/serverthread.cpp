// SPDX-License-Identifier: MIT
#include "serverthread_p.h"

#include "activitynotifier.h"
#include "finally.h"
#include "inputblocker.h"
#include "tr.h"

#include <QDeadlineTimer>
#include <QEventLoop>
#include <QSqlDriver>
#include <QThread>

#include <memory>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace
{

/// The cashier notices no shorter wait.
constexpr std::chrono::milliseconds unnoticed = 300ms;

/// Lets events run until the thread ends, behind the busy screen.
void waitBusy(QThread& thread, std::chrono::seconds limit)
{
    auto* notifier = Singleton<ActivityNotifier>::get();
    const tr::Tr message(u"databaseWaiting"_s, u"Связь с базой данных"_s);
    notifier->notify(Event(EActivityListener::LongWorkBegins)
                         .addArgument(u"message"_s, QVariant::fromValue(message))
                         .addArgument(u"seconds"_s, int(limit.count())));
    const Finally end([notifier] { notifier->notify(Event(EActivityListener::LongWorkEnds)); });
    const InputBlocker throwsInputAway;
    QEventLoop loop;
    QObject::connect(&thread, &QThread::finished, &loop, &QEventLoop::quit);
    if (!thread.isFinished()) {
        loop.exec();
    }
}

} // namespace

void runBesideTheWindow(const QSqlDatabase& connection, std::chrono::seconds limit, const std::function<void()>& job)
{
    QSqlDriver* const driver = connection.driver();
    QThread* const home = QThread::currentThread();
    const std::unique_ptr<QThread> thread(QThread::create([driver, home, &job] {
        job();
        driver->moveToThread(home);
    }));
    driver->moveToThread(thread.get());
    thread->start();
    if (!thread->wait(QDeadlineTimer(unnoticed))) {
        waitBusy(*thread, limit);
        thread->wait();
    }
}
