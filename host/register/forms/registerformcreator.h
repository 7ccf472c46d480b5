// SPDX-License-Identifier: MIT
#pragma once

#include "basicformcreator.h"

/// Creates the register's own forms.
class RegisterFormCreator : public BasicFormCreator
{
public:
    QSharedPointer<BasicForm> create(const Event& event) override;
    QSharedPointer<BasicForm> create(EContext::Code context) override;
};
