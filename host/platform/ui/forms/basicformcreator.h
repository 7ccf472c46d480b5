// SPDX-License-Identifier: MIT
#pragma once

#include "basicform.h"
#include "econtext.h"
#include "event.h"
#include "export.h"

#include <QSharedPointer>

/// Makes the forms of a plug-in.
class REGISTERPLATFORM_EXPORT BasicFormCreator
{
public:
    BasicFormCreator() = default;
    virtual ~BasicFormCreator();
    Q_DISABLE_COPY_MOVE(BasicFormCreator)

    /// The form for an event; null when this creator has none.
    virtual QSharedPointer<BasicForm> create(const Event& event) = 0;
    /// The form for a context; null when this creator has none.
    virtual QSharedPointer<BasicForm> create(EContext::Code context) = 0;
};
