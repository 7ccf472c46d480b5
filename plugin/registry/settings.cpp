// SPDX-License-Identifier: MIT
#include "electronicprescriptioninterface.h"

#include "config.h"

using namespace Qt::StringLiterals;

namespace
{

/// Requests go here until something else is configured.
const QString localRegistry = u"http://localhost"_s;

constexpr int defaultTimeout = 60;

QString textSetting(QLatin1StringView name, const QString& whenAbsent = {})
{
    return Singleton<Config>::get()->getString("ElectronicPrescription:"_L1 + name, whenAbsent);
}

int numberSetting(QLatin1StringView name, int whenAbsent)
{
    return Singleton<Config>::get()->getInt("ElectronicPrescription:"_L1 + name, whenAbsent);
}

} // namespace

ElectronicPrescriptionInterface::ElectronicPrescriptionInterface()
    : requestsUrl(textSetting("requestsUrl"_L1, localRegistry))
    , authorizationUrl(textSetting("authorizationUrl"_L1, localRegistry))
    , timeout(numberSetting("timeout"_L1, defaultTimeout))
    , clientId(textSetting("clientId"_L1))
    , clientSecret(textSetting("clientSecret"_L1))
    , scope(textSetting("scope"_L1))
    , organizationIdentifier(textSetting("organizationIdentifier"_L1))
    , organizationName(textSetting("organizationName"_L1))
    , organizationAddress(textSetting("organizationAddress"_L1))
    , oais(textSetting("oais"_L1))
{
}

ElectronicPrescriptionInterface::~ElectronicPrescriptionInterface() = default;
