// SPDX-License-Identifier: MIT
#include "electronicprescriptionnoprescriptionsexception.h"

ElectronicPrescriptionNoPrescriptionsException::ElectronicPrescriptionNoPrescriptionsException(const tr::Tr& message)
    : ElectronicPrescriptionException(message)
{
}

ElectronicPrescriptionNoPrescriptionsException::~ElectronicPrescriptionNoPrescriptionsException() = default;
