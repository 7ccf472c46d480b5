// SPDX-License-Identifier: MIT
#include "readingthread.h"

#include "activitynotifier.h"
#include "finally.h"
#include "inputblocker.h"
#include "runningrequest.h"
#include "workstep.h"

#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTimer>

#include <future>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace
{

/// The cashier notices no shorter wait.
constexpr std::chrono::milliseconds unnoticed = 300ms;
constexpr std::chrono::milliseconds lookInterval = 10ms;
constexpr std::chrono::milliseconds lastWait = 10s;

bool isReady(const std::future<void>& done, std::chrono::milliseconds wait = 0ms)
{
    return done.wait_for(wait) == std::future_status::ready;
}

/// Lets events run until the job is done, its time is over or the cashier stops the waiting, behind the busy screen.
/// @param limit the time that `deadline` was given
/// @return true when the cashier stopped it
bool waitBusy(const std::future<void>& done, const QDeadlineTimer& deadline, std::chrono::milliseconds limit,
              const tr::Tr& message)
{
    const auto seconds = std::chrono::ceil<std::chrono::seconds>(limit);
    const RunningRequest request(seconds, false, WorkStep::currentText());
    auto* notifier = Singleton<ActivityNotifier>::get();
    notifier->notify(Event(EActivityListener::LongWorkBegins)
                         .addArgument(u"message"_s, QVariant::fromValue(message))
                         .addArgument(u"seconds"_s, int(seconds.count())));
    const Finally end([notifier] { notifier->notify(Event(EActivityListener::LongWorkEnds)); });
    const InputBlocker throwsInputAway;
    QEventLoop loop;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &loop, [&] {
        if (isReady(done) || deadline.hasExpired() || request.isStopped()) {
            loop.quit();
        }
    });
    look.start(lookInterval);
    loop.exec();
    return request.isStopped();
}

} // namespace

ReadingThread::~ReadingThread()
{
    finish([] {});
}

void ReadingThread::finish(const std::function<void()>& lastJob)
{
    if (!m_thread) {
        return;
    }
    QThread* const thread = std::exchange(m_thread, nullptr);
    QMetaObject::invokeMethod(
        m_place,
        [lastJob, thread] {
            lastJob();
            thread->quit();
        },
        Qt::QueuedConnection);
    if (thread->wait(QDeadlineTimer(lastWait))) {
        delete thread;
    } else {
        Log4Qt::LogManager::logger(u"database"_s)->warn(u"The goods database does not let go of its reader"_s);
    }
}

void ReadingThread::post(const std::function<void()>& job)
{
    if (!m_thread) {
        m_thread = new QThread;
        m_place = new QObject;
        m_place->moveToThread(m_thread);
        QObject::connect(m_thread, &QThread::finished, m_place, &QObject::deleteLater);
        m_thread->start();
    }
    QMetaObject::invokeMethod(m_place, job, Qt::QueuedConnection);
}

ReadingThread::Ending ReadingThread::run(const std::function<void()>& job, std::chrono::milliseconds limit,
                                         const tr::Tr& message)
{
    const auto promise = std::make_shared<std::promise<void>>();
    const std::future<void> done = promise->get_future();
    const QDeadlineTimer deadline(limit);
    post([job, promise] {
        job();
        promise->set_value();
    });
    const bool isStopped = !isReady(done, unnoticed) && waitBusy(done, deadline, limit, message);
    if (isReady(done)) {
        return Ending::Done;
    }
    return isStopped ? Ending::Stopped : Ending::Late;
}
