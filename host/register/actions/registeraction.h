// SPDX-License-Identifier: MIT
#pragma once

#include "eactiontype.h"

/// The register's own actions; plug-ins do not know them.
namespace registeraction
{

/// Opens an empty sale.
inline constexpr auto openSale = static_cast<control::EActionType>(1001);
/// Adds goods to the open document: those with the barcode "search", otherwise those that the cashier picks. Opens a
/// sale when no document is open.
inline constexpr auto addGoods = static_cast<control::EActionType>(1002);
/// Asks how many packs position "positionNumber" is to have.
inline constexpr auto changeQuantity = static_cast<control::EActionType>(1003);
/// Shows why the key labelled "text" with action "action" does nothing now.
inline constexpr auto explainKey = static_cast<control::EActionType>(1004);
/// Removes position "positionNumber" by action 202. Asks first when the position comes from an external document.
inline constexpr auto askToRemovePosition = static_cast<control::EActionType>(1005);
/// Asks whether to cancel the open document, and cancels it by the action "by"; 131 when absent.
inline constexpr auto askToCancelDocument = static_cast<control::EActionType>(1006);
/// Goes back from the payment or the subtotal to the positions.
inline constexpr auto backToPositions = static_cast<control::EActionType>(1007);
/// Closes the document that is being paid. "received" is the cash in roubles, as the cashier typed it; "method" is
/// "cash", or "card" when the card pays what the cash does not; absent: "cash".
inline constexpr auto pay = static_cast<control::EActionType>(1008);
/// Suspends the open document.
inline constexpr auto suspend = static_cast<control::EActionType>(1009);
/// Shows the suspended and the finished documents.
inline constexpr auto showDocuments = static_cast<control::EActionType>(1010);
/// Opens the return of sale "number"; asks for the number when it is absent.
inline constexpr auto returnSale = static_cast<control::EActionType>(1011);
/// Voids document "number" by action 224; asks for the number when it is absent.
inline constexpr auto voidByNumber = static_cast<control::EActionType>(1012);
/// Shows the menu: the commands without a function key.
inline constexpr auto showMenu = static_cast<control::EActionType>(1013);
/// Locks the screen.
inline constexpr auto lock = static_cast<control::EActionType>(1014);
/// Shows the keys of the sales screen, as F1 does there.
inline constexpr auto showHelp = static_cast<control::EActionType>(1015);
/// Opens a sale and executes action "action" with "arguments" (a map) in it.
inline constexpr auto openSaleFor = static_cast<control::EActionType>(1016);

} // namespace registeraction
