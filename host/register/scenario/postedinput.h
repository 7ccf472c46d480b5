// SPDX-License-Identifier: MIT
#pragma once

#include <QChar>
#include <QKeyCombination>
#include <QString>

#include <optional>

class QWidget;

/// Keys and clicks as the window system would send them: they arrive with the next events, whatever filters, shortcuts
/// and dialogs then are in force.
namespace postedinput
{

/// The window that takes input: where no window manager makes one active, the one that can be seen. Null: none.
QWidget* activeWindow();

/// The key of a name such as "Return", "F5" or "Ctrl+A"; none when there is no such key.
std::optional<QKeyCombination> keyNamed(const QString& name);

/// Presses and releases a key in the window that is active. @return false when there is no such window
bool pressKey(QKeyCombination key);
/// Types a character.
bool typeCharacter(QChar character);
/// Clicks into the middle of a widget.
void click(QWidget& widget);

} // namespace postedinput
