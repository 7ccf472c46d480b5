// SPDX-License-Identifier: MIT
#include "databaseaccess.h"

#include "config.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{
constexpr int usualTimeout = 3;
constexpr int shortestTimeout = 2; // of libpq
constexpr int longestTimeout = 60;
} // namespace

DatabaseAccess DatabaseAccess::configured(const QString& section)
{
    const Config* config = Singleton<Config>::get();
    return {
        .section = section,
        .driver = config->getString(section + u":driver"_s, u"QSQLITE"_s),
        .name = config->getString(section + u":name"_s),
        .host = config->getString(section + u":host"_s),
        .port = config->getInt(section + u":port"_s, -1),
        .user = config->getString(section + u":user"_s),
        .password = config->getString(section + u":password"_s),
        .timeout = std::chrono::seconds(
            std::clamp(config->getInt(section + u":timeout"_s, usualTimeout), shortestTimeout, longestTimeout)),
    };
}

bool DatabaseAccess::isFile() const
{
    return driver == "QSQLITE"_L1;
}
