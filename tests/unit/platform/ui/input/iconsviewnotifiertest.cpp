// SPDX-License-Identifier: MIT
#include "iconsviewnotifier.h"
#include "tallokeyboard.h"

#include <QPushButton>

#include <gmock/gmock.h>

namespace
{

TEST(IconsViewNotifierTest, layoutSwitchedOnTheKeyboard_isReportedWithItsSource)
{
    IconsViewNotifier notifier;
    TalloKeyboard keyboard;
    keyboard.setKeyboardLayouts("ru,en");
    QObject::connect(&keyboard, &TalloKeyboard::layoutChanged, &notifier, &IconsViewNotifier::notifyIcons);
    QEvent::Type type = QEvent::None;
    QObject* source = nullptr;
    QObject::connect(&notifier, &IconsViewNotifier::iconsChanged, [&](QEvent::Type changed, QObject* by) {
        type = changed;
        source = by;
    });
    keyboard.findChild<QPushButton*>("key_layout")->click();
    EXPECT_EQ(type, QEvent::KeyboardLayoutChange);
    EXPECT_EQ(source, &keyboard);
}

TEST(IconsViewNotifierTest, nullEvent_isIgnored)
{
    IconsViewNotifier notifier;
    bool isTold = false;
    QObject::connect(&notifier, &IconsViewNotifier::iconsChanged, [&] { isTold = true; });
    notifier.notifyIcons(nullptr);
    EXPECT_FALSE(isTold);
}

} // namespace
