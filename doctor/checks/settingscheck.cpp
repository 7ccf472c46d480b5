// SPDX-License-Identifier: MIT
#include "settingscheck.h"

#include "config.h"
#include "configurationcheck.h"
#include "configurationkeys.h"
#include "secretfiles.h"

#include <QUrl>

using namespace Qt::StringLiterals;

namespace doctor
{
namespace
{

const QString pluginSection = u"ElectronicPrescription:"_s;
const QString clientSection = u"RestClient:"_s;
const QString pluginSwitch = u"plugins:pharmacy"_s;

/// Without these the registry refuses. A key without a scope asks for all that the client has.
const QStringList needed = {u"requestsUrl"_s,        u"authorizationUrl"_s,       u"clientId"_s,
                            u"clientSecret"_s,       u"organizationIdentifier"_s, u"organizationName"_s,
                            u"organizationAddress"_s};

const QStringList addresses = {u"requestsUrl"_s, u"authorizationUrl"_s};

/// The other sections are the register's and other plug-ins'.
bool isOurs(const QString& key)
{
    return key.startsWith(pluginSection) || key.startsWith(clientSection) || key == pluginSwitch;
}

/// "[ElectronicPrescription] clientId"
QString asWritten(const QString& name)
{
    return u"[ElectronicPrescription] "_s + name;
}

ConfigurationKeys knownKeys()
{
    ConfigurationKeys keys;
    const Expected<void> loaded = keys.load(u":/doctor/configuration.json"_s);
    Q_ASSERT(loaded);
    Q_UNUSED(loaded)
    return keys;
}

/// True when the value, or the file that holds it, is configured.
bool isConfigured(const Config& config, const QString& name)
{
    const QString key = pluginSection + name;
    return !config.getString(key).isEmpty() || !config.getString(key + u"File"_s).isEmpty();
}

QList<Finding> missingKeys(const Config& config)
{
    QList<Finding> missing;
    for (const QString& name : needed) {
        if (!isConfigured(config, name)) {
            missing.append(finding(FindingCode::SettingMissing, {asWritten(name)}));
        }
    }
    return missing;
}

QList<Finding> addressesWithUser(const Config& config)
{
    QList<Finding> found;
    for (const QString& name : addresses) {
        if (!QUrl(config.getString(pluginSection + name)).userInfo().isEmpty()) {
            found.append(finding(FindingCode::AddressWithUser, {asWritten(name)}));
        }
    }
    return found;
}

QList<Finding> wrongValues(const Config& config, const QString& file, const ConfigurationKeys& keys)
{
    QList<Finding> wrong;
    for (const ConfigurationFinding& mistake : checkConfiguration(config, file, keys)) {
        if (isOurs(mistake.key)) {
            wrong.append(finding(FindingCode::SettingWrong, {mistake.description(file)}));
        }
    }
    return wrong;
}

} // namespace

QList<Finding> checkSettings(Config& config, const QString& file)
{
    if (!config.reading()) {
        return {finding(FindingCode::SettingsUnreadable, {config.reading().failure().detail})};
    }
    const ConfigurationKeys keys = knownKeys();
    QList<Finding> wrong = wrongValues(config, file, keys);
    if (!config.getBool(pluginSwitch)) {
        wrong.append(finding(FindingCode::PluginOff));
    }
    wrong += missingKeys(config) + addressesWithUser(config);
    Q_UNUSED(readSecretFiles(config, keys, file)) // a file that cannot be read is a finding of its own
    return wrong.isEmpty() ? QList<Finding>{finding(FindingCode::SettingsGood)} : wrong;
}

} // namespace doctor
