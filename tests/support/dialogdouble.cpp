// SPDX-License-Identifier: MIT
#include "dialogdouble.h"

class DialogDouble::Dialogs : public Dialog
{
public:
    explicit Dialogs(DialogDouble& owner)
        : m_owner(owner)
    {
    }

    void showMessage(const tr::Tr& text, int kind, int sound, int seconds) override
    {
        const Message message{text, text.ui(), kind, sound, seconds};
        m_owner.m_messages.append(message);
        if (m_owner.onMessage) {
            m_owner.onMessage(message);
        }
    }

    core::BasicDialog::Result showTextInput(const TextInputParams& params) override
    {
        return m_owner.onTextInput ? m_owner.onTextInput(params) : Dialog::showTextInput(params);
    }

private:
    DialogDouble& m_owner;
};

DialogDouble::DialogDouble()
    : m_mocked([this] { return QSharedPointer<Dialogs>::create(*this); })
{
}
