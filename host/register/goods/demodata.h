// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// Makes a goods database with demo goods, and with the dictionary names of their medicines. A file that is there
/// already stays as it is.
/// @return false when it could not be made; the reason has been logged
bool createDemoGoods(const QString& file);
