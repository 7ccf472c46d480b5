// SPDX-License-Identifier: MIT
#include "standingwarning.h"

template struct Singleton<StandingWarning>;

StandingWarning::~StandingWarning() = default;

void StandingWarning::set(const tr::Tr& /*text*/) {}
