// SPDX-License-Identifier: MIT
#pragma once

#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

#include <QString>
#include <QStringList>

#include <log4cplus/appender.h>
#include <log4cplus/logger.h>
#include <log4cplus/spi/loggingevent.h>

using namespace Qt::StringLiterals;

/// Collects what is logged while it lives, however the logging is configured.
class LogCapture
{
public:
    LogCapture()
        : m_lines(new Lines)
    {
        // The first message sets up the logging, which may replace the appenders.
        Log4Qt::LogManager::logger(u"logcapture"_s)->info(u"Capturing"_s);
        log4cplus::Logger::getRoot().addAppender(m_lines);
    }
    ~LogCapture() { log4cplus::Logger::getRoot().removeAppender(m_lines); }
    Q_DISABLE_COPY_MOVE(LogCapture)

    /// One entry for each message, such as "WARN config Section:key is not true or false".
    QStringList lines() const { return static_cast<const Lines&>(*m_lines).collected; }

    /// All entries, one a line.
    QString text() const { return lines().join(u'\n'); }

private:
    class Lines : public log4cplus::Appender
    {
    public:
        ~Lines() override { destructorImpl(); }
        void close() override { closed = true; }

        QStringList collected;

    protected:
        void append(const log4cplus::spi::InternalLoggingEvent& event) override
        {
            const std::string& level = log4cplus::getLogLevelManager().toString(event.getLogLevel());
            collected += QString::fromStdString(level + ' ' + event.getLoggerName() + ' ' + event.getMessage());
        }
    };

    log4cplus::SharedAppenderPtr m_lines;
};
