// SPDX-License-Identifier: MIT
#include "commandline.h"
#include "configurationreport.h"
#include "display.h"
#include "guardedapplication.h"
#include "pluginscope.h"
#include "registerapplication.h"
#include "startupfailure.h"

#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

#include <QCoreApplication>

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <optional>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace
{

void print(FILE* stream, const QString& text)
{
    std::fputs(text.toUtf8().constData(), stream);
}

/// @return the exit status
int report(const StartupFailure& failure)
{
    print(stderr, u"pharmacy-register: "_s + failure.message + u'\n');
    return failure.exitStatus;
}

/// @return the exit status
int check(const CommandLine& commandLine)
{
    const ConfigurationCheckResult result = checkConfiguration(commandLine);
    print(stdout, result.output);
    return result.isGood ? exitstatus::done : exitstatus::noConfiguration;
}

/// Where the process ends when nothing can be caught any more.
struct End {
    std::optional<int> exitStatus; ///< set when all that is left to do is to destroy objects
};

End& end()
{
    static End theEnd;
    return theEnd;
}

/// An exception out of a destructor cannot be caught. At the end of the register it does no harm any more.
[[noreturn]] void endUncaught()
{
    const QString plugin = PluginScope::current();
    Log4Qt::LogManager::logger(u"register"_s)
        ->error(u"An exception that cannot be caught ends the process; plug-in: "_s + plugin);
    if (end().exitStatus) {
        std::_Exit(*end().exitStatus);
    }
    std::abort();
}

/// @return the exit status
int run(const CommandLine& commandLine)
{
    RegisterApplication registerApplication(commandLine);
    if (const std::optional<StartupFailure> failure = registerApplication.start()) {
        return report(*failure);
    }
    const int status = registerApplication.run();
    end().exitStatus = status;
    return status;
}

/// Needs no display, so that --help works everywhere.
CommandLine readCommandLine(int& argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    return CommandLine::parse(QCoreApplication::arguments());
}

} // namespace

int main(int argc, char** argv)
{
    ::umask(S_IRWXG | S_IRWXO); // documents, receipts and logs show who buys which medicine
    QCoreApplication::setApplicationName(u"pharmacy-register"_s);
    QCoreApplication::setApplicationVersion(QString::fromUtf8(REGISTER_VERSION));

    const CommandLine commandLine = readCommandLine(argc, argv);
    switch (commandLine.outcome) {
    case CommandLine::Outcome::Shown:
        print(stdout, commandLine.message);
        return exitstatus::done;
    case CommandLine::Outcome::Wrong:
        return report({exitstatus::wrongOptions, commandLine.message + u"\nSee --help."_s});
    case CommandLine::Outcome::Check:
        return check(commandLine);
    case CommandLine::Outcome::Run:
        break;
    }

    if (const std::optional<StartupFailure> failure = chooseDisplay(!commandLine.scenario.isEmpty())) {
        return report(*failure);
    }
    const GuardedApplication application(argc, argv);
    std::set_terminate(endUncaught);
    return run(commandLine);
}
