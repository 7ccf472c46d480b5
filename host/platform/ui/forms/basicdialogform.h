// SPDX-License-Identifier: MIT
#pragma once

#include "basicform.h"
#include "export.h"

#include <QVariant>

/// A form that stands above the screen below it, in a frame of its own, instead of filling the window.
class REGISTERPLATFORM_EXPORT BasicDialogForm : public BasicForm
{
    Q_OBJECT

public:
    explicit BasicDialogForm(QObject* parent);

    void show() override;
    /// Asks the form to end, as Esc does.
    virtual void close();
    /// True: nothing below the form takes input.
    virtual bool isModalDialog() const;
    /// Sets a dynamic property of the root widget, which style sheets can select by.
    virtual void setCustomProperty(const QString& name, const QVariant& value);
    /// Sets the text of "titleLabel" and the window title.
    virtual void setTitle(const QString& title);

protected:
    /// Makes the scroll area "messageScrollArea" as large as the text of "messageLabel" in it asks, up to a height; a
    /// longer text scrolls. To be called before show() of this class.
    void fitMessage(int tallest);
};
