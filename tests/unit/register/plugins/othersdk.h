// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QObject>
#include <QVariant>

/// A plug-in that was built for another version of the platform. The register must not make an object of it.
class OtherSdkPlugin : public QObject
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID OTHER_SDK_IID)

public:
    OtherSdkPlugin() { qApp->setProperty("otherSdkPluginMade", true); }
};
