// SPDX-License-Identifier: MIT
#include "taptips.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QTimer>
#include <QWidget>

namespace
{

bool works(const QWidget& widget)
{
    return qobject_cast<const QAbstractButton*>(&widget) && widget.isEnabled();
}

} // namespace

TapTips::TapTips(QObject* parent)
    : QObject(parent)
{
    QCoreApplication::instance()->installEventFilter(this);
}

/// The tip comes after the tap: Qt hides tool tips at every press and release.
bool TapTips::eventFilter(QObject* watched, QEvent* event)
{
    auto* widget = qobject_cast<QWidget*>(watched);
    if (event->type() != QEvent::MouseButtonRelease || !widget || works(*widget)) {
        return false;
    }
    const QPoint place = static_cast<QMouseEvent*>(event)->position().toPoint();
    QTimer::singleShot(0, widget, [widget, place] {
        if (widget->isVisible()) {
            QHelpEvent help(QEvent::ToolTip, place, widget->mapToGlobal(place));
            QCoreApplication::sendEvent(widget, &help);
        }
    });
    return false;
}
