// SPDX-License-Identifier: MIT
#pragma once

#include "eactiontype.h"

/// The register's own actions, beside those that plug-ins know.
namespace registeraction
{

/// Opens an empty document.
inline constexpr auto openSale = static_cast<control::EActionType>(1001);
/// Puts goods on the document: those of "search" (a barcode), else those that the cashier picks. Opens a document when
/// there is none.
inline constexpr auto addGoods = static_cast<control::EActionType>(1002);
/// Asks for the packs of position "positionNumber".
inline constexpr auto changeQuantity = static_cast<control::EActionType>(1003);
/// Tells the cashier why the key of "text" does nothing now.
inline constexpr auto explainKey = static_cast<control::EActionType>(1004);
/// Cancels position "positionNumber" by action 202; asks first when it belongs to a external document.
inline constexpr auto askToRemovePosition = static_cast<control::EActionType>(1005);
/// Asks whether to give the whole document up, and does it by the action of "by": 131 when absent.
inline constexpr auto askToCancelDocument = static_cast<control::EActionType>(1006);
/// From the payment or the subtotal back to the positions.
inline constexpr auto backToPositions = static_cast<control::EActionType>(1007);
/// Closes the document that stands at its payment; "received" is the cash as the cashier typed it, in roubles.
inline constexpr auto pay = static_cast<control::EActionType>(1008);
/// Puts the document aside.
inline constexpr auto suspend = static_cast<control::EActionType>(1009);
/// Shows the documents suspended and finished.
inline constexpr auto showDocuments = static_cast<control::EActionType>(1010);
/// Takes a closed sale back: that of "number", else of the number that the cashier gives.
inline constexpr auto returnSale = static_cast<control::EActionType>(1011);
/// Annuls the document of "number", else of the number that the cashier gives, by action 224.
inline constexpr auto voidByNumber = static_cast<control::EActionType>(1012);
/// Shows the commands that have no key of their own.
inline constexpr auto showMenu = static_cast<control::EActionType>(1013);

} // namespace registeraction
