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

    /// A message that stands for good; empty: none.
    void showMessage(const QString& text);
    /// What has been done, in large letters, instead of the message, until dropNews().
    void showDone(const QString& text);
    /// What the cashier has to see to, on amber, instead of the message, until dropNews().
    void showWarning(const QString& text);
    bool isWarningShown() const;
    void dropNews();

    /// @param details the tool tip
    void showPlugins(const QString& text, const QString& details);

private:
    void showTime();
    void onIconsChanged(QEvent::Type type, QObject* source);
    QLabel* addLabel(const QString& name, int stretch);
    void show(const QString& text, const char* textRole);

    QString m_standingMessage;
    QLabel* m_message;
    QLabel* m_plugins;
    QLabel* m_keyboardLayout;
    QLabel* m_clock;
};
