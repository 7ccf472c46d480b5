// SPDX-License-Identifier: MIT
#pragma once

#include "config.h"
#include "configurationkeys.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

/// A folder with a configuration, and files that it names.
class ConfigurationFolder : public ::testing::Test
{
protected:
    static constexpr QFile::Permissions ownerAlone = QFile::ReadOwner | QFile::WriteOwner;

    QString path(const char* name) const { return m_folder.filePath(QString::fromUtf8(name)); }

    QString write(const char* name, const QByteArray& content, QFile::Permissions permissions = ownerAlone)
    {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        EXPECT_EQ(file.write(content), content.size());
        EXPECT_TRUE(file.setPermissions(permissions));
        return path(name);
    }

    QTemporaryDir m_folder;
    ConfigurationKeys m_keys;
};
