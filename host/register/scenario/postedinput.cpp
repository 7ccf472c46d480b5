// SPDX-License-Identifier: MIT
#include "postedinput.h"

#include <QApplication>
#include <QEvent>
#include <QKeySequence>
#include <QWidget>
#include <QWindow>

#include <algorithm>

using namespace Qt::StringLiterals;

// Qt's own entry points for window system events; QTest uses them too.
QT_BEGIN_NAMESPACE
Q_GUI_EXPORT void qt_handleKeyEvent(QWindow* window, QEvent::Type type, int key, Qt::KeyboardModifiers modifiers,
                                    const QString& text, bool autoRepeat, ushort count);
Q_GUI_EXPORT void qt_handleMouseEvent(QWindow* window, const QPointF& local, const QPointF& global,
                                      Qt::MouseButtons state, Qt::MouseButton button, QEvent::Type type,
                                      Qt::KeyboardModifiers modifiers, int timestamp);
QT_END_NAMESPACE

namespace
{

/// Delivers one event from the event loop: the entry points of Qt return only after a dialog that the input opened has
/// ended.
template <typename Delivery>
void post(QWindow* window, const Delivery& delivery)
{
    QMetaObject::invokeMethod(window, delivery, Qt::QueuedConnection);
}

bool press(int key, Qt::KeyboardModifiers modifiers, const QString& text)
{
    const QWidget* active = postedinput::activeWindow();
    QWindow* window = active ? active->windowHandle() : nullptr;
    if (!window) {
        return false;
    }
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        post(window, [=] { qt_handleKeyEvent(window, type, key, modifiers, text, false, 1); });
    }
    return true;
}

/// The text of a key event for a key without a printable character.
QString textOf(Qt::Key key)
{
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return u"\r"_s;
    case Qt::Key_Escape:
        return u"\x1b"_s;
    case Qt::Key_Backspace:
        return u"\b"_s;
    case Qt::Key_Tab:
        return u"\t"_s;
    case Qt::Key_Space:
        return u" "_s;
    default:
        return {};
    }
}

} // namespace

namespace postedinput
{

QWidget* activeWindow()
{
    if (QWidget* modal = QApplication::activeModalWidget()) {
        return modal;
    }
    if (QWidget* active = QApplication::activeWindow()) {
        return active;
    }
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto visible = std::find_if(windows.cbegin(), windows.cend(),
                                      [](const QWidget* window) { return window->isWindow() && window->isVisible(); });
    return visible == windows.cend() ? nullptr : *visible;
}

std::optional<QKeyCombination> keyNamed(const QString& name)
{
    const QKeySequence keys = QKeySequence::fromString(name, QKeySequence::PortableText);
    if (keys.count() != 1 || keys[0].key() == Qt::Key_unknown) {
        return std::nullopt;
    }
    return keys[0];
}

bool pressKey(QKeyCombination key)
{
    return press(key.key(), key.keyboardModifiers(), textOf(key.key()));
}

bool typeCharacter(char32_t character)
{
    const bool isBasic = !QChar::requiresSurrogates(character);
    return press(isBasic ? int(QChar::toUpper(character)) : int(Qt::Key_unknown), Qt::NoModifier,
                 QString::fromUcs4(&character, 1));
}

bool canBeClicked(const QWidget& widget)
{
    return widget.visibleRegion().contains(widget.rect().center());
}

void click(QWidget& widget)
{
    QWindow* window = widget.window()->windowHandle();
    if (!window) {
        return;
    }
    static int time = 0;                             // milliseconds
    time += 2 * QApplication::doubleClickInterval(); // two clicks are no double click
    const QPointF local = widget.mapTo(widget.window(), widget.rect().center());
    const QPointF global = widget.mapToGlobal(widget.rect().center());
    post(window, [=, now = time] {
        qt_handleMouseEvent(window, local, global, Qt::LeftButton, Qt::LeftButton, QEvent::MouseButtonPress,
                            Qt::NoModifier, now);
    });
    post(window, [=, now = time] {
        qt_handleMouseEvent(window, local, global, Qt::NoButton, Qt::LeftButton, QEvent::MouseButtonRelease,
                            Qt::NoModifier, now);
    });
}

} // namespace postedinput
