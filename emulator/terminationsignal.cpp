// SPDX-License-Identifier: MIT
#include "terminationsignal.h"

#include "emulatorerror.h"

#include <csignal>
#include <fcntl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace emulator
{
namespace
{
constexpr int caught[] = {SIGTERM, SIGINT, SIGHUP};

int pipeEnds[2] = {-1, -1}; // a signal handler may write to a pipe

void notify(int)
{
    const char byte = 0;
    [[maybe_unused]] const auto written = ::write(pipeEnds[1], &byte, 1);
}
} // namespace

TerminationSignal::TerminationSignal(QObject* parent)
    : QObject(parent)
{
    if (::pipe2(pipeEnds, O_CLOEXEC | O_NONBLOCK) != 0) {
        throw EmulatorError(u"cannot catch signals"_s);
    }
    m_notifier = std::make_unique<QSocketNotifier>(pipeEnds[0], QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, [this] {
        char byte = 0;
        if (::read(pipeEnds[0], &byte, 1) == 1) {
            emit received();
        }
    });
    for (const int signal : caught) {
        std::signal(signal, notify);
    }
}

TerminationSignal::~TerminationSignal()
{
    for (const int signal : caught) {
        std::signal(signal, SIG_DFL);
    }
    m_notifier.reset();
    ::close(pipeEnds[0]);
    ::close(pipeEnds[1]);
}
} // namespace emulator
