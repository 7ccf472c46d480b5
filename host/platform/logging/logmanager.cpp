// SPDX-License-Identifier: MIT
#include <log4qt/logmanager.h>

#include <log4qt/logger.h>

#include <log4cplus/initializer.h>

#include <map>
#include <memory>
#include <mutex>

namespace Log4Qt
{

namespace
{

struct Loggers {
    log4cplus::Initializer backend; // first: the loggers live on it
    std::mutex mutex;
    std::map<QString, std::unique_ptr<Logger>> byName;
};

} // namespace

Logger* LogManager::logger(const QString& name)
{
    static Loggers loggers;
    const std::lock_guard lock(loggers.mutex);
    std::unique_ptr<Logger>& logger = loggers.byName[name];
    if (!logger) {
        logger.reset(new Logger(name));
    }
    return logger.get();
}

} // namespace Log4Qt
