// SPDX-License-Identifier: MIT
#include "electronicprescriptionexception.h"
#include "electronicprescriptionnoprescriptionsexception.h"

#include <gtest/gtest.h>

#include <type_traits>

using namespace Qt::StringLiterals;

namespace
{

const tr::Tr message(u"someError"_s, u"Что-то не так"_s);

TEST(Exceptions, prescriptionException_carriesItsMessage)
{
    const ElectronicPrescriptionException exception(message);
    EXPECT_EQ(exception.tr(), message);
    EXPECT_EQ(QString::fromUtf8(exception.what()), "Что-то не так");
}

TEST(Exceptions, noPrescriptions_isCaughtAsPrescriptionExceptionWithItsMessage)
{
    try {
        throw ElectronicPrescriptionNoPrescriptionsException(message);
    } catch (const ElectronicPrescriptionException& exception) {
        EXPECT_EQ(exception.tr(), message);
        return;
    }
    FAIL() << "not caught";
}

TEST(Exceptions, prescriptionException_isCaughtAsTheHostsAndTheStandardOnes)
{
    EXPECT_THROW(throw ElectronicPrescriptionException(message), BasicException);
    EXPECT_THROW(throw ElectronicPrescriptionNoPrescriptionsException(message), std::runtime_error);
}

TEST(Exceptions, anotherPrescriptionException_isNotTheOneOfNoPrescriptions)
{
    try {
        throw ElectronicPrescriptionException(message);
    } catch (const ElectronicPrescriptionNoPrescriptionsException&) {
        FAIL() << "taken for the other";
    } catch (const ElectronicPrescriptionException& exception) {
        EXPECT_EQ(exception.tr(), message);
    }
}

TEST(Exceptions, bothClasses_addNoFieldAndAreBuiltFromATextOnly)
{
    using Exception = ElectronicPrescriptionException;
    using NoPrescriptions = ElectronicPrescriptionNoPrescriptionsException;
    EXPECT_EQ(sizeof(Exception), sizeof(BasicException));
    EXPECT_EQ(sizeof(NoPrescriptions), sizeof(BasicException));
    EXPECT_FALSE(std::is_default_constructible_v<Exception>);
    EXPECT_FALSE(std::is_default_constructible_v<NoPrescriptions>);
}

} // namespace
