// SPDX-License-Identifier: MIT
#pragma once

#include "basicform.h"
#include "export.h"

#include <QVariant>

/// A form in a frame of its own, in the middle of the window, above the screen below. Other forms fill the window.
class REGISTERPLATFORM_EXPORT BasicDialogForm : public BasicForm
{
    Q_OBJECT

public:
    explicit BasicDialogForm(QObject* parent);

    void show() override;
    /// Asks the form to end. It answers as after Esc.
    virtual void close();
    /// True when nothing below the form takes input.
    virtual bool isModalDialog() const;
    /// Sets a dynamic property of the root widget. Style sheets can select by it.
    virtual void setCustomProperty(const QString& name, const QVariant& value);
    /// Sets the text of "titleLabel" and the window title.
    virtual void setTitle(const QString& title);

protected:
    /// Makes the scroll area "messageScrollArea" as large as the text of "messageLabel" in it. A higher text scrolls.
    /// To be called before show() of this class.
    /// @param tallest the greatest height of the area, in pixels
    void fitMessage(int tallest);
};
