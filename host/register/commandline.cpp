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

} // namespace

CommandLine CommandLine::parse(const QStringList& arguments)
{
    const QString configDefault =
        QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation) + QStringLiteral("/register.ini");
    const QString dataDefault = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("The pharmacy's cash register."));
    const QCommandLineOption help = parser.addHelpOption();
    const QCommandLineOption version = parser.addVersionOption();
    const QCommandLineOption config(QStringLiteral("config"), QStringLiteral("Configuration: an INI file in UTF-8."),
                                    QStringLiteral("FILE.ini"), configDefault);
    const QCommandLineOption data(QStringLiteral("data"),
                                  QStringLiteral("Data folder: receipts, logs. It has to exist and be writable."),
                                  QStringLiteral("DIR"), dataDefault);
    const QCommandLineOption plugins(QStringLiteral("plugins"), QStringLiteral("Folder of the plug-ins."),
                                     QStringLiteral("DIR"), defaultPluginFolder());
    const QCommandLineOption layouts(QStringLiteral("layouts"),
                                     QStringLiteral("Folders of own layouts, by colon; they win over all others."),
                                     QStringLiteral("DIR"));
    const QCommandLineOption touch(QStringLiteral("touch"), QStringLiteral("For fingers: large targets, a keyboard."));
    const QCommandLineOption demoData(QStringLiteral("demo-data"),
                                      QStringLiteral("Create a goods database with demo goods in the data folder "
                                                     "when there is none."));
    const QCommandLineOption size(QStringLiteral("size"),
                                  QStringLiteral("Size of the window; otherwise the whole screen, or 1280x800 when a "
                                                 "scenario is played."),
                                  QStringLiteral("WIDTHxHEIGHT"));
    const QCommandLineOption play(QStringLiteral("play"), QStringLiteral("Play a scenario, and end."),
                                  QStringLiteral("FILE"));
    const QCommandLineOption screenshots(QStringLiteral("screenshots"),
                                         QStringLiteral("Folder for the scenario's pictures."), QStringLiteral("DIR"),
                                         QStringLiteral("."));
    parser.addOptions({config, data, plugins, layouts, touch, demoData, size, play, screenshots});

    CommandLine line;
    if (!parser.parse(arguments)) {
        line.outcome = Outcome::Wrong;
        line.message = parser.errorText();
        return line;
    }
    if (parser.isSet(help)) {
        line.outcome = Outcome::Told;
        line.message = parser.helpText();
        return line;
    }
    if (parser.isSet(version)) {
        line.outcome = Outcome::Told;
        line.message = QCoreApplication::applicationName() + QLatin1Char(' ') + QCoreApplication::applicationVersion() +
                       QLatin1Char('\n');
        return line;
    }
    if (!parser.positionalArguments().isEmpty()) {
        line.outcome = Outcome::Wrong;
        line.message =
            QStringLiteral("Unknown argument '") + parser.positionalArguments().constFirst() + QLatin1Char('\'');
        return line;
    }
    line.config = parser.value(config);
    line.dataFolder = parser.value(data);
    line.pluginFolder = parser.value(plugins);
    line.layoutFolders = parser.value(layouts);
    line.touch = parser.isSet(touch);
    line.demoData = parser.isSet(demoData);
    line.scenario = parser.value(play);
    line.screenshots = parser.value(screenshots);
    if (parser.isSet(size)) {
        const std::optional<QSize> wanted = readSize(parser.value(size));
        if (!wanted) {
            line.outcome = Outcome::Wrong;
            line.message = QStringLiteral("--size wants WIDTHxHEIGHT, for example 1280x800");
            return line;
        }
        line.windowSize = *wanted;
    } else if (!line.scenario.isEmpty()) {
        line.windowSize = playedWindow;
    }
    return line;
}
