// SPDX-License-Identifier: MIT
#include "logsetup_p.h"

#include <log4qt/logmanager.h>

#include <log4cplus/configurator.h>
#include <log4cplus/consoleappender.h>
#include <log4cplus/fileappender.h>
#include <log4cplus/layout.h>
#include <log4cplus/logger.h>

#include <QFile>
#include <QFileInfo>

#include <mutex>

using namespace Qt::StringLiterals;

namespace Log4Qt
{

namespace
{

constexpr long logFileSize = 10L * 1024 * 1024; ///< bytes, before the next file is begun
constexpr int keptLogFiles = 5;

log4cplus::SharedAppenderPtr defaultAppender(const QString& folder)
{
    log4cplus::SharedAppenderPtr appender;
    if (folder.isEmpty()) {
        appender = new log4cplus::ConsoleAppender(true, true);
        appender->setThreshold(log4cplus::WARN_LOG_LEVEL);
    } else {
        const std::string file = QFile::encodeName(folder + u"/register.log"_s).toStdString();
        appender = new log4cplus::RollingFileAppender(file, logFileSize, keptLogFiles, true, true);
    }
    appender->setLayout(std::make_unique<log4cplus::PatternLayout>("%D{%Y-%m-%d %H:%M:%S.%q} %-5p %c %m%n"));
    return appender;
}

/// Tells our appender from those that a test adds.
const log4cplus::tstring ownAppender = "register";

std::once_flag isSetUp;

void apply(const LogTarget& target)
{
    log4cplus::Logger root = log4cplus::Logger::getRoot();
    if (const log4cplus::SharedAppenderPtr former = root.getAppender(ownAppender); former.get() != nullptr) {
        root.removeAppender(former);
    }
    if (QFileInfo(target.properties).isFile()) {
        log4cplus::PropertyConfigurator(QFile::encodeName(target.properties).toStdString()).configure();
        return;
    }
    root.setLogLevel(log4cplus::INFO_LOG_LEVEL);
    const log4cplus::SharedAppenderPtr appender = defaultAppender(target.folder);
    appender->setName(ownAppender);
    root.addAppender(appender);
    if (!target.properties.isEmpty()) {
        root.log(log4cplus::WARN_LOG_LEVEL, "Logging:properties names no file; the default logging is taken");
    }
}

} // namespace

void setUpLogging(const LogTarget& target)
{
    std::call_once(isSetUp, [] {});   // no default after this
    LogManager::logger(u"logging"_s); // starts log4cplus
    apply(target);
}

void ensureSetUp()
{
    std::call_once(isSetUp, [] { apply({}); });
}

} // namespace Log4Qt
