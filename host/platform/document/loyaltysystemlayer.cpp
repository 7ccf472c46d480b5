// SPDX-License-Identifier: MIT
#include "loyaltysystemlayer.h"

template struct Singleton<LoyaltySystemLayer>;

LoyaltySystemLayer::~LoyaltySystemLayer() = default;

void LoyaltySystemLayer::recalculate(const QSharedPointer<AbstractDocument>& /*document*/) {}
