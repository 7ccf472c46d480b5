// SPDX-License-Identifier: MIT
#pragma once

#include "electronicprescriptionexception.h"
#include "restclient.h"

/// A request to the registry failed, and it is not settled: nobody knows whether it was carried out, or the cashier
/// stopped it.
class UnsettledRequestException : public ElectronicPrescriptionException
{
public:
    UnsettledRequestException(const tr::Tr& message, RestClient::Outcome outcome);
    ~UnsettledRequestException() override;

    RestClient::Outcome outcome() const { return m_outcome; }

private:
    RestClient::Outcome m_outcome;
};

/// What is known of a request that failed.
RestClient::Outcome outcomeOf(const ElectronicPrescriptionException& failure);

/// Throws an UnsettledRequestException, or a plain ElectronicPrescriptionException for a settled request.
[[noreturn]] void throwRequestFailure(const tr::Tr& message, RestClient::Outcome outcome);
