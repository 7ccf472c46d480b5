// SPDX-License-Identifier: MIT
#pragma once

#include "worklimit.h"

#include <QPointer>
#include <QString>
#include <QTimer>
#include <QWidget>

class QLabel;
class RunningRequest;
class WrappedLabel;

/// Covers the window during long work, with a message and a turning ring: what is done, since when, how long it takes
/// at most, and what Esc does, in touch mode a tap on the hint. It keeps the focus until the work ends.
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
    /// @param limit how long the work takes at most; shown unless a request with a limit of its own runs
    void start(const QString& message, const WorkLimit& limit = {});
    void stop();

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void fillPanel();
    WrappedLabel* addText(const QString& name, int lines);
    /// Shows what is known now of the step and of its request.
    void showProgress();
    /// Stops a request that changes nothing; asks first for any other one.
    void stopWaiting(RunningRequest& request);

    QWidget* m_panel;
    WrappedLabel* m_message = nullptr;
    WrappedLabel* m_step = nullptr;
    WrappedLabel* m_time = nullptr;
    WrappedLabel* m_hint = nullptr;
    QPointer<QWidget> m_focusBefore;
    QTimer m_turning;
    QString m_since; ///< when the work began, as it is shown
    WorkLimit m_limit;
    int m_angle = 0;
    bool m_isWorking = false;
};
