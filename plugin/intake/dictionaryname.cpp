// SPDX-License-Identifier: MIT
#include "connectionfactory.h"
#include "electronicprescription.h"
#include "electronicprescriptionservice.h"
#include "expected.h"
#include "singleton.h"

#include <log4qt/logger.h>

#include <QSqlError>
#include <QSqlQuery>

#include <chrono>

using namespace Qt::StringLiterals;

namespace
{

constexpr std::chrono::seconds queryTime(2);

/// The first value that the statement finds; empty when it finds none.
Expected<QString> firstValue(const QSqlDatabase& goods, const QString& statement)
{
    QSqlQuery query(goods);
    if (!goods.isOpen() || !query.prepare(statement)) { // Qt would write a warning for a closed one
        return untranslatedFailure(
            u"Ошибка выполнения prepare для запроса %1: %2"_s.arg(query.lastQuery(), query.lastError().text()));
    }
    if (!query.exec()) {
        return untranslatedFailure(
            u"Ошибка выполнения запроса %1: %2"_s.arg(query.lastQuery(), query.lastError().text()));
    }
    return query.next() ? query.value(0).toString() : QString(""_L1);
}

} // namespace

void ElectronicPrescriptionService::fillDictionaryName(const QSharedPointer<ElectronicPrescription>& prescription) const
{
    if (!prescription->getDictName().isEmpty()) {
        return;
    }

    auto* databases = Singleton<ConnectionFactory>::get();
    const QSqlDatabase goods = databases->getConnection(QString(), QString());
    // Dictionary codes are numbers, and are written into the statement as such. A column of text is compared with the
    // number's digits, so a code kept there with leading zeros is not found. The connection cannot write.
    const QString statement =
        u"SELECT dictname FROM medicine WHERE dictcode = "_s + prescription->getDictCode() + u" LIMIT 1"_s;
    // The code comes from the registry and may be an expression that does not end.
    Expected<QString> name = QString();
    databases->ask(goods, queryTime, [&] { name = firstValue(goods, statement); });
    if (name) {
        prescription->setDictName(*name);
    } else {
        logger->error(name.failure().detail);
    }
}
