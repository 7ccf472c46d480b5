// SPDX-License-Identifier: MIT
#pragma once

#include "basicformcreator.h"

/// Makes the plug-in's forms for the register.
class ElectronicPrescriptionFormCreator : public BasicFormCreator
{
public:
    /// The form for one of the plug-in's events; null for any other event. Without "params" of the form's record type
    /// the form is built from a default record. Throws BasicException when the form's layout lacks a required widget.
    QSharedPointer<BasicForm> create(const Event& event) override;

    /// Always null: no form of this plug-in belongs to a context.
    QSharedPointer<BasicForm> create(EContext::Code context) override;
};
