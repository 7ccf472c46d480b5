// SPDX-License-Identifier: MIT
#pragma once

#include "eactiontype.h"

/// The register's own actions, beside those that plug-ins know.
namespace registeraction
{

/// Opens an empty receipt.
inline constexpr auto openReceipt = static_cast<control::EActionType>(1001);
/// Puts goods on the receipt: those of "search" (a barcode), else those that the cashier picks. Opens a receipt when
/// there is none.
inline constexpr auto addGoods = static_cast<control::EActionType>(1002);
/// Asks for the packs of position "positionNumber".
inline constexpr auto changeQuantity = static_cast<control::EActionType>(1003);
/// Takes position "positionNumber" off the receipt, unless it belongs to a foreign paper.
inline constexpr auto removePosition = static_cast<control::EActionType>(1005);
/// Tells the cashier why the key of "text" does nothing now.
inline constexpr auto explainKey = static_cast<control::EActionType>(1004);

} // namespace registeraction
