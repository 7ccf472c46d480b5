// SPDX-License-Identifier: MIT
#pragma once

#include "export.h"

#include <QString>

#include <memory>

namespace Log4Qt
{

class LogManager;

/// A named logger: Log4Qt's class of that name, over log4cplus, where Log4Qt is not installed.
class REGISTERPLATFORM_EXPORT Logger
{
public:
    ~Logger();
    Q_DISABLE_COPY_MOVE(Logger)

    void info(const QString& message) const;
    void warn(const QString& message) const;
    void error(const QString& message) const;

private:
    friend class LogManager;
    explicit Logger(const QString& name);

    class Private;
    std::unique_ptr<Private> d;
};

} // namespace Log4Qt
