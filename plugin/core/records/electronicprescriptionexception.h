// SPDX-License-Identifier: MIT
#pragma once

#include "basicexception.h"

/// A request to the registry or a step of the workflow failed. Carries the text for the cashier.
class ElectronicPrescriptionException : public BasicException
{
public:
    explicit ElectronicPrescriptionException(const tr::Tr& message);
    ~ElectronicPrescriptionException() override;
};
