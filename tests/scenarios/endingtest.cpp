// SPDX-License-Identifier: MIT
// The system asks the register to end: by a signal, at any moment.

#include "cashiersteps.h"
#include "pharmacy.h"

#include <csignal>
#include <cstring>
#include <string>

namespace
{

/// A last step that outlasts the register.
const QByteArray untilTheEnd = R"({"wait": "neverThere", "seconds": 60})";

class Ending : public Pharmacy, public ::testing::WithParamInterface<int>
{
protected:
    void SetUp() override
    {
        Pharmacy::SetUp();
        leaveOpen("three-prescriptions.json");
    }

    /// Begins a subtotal, and sends the signal while that request of it is under way; once more for each of `again`.
    void signalDuringRegistration(int nth, int again = 0)
    {
        startSteps({cashier::findsTheDocument, R"({"key": "F6"})", untilTheEnd});
        ASSERT_TRUE(waitForRequests("register", nth));
        for (int signal = 0; signal <= again; ++signal) {
            sendSignal(GetParam());
        }
    }
};

TEST_P(Ending, duringARegistration_answerIsWaitedForAndSavedAndTheStatusIsZero)
{
    registry.orderFault({{"endpoint", "register"}, {"nth", 2}, {"fault", "delay"}, {"delay", 1500}});
    signalDuringRegistration(2, 2);
    expectPlayed(waitForEnd());
    EXPECT_EQ(registeredBy(savedDocument()).size(), 3) << "the action is carried out to its end";
    EXPECT_EQ(validDispenses(), registeredBy(savedDocument()));
    EXPECT_EQ(registry.requestsTo("register"), 3);

    expectPlayed(playSteps({cashier::findsTheDocument, cashier::subtotal, cashier::pays}));
    EXPECT_EQ(registry.requestsTo("register"), 3) << "nothing is sent again";
    EXPECT_EQ(validDispenses(), registeredBy(finished(1)));
}

TEST_P(Ending, duringARegistrationThatIsNeverAnswered_timeOutEndsItAndTheStatusIsZero)
{
    configure("ElectronicPrescription:timeout", "2");
    registry.orderFault({{"endpoint", "register"}, {"nth", 2}, {"fault", "never"}, {"carriedOut", false}});
    signalDuringRegistration(2);
    expectPlayed(waitForEnd());
    EXPECT_EQ(registeredBy(savedDocument()).size(), 1);
    EXPECT_EQ(validDispenses(), registeredBy(savedDocument()));
}

TEST_P(Ending, inAFormOfThePlugin_formIsCancelledAndNothingIsServed)
{
    startSteps({cashier::findsTheDocument, R"({"key": "F5"}, {"wait": "electronicPrescriptionsTableView"},
               {"key": "Return"}, {"wait": "chooseButton"}, {"say": "the form is open"})",
                untilTheEnd});
    ASSERT_TRUE(waitForOutput("the form is open"));
    const QJsonObject before = savedDocument();
    sendSignal(GetParam());
    expectPlayed(waitForEnd());
    EXPECT_EQ(savedDocument(), before);
}

INSTANTIATE_TEST_SUITE_P(, Ending, ::testing::Values(SIGTERM, SIGINT, SIGHUP),
                         [](const auto& instance) { return std::string(::sigabbrev_np(instance.param)); });

} // namespace
