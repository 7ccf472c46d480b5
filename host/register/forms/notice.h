// SPDX-License-Identifier: MIT
#pragma once

#include "dialog.h"

/// Shows the cashier a message that is no error, and waits until it is closed.
inline void showNotice(const tr::Tr& text)
{
    Dialog::create()->showMessage(text, Dialog::Notice, 0, 0);
}
