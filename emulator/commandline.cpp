// SPDX-License-Identifier: MIT
#include "commandline.h"

#include "emulatorerror.h"

#include <QCommandLineParser>
#include <QFileInfo>

#include <limits>

using namespace Qt::StringLiterals;

namespace emulator
{
namespace
{
quint16 portOf(const QCommandLineParser& parser, const QCommandLineOption& option)
{
    bool isNumber = false;
    const int port = parser.value(option).toInt(&isNumber);
    if (!isNumber || port < 0 || port > std::numeric_limits<quint16>::max()) {
        throw EmulatorError(
            u"--%1 takes a port from 0 to 65535, not \"%2\""_s.arg(option.names().constFirst(), parser.value(option)));
    }
    return quint16(port);
}

std::chrono::seconds secondsOf(const QCommandLineParser& parser, const QCommandLineOption& option)
{
    constexpr int most = 24 * 60 * 60;
    bool isNumber = false;
    const int seconds = parser.value(option).toInt(&isNumber);
    if (!isNumber || seconds < 1 || seconds > most) {
        throw EmulatorError(u"--%1 takes seconds from 1 to %2, not \"%3\""_s.arg(
            option.names().constFirst(), QString::number(most), parser.value(option)));
    }
    return std::chrono::seconds(seconds);
}
/// The file may be new. Its folder has to be there.
QString dataFileOf(const QCommandLineParser& parser, const QCommandLineOption& option)
{
    QString file = parser.value(option);
    const QString folder = QFileInfo(file).absolutePath();
    if (!file.isEmpty() && !QFileInfo(folder).isDir()) {
        throw EmulatorError(u"cannot open the data file %1: there is no folder %2"_s.arg(file, folder));
    }
    return file;
}
} // namespace

CommandLine CommandLine::read(const QStringList& arguments)
{
    const QCommandLineOption port(u"port"_s, u"Port of the registry; 0 takes a free one."_s, u"N"_s, u"0"_s);
    const QCommandLineOption adminPort(u"admin-port"_s,
                                       u"Port of the remote control; 0 takes a free one. Default: none."_s, u"N"_s);
    const QCommandLineOption basePath(u"base-path"_s, u"Path under which the registry lies. Default: none."_s,
                                      u"PATH"_s);
    const QCommandLineOption data(u"data"_s, u"SQLite file that keeps the state. Default: kept in memory."_s,
                                  u"FILE"_s);
    const QCommandLineOption seed(u"seed"_s, u"What the registry begins with; not used for data that is there."_s,
                                  u"FILE.json"_s);
    const QCommandLineOption readTimeout(u"read-timeout"_s, u"Seconds from the first byte of a request to its last."_s,
                                         u"SECONDS"_s, u"30"_s);
    const QCommandLineOption certificate(u"tls-certificate"_s,
                                         u"PEM certificate with its chain; the registry speaks HTTPS."_s, u"FILE"_s);
    const QCommandLineOption key(u"tls-key"_s, u"PEM key of the certificate, without a passphrase."_s, u"FILE"_s);

    QCommandLineParser parser;
    parser.setApplicationDescription(u"A stand-in for the national registry of electronic prescriptions."_s);
    const QCommandLineOption help = parser.addHelpOption();
    const QCommandLineOption version = parser.addVersionOption();
    parser.addOptions({port, adminPort, basePath, data, seed, readTimeout, certificate, key});
    if (!parser.parse(arguments)) {
        throw EmulatorError(parser.errorText());
    }
    if (parser.isSet(help)) {
        parser.showHelp();
    }
    if (parser.isSet(version)) {
        parser.showVersion();
    }
    if (!parser.positionalArguments().isEmpty()) {
        throw EmulatorError(u"cannot use \"%1\""_s.arg(parser.positionalArguments().constFirst()));
    }

    CommandLine commandLine;
    commandLine.settings.port = portOf(parser, port);
    if (parser.isSet(adminPort)) {
        commandLine.settings.adminPort = portOf(parser, adminPort);
    }
    commandLine.settings.basePath = parser.value(basePath);
    commandLine.settings.dataFile = dataFileOf(parser, data);
    commandLine.settings.readTimeout = secondsOf(parser, readTimeout);
    commandLine.settings.tlsCertificate = parser.value(certificate);
    commandLine.settings.tlsKey = parser.value(key);
    commandLine.seedFile = parser.value(seed);
    return commandLine;
}
} // namespace emulator
