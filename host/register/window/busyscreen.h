// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <QTimer>
#include <QWidget>

class QLabel;

/// Covers the window during long work, with a message and a turning ring. It keeps the focus until the work ends.
class BusyScreen : public QWidget
{
    Q_OBJECT

public:
    explicit BusyScreen(QWidget* parent);

    /// Takes the focus, and gives it back when the work ends.
    void takeFocus();
    /// Hides it while a form is above it.
    void setCovered(bool covered);

public slots:
    /// Shows it above everything and paints it at once, since the work may block the event loop.
    void start(const QString& message);
    void stop();

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    QLabel* m_message;
    QPointer<QWidget> m_focusBefore;
    QTimer m_turning;
    int m_angle = 0;
    bool m_isWorking = false;
};
