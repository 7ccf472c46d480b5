// SPDX-License-Identifier: MIT
#include "commandline.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QStandardPaths>

#include <optional>

namespace
{

constexpr QSize playedWindow(1280, 800);

/// Beside the program where it was built, else where it is installed.
QString defaultPluginFolder()
{
    const QDir program(QCoreApplication::applicationDirPath());
    const QString built = program.filePath(QStringLiteral("../plugins"));
    return QDir::cleanPath(
        QFileInfo::exists(built) ? built : program.filePath(QStringLiteral("../lib/pharmacy-register/plugins")));
}

std::optional<QSize> readSize(const QString& text)
{
    static const QRegularExpression form(QStringLiteral("^(\\d{3,5})x(\\d{3,5})$"));
    const QRegularExpressionMatch match = form.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    return QSize(match.captured(1).toInt(), match.captured(2).toInt());
}

QString folderOf(QStandardPaths::StandardLocation location)
{
    return QStandardPaths::writableLocation(location);
}

/// What the register can be told; each is declared to the parser.
struct Options {
    explicit Options(QCommandLineParser& parser)
        : help(parser.addHelpOption())
        , version(parser.addVersionOption())
    {
        parser.addOptions({config, data, plugins, layouts, touch, demoData, size, play, screenshots});
    }

    const QCommandLineOption help;
    const QCommandLineOption version;
    const QCommandLineOption config{QStringLiteral("config"), QStringLiteral("Configuration: an INI file in UTF-8."),
                                    QStringLiteral("FILE.ini"),
                                    folderOf(QStandardPaths::AppConfigLocation) + QStringLiteral("/register.ini")};
    const QCommandLineOption data{QStringLiteral("data"),
                                  QStringLiteral("Data folder: receipts, logs. It has to exist and be writable."),
                                  QStringLiteral("DIR"), folderOf(QStandardPaths::AppDataLocation)};
    const QCommandLineOption plugins{QStringLiteral("plugins"), QStringLiteral("Folder of the plug-ins."),
                                     QStringLiteral("DIR"), defaultPluginFolder()};
    const QCommandLineOption layouts{QStringLiteral("layouts"),
                                     QStringLiteral("Folders of own layouts, by colon; they win over all others."),
                                     QStringLiteral("DIR")};
    const QCommandLineOption touch{QStringLiteral("touch"), QStringLiteral("For fingers: large targets, a keyboard.")};
    const QCommandLineOption demoData{QStringLiteral("demo-data"),
                                      QStringLiteral("Create a goods database with demo goods in the data folder "
                                                     "when there is none.")};
    const QCommandLineOption size{QStringLiteral("size"),
                                  QStringLiteral("Size of the window; otherwise the whole screen, or 1280x800 when a "
                                                 "scenario is played."),
                                  QStringLiteral("WIDTHxHEIGHT")};
    const QCommandLineOption play{QStringLiteral("play"), QStringLiteral("Play a scenario, and end."),
                                  QStringLiteral("FILE")};
    const QCommandLineOption screenshots{QStringLiteral("screenshots"),
                                         QStringLiteral("Folder for the scenario's pictures."), QStringLiteral("DIR"),
                                         QStringLiteral(".")};
};

/// Nothing when it was given in another form.
std::optional<QSize> windowSize(const QCommandLineParser& parser, const Options& options)
{
    if (parser.isSet(options.size))
        return readSize(parser.value(options.size));
    return parser.value(options.play).isEmpty() ? QSize() : playedWindow;
}

/// What is wrong with the arguments; empty: nothing.
QString mistake(const QCommandLineParser& parser, const Options& options)
{
    const QStringList stray = parser.positionalArguments();
    if (!stray.isEmpty())
        return QStringLiteral("Unknown argument '") + stray.constFirst() + QLatin1Char('\'');
    if (!windowSize(parser, options))
        return QStringLiteral("--size wants WIDTHxHEIGHT, for example 1280x800");
    return {};
}

QString versionText()
{
    return QCoreApplication::applicationName() + QLatin1Char(' ') + QCoreApplication::applicationVersion() +
           QLatin1Char('\n');
}

CommandLine read(const QCommandLineParser& parser, const Options& options)
{
    CommandLine line;
    line.config = parser.value(options.config);
    line.dataFolder = parser.value(options.data);
    line.pluginFolder = parser.value(options.plugins);
    line.layoutFolders = parser.value(options.layouts);
    line.touch = parser.isSet(options.touch);
    line.demoData = parser.isSet(options.demoData);
    line.windowSize = windowSize(parser, options).value();
    line.scenario = parser.value(options.play);
    line.screenshots = parser.value(options.screenshots);
    return line;
}

CommandLine told(CommandLine::Outcome outcome, const QString& message)
{
    CommandLine line;
    line.outcome = outcome;
    line.message = message;
    return line;
}

} // namespace

CommandLine CommandLine::parse(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("The pharmacy's cash register."));
    const Options options(parser);
    if (!parser.parse(arguments))
        return told(Outcome::Wrong, parser.errorText());
    if (parser.isSet(options.help))
        return told(Outcome::Told, parser.helpText());
    if (parser.isSet(options.version))
        return told(Outcome::Told, versionText());
    if (const QString wrong = mistake(parser, options); !wrong.isEmpty())
        return told(Outcome::Wrong, wrong);
    return read(parser, options);
}
