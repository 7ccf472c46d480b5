// SPDX-License-Identifier: MIT
#include "terminationsignal.h"

#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

#include <array>
#include <csignal>

#include <fcntl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace
{

constexpr std::array caught = {SIGTERM, SIGINT, SIGHUP};

std::array<int, 2> pipeEnds = {-1, -1}; // a signal handler may write to a pipe, and do little else

void notify(int)
{
    const char byte = 0;
    [[maybe_unused]] const auto written = ::write(pipeEnds[1], &byte, 1);
}

bool isIgnored(int signal)
{
    struct sigaction current = {};
    return ::sigaction(signal, nullptr, &current) == 0 && current.sa_handler == SIG_IGN;
}

void handle(int signal, void (*handler)(int))
{
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    ::sigaction(signal, &action, nullptr);
}

} // namespace

TerminationSignal::TerminationSignal(QObject* parent)
    : QObject(parent)
{
    if (::pipe2(pipeEnds.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
        Log4Qt::LogManager::logger(u"register"_s)->warn(u"Signals cannot be caught: they end the register at once"_s);
        return;
    }
    m_notifier = std::make_unique<QSocketNotifier>(pipeEnds[0], QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, [this] {
        char byte = 0;
        if (::read(pipeEnds[0], &byte, 1) == 1) {
            emit received();
        }
    });
    for (const int signal : caught) {
        if (!isIgnored(signal)) {
            handle(signal, notify);
        }
    }
}

TerminationSignal::~TerminationSignal()
{
    if (!m_notifier) {
        return;
    }
    for (const int signal : caught) {
        handle(signal, SIG_IGN);
    }
    m_notifier.reset();
    ::close(pipeEnds[0]);
    ::close(pipeEnds[1]);
}
