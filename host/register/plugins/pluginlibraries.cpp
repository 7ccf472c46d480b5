// SPDX-License-Identifier: MIT
#include "pluginlibraries.h"

#include <QHash>

#include <dlfcn.h>

namespace
{

/// The names by the address at which the library begins.
QHash<const void*, QString>& names()
{
    static QHash<const void*, QString> theNames;
    return theNames;
}

/// Where the library with this address begins; null when it is in none.
const void* beginningOf(const void* address)
{
    Dl_info info;
    return dladdr(address, &info) == 0 ? nullptr : info.dli_fbase;
}

} // namespace

void pluginlibraries::add(const QString& plugin, const void* address)
{
    names().insert(beginningOf(address), plugin);
}

QString pluginlibraries::ownerOf(const void* address)
{
    return names().value(beginningOf(address));
}
