// SPDX-License-Identifier: MIT
#pragma once

#include <QEvent>
#include <QString>
#include <QWidget>

class QLabel;

/// The line at the bottom of the window: a message, the plug-ins, the keyboard layout and the clock.
class StatusLine : public QWidget
{
    Q_OBJECT

public:
    explicit StatusLine(QWidget* parent = nullptr);

    /// Shows a permanent message; empty: none.
    void showMessage(const QString& text);
    /// Shows one more problem of the configuration, before the permanent message.
    void addProblem(const QString& text);
    /// Shows what was done, in large letters, in place of the permanent message until dropNews().
    void showDone(const QString& text);
    /// Shows a warning on amber, in place of the permanent message until dropNews().
    void showWarning(const QString& text);
    bool isWarningShown() const;
    /// Shows the permanent message again.
    void dropNews();

    /// @param details the tool tip
    void showPlugins(const QString& text, const QString& details);

private:
    void showTime();
    void onIconsChanged(QEvent::Type type, QObject* source);
    QLabel* addLabel(const QString& name, int stretch);
    void show(const QString& text, const char* textRole);

    QStringList m_problems;
    QString m_permanentMessage;
    QLabel* m_message;
    QLabel* m_plugins;
    QLabel* m_keyboardLayout;
    QLabel* m_clock;
};
