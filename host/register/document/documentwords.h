// SPDX-License-Identifier: MIT
#pragma once

#include "document.h"

#include <QString>

/// How the cashier reads of a document.
namespace documentwords
{

/// "Чек № 7", or of a return "Возврат № 9 (чек № 7)".
QString title(const Document& document);

/// What kind of document it is and how far it has come: "Отложен", "Продажа", "Возврат чека № 7".
/// @param returned the sale was returned, or is being returned
QString state(const Document& document, bool returned);

/// What has just become of the document, with what has to be paid out: "Чек № 7 закрыт. Сдача 3,60". Empty while it is
/// open.
QString ending(const Document& document);

/// What has just been voided, with what has to be paid out: "Чек № 7 аннулирован. Верните покупателю 12,40".
/// @param before suspended or closed
QString voiding(const Document& document, Document::State before);

/// The open document came back after the register had ended: which one, and what to do.
QString restored(const Document& document);

} // namespace documentwords
