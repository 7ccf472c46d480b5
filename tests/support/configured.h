// SPDX-License-Identifier: MIT
#pragma once

#include "config.h"
#include "inplace.h"

#include <QMap>
#include <QString>

/// The process's configuration for as long as it lives. Each value is set with setForThisRun().
class Configured : public Config
{
public:
    /// @param values by their keys, such as "Register:data"; other keys have their defaults
    explicit Configured(const QMap<QString, QString>& values = {})
    {
        for (auto value = values.cbegin(); value != values.cend(); ++value) {
            Config::setForThisRun(value.key(), value.value());
        }
    }

    void set(const QString& key, const QString& value) { setForThisRun(key, value); }

private:
    InPlace<Config> m_place{this};
};
