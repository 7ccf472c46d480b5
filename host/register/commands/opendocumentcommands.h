// SPDX-License-Identifier: MIT
#pragma once

#include "actionqueuecontroller.h"
#include "question.h"
#include "till.h"

#include <QSharedPointer>

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
    EContext::Result changeQuantity(control::Action& action);
    EContext::Result askToRemovePosition(control::Action& action);
    EContext::Result removePosition(control::Action& action);
    EContext::Result askToCancelDocument(control::Action& action);
    EContext::Result cancelDocument(control::Action& action);
    EContext::Result suspend(control::Action& action);

    QSharedPointer<Position> chosenPosition(const control::Action& action) const;
    bool isStillThere(const QSharedPointer<Position>& position) const;
    Question cancellingQuestion(const Document& document) const;
    bool isReturnBegun(const Document& document) const;

    Till& m_till;
};
