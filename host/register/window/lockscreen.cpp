// SPDX-License-Identifier: MIT
#include "lockscreen.h"

#include "basicform.h"
#include "registerstyle.h"
#include "scanfilter.h"
#include "tallokeyboard.h"

#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace
{

const QString digits = u"digits"_s;
const QString allCharacters = u"ru,en,symbols"_s;
/// In the smallest window, in pixels.
constexpr int widthOfInput = 240;
constexpr int widthOfLetters = 720;

} // namespace

LockScreen::LockScreen(const QString& code, const LockState& state, QWidget* parent)
    : QWidget(parent)
    , m_code(code)
    , m_state(state)
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
    m_countdown.setInterval(std::chrono::seconds(1));
    connect(&m_countdown, &QTimer::timeout, this, &LockScreen::prompt);
    hide();
}

bool LockScreen::canBeTyped(const QString& code)
{
    return TalloKeyboard::canType(code, allCharacters);
}

void LockScreen::createCodeInput(QWidget* column)
{
    auto* layout = static_cast<QVBoxLayout*>(column->layout());
    m_input = new QLineEdit(column);
    m_input->setObjectName(u"unlockLineEdit"_s);
    m_input->setAccessibleName(tr::Tr(u"lockCode"_s, u"Код кассира"_s).ui());
    m_input->setEchoMode(QLineEdit::Password);
    m_input->setFixedWidth(scaledPixels(widthOfInput));
    connect(m_input, &QLineEdit::returnPressed, this, &LockScreen::tryCode);
    connect(new ScanFilter(*m_input), &ScanFilter::scanned, this, [this](const QString& badge) {
        m_input->setText(badge);
        tryCode();
    });
    auto* button = new QPushButton(tr::Tr(u"lockUnlock"_s, u"Разблокировать"_s).ui(), column);
    button->setObjectName(u"unlockButton"_s);
    button->setAccessibleName(button->text());
    button->setProperty("primary", true);
    button->setFixedWidth(scaledPixels(widthOfInput));
    connect(button, &QPushButton::clicked, this, &LockScreen::tryCode);
    layout->addWidget(m_input, 0, Qt::AlignHCenter);
    layout->addWidget(button, 0, Qt::AlignHCenter);
    if (BasicForm::isTouchMode()) {
        createKeyboard(column);
    }
    setFocusProxy(m_input);
}

void LockScreen::createKeyboard(QWidget* column)
{
    auto* keyboard = new TalloKeyboard(column);
    keyboard->setObjectName(u"unlockKeyboard"_s);
    if (TalloKeyboard::canType(m_code, digits)) {
        keyboard->setKeyboardLayouts(digits);
    } else {
        keyboard->setKeyboardLayouts(allCharacters);
        keyboard->setFixedWidth(scaledPixels(widthOfLetters));
    }
    static_cast<QVBoxLayout*>(column->layout())->addWidget(keyboard, 0, Qt::AlignHCenter);
}

void LockScreen::lock()
{
    if (!isLocked()) {
        m_state.lock();
    }
    prompt();
    setGeometry(parentWidget()->rect());
    show();
    raise();
    setFocus();
}

void LockScreen::refuseClosing()
{
    showHint({u"lockRefusesClosing"_s, u"Касса заблокирована. Введите код кассира, затем закройте окно."_s}, "error");
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
    if (m_state.wait().count() > 0) {
        prompt();
        return;
    }
    const QString code = m_input->text();
    m_input->clear();
    m_input->setFocus();
    if (code == m_code) {
        unlock();
    } else if (!code.isEmpty()) {
        m_state.countWrongTry();
        refuse(code);
    }
}

/// Only what was typed decides on the words: the right code must not show in them.
void LockScreen::refuse(const QString& typed)
{
    const bool dependsOnLayout = !TalloKeyboard::canType(typed, digits);
    if (m_state.wait().count() == 0) {
        showHint(dependsOnLayout ? tr::Tr(u"lockWrongCodeLayout"_s,
                                          u"Код не подходит. Проверьте раскладку клавиатуры и введите ещё раз."_s)
                                 : tr::Tr(u"lockWrongCode"_s, u"Код не подходит. Введите ещё раз."_s),
                 "error");
        return;
    }
    countDown(dependsOnLayout
                  ? tr::Tr(u"lockWrongCodeLayoutWait"_s,
                           u"Код не подходит. Проверьте раскладку клавиатуры. Следующая попытка через %1 с."_s)
                  : tr::Tr(u"lockWrongCodeWait"_s, u"Код не подходит. Следующая попытка через %1 с."_s));
}

void LockScreen::prompt()
{
    if (!m_input) {
        showHint({u"lockPressKey"_s, u"Нажмите любую клавишу или коснитесь экрана"_s}, "hint");
    } else if (m_state.wait().count() > 0) {
        countDown({u"lockWait"_s, u"Неверный код вводили много раз. Следующая попытка через %1 с."_s});
    } else {
        m_countdown.stop();
        showHint({u"lockEnterCode"_s, u"Введите код кассира"_s}, "hint");
    }
}

void LockScreen::countDown(const tr::Tr& reason)
{
    showHint(reason.arg(QString::number(m_state.wait().count())), "error");
    m_countdown.start();
}

void LockScreen::showHint(const tr::Tr& hint, const char* textRole)
{
    m_hint->setText(hint.ui());
    setStyleProperty(*m_hint, u"textRole"_s, QLatin1StringView(textRole));
}

void LockScreen::unlock()
{
    m_countdown.stop();
    m_state.unlock();
    hide();
    emit unlocked();
}
