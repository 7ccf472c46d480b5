// SPDX-License-Identifier: MIT
#include "commandline.h"
#include "registerapplication.h"
#include "startupfailure.h"

#include <QApplication>

#include <cstdio>

namespace
{

void print(FILE* stream, const QString& text)
{
    std::fputs(text.toUtf8().constData(), stream);
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("pharmacy-register"));
    QApplication::setApplicationVersion(QStringLiteral(REGISTER_VERSION));

    const CommandLine commandLine = CommandLine::parse(QApplication::arguments());
    switch (commandLine.outcome) {
    case CommandLine::Outcome::Told:
        print(stdout, commandLine.message);
        return exitstatus::done;
    case CommandLine::Outcome::Wrong:
        print(stderr, QStringLiteral("pharmacy-register: ") + commandLine.message + QStringLiteral("\nSee --help.\n"));
        return exitstatus::wrongOptions;
    case CommandLine::Outcome::Run:
        break;
    }

    RegisterApplication registerApplication(commandLine);
    if (const std::optional<StartupFailure> failure = registerApplication.start()) {
        print(stderr, QStringLiteral("pharmacy-register: ") + failure->message + QLatin1Char('\n'));
        return failure->exitStatus;
    }
    return registerApplication.run();
}
