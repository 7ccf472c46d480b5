// SPDX-License-Identifier: MIT
#pragma once

#include "tr.h"

#include <QDateTime>
#include <QStringList>

class AbstractDocument;
class GoodsItem;
struct DispenseRequest;

/// What the cashier reads of undecided dispenses.
namespace recoverytexts
{

/// Shown while the registry is asked.
tr::Tr asking();

/// The prescription's number, as the patient's paper has it, and the goods.
QString nameOf(const GoodsItem& position);
/// Empty for 0.
QString dosesText(double doses);
/// Day and time here; empty when there is none.
QString timeText(const QDateTime& time);

// What was found out of a position, a sentence each.

tr::Tr registered(const GoodsItem& position, const QString& dispense);
tr::Tr notRegistered(const GoodsItem& position);
tr::Tr cancelled(const GoodsItem& position);
/// The same of a closed sale, whose customer has the goods.
tr::Tr cancelledButSold(const GoodsItem& position);
tr::Tr notCancelled(const GoodsItem& position);
tr::Tr undecided(const GoodsItem& position);
/// The registry holds the dispense of a sale that was cancelled or voided.
tr::Tr heldInVain(const GoodsItem& position, const QString& dispense);
/// The registry holds a dispense of this pharmacy that no document has.
tr::Tr unclaimed(const GoodsItem& position, const QString& dispense, double doses);

// What was found out of a request whose position or document the till does not have any more, a sentence each.

tr::Tr notRegistered(const DispenseRequest& request);
tr::Tr undecided(const DispenseRequest& request);
tr::Tr heldInVain(const DispenseRequest& request, const QString& dispense);
/// The document does not have the position.
tr::Tr withoutPosition();
/// The till does not have the document.
tr::Tr withoutDocument(const DispenseRequest& request);
/// The same; the registry has confirmed the request.
tr::Tr doneWithoutDocument(const DispenseRequest& request);

// The lines of a reconciliation.

tr::Tr reconciliationTitle();
/// @param document AbstractDocument::identifier()
tr::Tr ofDocument(const QString& document, const QString& finding);
/// @param compared how many documents were compared to the end
/// @param undecided of how many something is not decided
tr::Tr summary(int compared, int undecided);
/// The comparison ended before its last document.
tr::Tr brokenOff(int compared);

/// Nothing went out, because the registry could not be asked.
/// @param positions the undecided ones, see nameOf()
tr::Tr cannotAsk(const tr::Tr& reason, const QStringList& positions, const AbstractDocument& document);
/// The registry does not know the document's card, so that it shows none of its prescriptions.
/// @param reason the registry's words
tr::Tr cardRefused(const tr::Tr& reason);
/// The same in a reconciliation that has nothing to decide.
tr::Tr cardNotCompared(const tr::Tr& reason);
/// Nothing went out, because the registry has not shown the ids of these dispenses.
/// @param positions see nameOf()
tr::Tr withoutIds(const QStringList& positions, const AbstractDocument& document);

// What the cashier keeps in mind, in the status line.

/// @param documents AbstractDocument::identifier() of each; empty for a request without a document
tr::Tr undecidedDocuments(const QStringList& documents);
tr::Tr journalDamaged();
/// Why the plug-in stays idle.
tr::Tr journalMissing();

} // namespace recoverytexts
