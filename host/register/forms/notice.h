// SPDX-License-Identifier: MIT
#pragma once

#include "dialog.h"

/// Tells the cashier something that is no error, and waits until it is read.
inline void showNotice(const tr::Tr& text)
{
    Dialog::create()->showMessage(text, Dialog::Notice, 0, 0);
}
