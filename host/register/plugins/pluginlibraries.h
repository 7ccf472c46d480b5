// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// The libraries of the plug-ins in memory, where they stay until the process ends. Main thread.
namespace pluginlibraries
{

/// Notes that the library with this address is that plug-in's.
/// @param address of code or data, such as a meta-object
void add(const QString& plugin, const void* address);

/// The name of the plug-in whose library has this address; empty: that of no plug-in.
QString ownerOf(const void* address);

} // namespace pluginlibraries
