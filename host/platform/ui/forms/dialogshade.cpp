// SPDX-License-Identifier: MIT
#include "dialogshade_p.h"

#include <QEvent>
#include <QPainter>

namespace
{

/// The least room around a dialog, in pixels.
constexpr int margin = 16;

} // namespace

DialogShade::DialogShade(QWidget& dialog)
    : QWidget(dialog.parentWidget())
    , m_dialog(dialog)
{
    setFocusPolicy(Qt::NoFocus);
    connect(&dialog, &QObject::destroyed, this, &QObject::deleteLater);
    dialog.installEventFilter(this);
    parentWidget()->installEventFilter(this);
    place();
    show();
    dialog.raise();
}

bool DialogShade::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == parentWidget()) {
        if (event->type() == QEvent::Resize) {
            place();
        }
        return false;
    }
    switch (event->type()) {
    case QEvent::LayoutRequest:
        place();
        break;
    case QEvent::Show:
        show();
        break;
    case QEvent::Hide:
        hide();
        break;
    case QEvent::ParentChange:
        hide();
        deleteLater();
        break;
    default:
        break;
    }
    return false;
}

void DialogShade::paintEvent(QPaintEvent*)
{
    QPainter(this).fillRect(rect(), QColor(0, 0, 0, 96));
}

void DialogShade::place()
{
    const QRect room = parentWidget()->rect();
    setGeometry(room);
    const QSize most = room.size() - QSize(2 * margin, 2 * margin);
    QRect frame(QPoint(), m_dialog.sizeHint().expandedTo(m_dialog.minimumSize()).boundedTo(most));
    frame.moveCenter(room.center());
    m_dialog.setGeometry(frame);
}
