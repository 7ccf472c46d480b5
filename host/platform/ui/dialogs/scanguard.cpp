// SPDX-License-Identifier: MIT
#include "scanguard_p.h"

#include "graphicaluserinterface.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>

ScanGuard::ScanGuard(const GraphicalUserInterface& gui)
    : m_gui(gui)
    , m_recognizer(ScanRecognizer::configured())
{
    qApp->installEventFilter(this);
}

bool ScanGuard::eventFilter(QObject* watched, QEvent* event)
{
    return event->type() == QEvent::KeyPress && watched->isWindowType() &&
           m_recognizer.take(*static_cast<QKeyEvent*>(event), {}) && !isScanExpected();
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
