// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QObject>
#include <QVariant>

/// A Qt plug-in of some other program.
class ForeignPlugin : public QObject
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "example.other.Plugin")

public:
    ForeignPlugin() { qApp->setProperty("foreignPluginMade", true); }
};
