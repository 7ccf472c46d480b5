// SPDX-License-Identifier: MIT
#pragma once

#include "abstractdocument.h"
#include "export.h"
#include "singleton.h"

#include <QSharedPointer>

/// Discounts and totals: after a change of price the document is recalculated here.
///
/// The host puts a layer of its own into the Singleton. This one changes nothing.
class REGISTERPLATFORM_EXPORT LoyaltySystemLayer
{
public:
    LoyaltySystemLayer() = default;
    virtual ~LoyaltySystemLayer();
    Q_DISABLE_COPY_MOVE(LoyaltySystemLayer)

    /// Calculates the discounts and totals of `document` again; does nothing for null.
    virtual void recalculate(const QSharedPointer<AbstractDocument>& document);
};

extern template struct REGISTERPLATFORM_EXPORT Singleton<LoyaltySystemLayer>;
