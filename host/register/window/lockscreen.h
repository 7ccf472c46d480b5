// SPDX-License-Identifier: MIT
#pragma once

#include "tr.h"

#include <QWidget>

class QLabel;
class QLineEdit;

/// Covers the window after a time without input, until the cashier comes back.
///
/// With a code configured ("Register:unlockCode") it has to be typed; without one any key or touch will do.
class LockScreen : public QWidget
{
    Q_OBJECT

public:
    /// @param code empty: none is asked for
    LockScreen(const QString& code, QWidget* parent);

    void lock();

signals:
    void unlocked();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    void createCodeInput(QWidget* column);
    void tryCode();
    void unlock();
    /// @param textRole the style sheet's name for what the hint is: "hint" or "error"
    void showHint(const tr::Tr& hint, const char* textRole);

    QString m_code;
    QLabel* m_hint;
    QLineEdit* m_input = nullptr;
};
