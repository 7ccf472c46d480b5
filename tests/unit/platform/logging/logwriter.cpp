// SPDX-License-Identifier: MIT
// Logs one message of each level and one per further argument.
// logwriter FOLDER PROPERTIES [MESSAGE...]: the values of Logging:folder and Logging:properties.
// A MESSAGE that begins with "early" is logged as a warning before logging is set up.

#include "config.h"
#include "logsetup.h"

#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

#include <QString>

using namespace Qt::StringLiterals;

int main(int argc, char** argv)
{
    if (argc < 3) {
        return 2;
    }
    for (int message = 3; message < argc; ++message) {
        if (const QString text = QString::fromUtf8(argv[message]); text.startsWith("early"_L1)) {
            Log4Qt::LogManager::logger(u"till"_s)->warn(text);
        }
    }
    Config config;
    config.setForThisRun(u"Logging:folder"_s, QString::fromUtf8(argv[1]));
    config.setForThisRun(u"Logging:properties"_s, QString::fromUtf8(argv[2]));
    setUpLogging(config);

    const Log4Qt::Logger* logger = Log4Qt::LogManager::logger(u"till"_s);
    logger->info(u"Чек открыт"_s);
    logger->warn(u"Бумага кончается"_s);
    logger->error(u"Бумаги нет"_s);
    for (int message = 3; message < argc; ++message) {
        logger->info(QString::fromUtf8(argv[message]));
    }
    return 0;
}
