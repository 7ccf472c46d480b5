// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <ostream>

/// How GoogleTest writes a text when an expectation fails; for lists of texts too.
inline void PrintTo(const QString& text, std::ostream* stream)
{
    *stream << '"' << text.toStdString() << '"';
}
