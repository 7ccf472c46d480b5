// SPDX-License-Identifier: MIT
#pragma once

#include "tr.h"

#include <QWidget>

class QLabel;
class QLineEdit;

/// Covers the window after a time without input, until the cashier comes back.
///
/// The cashier types the code `Register:unlockCode`; when none is configured, any key or touch unlocks.
class LockScreen : public QWidget
{
    Q_OBJECT

public:
    /// @param code empty: any key or touch unlocks
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
    /// @param textRole the role in the style sheet: "hint" or "error"
    void showHint(const tr::Tr& hint, const char* textRole);

    QString m_code;
    QLabel* m_hint;
    QLineEdit* m_input = nullptr;
};
