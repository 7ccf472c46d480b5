// SPDX-License-Identifier: MIT
#pragma once

#include "cashiersteps.h"
#include "pharmacy.h"

#include <ostream>
#include <string>

/// The moment at which the power fails.
struct PowerFailure {
    enum class At {
        LongWork,    ///< when long work begins
        RequestLost, ///< after a request was sent that the registry does not carry out
        AnswerLost,  ///< after the registry has carried out a request, before its answer arrives
        BeforeSave,  ///< before a document is saved
        AfterSave,   ///< after a document was saved

        BeforeJournalLine, ///< before a line is written to the journal of requests
        WithinJournalLine, ///< when half of the line is written
        AfterJournalLine,  ///< when the line is written, before anything else happens
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

/// A pharmacy whose power fails while the register works. Each test begins with one open document of three
/// prescriptions: the first dispensed completely, the others in part.
class PowerCutTest : public Pharmacy
{
protected:
    void SetUp() override;

    /// The plug-ins of playUntil() and those that a test installs beside them.
    QString pluginFolder() const;
    /// Puts a plug-in with its layouts into the folder. It stays as it is when it has the plug-in.
    void install(const QString& library);

    /// Plays the steps until the power fails, while the registry fails as it was ordered to. The test fails when they
    /// end before.
    void playUntil(const PowerFailure& failure, const QByteArrayList& steps);

    /// Corrects a saved document as an administrator does while the register is closed: each position gets the id and
    /// the state of its prescription's latest dispense at the registry.
    ///
    /// @param file within the data folder
    void correct(const QString& file);

    /// Each of the three prescriptions is registered once, and the document holds its dispense.
    void expectRegisteredOnce(const QJsonObject& document);
    /// The registry holds no dispense that is not cancelled.
    void expectNothingRegistered();
    /// The registry and the document hold the same dispenses.
    void expectInStep(const QJsonObject& document) { EXPECT_EQ(validDispenses(), registeredBy(document)); }
};

std::string nameOf(const ::testing::TestParamInfo<PowerFailure>& instance);
