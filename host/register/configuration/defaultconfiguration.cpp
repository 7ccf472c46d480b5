// SPDX-License-Identifier: MIT
#include "defaultconfiguration.h"

#include <QFileInfo>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

QString defaultConfiguration()
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    return defaultConfiguration(folder + u"/pharmacy-register/register.ini"_s,
                                QString::fromUtf8(MACHINE_CONFIGURATION));
}

QString defaultConfiguration(const QString& ofUser, const QString& ofMachine)
{
    return !QFileInfo::exists(ofUser) && QFileInfo::exists(ofMachine) ? ofMachine : ofUser;
}
