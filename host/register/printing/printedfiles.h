// SPDX-License-Identifier: MIT
#pragma once

#include "expected.h"
#include "receiptlayout.h"

#include <QList>
#include <QString>

/// What is printed: two files, one of text and one of PDF, which differ in their endings. A `name` is theirs without
/// the ending, relative to the data folder.
namespace printedfiles
{

QString text(const QString& name);
QString pdf(const QString& name);

/// True when both are there.
/// @param folder the data folder
bool areThere(const QString& folder, const QString& name);

/// Writes both, each whole or not at all. Only their owner can read them.
/// @param title in the properties of the PDF
Expected<void> write(const QString& folder, const QString& name, const QList<PrintedLine>& lines, const QString& title);

} // namespace printedfiles
