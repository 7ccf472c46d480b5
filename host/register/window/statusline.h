// SPDX-License-Identifier: MIT
#pragma once

#include <QEvent>
#include <QKeySequence>
#include <QString>
#include <QWidget>

class QLabel;
class QPushButton;
class QShortcut;
class WrappedLabel;

/// The line at the bottom of the window: a message, the plug-ins, the keyboard layout and the clock.
///
/// A message that does not fit ends in an ellipsis. Then, and where there is more to say, a button shows it whole.
class StatusLine : public QWidget
{
    Q_OBJECT

public:
    explicit StatusLine(QWidget* parent = nullptr);

    /// Shows a permanent message; empty: none.
    /// @param details what else the button shows; empty: nothing
    void showMessage(const QString& text, const QString& details = {});
    /// Shows one more problem of the configuration, after the permanent message.
    void addProblem(const QString& text);
    /// Shows warnings on amber, before the permanent message, until others are shown.
    void showStanding(const QStringList& warnings);
    /// Shows what was done, in large letters, in place of the permanent message until dropNews().
    void showDone(const QString& text);
    /// Shows a warning on amber, in place of the permanent message until dropNews().
    void showWarning(const QString& text);
    /// True while the message has more to say than is shown.
    bool isButtonShown() const;
    /// True for a place in the window's screen coordinates where the button is.
    bool isButtonAt(const QPoint& place) const;
    /// The shortcut of the button; empty when a function key has taken it.
    QKeySequence buttonKey() const;
    /// Leaves the button without a shortcut.
    void giveButtonKeyAway();
    /// True while showWarning() counts.
    bool isWarningShown() const { return m_isWarningShown; }
    /// Shows the permanent message again.
    void dropNews();

    /// @param details the tool tip
    void showPlugins(const QString& text, const QString& details);

signals:
    /// The cashier wants to read the whole message.
    void moreWanted(const QString& text);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void showTime();
    void onIconsChanged(QEvent::Type type, QObject* source);
    QLabel* addLabel(const QString& name, int stretch);
    QPushButton* addButton();
    void show(const QString& text, const char* textRole, const QString& details = {});
    void offerMore();

    QStringList m_standing;
    QStringList m_problems;
    QString m_permanentMessage;
    QString m_permanentDetails;
    QString m_details; ///< of the message that is shown
    bool m_isWarningShown = false;
    WrappedLabel* m_message;
    QPushButton* m_more;
    QShortcut* m_moreKey = nullptr;
    QLabel* m_plugins;
    QLabel* m_keyboardLayout;
    QLabel* m_clock;
};
