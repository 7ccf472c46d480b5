// SPDX-License-Identifier: MIT
#pragma once

#include "basicexception.h"
#include "restclient.h"

/// A request to the registry or a step of the workflow failed. Carries the text for the cashier.
class ElectronicPrescriptionException : public BasicException
{
public:
    using Outcome = RestClient::Outcome;

    /// @param outcome what is known of the request that failed
    explicit ElectronicPrescriptionException(const tr::Tr& message, Outcome outcome = Outcome::Settled);
    ~ElectronicPrescriptionException() override;

    Outcome outcome() const { return m_outcome; }

private:
    Outcome m_outcome;
};
