// SPDX-License-Identifier: MIT
#pragma once

#include "dialog.h"

#include <QList>
#include <QSharedPointer>
#include <QString>

/// Collects the messages that the cashier would see, instead of showing them, for as long as it lives.
class ShownMessages
{
public:
    struct Message {
        QString text;
        int kind;
        int sound;
        int seconds;
    };

    ShownMessages()
    {
        MockFactory<Dialog>::mocked = [this] { return QSharedPointer<Recorder>::create(m_messages); };
    }
    ~ShownMessages() { MockFactory<Dialog>::mocked = nullptr; }
    ShownMessages(const ShownMessages&) = delete;
    ShownMessages& operator=(const ShownMessages&) = delete;

    const QList<Message>& all() const { return m_messages; }

private:
    class Recorder : public Dialog
    {
    public:
        explicit Recorder(QList<Message>& messages)
            : m_messages(messages)
        {
        }
        void showMessage(const tr::Tr& text, int kind, int sound, int seconds) override
        {
            m_messages.append({text.ui(), kind, sound, seconds});
        }

    private:
        QList<Message>& m_messages;
    };

    QList<Message> m_messages;
};
