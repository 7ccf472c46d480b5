// SPDX-License-Identifier: MIT
#pragma once

#include <log4qt/logger.h>

#include <log4cplus/logger.h>

/// The log4cplus logger behind one of ours.
class Log4Qt::Logger::Private
{
public:
    explicit Private(const QString& name)
        : logger(log4cplus::Logger::getInstance(name.toStdString()))
    {
    }

    void log(log4cplus::LogLevel level, const QString& message) const;

    log4cplus::Logger logger;
};
