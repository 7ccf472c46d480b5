// SPDX-License-Identifier: MIT
#include "registryapi.h"
#include "database.h"
#include "refusal.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using emulator::HttpRequest;
using emulator::Refusal;
using emulator::RefusalCode;
using emulator::RegistryApi;

TEST(RegistryApi, failingDatabase_isAnsweredAsFailureOfTheRegistry)
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"registry.sqlite"_s);
    emulator::PrescriptionStore store(file);
    RegistryApi api(
        store, [] { return QDateTime(QDate(2024, 3, 20), QTime(12, 0)); }, QString());
    emulator::Database(file).run(u"DROP TABLE client"_s);

    HttpRequest request;
    request.method = "POST";
    request.target = "/connect/token";
    request.headers = {{"Content-Type", "application/x-www-form-urlencoded"}};
    request.body = "grant_type=client_credentials&client_id=x";
    const emulator::HttpAnswer answer = api.answer(request, api.routeOf(request));
    EXPECT_EQ(answer.status, 500);
    const Refusal expected(RefusalCode::RegistryFailed, {u"the database fails: no such table: client"_s});
    EXPECT_TRUE(answer.body.contains(expected.details().toUtf8())) << answer.body.constData();
}

TEST(RegistryApi, unreadableRequest_isRefusedByItsStatus)
{
    for (const auto& [status, code] :
         {std::pair(400, RefusalCode::RequestUnreadable), std::pair(408, RefusalCode::RequestNotInTime),
          std::pair(413, RefusalCode::BodyTooLarge), std::pair(431, RefusalCode::HeadersTooLarge),
          std::pair(505, RefusalCode::HttpVersionUnknown)}) {
        EXPECT_EQ(RegistryApi::unreadable(status).status, status);
        EXPECT_EQ(RegistryApi::unreadable(status).body, Refusal(code).answer().body);
    }
}
