// SPDX-License-Identifier: MIT
#pragma once

#include "receiptlayout.h"

#include <QByteArray>
#include <QList>
#include <QString>

/// The lines of a document as PDF: a strip of 80 mm paper, as long as they need, its font embedded. More lines than fit
/// on one strip go on over further ones.
/// @param title tells what the document is, in its properties
QByteArray receiptPdf(const QList<PrintedLine>& lines, const QString& title);
