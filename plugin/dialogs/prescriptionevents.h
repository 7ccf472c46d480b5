// SPDX-License-Identifier: MIT
#pragma once

#include "event.h"

/// The events that ask the register for this plug-in's forms. Each carries its parameter record as "params".
namespace prescriptionevents
{

inline constexpr auto choosePrescription = EActivityListener::Event(196);
inline constexpr auto showPrescription = EActivityListener::Event(197);
inline constexpr auto confirmDispense = EActivityListener::Event(198);

} // namespace prescriptionevents
