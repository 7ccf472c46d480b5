// SPDX-License-Identifier: MIT
#pragma once

#include <QKeyCombination>
#include <QString>

#include <optional>

class QWidget;

/// Keys and clicks as the window system sends them. They are delivered from the event loop, through event filters,
/// shortcuts and dialogs.
namespace postedinput
{

/// The window that takes input; a visible window when no window manager makes one active; null: there is none.
QWidget* activeWindow();

/// The key with a name such as "Return", "F5" or "Ctrl+A"; nothing when there is no such key.
std::optional<QKeyCombination> keyNamed(const QString& name);

/// Presses and releases a key in the active window. @return false when no window is active
bool pressKey(QKeyCombination key);
/// Types a character into the active window. @return false when no window is active
bool typeCharacter(char32_t character);
/// True when the middle of the widget can be seen, so that a person could click it.
bool canBeClicked(const QWidget& widget);
/// Clicks the middle of a widget.
void click(QWidget& widget);

} // namespace postedinput
