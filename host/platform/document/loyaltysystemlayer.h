// SPDX-License-Identifier: MIT
#pragma once

#include "abstractdocument.h"
#include "export.h"
#include "singleton.h"

#include <QSharedPointer>

#include <functional>

/// Discounts and totals: whoever changes a price has the document recalculated here.
class REGISTERPLATFORM_EXPORT LoyaltySystemLayer
{
public:
    LoyaltySystemLayer() = default;
    virtual ~LoyaltySystemLayer();
    LoyaltySystemLayer(const LoyaltySystemLayer&) = delete;
    LoyaltySystemLayer& operator=(const LoyaltySystemLayer&) = delete;

    /// Works discounts and totals of `document` out anew; does nothing for null.
    virtual void recalculate(const QSharedPointer<AbstractDocument>& document);

    /// For the host: what a recalculation does. Without one nothing depends on prices.
    void setRecalculation(std::function<void(AbstractDocument&)> recalculation);

private:
    std::function<void(AbstractDocument&)> m_recalculation;
};

extern template struct REGISTERPLATFORM_EXPORT Singleton<LoyaltySystemLayer>;
