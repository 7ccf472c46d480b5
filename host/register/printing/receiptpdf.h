// SPDX-License-Identifier: MIT
#pragma once

#include "receiptlayout.h"

#include <QByteArray>
#include <QList>
#include <QString>

/// The lines of a receipt as PDF: a strip of paper, 80 mm wide and as long as the lines need, with the font embedded.
/// Lines beyond the longest page continue on further pages.
/// @param title the title in the properties of the PDF
QByteArray receiptPdf(const QList<PrintedLine>& lines, const QString& title);
