// SPDX-License-Identifier: MIT
#pragma once

#include "export.h"

#include <QString>

#include <optional>

/// A truth value as it is written in the configuration: "true", "yes", "on" and "1", "false", "no", "off", "0" and an
/// empty text, whatever the case. Nothing for anything else.
REGISTERPLATFORM_EXPORT std::optional<bool> flagValue(const QString& text);

/// A decimal integer as it is written in the configuration; nothing for anything else, an overflow too.
REGISTERPLATFORM_EXPORT std::optional<int> numberValue(const QString& text);
