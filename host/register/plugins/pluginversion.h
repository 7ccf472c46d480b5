// SPDX-License-Identifier: MIT
#pragma once

#include "expected.h"

#include <QString>

/// Whether a library is a plug-in for this version of the platform. Nothing of the library is called or loaded.
///
/// An interface id that ends in ".AbstractPlugin" tells the version by itself. A plug-in with an id of its own is known
/// by the platform's library that it is linked with, libregisterplatform.so.<version>.
/// @param interfaceId "IID" of the plug-in's metadata
/// @return a failure that names both versions, or says that this is no plug-in of the register
Expected<void> checkPluginVersion(const QString& interfaceId, const QString& library);

/// Says that a library is no plug-in of the register.
/// @param detail for the log
Failure foreignPlugin(const QString& detail);
