// SPDX-License-Identifier: MIT
#include "inputblocker.h"

#include "runningrequest.h"

#include <QApplication>
#include <QEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QList>
#include <QPointer>
#include <QPointerEvent>
#include <QWidget>
#include <QWindow>

#include <utility>

namespace
{

/// Asks from the event loop, since the question may be a form.
void askToStopWaiting()
{
    QMetaObject::invokeMethod(
        qApp,
        [] {
            if (RunningRequest* request = RunningRequest::current()) {
                request->escape();
            }
        },
        Qt::QueuedConnection);
}

bool isEscape(const QEvent& event)
{
    if (event.type() != QEvent::KeyPress) {
        return false;
    }
    const auto& key = static_cast<const QKeyEvent&>(event);
    return key.key() == Qt::Key_Escape && !key.isAutoRepeat();
}

bool isTapOnStop(const QEvent& event)
{
    if (event.type() != QEvent::MouseButtonPress && event.type() != QEvent::TouchBegin) {
        return false;
    }
    const QPointF place = static_cast<const QPointerEvent&>(event).points().constFirst().globalPosition();
    const QWidget* tapped = QApplication::widgetAt(place.toPoint());
    return tapped && tapped->property("stopsWaiting").toBool();
}

/// Throws input away while it is installed, and remembers the windows that were asked to close.
class InputSink : public QObject
{
public:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (isEscape(*event) || isTapOnStop(*event)) {
            askToStopWaiting();
        }
        switch (event->type()) {
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::Shortcut:
        case QEvent::ShortcutOverride:
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::Wheel:
        case QEvent::TouchBegin:
        case QEvent::TouchUpdate:
        case QEvent::TouchEnd:
        case QEvent::TabletPress:
        case QEvent::TabletMove:
        case QEvent::TabletRelease:
        case QEvent::ContextMenu:
        case QEvent::InputMethod:
        case QEvent::Drop:
            event->accept();
            return true;
        case QEvent::Close:
            event->ignore();
            m_toClose.append(watched);
            return true;
        default:
            return false;
        }
    }

    /// Closes these windows, from the event loop.
    void closeWaiting()
    {
        for (const QPointer<QObject>& waiting : std::exchange(m_toClose, {})) {
            if (auto* window = qobject_cast<QWindow*>(waiting)) {
                QMetaObject::invokeMethod(
                    window, [window] { window->close(); }, Qt::QueuedConnection);
            } else if (auto* widget = qobject_cast<QWidget*>(waiting)) {
                QMetaObject::invokeMethod(
                    widget, [widget] { widget->close(); }, Qt::QueuedConnection);
            }
        }
    }

    /// Throws away the input that the window system still holds.
    void drain()
    {
        if (std::exchange(m_draining, true)) {
            return;
        }
        QGuiApplication::sync();
        m_draining = false;
    }

private:
    QList<QPointer<QObject>> m_toClose;
    bool m_draining = false;
};

/// The number of blockers since the innermost pause.
int depth = 0;
QList<int> depthsBelowPauses;

InputSink& sink()
{
    static InputSink theSink;
    return theSink;
}

void setBlocking(bool blocking)
{
    if (blocking) {
        qApp->installEventFilter(&sink());
    } else {
        qApp->removeEventFilter(&sink());
    }
}

bool hasWindows()
{
    return qobject_cast<QGuiApplication*>(QCoreApplication::instance()) != nullptr;
}

} // namespace

InputBlocker::InputBlocker()
{
    if (depth++ == 0 && hasWindows()) {
        setBlocking(true);
    }
}

InputBlocker::~InputBlocker()
{
    if (depth == 1 && hasWindows()) {
        sink().drain();
        setBlocking(false);
        if (depthsBelowPauses.isEmpty()) {
            sink().closeWaiting();
        }
    }
    --depth;
}

bool InputBlocker::isActive()
{
    return depth > 0;
}

InputBlocker::Pause::Pause()
{
    if (depth > 0 && hasWindows()) {
        sink().drain();
        setBlocking(false);
    }
    depthsBelowPauses.append(std::exchange(depth, 0));
}

InputBlocker::Pause::~Pause()
{
    depth = depthsBelowPauses.takeLast();
    if (depth > 0 && hasWindows()) {
        setBlocking(true);
    }
}
