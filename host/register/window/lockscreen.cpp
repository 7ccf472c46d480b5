// SPDX-License-Identifier: MIT
#include "lockscreen.h"

#include "basicform.h"
#include "registerstyle.h"
#include "tallokeyboard.h"

#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

LockScreen::LockScreen(const QString& code, QWidget* parent)
    : QWidget(parent)
    , m_code(code)
{
    setObjectName(u"lockScreen"_s);
    setAccessibleName(tr::Tr(u"lockTitle"_s, u"Касса заблокирована"_s).ui());
    setFocusPolicy(Qt::StrongFocus);
    setAutoFillBackground(true);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 16, 16, 16);
    layout->setSpacing(16);
    layout->addStretch();
    auto* title = new QLabel(accessibleName(), this);
    title->setObjectName(u"titleLabel"_s);
    title->setAlignment(Qt::AlignCenter);
    layout->addWidget(title);
    m_hint = new QLabel(this);
    m_hint->setObjectName(u"lockHintLabel"_s);
    m_hint->setAlignment(Qt::AlignCenter);
    layout->addWidget(m_hint);
    if (!m_code.isEmpty()) {
        createCodeInput(this);
    }
    layout->addStretch();
    hide();
}

void LockScreen::createCodeInput(QWidget* column)
{
    auto* layout = static_cast<QVBoxLayout*>(column->layout());
    m_input = new QLineEdit(column);
    m_input->setObjectName(u"unlockLineEdit"_s);
    m_input->setAccessibleName(tr::Tr(u"lockCode"_s, u"Код кассира"_s).ui());
    m_input->setEchoMode(QLineEdit::Password);
    m_input->setFixedWidth(240);
    connect(m_input, &QLineEdit::returnPressed, this, &LockScreen::tryCode);
    auto* button = new QPushButton(tr::Tr(u"lockUnlock"_s, u"Разблокировать"_s).ui(), column);
    button->setObjectName(u"unlockButton"_s);
    button->setAccessibleName(button->text());
    button->setProperty("primary", true);
    button->setFixedWidth(240);
    connect(button, &QPushButton::clicked, this, &LockScreen::tryCode);
    layout->addWidget(m_input, 0, Qt::AlignHCenter);
    layout->addWidget(button, 0, Qt::AlignHCenter);
    if (BasicForm::isTouchMode()) {
        auto* keypad = new TalloKeyboard(column);
        keypad->setObjectName(u"unlockKeyboard"_s);
        keypad->setKeyboardLayouts(u"digits"_s);
        layout->addWidget(keypad, 0, Qt::AlignHCenter);
    }
    setFocusProxy(m_input);
}

void LockScreen::lock()
{
    showHint(m_input ? tr::Tr(u"lockEnterCode"_s, u"Введите код кассира"_s)
                     : tr::Tr(u"lockPressKey"_s, u"Нажмите любую клавишу или коснитесь экрана"_s),
             "hint");
    setGeometry(parentWidget()->rect());
    show();
    raise();
    setFocus();
}

void LockScreen::keyPressEvent(QKeyEvent*)
{
    if (!m_input) {
        unlock();
    }
}

void LockScreen::mousePressEvent(QMouseEvent*)
{
    if (!m_input) {
        unlock();
    }
}

void LockScreen::tryCode()
{
    const bool right = m_input->text() == m_code;
    m_input->clear();
    if (right) {
        unlock();
        return;
    }
    showHint(tr::Tr(u"lockWrongCode"_s, u"Код не подходит. Введите ещё раз."_s), "error");
    m_input->setFocus();
}

void LockScreen::showHint(const tr::Tr& hint, const char* textRole)
{
    m_hint->setText(hint.ui());
    setStyleProperty(*m_hint, u"textRole"_s, QLatin1StringView(textRole));
}

void LockScreen::unlock()
{
    hide();
    emit unlocked();
}
