// SPDX-License-Identifier: MIT
#include "configurationreport.h"

#include "config.h"
#include "configurationcheck.h"

#include <QDir>

using namespace Qt::StringLiterals;

ConfigurationReport::ConfigurationReport(const Config& config, const QString& file, const QString& pluginFolder)
{
    for (const Failure& unreadable : keys.loadPlugins(pluginFolder)) {
        problems.append(unreadable.detail);
    }
    for (const ConfigurationFinding& finding : checkConfiguration(config, file, keys)) {
        problems.append(finding.description(file));
    }
}

ConfigurationCheckResult checkConfiguration(const CommandLine& commandLine)
{
    const Config config(commandLine.config);
    QStringList problems;
    if (!config.reading()) {
        problems.append(config.reading().failure().detail);
    }
    if (!QDir(commandLine.pluginFolder).isReadable()) {
        problems.append(commandLine.pluginFolder + u" is no plug-in folder that can be read"_s);
    }
    problems += ConfigurationReport(config, commandLine.config, commandLine.pluginFolder).problems;
    if (problems.isEmpty()) {
        return {true, commandLine.config + u": nothing is wrong\n"_s};
    }
    return {false, problems.join(u'\n') + u'\n'};
}
