// SPDX-License-Identifier: MIT
#pragma once

#include "export.h"

#include <QString>

namespace Log4Qt
{

class Logger;

/// Returns loggers: Log4Qt's class of that name, over log4cplus, where Log4Qt is not installed.
class REGISTERPLATFORM_EXPORT LogManager
{
public:
    /// The logger of that name, the same one every time; it lives until the process ends.
    static Logger* logger(const QString& name);
};

} // namespace Log4Qt
