// SPDX-License-Identifier: MIT
#pragma once

#include "actionqueuecontroller.h"
#include "cardtransfers.h"
#include "question.h"
#include "till.h"

#include <QSharedPointer>

#include <optional>

/// What the register does with the open document and its positions, up to the payment.
class OpenDocumentCommands
{
public:
    /// @param till not owned
    explicit OpenDocumentCommands(Till& till);

    /// Makes the register handle its actions. The object has to outlive the controller's use of them.
    void offer(ActionQueueController& controller);

private:
    EContext::Result openSale(control::Action& action);
    EContext::Result askToRemovePosition(control::Action& action);
    EContext::Result removePosition(control::Action& action);
    EContext::Result askToCancelDocument(control::Action& action);
    EContext::Result cancelDocument(control::Action& action);
    EContext::Result suspend(control::Action& action);

    std::optional<Obstacle> obstacleBeforeHooks(const control::Action& action) const;
    QSharedPointer<Position> positionOf(const control::Action& action) const;
    Question cancellingQuestion(const Document& document) const;
    tr::Tr cancellingText(const Document& document) const;
    bool isReturnBegun(const Document& document) const;

    Till& m_till;
    CardTransfers m_cards;
};
