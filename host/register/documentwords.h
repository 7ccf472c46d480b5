// SPDX-License-Identifier: MIT
#pragma once

#include "receipt.h"

#include <QString>

/// How the cashier reads of a document.
namespace documentwords
{

/// "Чек № 7", or of a cancelling document "Возврат № 9 (чек № 7)".
QString title(const Receipt& document);

/// What kind of document it is and how far it has come: "Отложен", "Продажа", "Возврат чека № 7".
/// @param takenBack the sale was taken back, or is being taken back
QString state(const Receipt& document, bool takenBack);

/// What has just become of the document, with what has to be paid out: "Чек № 7 закрыт. Сдача 3,60". Empty while it is
/// open.
QString ending(const Receipt& document);

/// What has just been annulled, with what has to be paid out: "Чек № 7 аннулирован. Верните покупателю 12,40".
/// @param before put aside or closed
QString annulment(const Receipt& document, Receipt::State before);

/// The open document came back after the register had ended: which one, and what to do.
QString restored(const Receipt& document);

} // namespace documentwords
