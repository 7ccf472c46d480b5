// SPDX-License-Identifier: MIT
#pragma once

#include "tilldocuments.h"

#include <QStringList>

/// The documents that a former run of the register left with an undecided request, and that nothing leads back to: the
/// till has closed, cancelled or voided them, or does not have them. One that is open or suspended is settled when the
/// cashier goes on with it.
///
/// @return AbstractDocument::identifier() of each, in the order of their requests; empty for a request without one
QStringList undecidedDocuments(TillDocuments& documents);
