// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

/// Darkens the window below a dialog and takes its clicks; keeps the dialog in the middle, within the window.
///
/// A sibling right below the dialog; it goes when the dialog goes, and hides and shows with it.
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
