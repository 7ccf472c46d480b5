// SPDX-License-Identifier: MIT
#pragma once

#include "export.h"

#include <QStringList>
#include <QWidget>

#include <memory>

/// The register's touch keyboard. It types into the widget that has the focus, and never takes the focus itself.
class REGISTERPLATFORM_EXPORT TalloKeyboard : public QWidget
{
    Q_OBJECT

public:
    explicit TalloKeyboard(QWidget* parent = nullptr);
    ~TalloKeyboard() override;

    /// Sets the layouts to switch between, separated by commas: "ru", "en", "symbols", "digits". The first one is
    /// shown. An unknown one is logged and passed over. When none is left, "en" is shown.
    void setKeyboardLayouts(const QString& layouts);
    /// The layouts in use, in order.
    QStringList keyboardLayouts() const;
    /// The layout that is shown.
    QString currentLayout() const;

    /// True when each character of the text is on one of these layouts.
    static bool canType(const QString& text, const QString& layouts);

signals:
    /// The cashier switched to another layout. The event is of type QEvent::KeyboardLayoutChange. It exists only during
    /// the signal.
    void layoutChanged(QEvent* event);
    /// A key was pressed and has been delivered.
    void keyPressed();

private:
    class Private;
    std::unique_ptr<Private> d;
};
