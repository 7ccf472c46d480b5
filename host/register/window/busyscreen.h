// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <QTimer>
#include <QWidget>

class QLabel;

/// Lies over the window while long work is done: what is being done, and a ring that turns. It holds the focus so long.
class BusyScreen : public QWidget
{
    Q_OBJECT

public:
    explicit BusyScreen(QWidget* parent);

    /// Hidden so long as something stands above it.
    void setCovered(bool covered);

public slots:
    /// Shows itself above everything and paints at once: the work may come before the next event.
    void start(const QString& message);
    void stop();

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void takeFocus();

    QLabel* m_message;
    QPointer<QWidget> m_focusBefore;
    QTimer m_turning;
    int m_angle = 0;
    bool m_isWorking = false;
};
