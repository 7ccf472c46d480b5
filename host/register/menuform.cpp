// SPDX-License-Identifier: MIT
#include "menuform.h"

#include "dialogeventfilter.h"
#include "formanswer.h"

#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <functional>

MenuForm::MenuForm(const MenuParams& params, QObject* parent)
    : BasicDialogForm(parent)
{
    loadUI(QStringLiteral("menu.ui"));
    setTitle(tr::Tr(QStringLiteral("menuTitle"), QStringLiteral("Меню")).ui());
    for (const MenuParams::Entry& entry : params.entries)
        addEntry(entry);
    auto* leave = findWidget<QPushButton>(QStringLiteral("cancelButton"));
    leave->setText(tr::Tr(QStringLiteral("menuCancel"), QStringLiteral("Назад")).ui());
    leave->setAccessibleName(leave->text());
    connect(leave, &QPushButton::clicked, this, &BasicForm::dismissed);
    rootWidget()->installEventFilter(new DialogEventFilter(this));
    rootWidget()->installEventFilter(this);
}

void MenuForm::addEntry(const MenuParams::Entry& entry)
{
    auto* entries = findWidget<QWidget>(QStringLiteral("entries"));
    const auto index = static_cast<int>(m_entries.size());
    const QString number = QString::number(index + 1);
    auto* button = new QPushButton(entries);
    button->setObjectName(entry.command.name);
    button->setText(entry.obstacle.isEmpty()
                        ? QStringLiteral("%1. %2").arg(number, entry.command.text)
                        : QStringLiteral("%1. %2 — %3").arg(number, entry.command.text, entry.obstacle));
    button->setAccessibleName(button->text());
    button->setEnabled(entry.obstacle.isEmpty());
    button->setAutoDefault(false);
    button->setStyleSheet(QStringLiteral("text-align: left"));
    connect(button, &QPushButton::clicked, this, [index] { answerForm(QStringLiteral("entry"), index); });
    entries->layout()->addWidget(button);
    m_entries.append(button);
}

void MenuForm::show()
{
    BasicDialogForm::show();
    const auto possible = std::find_if(m_entries.cbegin(), m_entries.cend(), std::mem_fn(&QWidget::isEnabled));
    if (possible != m_entries.cend())
        (*possible)->setFocus();
}

bool MenuForm::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress && chooseByDigit(*static_cast<QKeyEvent*>(event)))
        return true;
    return BasicDialogForm::eventFilter(watched, event);
}

bool MenuForm::chooseByDigit(const QKeyEvent& key)
{
    const int number = key.key() - Qt::Key_0;
    if (key.isAutoRepeat() || number < 1 || number > m_entries.size())
        return false;
    m_entries.at(number - 1)->click(); // does nothing when it is not possible
    return true;
}
