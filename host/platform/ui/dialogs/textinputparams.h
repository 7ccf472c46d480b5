// SPDX-License-Identifier: MIT
#pragma once

#include "export.h"
#include "tr.h"

#include <QMetaType>
#include <QString>

/// The texts and the rules of a text input.
struct REGISTERPLATFORM_EXPORT TextInputParams {
    tr::Tr title;
    tr::Tr message;          ///< the prompt; may have several lines
    tr::Tr scanError;        ///< shown when a scan does not fit the mask; empty: the register's own words
    tr::Tr okText;           ///< empty: the register's own
    tr::Tr cancelText;       ///< empty: the register's own
    QString inputName;       ///< names the input for integrators and scripts, for example "inputCard"
    QString initialText;     ///< in the field at first, selected
    QString mask;            ///< a regular expression that the whole text must match; empty: anything
    bool numeric = false;    ///< a keypad of digits in touch mode; a comma is taken as a point
    bool manualOnly = false; ///< a scan is refused, in the register's own words: the value has to be typed
    int lines = 1;           ///< height of the field, in lines
    int columns = 0;         ///< width of the field, in characters; 0: all the room
    tr::Tr hint = {};        ///< beside the field, always: what may be entered; empty: none
    bool required = false;   ///< OK in an empty field, or one of blanks, says that it is empty, and asks on
};

Q_DECLARE_METATYPE(TextInputParams)
