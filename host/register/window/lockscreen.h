// SPDX-License-Identifier: MIT
#pragma once

#include "lockstate.h"
#include "tr.h"

#include <QTimer>
#include <QWidget>

class QLabel;
class QLineEdit;

/// Covers the window after a time without input, until the cashier comes back.
///
/// The cashier types the code `Register:unlockCode`; when none is configured, any key or touch unlocks. Wrong codes
/// slow the next try down, see LockState::wait().
class LockScreen : public QWidget
{
    Q_OBJECT

public:
    /// @param code empty: any key or touch unlocks
    /// @param state as the register ended; when it is locked, lock() is to be called
    LockScreen(const QString& code, const LockState& state, QWidget* parent);

    /// True when the keyboard of touch mode has a key for every character of the code.
    static bool canBeTyped(const QString& code);

    /// Covers the parent, above all its children.
    void lock();
    bool isLocked() const { return m_state.isLocked(); }
    bool hasCode() const { return m_input != nullptr; }
    /// Says that the window cannot be closed before the code was typed.
    void refuseClosing();

signals:
    void unlocked();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    void createCodeInput(QWidget* column);
    void createKeyboard(QWidget* column);
    void tryCode();
    /// Says that the code is wrong. @param typed what was typed
    void refuse(const QString& typed);
    void unlock();
    /// Asks for the code, or says how long it is not taken.
    void prompt();
    /// Shows how long the next code is not taken. @param reason its %1 is the time in seconds
    void countDown(const tr::Tr& reason);
    /// @param textRole the role in the style sheet: "hint" or "error"
    void showHint(const tr::Tr& hint, const char* textRole);

    QString m_code;
    LockState m_state;
    QTimer m_countdown;
    QLabel* m_hint;
    QLineEdit* m_input = nullptr;
};
