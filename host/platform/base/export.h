// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/qglobal.h>

/// Marks what the platform library shows to the register and to plug-ins; everything else stays hidden.
#if defined(REGISTERPLATFORM_LIBRARY)
#define REGISTERPLATFORM_EXPORT Q_DECL_EXPORT
#else
#define REGISTERPLATFORM_EXPORT Q_DECL_IMPORT
#endif
