// SPDX-License-Identifier: MIT
#include "doctorcommandline.h"

#include "defaultconfiguration.h"

#include <QCommandLineParser>
#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace doctor
{
namespace
{

constexpr int longestSeconds = 3600;

/// The options, declared to the parser.
struct Options {
    explicit Options(QCommandLineParser& parser)
        : help(parser.addHelpOption())
        , version(parser.addVersionOption())
    {
        parser.addOptions({config, card, json, timeLimit});
    }

    const QCommandLineOption help;
    const QCommandLineOption version;
    const QCommandLineOption config{u"config"_s, u"Configuration of the till: an INI file in UTF-8."_s, u"FILE.ini"_s,
                                    defaultConfiguration()};
    const QCommandLineOption card{u"card"_s, u"Number of a test card whose prescriptions are looked up."_s, u"N"_s};
    const QCommandLineOption json{u"json"_s, u"Print JSON, for monitoring."_s};
    const QCommandLineOption timeLimit{u"time-limit"_s, u"Seconds that all checks together may take (240)."_s,
                                       u"SECONDS"_s, u"240"_s};
};

CommandLine withMessage(CommandLine::Outcome outcome, const QString& message)
{
    CommandLine line;
    line.outcome = outcome;
    line.message = message;
    return line;
}

CommandLine read(const QCommandLineParser& parser, const Options& options)
{
    bool isNumber = false;
    const int seconds = parser.value(options.timeLimit).toInt(&isNumber);
    if (!isNumber || seconds < 1 || seconds > longestSeconds) {
        return withMessage(CommandLine::Outcome::Wrong,
                           u"--time-limit takes seconds from 1 to %1"_s.arg(longestSeconds));
    }
    CommandLine line;
    line.request.configFile = parser.value(options.config);
    line.request.card = parser.value(options.card);
    line.request.limits.whole = std::chrono::seconds(seconds);
    line.wantsJson = parser.isSet(options.json);
    return line;
}

} // namespace

CommandLine CommandLine::parse(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        u"Finds out why the registry refuses: configuration, network, TLS, clock, token, a card's prescriptions.\n\n"
        "Exit status: 0 nothing is wrong; 2 wrong options; otherwise what is wrong first: 3 configuration, 4 network, "
        "5 TLS, 6 clock, 7 credentials, 8 the answer of the registry."_s);
    const Options options(parser);
    if (!parser.parse(arguments)) {
        return withMessage(Outcome::Wrong, parser.errorText());
    }
    if (parser.isSet(options.help)) {
        return withMessage(Outcome::Shown, parser.helpText());
    }
    if (parser.isSet(options.version)) {
        return withMessage(Outcome::Shown,
                           QCoreApplication::applicationName() + u' ' + QCoreApplication::applicationVersion() + u'\n');
    }
    if (const QStringList stray = parser.positionalArguments(); !stray.isEmpty()) {
        return withMessage(Outcome::Wrong, u"Unknown argument '"_s + stray.constFirst() + u'\'');
    }
    return read(parser, options);
}

} // namespace doctor
