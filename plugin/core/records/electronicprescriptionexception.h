// SPDX-License-Identifier: MIT
#pragma once

#include "basicexception.h"

/// A registry exchange or a step of the workflow failed; carries the text for the cashier.
class ElectronicPrescriptionException : public BasicException
{
public:
    explicit ElectronicPrescriptionException(const tr::Tr& message);
    ~ElectronicPrescriptionException() override;
};
