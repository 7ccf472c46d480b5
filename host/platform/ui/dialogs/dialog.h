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
    Dialog(const Dialog&) = delete;
    Dialog& operator=(const Dialog&) = delete;

    /// Shows a text until the cashier confirms it. During long work it pauses the busy screen and takes input.
    ///
    /// @param kind a value of MessageKind
    /// @param sound 1: with a signal tone, 0: silent
    /// @param seconds closes by itself after that many seconds; 0: never
    virtual void showMessage(const tr::Tr& text, int kind, int sound, int seconds);

    /// Asks for a line of text. OK gives the text as data, also an empty one; cancel gives no data and canceled().
    virtual core::BasicDialog::Result showTextInput(const TextInputParams& params);
};
