// SPDX-License-Identifier: MIT
#include "electronicprescriptionexception.h"

ElectronicPrescriptionException::ElectronicPrescriptionException(const tr::Tr& message)
    : BasicException(message)
{
}

ElectronicPrescriptionException::~ElectronicPrescriptionException() = default;
