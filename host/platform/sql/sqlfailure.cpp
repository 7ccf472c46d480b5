// SPDX-License-Identifier: MIT
#include "sqlfailure.h"

using namespace Qt::StringLiterals;

Failure sqlFailure(const QSqlError& error)
{
    const QString reason = error.text().trimmed();
    if (reason.isEmpty()) {
        return {{u"databaseErrorWithoutReason"_s, u"причина не названа"_s}, u"no reason was given"_s};
    }
    return untranslatedFailure(reason);
}

Failure silentServer(std::chrono::seconds timeout)
{
    const QString seconds = QString::number(timeout.count());
    return {tr::Tr(u"databaseServerSilent"_s, u"сервер не ответил за %1 с"_s).arg(seconds),
            u"the server did not answer within %1 s"_s.arg(seconds)};
}
