// SPDX-License-Identifier: MIT
#pragma once

#include "export.h"

#include <QStringList>
#include <QWidget>

#include <memory>

/// The register's touch keyboard. Its keys go to the widget that has the focus; the keyboard itself takes none.
class REGISTERPLATFORM_EXPORT TalloKeyboard : public QWidget
{
    Q_OBJECT

public:
    explicit TalloKeyboard(QWidget* parent = nullptr);
    ~TalloKeyboard() override;

    /// The layouts to switch through, by comma: "ru", "en", "digits"; the first is shown. Unknown ones are passed over
    /// and logged; when none is left, "en" is shown.
    void setKeyboardLayouts(const QString& layouts);
    /// The layouts in use, in order.
    QStringList keyboardLayouts() const;
    /// The layout that is shown.
    QString currentLayout() const;

signals:
    /// The cashier switched to another layout. The event is of type QEvent::KeyboardLayoutChange, and lives only as
    /// long as the signal.
    void layoutChanged(QEvent* event);
    /// A key was pressed and has been delivered.
    void keyPressed();

private:
    class Private;
    std::unique_ptr<Private> d;
};
