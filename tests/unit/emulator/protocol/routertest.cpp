// SPDX-License-Identifier: MIT
#include "router.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using emulator::Endpoint;
using emulator::Router;

TEST(Router, eachOperation_isFoundByItsPathWithItsMethod)
{
    const Router router;
    EXPECT_EQ(router.find("/connect/token").endpoint, Endpoint::Token);
    EXPECT_EQ(router.find("/connect/token").method, "POST");
    EXPECT_EQ(router.find("/MedicationPrescription/$by-card").endpoint, Endpoint::PrescriptionsByCard);
    EXPECT_EQ(router.find("/MedicationPrescription/$by-card").method, "GET");
    EXPECT_EQ(router.find("/MedicationDispense/$register").endpoint, Endpoint::DispenseRegistration);
    EXPECT_EQ(router.find("/MedicationDispense/$register").method, "POST");
    EXPECT_EQ(router.find("/MedicationDispense/d-1/$set-as-error").endpoint, Endpoint::DispenseCancellation);
    EXPECT_EQ(router.find("/MedicationDispense/d-1/$set-as-error").method, "POST");
}

TEST(Router, idOfDispense_isDecodedWithinItsSegment)
{
    EXPECT_EQ(Router().find("/MedicationDispense/a%2Fb+%D1%91/$set-as-error").id, u"a/b+ё"_s);
}

TEST(Router, encodedDollarSign_isTheSamePath)
{
    EXPECT_EQ(Router().find("/MedicationDispense/%24register").endpoint, Endpoint::DispenseRegistration);
}

TEST(Router, cancellationWithoutId_isFoundWithEmptyId)
{
    const auto route = Router().find("/MedicationDispense/$set-as-error");
    EXPECT_EQ(route.endpoint, Endpoint::DispenseCancellation);
    EXPECT_EQ(route.id, QString());
}

TEST(Router, pathUnderPrefix_isFoundOnlyThere)
{
    const Router router(u"/api/fhir/"_s);
    EXPECT_EQ(router.find("/api/fhir/connect/token").endpoint, Endpoint::Token);
    EXPECT_EQ(router.find("/connect/token").endpoint, Endpoint::Unknown);
    EXPECT_EQ(router.find("/api/connect/token").endpoint, Endpoint::Unknown);
}

struct Path {
    const char* name;
    const char* path;
};

class ForeignPath : public ::testing::TestWithParam<Path>
{
};

TEST_P(ForeignPath, isUnknown)
{
    EXPECT_EQ(Router().find(GetParam().path).endpoint, Endpoint::Unknown);
}

INSTANTIATE_TEST_SUITE_P(Router, ForeignPath,
                         ::testing::Values(Path{"root", "/"}, Path{"empty", ""}, Path{"noFirstSlash", "connect/token"},
                                           Path{"slashAtTheEnd", "/connect/token/"},
                                           Path{"otherCase", "/Connect/token"}, Path{"twoSlashes", "//connect/token"},
                                           Path{"dispenses", "/MedicationDispense"},
                                           Path{"oneDispense", "/MedicationDispense/d-1"},
                                           Path{"idOfTwoSegments", "/MedicationDispense/a/b/$set-as-error"},
                                           Path{"badEncoding", "/connect/%zz"}, Path{"otherWord", "/x"}),
                         [](const auto& row) { return std::string(row.param.name); });
