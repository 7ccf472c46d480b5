// SPDX-License-Identifier: MIT
#include "logcapture.h"

#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

/// Logging is set up once in a process; every case has a process of its own.
class LoggingSetUp : public ::testing::Test
{
protected:
    void write(const QString& folder, const QString& properties, const QStringList& messages = {})
    {
        QProcess process;
        process.start(QString::fromUtf8(LOGWRITER), QStringList({folder, properties}) + messages);
        ASSERT_TRUE(process.waitForFinished());
        ASSERT_EQ(process.exitStatus(), QProcess::NormalExit);
        ASSERT_EQ(process.exitCode(), 0);
        m_standardError = QString::fromUtf8(process.readAllStandardError());
        m_standardOutput = QString::fromUtf8(process.readAllStandardOutput());
    }

    QStringList linesOf(const QString& path) const
    {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
        return QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
    }

    QTemporaryDir m_folder;
    QString m_standardError;
    QString m_standardOutput;
};

} // namespace

TEST_F(LoggingSetUp, nothingConfigured_warningsAndErrorsGoToStandardError)
{
    write({}, {});
    EXPECT_TRUE(m_standardError.contains(u"WARN  till Бумага кончается"_s)) << m_standardError.toStdString();
    EXPECT_TRUE(m_standardError.contains(u"ERROR till Бумаги нет"_s));
    EXPECT_FALSE(m_standardError.contains(u"Чек открыт"_s));
    EXPECT_TRUE(m_standardOutput.isEmpty());
}

TEST_F(LoggingSetUp, folderConfigured_everythingGoesToAFileInIt)
{
    const QString folder = m_folder.filePath(u"журнал"_s); // is created
    write(folder, {});
    const QStringList lines = linesOf(folder + u"/register.log"_s);
    ASSERT_EQ(lines.size(), 3);
    const QRegularExpression form(u"^\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d\\.\\d{3} INFO  till Чек открыт$"_s);
    EXPECT_TRUE(form.match(lines.first()).hasMatch()) << lines.first().toStdString();
    EXPECT_TRUE(m_standardError.isEmpty()) << m_standardError.toStdString();
}

TEST_F(LoggingSetUp, propertiesConfigured_theyDecide)
{
    const QString log = m_folder.filePath(u"errors.log"_s);
    QFile properties(m_folder.filePath(u"logging.properties"_s));
    ASSERT_TRUE(properties.open(QIODevice::WriteOnly));
    properties.write("log4cplus.rootLogger=ERROR, FILE\n"
                     "log4cplus.appender.FILE=log4cplus::FileAppender\n"
                     "log4cplus.appender.FILE.File=" +
                     QFile::encodeName(log) +
                     "\n"
                     "log4cplus.appender.FILE.layout=log4cplus::PatternLayout\n"
                     "log4cplus.appender.FILE.layout.ConversionPattern=%m%n\n");
    properties.close();
    write(m_folder.path(), properties.fileName());
    EXPECT_EQ(linesOf(log), QStringList(u"Бумаги нет"_s));
    EXPECT_FALSE(QFile::exists(m_folder.filePath(u"register.log"_s)));
}

TEST_F(LoggingSetUp, propertiesFileMissing_isWarnedAboutAndDefaultsHold)
{
    write(m_folder.path(), m_folder.filePath(u"missing.properties"_s));
    const QStringList lines = linesOf(m_folder.filePath(u"register.log"_s));
    ASSERT_EQ(lines.size(), 4);
    EXPECT_TRUE(lines.first().contains(u"WARN  root Logging:properties"_s)) << lines.first().toStdString();
}

TEST_F(LoggingSetUp, messageWithLineBreaksAndControls_isOneLine)
{
    write(m_folder.path(), {}, {u"a\nb\r\nc\x1b[2J\td\u2028e"_s, u"%s %n %1"_s, QString(10'000, u'ж')});
    const QStringList lines = linesOf(m_folder.filePath(u"register.log"_s));
    ASSERT_EQ(lines.size(), 6);
    EXPECT_TRUE(lines[3].endsWith(u" till a\\nb\\u000d\\nc\\u001b[2J\td\\u2028e"_s)) << lines[3].toStdString();
    EXPECT_TRUE(lines[4].endsWith(u" till %s %n %1"_s));
    EXPECT_TRUE(lines[5].endsWith(QString(10'000, u'ж')));
}

TEST_F(LoggingSetUp, messageBeforeSetUp_goesToStandardErrorAndLaterOnesToTheFileAlone)
{
    write(m_folder.path(), {}, {u"early warning"_s});
    EXPECT_EQ(m_standardError.count(u'\n'), 1) << m_standardError.toStdString();
    EXPECT_TRUE(m_standardError.contains(u"WARN  till early warning"_s)) << m_standardError.toStdString();
    EXPECT_EQ(linesOf(m_folder.filePath(u"register.log"_s)).size(), 4);
}

TEST_F(LoggingSetUp, folderCannotBeMade_programGoesOn)
{
    QFile inTheWay(m_folder.filePath(u"file"_s));
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    write(inTheWay.fileName() + u"/sub"_s, {});
}

TEST(LogManager, sameName_givesTheSameLogger)
{
    Log4Qt::Logger* const logger = Log4Qt::LogManager::logger(u"a"_s);
    ASSERT_NE(logger, nullptr);
    EXPECT_EQ(Log4Qt::LogManager::logger(u"a"_s), logger);
    EXPECT_NE(Log4Qt::LogManager::logger(u"b"_s), logger);
}

TEST(Logger, levels_arriveWithNameAndText)
{
    const LogCapture log;
    const Log4Qt::Logger* logger = Log4Qt::LogManager::logger(u"till"_s);
    logger->info(u"Чек"_s);
    logger->warn(u"w"_s);
    logger->error(QString());
    EXPECT_EQ(log.lines(), QStringList({u"INFO till Чек"_s, u"WARN till w"_s, u"ERROR till "_s}));
}
