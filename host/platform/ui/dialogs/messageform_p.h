// SPDX-License-Identifier: MIT
#pragma once

#include "basicdialogform.h"
#include "event.h"

/// A text that the cashier confirms, by Esc, Return or the button.
class MessageForm : public BasicDialogForm
{
    Q_OBJECT

public:
    /// @param event "message" (tr::Tr), "kind" (Dialog::MessageKind), "seconds" after which the form closes by itself
    /// (0: never), "about" and "advice" (QString) for the lines above and below the text
    explicit MessageForm(const Event& event, QObject* parent = nullptr);

    void show() override;

private:
    int m_seconds;
};
