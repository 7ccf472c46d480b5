// SPDX-License-Identifier: MIT
#include "connectionfactory.h"
#include "electronicprescription.h"
#include "electronicprescriptionservice.h"
#include "queryguard.h"
#include "singleton.h"

#include <log4qt/logger.h>

#include <QSqlError>
#include <QSqlQuery>

#include <chrono>

using namespace Qt::StringLiterals;

namespace
{

constexpr std::chrono::seconds queryTime(2);

} // namespace

void ElectronicPrescriptionService::fillDictionaryName(const QSharedPointer<ElectronicPrescription>& prescription) const
{
    if (!prescription->getDictName().isEmpty()) {
        return;
    }

    const QSqlDatabase goods = Singleton<ConnectionFactory>::get()->getConnection(QString(), QString());
    // The code comes from the registry and may be an expression; the guard ends one that does not end.
    const QueryGuard guard(goods, queryTime);
    QSqlQuery query(goods);
    // Dictionary codes are numbers, and are written into the statement as such. A column of text is compared with the
    // number's digits, so a code kept there with leading zeros is not found. The connection cannot write.
    const QString statement =
        u"SELECT dictname FROM medicine WHERE dictcode = "_s + prescription->getDictCode() + u" LIMIT 1"_s;
    if (!goods.isOpen() || !query.prepare(statement)) { // Qt would write a warning for a closed one
        logger->error(
            u"Ошибка выполнения prepare для запроса %1: %2"_s.arg(query.lastQuery(), query.lastError().text()));
        return;
    }
    if (!query.exec()) {
        logger->error(u"Ошибка выполнения запроса %1: %2"_s.arg(query.lastQuery(), query.lastError().text()));
        return;
    }
    prescription->setDictName(query.next() ? query.value(0).toString() : QString(""_L1));
}
