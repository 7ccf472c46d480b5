// SPDX-License-Identifier: MIT
#include "basicformcreator.h"

BasicFormCreator::~BasicFormCreator() = default;
