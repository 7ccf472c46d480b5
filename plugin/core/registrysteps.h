// SPDX-License-Identifier: MIT
#pragma once

#include "restclient.h"
#include "tr.h"

class GoodsItem;

/// What the cashier reads of a request about a position: what is done, and after a failure what is known and what to do
/// next. The failure's own text stands between the two.
namespace registrysteps
{

/// @param number which one it is, from 1
/// @param count how many dispenses are registered at this subtotal
tr::Tr registration(const GoodsItem& position, int number, int count);
tr::Tr cancellation(const GoodsItem& position);

/// @param registered how many dispenses of this subtotal the registry holds
/// @param count how many were to be registered
tr::Tr adviceAfterRegistration(RestClient::Outcome outcome, int registered, int count);
tr::Tr adviceAfterCancellation(RestClient::Outcome outcome);

} // namespace registrysteps
