// SPDX-License-Identifier: MIT
// Logs one message of each level and one per further argument.
// logwriter FOLDER PROPERTIES [MESSAGE...]: the values of Logging:folder and Logging:properties.

#include "config.h"

#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

#include <QString>

int main(int argc, char** argv)
{
    if (argc < 3)
        return 2;
    Config config;
    config.setForThisRun(QStringLiteral("Logging:folder"), QString::fromUtf8(argv[1]));
    config.setForThisRun(QStringLiteral("Logging:properties"), QString::fromUtf8(argv[2]));
    Singleton<Config>::instance = &config;

    const Log4Qt::Logger* logger = Log4Qt::LogManager::logger(QStringLiteral("till"));
    logger->info(QStringLiteral("Чек открыт"));
    logger->warn(QStringLiteral("Бумага кончается"));
    logger->error(QStringLiteral("Бумаги нет"));
    for (int message = 3; message < argc; ++message)
        logger->info(QString::fromUtf8(argv[message]));
    return 0;
}
