// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <ostream>

/// Has GoogleTest print a text, or a list of texts, in words when an expectation fails.
inline void PrintTo(const QString& text, std::ostream* stream)
{
    *stream << '"' << text.toStdString() << '"';
}
