// SPDX-License-Identifier: MIT
#pragma once

#include "electronicprescriptionexception.h"

/// The registry holds no prescription for the card that was asked about.
class ElectronicPrescriptionNoPrescriptionsException : public ElectronicPrescriptionException
{
public:
    explicit ElectronicPrescriptionNoPrescriptionsException(const tr::Tr& message);
    ~ElectronicPrescriptionNoPrescriptionsException() override;
};
