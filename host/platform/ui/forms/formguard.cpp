// SPDX-License-Identifier: MIT
#include "formguard_p.h"

#include "basicform.h"

#include <QAbstractButton>
#include <QKeyEvent>

FormGuard::FormGuard(BasicForm& form)
    : QObject(&form)
    , m_form(form)
{
}

void FormGuard::watch(QWidget& root)
{
    root.installEventFilter(this);
    for (QAbstractButton* button : root.findChildren<QAbstractButton*>()) {
        button->installEventFilter(this);
    }
}

bool FormGuard::eventFilter(QObject* watched, QEvent* event)
{
    const bool isRoot = watched == m_form.rootWidget();
    if (isRoot && event->type() == QEvent::Close) {
        event->ignore();
        emit m_form.dismissed();
        return true;
    }
    if (event->type() != QEvent::KeyPress) {
        return false;
    }

    const auto* key = static_cast<QKeyEvent*>(event);
    if (isRoot && key->key() == Qt::Key_Escape) {
        if (!key->isAutoRepeat()) {
            emit m_form.dismissed();
        }
        return true;
    }
    return !isRoot && key->isAutoRepeat() && (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter);
}
