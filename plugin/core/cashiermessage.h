// SPDX-License-Identifier: MIT
#pragma once

#include "dialog.h"

/// Shows the cashier that something failed; returns when the message was closed.
inline void showError(const tr::Tr& text)
{
    Dialog::create()->showMessage(text, Dialog::Error, 1, 0);
}

/// Shows the cashier something that is no failure; returns when the message was closed.
inline void showNotice(const tr::Tr& text)
{
    Dialog::create()->showMessage(text, Dialog::Notice, 1, 0);
}
