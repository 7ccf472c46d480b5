// SPDX-License-Identifier: MIT
#include "beforesaving.h"

template struct Singleton<BeforeSaving>;

BeforeSaving::~BeforeSaving() = default;

void BeforeSaving::complete(AbstractDocument&) {}
