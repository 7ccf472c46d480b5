// SPDX-License-Identifier: MIT
#pragma once

#include <QEvent>
#include <QString>
#include <QWidget>

class QLabel;

/// The line at the bottom of the window: a message, the plug-ins, the keyboard's layout and the clock.
class StatusLine : public QWidget
{
    Q_OBJECT

public:
    explicit StatusLine(QWidget* parent = nullptr);

    void showMessage(const QString& text);
    /// @param details the tool tip
    void showPlugins(const QString& text, const QString& details);

private:
    void showTime();
    void onIconsChanged(QEvent::Type type, QObject* source);
    QLabel* addLabel(const QString& name, int stretch);

    QLabel* m_message;
    QLabel* m_plugins;
    QLabel* m_keyboardLayout;
    QLabel* m_clock;
};
