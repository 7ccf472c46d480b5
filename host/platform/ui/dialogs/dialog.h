// SPDX-License-Identifier: MIT
#pragma once

#include "basicdialog.h"
#include "export.h"
#include "mockfactory.h"
#include "textinputparams.h"
#include "tr.h"

class Dialog;
extern template struct REGISTERPLATFORM_EXPORT MockFactory<Dialog>;

/// The register's own dialogs.
class REGISTERPLATFORM_EXPORT Dialog : public MockFactory<Dialog>
{
public:
    enum MessageKind : int {
        Error = 1,
        Notice = 2,
    };

    Dialog() = default;
    virtual ~Dialog();
    Q_DISABLE_COPY_MOVE(Dialog)

    /// Shows a text until the cashier confirms it. During long work the busy screen pauses, so that the text is seen.
    /// Above the text stands what a WorkStep is about, below it the step's advice. An empty text gets a text.
    ///
    /// @param kind a value of MessageKind
    /// @param sound 1: with a beep, 0: silent
    /// @param seconds after which the message closes by itself; 0: never
    virtual void showMessage(const tr::Tr& text, int kind, int sound, int seconds);

    /// Asks for a line of text. After OK the result's data is the text, which may be empty. After a cancel there is no
    /// data, and the result is canceled().
    virtual core::BasicDialog::Result showTextInput(const TextInputParams& params);
};
