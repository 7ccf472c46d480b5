// SPDX-License-Identifier: MIT
#include "tallolineedit.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>

TalloLineEdit::TalloLineEdit(QWidget* parent)
    : QLineEdit(parent)
{
}

void TalloLineEdit::setNumeric(bool numeric)
{
    m_numeric = numeric;
    setInputMethodHints(numeric ? Qt::ImhFormattedNumbersOnly : Qt::ImhNone);
}

void TalloLineEdit::keyPressEvent(QKeyEvent* event)
{
    if (!m_numeric) {
        QLineEdit::keyPressEvent(event);
        return;
    }
    if (event->matches(QKeySequence::Paste) && !isReadOnly()) {
        insert(QGuiApplication::clipboard()->text().replace(u',', u'.'));
        event->accept();
        return;
    }
    if (!event->text().contains(u',')) {
        QLineEdit::keyPressEvent(event);
        return;
    }
    QKeyEvent withPoint(event->type(), Qt::Key_Period, event->modifiers(), event->text().replace(u',', u'.'),
                        event->isAutoRepeat());
    QLineEdit::keyPressEvent(&withPoint);
    event->setAccepted(withPoint.isAccepted());
}
