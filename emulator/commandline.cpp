// SPDX-License-Identifier: MIT
#include "commandline.h"

#include "emulatorerror.h"

#include <QCommandLineParser>

#include <limits>

namespace emulator
{
namespace
{
quint16 portOf(const QCommandLineParser& parser, const QCommandLineOption& option)
{
    bool isNumber = false;
    const int port = parser.value(option).toInt(&isNumber);
    if (!isNumber || port < 0 || port > std::numeric_limits<quint16>::max()) {
        throw EmulatorError(QStringLiteral("--%1 takes a port from 0 to 65535, not \"%2\"")
                                .arg(option.names().constFirst(), parser.value(option)));
    }
    return quint16(port);
}
} // namespace

CommandLine CommandLine::read(const QStringList& arguments)
{
    const QCommandLineOption port(QStringLiteral("port"), QStringLiteral("Port of the registry; 0 takes a free one."),
                                  QStringLiteral("N"), QStringLiteral("0"));
    const QCommandLineOption adminPort(QStringLiteral("admin-port"),
                                       QStringLiteral("Port of the remote control; 0 takes a free one. Default: none."),
                                       QStringLiteral("N"));
    const QCommandLineOption basePath(QStringLiteral("base-path"),
                                      QStringLiteral("Path under which the registry lies. Default: none."),
                                      QStringLiteral("PATH"));
    const QCommandLineOption data(QStringLiteral("data"),
                                  QStringLiteral("SQLite file that keeps the state. Default: kept in memory."),
                                  QStringLiteral("FILE"));
    const QCommandLineOption seed(QStringLiteral("seed"),
                                  QStringLiteral("What the registry begins with; not used for data that is there."),
                                  QStringLiteral("FILE.json"));
    const QCommandLineOption certificate(QStringLiteral("tls-certificate"),
                                         QStringLiteral("PEM certificate with its chain; the registry speaks HTTPS."),
                                         QStringLiteral("FILE"));
    const QCommandLineOption key(QStringLiteral("tls-key"),
                                 QStringLiteral("PEM key of the certificate, without a passphrase."),
                                 QStringLiteral("FILE"));

    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("A stand-in for the national registry of electronic prescriptions."));
    const QCommandLineOption help = parser.addHelpOption();
    const QCommandLineOption version = parser.addVersionOption();
    parser.addOptions({port, adminPort, basePath, data, seed, certificate, key});
    if (!parser.parse(arguments))
        throw EmulatorError(parser.errorText());
    if (parser.isSet(help))
        parser.showHelp();
    if (parser.isSet(version))
        parser.showVersion();
    if (!parser.positionalArguments().isEmpty())
        throw EmulatorError(QStringLiteral("cannot use \"%1\"").arg(parser.positionalArguments().constFirst()));

    CommandLine commandLine;
    commandLine.settings.port = portOf(parser, port);
    if (parser.isSet(adminPort))
        commandLine.settings.adminPort = portOf(parser, adminPort);
    commandLine.settings.basePath = parser.value(basePath);
    commandLine.settings.dataFile = parser.value(data);
    commandLine.settings.tlsCertificate = parser.value(certificate);
    commandLine.settings.tlsKey = parser.value(key);
    commandLine.seedFile = parser.value(seed);
    return commandLine;
}
} // namespace emulator
