// SPDX-License-Identifier: MIT
#pragma once

/// Stands in for the system's look-up of host names: two names have a fate of their own, all others go to the system.
namespace namelookup
{

inline constexpr const char* unknownHost = "unknown.example";
/// Looking it up does not end before letGo() (or some bounded time).
inline constexpr const char* hangingHost = "hanging.example";

/// True while somebody waits for hangingHost.
bool isHanging();
void letGo();

} // namespace namelookup
