// SPDX-License-Identifier: MIT
#pragma once

#include "export.h"

class Config;

/// Sends log messages where the configuration says: "Logging:properties" names a properties file that decides
/// everything; else they go to register.log in "Logging:folder"; else warnings and errors go to standard error, as they
/// do before this is called. Where Log4Qt itself is installed this does nothing: Log4Qt has a configuration of its own.
///
/// To be called once, when the configuration has been read.
REGISTERPLATFORM_EXPORT void setUpLogging(const Config& config);
