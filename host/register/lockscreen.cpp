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

LockScreen::LockScreen(const QString& code, QWidget* parent)
    : QWidget(parent)
    , m_code(code)
{
    setObjectName(QStringLiteral("lockScreen"));
    setAccessibleName(tr::Tr(QStringLiteral("lockTitle"), QStringLiteral("Касса заблокирована")).ui());
    setFocusPolicy(Qt::StrongFocus);
    setAutoFillBackground(true);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 16, 16, 16);
    layout->setSpacing(16);
    layout->addStretch();
    auto* title = new QLabel(accessibleName(), this);
    title->setObjectName(QStringLiteral("titleLabel"));
    title->setAlignment(Qt::AlignCenter);
    layout->addWidget(title);
    m_hint = new QLabel(this);
    m_hint->setObjectName(QStringLiteral("lockHintLabel"));
    m_hint->setAlignment(Qt::AlignCenter);
    layout->addWidget(m_hint);
    if (!m_code.isEmpty())
        createCodeInput(this);
    layout->addStretch();
    hide();
}

void LockScreen::createCodeInput(QWidget* column)
{
    auto* layout = static_cast<QVBoxLayout*>(column->layout());
    m_input = new QLineEdit(column);
    m_input->setObjectName(QStringLiteral("unlockLineEdit"));
    m_input->setAccessibleName(tr::Tr(QStringLiteral("lockCode"), QStringLiteral("Код кассира")).ui());
    m_input->setEchoMode(QLineEdit::Password);
    m_input->setFixedWidth(240);
    connect(m_input, &QLineEdit::returnPressed, this, &LockScreen::tryCode);
    auto* button = new QPushButton(tr::Tr(QStringLiteral("lockUnlock"), QStringLiteral("Разблокировать")).ui(), column);
    button->setObjectName(QStringLiteral("unlockButton"));
    button->setAccessibleName(button->text());
    button->setProperty("primary", true);
    button->setFixedWidth(240);
    connect(button, &QPushButton::clicked, this, &LockScreen::tryCode);
    layout->addWidget(m_input, 0, Qt::AlignHCenter);
    layout->addWidget(button, 0, Qt::AlignHCenter);
    if (BasicForm::isTouchMode()) {
        auto* keypad = new TalloKeyboard(column);
        keypad->setObjectName(QStringLiteral("unlockKeyboard"));
        keypad->setKeyboardLayouts(QStringLiteral("digits"));
        layout->addWidget(keypad, 0, Qt::AlignHCenter);
    }
    setFocusProxy(m_input);
}

void LockScreen::lock()
{
    showHint(m_input
                 ? tr::Tr(QStringLiteral("lockEnterCode"), QStringLiteral("Введите код кассира"))
                 : tr::Tr(QStringLiteral("lockPressKey"), QStringLiteral("Нажмите любую клавишу или коснитесь экрана")),
             "hint");
    setGeometry(parentWidget()->rect());
    show();
    raise();
    setFocus();
}

void LockScreen::keyPressEvent(QKeyEvent*)
{
    if (!m_input)
        unlock();
}

void LockScreen::mousePressEvent(QMouseEvent*)
{
    if (!m_input)
        unlock();
}

void LockScreen::tryCode()
{
    const bool right = m_input->text() == m_code;
    m_input->clear();
    if (right) {
        unlock();
        return;
    }
    showHint(tr::Tr(QStringLiteral("lockWrongCode"), QStringLiteral("Код не подходит. Введите ещё раз.")), "error");
    m_input->setFocus();
}

void LockScreen::showHint(const tr::Tr& hint, const char* textRole)
{
    m_hint->setText(hint.ui());
    setStyleProperty(*m_hint, QStringLiteral("textRole"), QLatin1String(textRole));
}

void LockScreen::unlock()
{
    hide();
    emit unlocked();
}
