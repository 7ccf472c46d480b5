// SPDX-License-Identifier: MIT
#pragma once

#include "basicdialogform.h"
#include "event.h"

/// A text that the cashier confirms. Esc, Return and the button are all the same to it.
class MessageForm : public BasicDialogForm
{
    Q_OBJECT

public:
    /// @param event "message" (tr::Tr), "kind" (Dialog::MessageKind), "seconds" after which it goes by itself (0:
    /// never)
    explicit MessageForm(const Event& event, QObject* parent = nullptr);

    void show() override;

private:
    int m_seconds;
};
