// SPDX-License-Identifier: MIT
#pragma once

#include "basicformcreator.h"

/// Makes the form of DispenseChoiceDialog for the register.
class DispenseChoiceFormCreator : public BasicFormCreator
{
public:
    /// Null for any event but DispenseChoiceParams::eventCode. Throws BasicException when the layout lacks a widget.
    QSharedPointer<BasicForm> create(const Event& event) override;

    /// Always null: the form belongs to no context.
    QSharedPointer<BasicForm> create(EContext::Code context) override;
};
