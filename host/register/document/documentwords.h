// SPDX-License-Identifier: MIT
#pragma once

#include "document.h"

#include <QString>

/// Texts about a document for the cashier.
namespace documentwords
{

/// "Чек № 7"; for a return "Возврат № 9 (чек № 7)".
QString title(const Document& document);

/// The document's kind or state: "Отложен", "Продажа", "Возврат чека № 7".
/// @param returned how much of the sale was returned or is being returned
QString state(const Document& document, Document::Returned returned);

/// What just happened to the document, and the amount to pay out: "Чек № 7 закрыт. Сдача 3,60". Empty while it is open.
QString ending(const Document& document);

/// What was just voided, and the amount to pay out: "Чек № 7 аннулирован. Верните покупателю 12,40".
/// @param before the state before: suspended or closed
QString voiding(const Document& document, Document::State before);

/// The open document was restored when the register started: which one it is, and what to do.
QString restored(const Document& document);

} // namespace documentwords
