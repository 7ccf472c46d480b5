// SPDX-License-Identifier: MIT
#include "scanguard_p.h"

#include "graphicaluserinterface.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>

ScanGuard::ScanGuard(const GraphicalUserInterface& gui)
    : m_gui(gui)
    , m_recognizer(ScanRecognizer::configured())
{
    qApp->installEventFilter(this);
}

bool ScanGuard::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress || !watched->isWindowType()) {
        return false;
    }
    const auto scan = m_recognizer.take(*static_cast<QKeyEvent*>(event), {});
    if (scan) {
        replaceWith(scan->text);
    }
    return scan && !isScanExpected();
}

/// As if it was typed over the selected text, so that the field's form hears of it.
void ScanGuard::replaceWith(const QString& code)
{
    auto* field = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    if (field && !field->isReadOnly() && !field->property(ScanRecognizer::recognizesScans).toBool()) {
        field->selectAll();
        field->insert(code);
    }
}

bool ScanGuard::isScanExpected() const
{
    const QSharedPointer<BasicForm> form = m_gui.topForm();
    if (!form || !form->rootWidget()) {
        return true;
    }
    const QWidget* focus = QApplication::focusWidget();
    if (qobject_cast<const QAbstractButton*>(focus)) {
        return false;
    }
    return (focus && focus->property(ScanRecognizer::recognizesScans).toBool()) || form->expectsScans();
}
