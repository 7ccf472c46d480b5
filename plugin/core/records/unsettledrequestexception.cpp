// SPDX-License-Identifier: MIT
#include "unsettledrequestexception.h"

UnsettledRequestException::UnsettledRequestException(const tr::Tr& message, RestClient::Outcome outcome)
    : ElectronicPrescriptionException(message)
    , m_outcome(outcome)
{
}

UnsettledRequestException::~UnsettledRequestException() = default;

RestClient::Outcome outcomeOf(const ElectronicPrescriptionException& failure)
{
    const auto* unsettled = dynamic_cast<const UnsettledRequestException*>(&failure);
    return unsettled ? unsettled->outcome() : RestClient::Outcome::Settled;
}

void throwRequestFailure(const tr::Tr& message, RestClient::Outcome outcome)
{
    if (outcome == RestClient::Outcome::Settled) {
        throw ElectronicPrescriptionException(message);
    }
    throw UnsettledRequestException(message, outcome);
}
