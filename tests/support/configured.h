// SPDX-License-Identifier: MIT
#pragma once

#include "config.h"

#include <QMap>
#include <QString>

/// Gives the process a configuration of its own for as long as it lives, and puts the former one back.
class Configured
{
public:
    explicit Configured(const QMap<QString, QString>& values = {})
        : m_former(Singleton<Config>::instance)
    {
        Singleton<Config>::instance = &m_config;
        for (auto value = values.cbegin(); value != values.cend(); ++value) {
            set(value.key(), value.value());
        }
    }
    ~Configured() { Singleton<Config>::instance = m_former; }
    Configured(const Configured&) = delete;
    Configured& operator=(const Configured&) = delete;

    void set(const QString& key, const QString& value) { m_config.setForThisRun(key, value); }

private:
    Config m_config;
    Config* m_former;
};
