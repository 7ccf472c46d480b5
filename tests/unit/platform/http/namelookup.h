// SPDX-License-Identifier: MIT
#pragma once

/// Replaces the system's look-up of host names for three names; all others go to the system.
namespace namelookup
{

inline constexpr const char* unknownHost = "unknown.example";
/// "реестр.пример" in punycode (RFC 3492); it is this machine.
inline constexpr const char* cyrillicHost = "xn--e1aa5aceg.xn--e1afmkfd";
/// Looking it up does not end before letGo() (or some bounded time).
inline constexpr const char* hangingHost = "hanging.example";

/// True while somebody waits for hangingHost.
bool isHanging();
void letGo();

} // namespace namelookup
