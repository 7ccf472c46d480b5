// SPDX-License-Identifier: MIT
#pragma once

#include "dialog.h"
#include "mocked.h"

#include <QList>
#include <QString>

#include <functional>

/// Takes the place of the register's dialogs for as long as it lives. Messages are kept instead of shown.
class DialogDouble
{
public:
    struct Message {
        tr::Tr tr;
        QString text; ///< as the cashier would read it
        int kind;     ///< a value of Dialog::MessageKind
        int sound;    ///< 1: with a signal tone, 0: silent
        int seconds;  ///< until it closes by itself; 0: never
    };

    DialogDouble();

    /// Every message so far, the first one first.
    const QList<Message>& messages() const { return m_messages; }

    /// Called for each message after it is kept; the message is on the screen until it returns. May throw.
    std::function<void(const Message&)> onMessage;
    /// Answers each text input. While it is empty the register's own text input is shown.
    std::function<core::BasicDialog::Result(const TextInputParams&)> onTextInput;

private:
    class Dialogs;

    QList<Message> m_messages;
    Mocked<Dialog> m_mocked;
};
