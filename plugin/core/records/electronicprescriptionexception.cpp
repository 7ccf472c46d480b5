// SPDX-License-Identifier: MIT
#include "electronicprescriptionexception.h"

ElectronicPrescriptionException::ElectronicPrescriptionException(const tr::Tr& message, Outcome outcome)
    : BasicException(message)
    , m_outcome(outcome)
{
}

ElectronicPrescriptionException::~ElectronicPrescriptionException() = default;
