// SPDX-License-Identifier: MIT
#include "commandline.h"

#include "defaultconfiguration.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QStandardPaths>

#include <algorithm>
#include <iterator>
#include <optional>

using namespace Qt::StringLiterals;

namespace
{

constexpr QSize scenarioWindow(1280, 800);

/// In the build tree if there is one, otherwise where the package installs plug-ins.
QString defaultPluginFolder()
{
    const QDir program(QCoreApplication::applicationDirPath());
    const QString built = program.filePath(u"../plugins"_s);
    return QDir::cleanPath(QFileInfo::exists(built) ? built : program.filePath(QString::fromUtf8(INSTALLED_PLUGINS)));
}

std::optional<QSize> readSize(const QString& text)
{
    static const QRegularExpression form(u"^(\\d{3,5})x(\\d{3,5})$"_s);
    const QRegularExpressionMatch match = form.match(text);
    if (!match.hasMatch()) {
        return std::nullopt;
    }
    return QSize(match.captured(1).toInt(), match.captured(2).toInt());
}

/// The options, declared to the parser.
struct Options {
    explicit Options(QCommandLineParser& parser)
        : help(parser.addHelpOption())
        , version(parser.addVersionOption())
    {
        parser.addOptions({config, checkConfig, data, plugins, layouts, touch, demoData, size, play, screenshots});
    }

    const QCommandLineOption help;
    const QCommandLineOption version;
    const QCommandLineOption config{u"config"_s, u"Configuration: an INI file in UTF-8."_s, u"FILE.ini"_s,
                                    defaultConfiguration()};
    const QCommandLineOption checkConfig{u"check-config"_s, u"Name what is wrong with the configuration, and end."_s};
    const QCommandLineOption data{u"data"_s, u"Data folder: receipts, logs. It has to exist and be writable."_s,
                                  u"DIR"_s, QStandardPaths::writableLocation(QStandardPaths::AppDataLocation)};
    const QCommandLineOption plugins{u"plugins"_s, u"Folder of the plug-ins. It has to exist."_s, u"DIR"_s,
                                     defaultPluginFolder()};
    const QCommandLineOption layouts{
        u"layouts"_s, u"Folders of own layouts, separated by colons; they override all others."_s, u"DIR"_s};
    const QCommandLineOption touch{u"touch"_s, u"For fingers: large targets, a keyboard."_s};
    const QCommandLineOption demoData{u"demo-data"_s, u"Create a goods database with demo goods in the data folder "
                                                      "when there is none."_s};
    const QCommandLineOption size{u"size"_s,
                                  u"Size of the window; otherwise the whole screen, or 1280x800 when a "
                                  "scenario is played."_s,
                                  u"WIDTHxHEIGHT"_s};
    const QCommandLineOption play{u"play"_s, u"Play a scenario, and end."_s, u"FILE"_s};
    const QCommandLineOption screenshots{u"screenshots"_s, u"Folder for the scenario's pictures. It has to exist."_s,
                                         u"DIR"_s, u"."_s};
};

/// Nothing when the option is malformed.
std::optional<QSize> windowSize(const QCommandLineParser& parser, const Options& options)
{
    if (parser.isSet(options.size)) {
        return readSize(parser.value(options.size));
    }
    return parser.value(options.play).isEmpty() ? QSize() : scenarioWindow;
}

/// What is wrong with the arguments; nothing when they are right.
std::optional<QString> mistake(const QCommandLineParser& parser, const Options& options)
{
    const QStringList stray = parser.positionalArguments();
    if (!stray.isEmpty()) {
        return u"Unknown argument '"_s + stray.constFirst() + u'\'';
    }
    if (!windowSize(parser, options)) {
        return u"--size wants WIDTHxHEIGHT, for example 1280x800"_s;
    }
    return std::nullopt;
}

QString versionText()
{
    return QCoreApplication::applicationName() + u' ' + QCoreApplication::applicationVersion() + u'\n';
}

QList<NamedFolder> namedFolders(const QCommandLineParser& parser, const Options& options)
{
    QList<NamedFolder> folders;
    for (const QCommandLineOption* option : {&options.plugins, &options.screenshots}) {
        if (parser.isSet(*option)) {
            folders.append({u"--"_s + option->names().constFirst(), parser.value(*option)});
        }
    }
    for (const QString& path : parser.value(options.layouts).split(u':', Qt::SkipEmptyParts)) {
        folders.append({u"--layouts"_s, path});
    }
    return folders;
}

CommandLine read(const QCommandLineParser& parser, const Options& options)
{
    CommandLine line;
    line.outcome = parser.isSet(options.checkConfig) ? CommandLine::Outcome::Check : CommandLine::Outcome::Run;
    line.config = parser.value(options.config);
    line.dataFolder = parser.value(options.data);
    line.usesOwnDataFolder = !parser.isSet(options.data);
    line.pluginFolder = parser.value(options.plugins);
    line.layoutFolders = parser.value(options.layouts);
    line.touch = parser.isSet(options.touch);
    line.demoData = parser.isSet(options.demoData);
    line.windowSize = windowSize(parser, options).value();
    line.scenario = parser.value(options.play);
    line.screenshots = parser.value(options.screenshots);
    line.namedFolders = namedFolders(parser, options);
    return line;
}

CommandLine withMessage(CommandLine::Outcome outcome, const QString& message)
{
    CommandLine line;
    line.outcome = outcome;
    line.message = message;
    return line;
}

} // namespace

QList<NamedFolder> CommandLine::unusableFolders() const
{
    QList<NamedFolder> unusable;
    std::copy_if(namedFolders.cbegin(), namedFolders.cend(), std::back_inserter(unusable),
                 [](const NamedFolder& folder) {
                     const QFileInfo info(folder.path);
                     return !info.isDir() || !info.isReadable();
                 });
    return unusable;
}

CommandLine CommandLine::parse(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(u"The pharmacy's cash register."_s);
    const Options options(parser);
    if (!parser.parse(arguments)) {
        return withMessage(Outcome::Wrong, parser.errorText());
    }
    if (parser.isSet(options.help)) {
        return withMessage(Outcome::Shown, parser.helpText());
    }
    if (parser.isSet(options.version)) {
        return withMessage(Outcome::Shown, versionText());
    }
    if (const std::optional<QString> wrong = mistake(parser, options)) {
        return withMessage(Outcome::Wrong, *wrong);
    }
    return read(parser, options);
}
