// SPDX-License-Identifier: MIT
#pragma once

#include "export.h"
#include "tr.h"

#include <QMetaType>
#include <QString>

/// What a text input shows and takes.
struct REGISTERPLATFORM_EXPORT TextInputParams {
    tr::Tr title;
    tr::Tr message;   ///< the prompt; may have several lines
    tr::Tr scanError; ///< shown when a scan does not fit the mask
    tr::Tr okText;
    tr::Tr cancelText;
    QString inputName;       ///< names the input for integrators and scripts, for example "inputCard"
    QString initialText;     ///< stands in the field, selected
    QString mask;            ///< a regular expression that the whole text must match; empty: anything
    bool numeric = false;    ///< a keypad of digits in touch mode; a comma is taken as a point
    bool manualOnly = false; ///< typed only: a scan is refused with scanError
    int lines = 1;           ///< height of the field, in lines
    int columns = 0;         ///< width of the field, in characters; 0: the room there is
};

Q_DECLARE_METATYPE(TextInputParams)
