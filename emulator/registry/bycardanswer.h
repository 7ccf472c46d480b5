// SPDX-License-Identifier: MIT
#pragma once

#include "prescriptionstore.h"

#include <QJsonObject>

namespace emulator
{
/// The answer to a look-up by card: a Bundle of the Patient and, for each prescription of that status, a Bundle of its
/// resources. Without a prescription the Bundle has no "entry".
/// @param status empty: all
QJsonObject byCardAnswer(const PrescriptionStore& store, const Patient& patient, const QString& status);
} // namespace emulator
