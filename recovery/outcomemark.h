// SPDX-License-Identifier: MIT
#pragma once

class GoodsItem;

/// The mark of a position whose dispense is undecided: the member "recovery" of its options, with the value "unknown".
/// positionmarks.json says how the register shows it.
namespace outcomemark
{

bool isOn(const GoodsItem& position);
/// @return whether that changed the position
bool set(GoodsItem& position, bool isUndecided);

} // namespace outcomemark
