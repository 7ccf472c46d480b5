// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

/// A text as names are compared and searched: without case, "ё" as "е", blanks of every kind as one, none at the ends.
QString searchText(const QString& text);

/// The words of a search, as searchText(). What has them all, in any order, is found.
QStringList searchWords(const QString& search);

/// A search text as the same keys give it on the other layout of the keyboard, English or Russian. Characters that both
/// layouts have in the same place stay as they are.
QString onOtherLayout(const QString& searchText);
