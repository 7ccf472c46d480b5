// SPDX-License-Identifier: MIT
#include "othersdk.h"
