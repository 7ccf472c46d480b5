// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

/// Darkens the window below a dialog, takes its clicks, and keeps the dialog in the middle of the window.
///
/// A sibling right below the dialog. It is shown, hidden and destroyed with the dialog.
class DialogShade : public QWidget
{
public:
    explicit DialogShade(QWidget& dialog);

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void place();

    QWidget& m_dialog;
};
