// SPDX-License-Identifier: MIT
#include "tallolineedit.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>

namespace
{

/// With the Russian keyboard layout, the keys for comma and point type letters.
QString withPoints(QString text)
{
    for (const QChar character : {QChar(u','), QChar(u'б'), QChar(u'ю')}) {
        text.replace(character, u'.', Qt::CaseInsensitive);
    }
    return text;
}

} // namespace

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
        insert(withPoints(QGuiApplication::clipboard()->text()));
        event->accept();
        return;
    }
    const QString text = withPoints(event->text());
    if (text == event->text()) {
        QLineEdit::keyPressEvent(event);
        return;
    }
    QKeyEvent withPoint(event->type(), Qt::Key_Period, event->modifiers(), text, event->isAutoRepeat());
    QLineEdit::keyPressEvent(&withPoint);
    event->setAccepted(withPoint.isAccepted());
}
