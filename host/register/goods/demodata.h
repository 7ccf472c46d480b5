// SPDX-License-Identifier: MIT
#pragma once

#include "expected.h"

#include <QString>

/// Creates a database with demo goods and the dictionary names of their medicines. An existing file stays as it is.
Expected<void, Failure> createDemoGoods(const QString& file);
