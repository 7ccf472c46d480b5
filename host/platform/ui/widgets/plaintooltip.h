// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// A tool tip that shows exactly this text: Qt takes a tool tip with tags for rich text. Lines stay lines.
inline QString plainToolTip(const QString& text)
{
    return text.isEmpty() ? QString() : "<qt>" + text.toHtmlEscaped().replace(u'\n', "<br>") + "</qt>";
}
