// SPDX-License-Identifier: MIT
#pragma once

#include "dispensechoicedialog.h"
#include "dispenserequest.h"
#include "registrydispense.h"
#include "tr.h"

#include <QList>

class GoodsItem;

/// Asks the cashier which dispense of the registry is that of a request.
namespace dispensequestion
{

/// @param possible those that may be it; empty: the registry shows none
DispenseChoice ask(const GoodsItem& position, const DispenseRequest& request, const QList<RegistryDispense>& possible);
/// The same for a request whose position the till does not have any more, and of which the registry shows nothing.
///
/// @param reason why there are no goods
DispenseChoice ask(const tr::Tr& reason, const DispenseRequest& request);

} // namespace dispensequestion
