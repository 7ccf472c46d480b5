// SPDX-License-Identifier: MIT
#pragma once

#include "cashiersteps.h"
#include "pharmacy.h"

#include <ostream>
#include <string>

/// When the power goes.
struct PowerFailure {
    enum class At {
        LongWork,    ///< when long work begins
        RequestLost, ///< after a request was sent, which the registry has not carried out
        AnswerLost,  ///< after the registry has carried a request out, before its answer is there
        BeforeSave,  ///< before a document is saved
        AfterSave,   ///< when a document has been saved
    };

    const char* name;
    At at;
    int nth;                   ///< of those since the start, or of the requests to `endpoint`; 1 is the first
    const char* endpoint = ""; ///< of the registry, for a request

    friend std::ostream& operator<<(std::ostream& stream, const PowerFailure& failure)
    {
        return stream << failure.name;
    }
};

/// A pharmacy whose power goes off while the register works. All of its tests begin with one receipt of three
/// prescriptions: the first dispensed completely, the others in part.
class PowerCutTest : public Pharmacy
{
protected:
    void SetUp() override;

    /// Plays the steps until the power goes, which has to happen on the way.
    void playUntil(const PowerFailure& failure, const QByteArrayList& steps);

    /// What an administrator does while the register is closed: makes a saved document say of each prescription what
    /// the registry holds of its latest dispense. The file is one of the data folder.
    void correct(const QString& file);

    /// Every prescription of the receipt is registered, once, and the receipt knows it.
    void expectRegisteredOnce(const QJsonObject& document);
    /// Nothing stands with the registry.
    void expectNothingRegistered();
    /// What the registry holds is what the document says.
    void expectInStep(const QJsonObject& document) { EXPECT_EQ(standingDispenses(), registeredBy(document)); }
};

std::string nameOf(const ::testing::TestParamInfo<PowerFailure>& instance);
