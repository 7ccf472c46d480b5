// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace Log4Qt
{

/// Where messages go.
struct LogTarget {
    QString properties; ///< a properties file of log4cplus, which then decides everything; empty: none
    QString folder;     ///< of register.log; empty: warnings and errors go to standard error
};

/// Sends messages there from now on.
void setUpLogging(const LogTarget& target);

/// Before a message: sends messages to standard error if nobody has set anything up.
void ensureSetUp();

} // namespace Log4Qt
