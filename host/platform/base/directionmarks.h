// SPDX-License-Identifier: MIT
#pragma once

#include "export.h"

#include <QString>

/// The text without the characters that turn the direction of writing (Unicode Standard Annex 9, 2): the name of goods
/// or an answer of a server may hold them, and the rest of a line would be shown backwards. For texts that are shown.
REGISTERPLATFORM_EXPORT QString withoutDirectionMarks(const QString& text);
