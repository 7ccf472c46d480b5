// SPDX-License-Identifier: MIT
#pragma once

#include "directionmarks.h"

#include <QString>

/// A tool tip that shows exactly this text: Qt takes a tool tip with tags for rich text. Lines stay lines; direction
/// marks go.
inline QString plainToolTip(const QString& text)
{
    using namespace Qt::StringLiterals;
    return text.isEmpty()
               ? QString()
               : u"<qt>"_s + withoutDirectionMarks(text).toHtmlEscaped().replace(u'\n', u"<br>"_s) + u"</qt>"_s;
}
