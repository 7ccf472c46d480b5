// SPDX-License-Identifier: MIT
#include "logger_p.h"

#include "logsetup_p.h"

using namespace Qt::StringLiterals;

namespace Log4Qt
{

namespace
{

/// A message is one line: a character that breaks a line or controls a terminal is written as its number.
QString onOneLine(const QString& message)
{
    QString line;
    line.reserve(message.size());
    for (const QChar character : message) {
        const bool breaks = character.category() == QChar::Other_Control ||
                            character.category() == QChar::Separator_Line ||
                            character.category() == QChar::Separator_Paragraph;
        if (character == u'\n') {
            line += u"\\n"_s;
        } else if (breaks && character != u'\t') {
            line += u"\\u%1"_s.arg(character.unicode(), 4, 16, QChar(u'0'));
        } else {
            line += character;
        }
    }
    return line;
}

} // namespace

void Logger::Private::log(log4cplus::LogLevel level, const QString& message) const
{
    ensureSetUp();
    logger.log(level, onOneLine(message).toStdString());
}

Logger::Logger(const QString& name)
    : d(std::make_unique<Private>(name))
{
}

Logger::~Logger() = default;

void Logger::info(const QString& message) const
{
    d->log(log4cplus::INFO_LOG_LEVEL, message);
}

void Logger::warn(const QString& message) const
{
    d->log(log4cplus::WARN_LOG_LEVEL, message);
}

void Logger::error(const QString& message) const
{
    d->log(log4cplus::ERROR_LOG_LEVEL, message);
}

} // namespace Log4Qt
