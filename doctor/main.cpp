// SPDX-License-Identifier: MIT
#include "doctorcommandline.h"
#include "report.h"

#include "config.h"
#include "logsetup.h"

#include <QCoreApplication>
#include <QLocale>
#include <QTemporaryFile>
#include <QTranslator>

#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace
{

constexpr int wrongOptions = 2;

void print(FILE* stream, const QString& text)
{
    std::fputs(text.toUtf8().constData(), stream);
    std::fflush(stream);
}

/// What the registry client and the configuration would log is among the findings, in other words.
void keepLogsBack()
{
    QTemporaryFile nothing;
    if (nothing.open() && nothing.write("log4cplus.rootLogger=OFF\n") > 0 && nothing.flush()) {
        Config quiet;
        quiet.setForThisRun(u"Logging:properties"_s, nothing.fileName());
        setUpLogging(quiet);
    }
}

/// The language of the environment: Russian, otherwise English. The platform's texts are Russian without a catalogue.
void translate(QTranslator& own, QTranslator& platform)
{
    if (QLocale::system().language() == QLocale::Russian) {
        if (own.load(u":/translations/prescriptiondoctor_ru"_s)) {
            QCoreApplication::installTranslator(&own);
        }
    } else if (platform.load(u":/translations/registerplatform_en"_s)) {
        QCoreApplication::installTranslator(&platform);
    }
}

/// @return the exit status
int run(const doctor::CommandLine& commandLine)
{
    keepLogsBack();
    if (!commandLine.wantsJson) {
        print(stdout, doctor::headOf(commandLine.request.configFile));
    }
    const auto show = [&commandLine](const doctor::CheckResult& result) {
        if (!commandLine.wantsJson) {
            print(stdout, doctor::lineOf(result));
        }
    };
    const QList<doctor::CheckResult> results = doctor::examine(commandLine.request, show);
    print(stdout, commandLine.wantsJson ? QString::fromUtf8(doctor::jsonOf(results)) : doctor::summaryOf(results));
    return doctor::exitStatus(results);
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(u"prescription-doctor"_s);
    QCoreApplication::setApplicationVersion(QString::fromUtf8(DOCTOR_VERSION));
    QTranslator own;
    QTranslator platform;
    translate(own, platform);

    const auto commandLine = doctor::CommandLine::parse(QCoreApplication::arguments());
    switch (commandLine.outcome) {
    case doctor::CommandLine::Outcome::Shown:
        print(stdout, commandLine.message);
        return 0;
    case doctor::CommandLine::Outcome::Wrong:
        print(stderr, u"prescription-doctor: "_s + commandLine.message + u"\nSee --help.\n"_s);
        return wrongOptions;
    case doctor::CommandLine::Outcome::Run:
        break;
    }
    const int status = run(commandLine);
    std::_Exit(status); // a look-up of a silent name server would hold the end of the process
}
