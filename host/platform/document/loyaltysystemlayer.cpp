// SPDX-License-Identifier: MIT
#include "loyaltysystemlayer.h"

#include <utility>

template struct Singleton<LoyaltySystemLayer>;

LoyaltySystemLayer::~LoyaltySystemLayer() = default;

void LoyaltySystemLayer::recalculate(const QSharedPointer<AbstractDocument>& document)
{
    if (document && m_recalculation) {
        m_recalculation(*document);
    }
}

void LoyaltySystemLayer::setRecalculation(std::function<void(AbstractDocument&)> recalculation)
{
    m_recalculation = std::move(recalculation);
}
