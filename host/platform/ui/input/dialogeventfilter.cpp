// SPDX-License-Identifier: MIT
#include "dialogeventfilter.h"

#include "defaultbutton_p.h"

#include <QAbstractButton>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QMetaMethod>
#include <QPushButton>

namespace
{

bool isPlain(const QKeyEvent& key)
{
    return !(key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
}

/// True for a key that writes or deletes text.
bool isTyping(const QKeyEvent& key)
{
    return isPlain(key) && (key.key() == Qt::Key_Backspace || (!key.text().isEmpty() && key.text().front().isPrint()));
}

bool movesRow(int key)
{
    return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp || key == Qt::Key_PageDown;
}

} // namespace

DialogEventFilter::DialogEventFilter(QObject* parent)
    : QObject(parent)
{
}

void DialogEventFilter::setTableView(TalloTableView* view)
{
    if (m_tableView) {
        m_tableView->removeEventFilter(this);
        disconnect(m_tableView, nullptr, this, nullptr);
    }
    m_tableView = view;
    if (!view) {
        return;
    }
    view->installEventFilter(this);
    connect(view, &QAbstractItemView::doubleClicked, this, &DialogEventFilter::ok);
}

void DialogEventFilter::setLineEdit(TalloLineEdit* edit)
{
    if (m_lineEdit) {
        m_lineEdit->removeEventFilter(this);
    }
    m_lineEdit = edit;
    if (edit) {
        edit->installEventFilter(this);
    }
}

bool DialogEventFilter::eventFilter(QObject* watched, QEvent* event)
{
    auto* widget = qobject_cast<QWidget*>(watched);
    if (!widget) {
        return false;
    }
    if (event->type() == QEvent::Close) {
        event->ignore();
        return cancelHeard();
    }
    if (event->type() != QEvent::KeyPress) {
        return false;
    }

    auto& key = *static_cast<QKeyEvent*>(event);
    switch (key.key()) {
    case Qt::Key_Escape:
        return key.isAutoRepeat() || cancelHeard();
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return isPlain(key) && (key.isAutoRepeat() || confirm(*widget));
    default:
        break;
    }
    if (watched == m_lineEdit && m_tableView && isPlain(key) && movesRow(key.key())) {
        return passOn(key, *m_tableView);
    }
    if (watched == m_tableView && m_lineEdit && m_lineEdit->isEnabled() && !m_lineEdit->isReadOnly() && isTyping(key)) {
        m_lineEdit->setFocus();
        return passOn(key, *m_lineEdit);
    }
    return false;
}

bool DialogEventFilter::cancelHeard()
{
    static const QMetaMethod cancelSignal = QMetaMethod::fromSignal(&DialogEventFilter::cancel);
    if (!isSignalConnected(cancelSignal)) {
        return false;
    }
    emit cancel();
    return true;
}

bool DialogEventFilter::confirm(QWidget& widget)
{
    if (auto* button = qobject_cast<QAbstractButton*>(widget.focusWidget())) {
        button->click();
        return true;
    }
    static const QMetaMethod okSignal = QMetaMethod::fromSignal(&DialogEventFilter::ok);
    if (isSignalConnected(okSignal)) {
        emit ok();
        return true;
    }
    // Only the root has the whole form below it. A field or a table passes the key on to it.
    QPushButton* button = defaultButton(widget);
    if (!button) {
        return false;
    }
    button->click();
    return true;
}

bool DialogEventFilter::passOn(const QKeyEvent& key, QWidget& receiver)
{
    QKeyEvent copy(QEvent::KeyPress, key.key(), key.modifiers() & Qt::KeypadModifier, key.text(), key.isAutoRepeat());
    QCoreApplication::sendEvent(&receiver, &copy);
    return true;
}
