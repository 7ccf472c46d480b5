// SPDX-License-Identifier: MIT
#include "logsetup_p.h"

#include "config.h"

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

QString configured(const QString& key)
{
    const Config* config = Singleton<Config>::instance; // a message must not make a configuration
    return config ? config->getString(key) : QString();
}

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

void setUp()
{
    log4cplus::Logger root = log4cplus::Logger::getRoot();
    const QString properties = configured(u"Logging:properties"_s);
    if (QFileInfo(properties).isFile()) {
        log4cplus::PropertyConfigurator(QFile::encodeName(properties).toStdString()).configure();
        return;
    }
    root.setLogLevel(log4cplus::INFO_LOG_LEVEL);
    root.addAppender(defaultAppender(configured(u"Logging:folder"_s)));
    if (!properties.isEmpty()) {
        root.log(log4cplus::WARN_LOG_LEVEL, "Logging:properties names no file; the default logging is taken");
    }
}

} // namespace

void setUpLogging()
{
    static std::once_flag done;
    std::call_once(done, setUp);
}

} // namespace Log4Qt
