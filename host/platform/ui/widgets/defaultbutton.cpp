// SPDX-License-Identifier: MIT
#include "defaultbutton_p.h"

#include <QPushButton>

QPushButton* defaultButton(const QWidget& root)
{
    for (QPushButton* button : root.findChildren<QPushButton*>()) {
        if (button->isDefault() && button->isEnabled() && button->isVisibleTo(&root)) {
            return button;
        }
    }
    return nullptr;
}
