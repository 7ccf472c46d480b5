// SPDX-License-Identifier: MIT
#pragma once

#include "formhelp.h"

/// What the register's help says of the prescription forms.
namespace prescriptionhelp
{

FormHelp choice();
FormHelp details();
FormHelp confirmation();

} // namespace prescriptionhelp
