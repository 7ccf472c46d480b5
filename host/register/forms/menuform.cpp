// SPDX-License-Identifier: MIT
#include "menuform.h"

#include "dialogeventfilter.h"
#include "formanswer.h"
#include "scanrecognizer.h"

#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <functional>

using namespace Qt::StringLiterals;

namespace
{
/// Twice the gap between a scanner's keys, since they may be delivered late.
constexpr auto quietTime = 2 * ScanRecognizer::longestGap;
} // namespace

MenuForm::MenuForm(const MenuParams& params, QObject* parent)
    : BasicDialogForm(parent)
{
    loadUI(u"menu.ui"_s);
    setTitle(tr::Tr(u"menuTitle"_s, u"Меню"_s).ui());
    for (const MenuParams::Entry& entry : params.entries) {
        addEntry(entry);
    }
    auto* leave = findWidget<QPushButton>(u"cancelButton"_s);
    leave->setText(tr::Tr(u"menuCancel"_s, u"Назад"_s).ui());
    leave->setAccessibleName(leave->text());
    connect(leave, &QPushButton::clicked, this, &BasicForm::dismissed);
    m_quiet.setSingleShot(true);
    m_quiet.setInterval(quietTime);
    connect(&m_quiet, &QTimer::timeout, this, &MenuForm::chooseByDigit);
    rootWidget()->installEventFilter(new DialogEventFilter(this));
    rootWidget()->installEventFilter(this);
}

void MenuForm::addEntry(const MenuParams::Entry& entry)
{
    auto* entries = findWidget<QWidget>(u"entries"_s);
    const auto index = int(m_entries.size());
    const QString number = QString::number(index + 1);
    auto* button = new QPushButton(entries);
    button->setObjectName(entry.command.name);
    button->setText(entry.obstacle ? u"%1. %2 — %3"_s.arg(number, entry.command.text, entry.obstacle->shortest().ui())
                                   : u"%1. %2"_s.arg(number, entry.command.text));
    button->setAccessibleName(button->text());
    button->setEnabled(!entry.obstacle);
    button->setAutoDefault(false);
    button->setStyleSheet(u"text-align: left"_s);
    connect(button, &QPushButton::clicked, this, [index] { answerForm(u"entry"_s, index); });
    entries->layout()->addWidget(button);
    m_entries.append(button);
}

void MenuForm::show()
{
    BasicDialogForm::show();
    const auto possible = std::find_if(m_entries.cbegin(), m_entries.cend(), std::mem_fn(&QWidget::isEnabled));
    if (possible != m_entries.cend()) {
        (*possible)->setFocus();
    }
}

bool MenuForm::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress && takeDigit(*static_cast<QKeyEvent*>(event))) {
        return true;
    }
    return BasicDialogForm::eventFilter(watched, event);
}

/// Only a single digit is the cashier's: a scanner sends many.
bool MenuForm::takeDigit(const QKeyEvent& key)
{
    const int number = key.key() - Qt::Key_0;
    const bool isEntry = !key.isAutoRepeat() && number >= 1 && number <= m_entries.size();
    m_digit = isEntry && !m_quiet.isActive() ? number : 0;
    m_quiet.start();
    return isEntry;
}

void MenuForm::chooseByDigit()
{
    if (m_digit > 0) {
        m_entries.at(m_digit - 1)->click(); // does nothing when the button is disabled
    }
}
