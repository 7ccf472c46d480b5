// SPDX-License-Identifier: MIT
#include "configurationreport.h"

#include "config.h"
#include "configurationcheck.h"
#include "functionkey.h"
#include "inilines.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace
{

QString shortcutKey(const FunctionKey& key)
{
    return u"FunctionKey."_s + key.name + u":key"_s;
}

/// Shortcuts that do not do what their writer meant.
QList<ConfigurationFinding> checkShortcuts(const Config& config, const QString& file)
{
    const QHash<QString, int> lines = readIniLines(file);
    const QList<FunctionKey> keys = configuredFunctionKeys(config);
    QList<ConfigurationFinding> findings;
    const auto add = [&](const FunctionKey& key, const QString& text) {
        findings.append({shortcutKey(key), lines.value(shortcutKey(key)), text});
    };
    for (const FunctionKey& key : keys) {
        if (!key.lostTo.isEmpty()) {
            add(key, u"is the shortcut of «%1» as well, which comes first: choose another"_s.arg(key.lostTo));
        }
    }
    const std::pair<Qt::Key, QString> own[] = {
        {helpKey, u"takes F1 from the help, which then opens in forms only: choose another"_s},
        {cardPaymentKey, u"takes F11 from the payment by card, which then has its button only: choose another"_s},
    };
    for (const auto& [shortcut, text] : own) {
        if (const FunctionKey* key = keyWithShortcut(keys, shortcut)) {
            add(*key, text);
        }
    }
    return findings;
}

} // namespace

ConfigurationReport::ConfigurationReport(const Config& config, const QString& file, const QString& pluginFolder)
{
    for (const Failure& unreadable : keys.loadPlugins(pluginFolder)) {
        problems.append(unreadable.detail);
    }
    for (const ConfigurationFinding& finding : checkConfiguration(config, file, keys) + checkShortcuts(config, file)) {
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
