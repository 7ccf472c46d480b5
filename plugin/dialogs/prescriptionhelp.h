// SPDX-License-Identifier: MIT
#pragma once

#include "formhelp.h"

/// What the register's help says of the prescription forms.
namespace prescriptionhelp
{

FormHelp choice();
/// @param canPick whether goods can be picked for the prescription
FormHelp details(bool canPick);
FormHelp confirmation();

} // namespace prescriptionhelp
