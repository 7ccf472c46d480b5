// SPDX-License-Identifier: MIT
#pragma once

#include "export.h"

#include <QColor>
#include <QList>
#include <QSize>
#include <QString>
#include <QVariant>

class QApplication;
class QWidget;

/// The register's colours, named after their use. The style sheet refers to them by "@" and the member's name.
struct REGISTERPLATFORM_EXPORT RegisterColours {
    QColor ground{0xf3, 0xf5, 0xf8};    ///< behind everything
    QColor panel{0xff, 0xff, 0xff};     ///< inputs, tables, dialogs
    QColor raised{0xe4, 0xe8, 0xee};    ///< buttons, headers
    QColor pressed{0xcd, 0xd4, 0xdd};   ///< a button under the finger
    QColor text{0x15, 0x18, 0x1d};      ///< ordinary text
    QColor mutedText{0x47, 0x4f, 0x5b}; ///< captions, hints, disabled controls
    QColor line{0x7a, 0x83, 0x90};      ///< frames of controls
    QColor accent{0x15, 0x63, 0xb5};    ///< the one thing to do next, and the focus
    QColor onAccent{0xff, 0xff, 0xff};  ///< text on accent
    QColor selection{0xcf, 0xe3, 0xf8}; ///< the current row
    QColor alternate{0xf5, 0xf7, 0xfa}; ///< every second row
    QColor error{0xb0, 0x1e, 0x1e};     ///< only errors
    QColor waiting{0xff, 0xd9, 0x8a};   ///< only what waits, as a ground
    QColor onWaiting{0x4a, 0x30, 0x00}; ///< text on waiting

    /// A text colour and the ground that the style sheet puts it on.
    struct Pair {
        QColor text;
        QColor ground;
    };
    /// All such pairs.
    QList<Pair> textPairs() const;

    /// The contrast ratio of two colours, 1 to 21, as WCAG 2.1 defines it
    /// (https://www.w3.org/TR/WCAG21/#dfn-contrast-ratio).
    static double contrast(const QColor& one, const QColor& other);
};

/// Sets a dynamic property that the style sheet selects by, and applies the style sheet to the widget again.
REGISTERPLATFORM_EXPORT void setStyleProperty(QWidget& widget, const QString& name, const QVariant& value);

/// The size of ordinary text, in points, in a window of that size in pixels. A larger window has larger text.
REGISTERPLATFORM_EXPORT int registerTextSize(const QSize& window);

/// A length as it is in the smallest window, in pixels, grown as the text has grown by applyRegisterStyle(): for what
/// holds text and has no size hint of its own.
REGISTERPLATFORM_EXPORT int scaledPixels(int pixels);

/// The style sheet with its colours and sizes filled in.
/// @param touch with targets for fingers: at least 44 px
/// @param textSize the size of ordinary text, in points; larger type is measured by it
REGISTERPLATFORM_EXPORT QString registerStyleSheet(bool touch, int textSize);

/// Sets the application's looks: the Fusion style, the register's colours, a font for a window of that size in pixels,
/// and the style sheet, with targets for fingers in touch mode. To be called once, before the first window.
REGISTERPLATFORM_EXPORT void applyRegisterStyle(QApplication& application, const QSize& window);
