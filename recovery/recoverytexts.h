// SPDX-License-Identifier: MIT
#pragma once

#include "tr.h"

#include <QStringList>

class AbstractDocument;
class GoodsItem;

/// What the cashier reads of undecided dispenses.
namespace recoverytexts
{

/// Shown while the registry is asked.
tr::Tr asking();

/// The prescription's number, as the patient's paper has it, and the goods.
QString nameOf(const GoodsItem& position);

// What was found out of a position, a sentence each.

tr::Tr registered(const GoodsItem& position, const QString& dispense);
tr::Tr notRegistered(const GoodsItem& position);
tr::Tr cancelled(const GoodsItem& position);
tr::Tr notCancelled(const GoodsItem& position);
tr::Tr undecided(const GoodsItem& position);
/// The registry holds a dispense of this pharmacy that no document has.
tr::Tr unclaimed(const GoodsItem& position, const QString& dispense, double doses);

// The lines of a reconciliation.

tr::Tr reconciliationTitle();
/// @param document AbstractDocument::identifier()
tr::Tr ofDocument(const QString& document, const QString& finding);
/// @param compared how many documents were compared to the end
/// @param undecided of how many the cashier put a decision off
tr::Tr summary(int compared, int undecided);
/// The comparison ended before its last document.
tr::Tr brokenOff(int compared);

/// Nothing went out, because the registry could not be asked.
/// @param positions the undecided ones, see nameOf()
tr::Tr cannotAsk(const tr::Tr& reason, const QStringList& positions, const AbstractDocument& document);

} // namespace recoverytexts
