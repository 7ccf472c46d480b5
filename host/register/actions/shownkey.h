// SPDX-License-Identifier: MIT
#pragma once

#include <QKeySequence>
#include <QString>

/// The key as the cashier reads it: "F6". Empty in touch mode: there are buttons, and no text names a key.
QString shownKey(const QKeySequence& key);

/// A button's text after its key: "F6 Взять в работу"; the text alone when no key is shown.
QString withShownKey(const QKeySequence& key, const QString& text);
