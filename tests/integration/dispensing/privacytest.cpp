// SPDX-License-Identifier: MIT
// The log of a subtotal and its cancellation does not say who bought what, and holds no key to the registry.

#include "faultscript.h"
#include "logcapture.h"
#include "pharmacy.h"
#include "positionformat.h"

#include <QJsonDocument>

#include <gtest/gtest.h>

namespace
{

TEST(Privacy, registeredRefusedAndCancelled_logsNeitherPatientNorSecretsNorBodies)
{
    Pharmacy pharmacy;
    const LogCapture log;
    ASSERT_EQ(pharmacy.subtotal(), EContext::GoOn);
    ASSERT_EQ(pharmacy.cancelDocument(), EContext::GoOn);
    QJsonObject unknown = pharmacy.optionsOf(1);
    unknown[positionformat::status] = positionformat::dispensed;
    unknown[positionformat::medicationDispenseId] = "no-such-dispense";
    pharmacy.setOptions(1, QJsonDocument(unknown).toJson(QJsonDocument::Compact));
    ASSERT_EQ(pharmacy.cancelDocument(), EContext::Stop);

    EXPECT_TRUE(log.text().contains("failed: ")) << "the refusal is logged without its text";
    QStringList secrets{"Пробный", "p-1", "s&c+ret", "s%26c%2Bret", "rx-full", "medicationDispense"};
    for (const emulator::JournalEntry& request : pharmacy.requests()) {
        const QString authorization = QString::fromUtf8(request.header("Authorization"));
        if (!authorization.isEmpty()) {
            secrets.append(authorization.section(u' ', 1));
        }
    }
    ASSERT_GT(secrets.size(), 12) << "tokens were sent";
    for (const QString& secret : secrets) {
        EXPECT_FALSE(log.text().contains(secret)) << qPrintable(secret) << "\n" << qPrintable(log.text());
    }
}

} // namespace
