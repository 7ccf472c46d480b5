// SPDX-License-Identifier: MIT
#include "formhost.h"

FormStage::~FormStage() = default;
