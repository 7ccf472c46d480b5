// SPDX-License-Identifier: MIT
#pragma once

/// The version of the platform as plug-ins see it. It is part of the id of the plug-in interface, and the SOVERSION of
/// the platform's library: CMake reads it here. The register refuses a plug-in that was built for another one.
///
/// It goes up by one with each change after which a plug-in has to be built again: docs/plugin-lifecycle.md.
#define REGISTER_SDK_VERSION "1"
